#include "ui/windows/window.h"

#include <map>

#include "platform/system_error.h"
#include "platform/windows/wide.h"
#include "ui/windows/gdi_objects.h"

namespace orvenza {
namespace {

constexpr int kProgramIcon = 1;

void RegisterClassOnce(const wchar_t* name, WNDPROC procedure) {
  WNDCLASSEXW form{};
  form.cbSize = sizeof form;
  if (GetClassInfoExW(GetModuleHandleW(nullptr), name, &form)) return;
  form.cbSize = sizeof form;
  form.lpfnWndProc = procedure;
  form.hInstance = GetModuleHandleW(nullptr);
  form.hIcon = ProgramIcon(GetSystemMetrics(SM_CXICON));
  form.hIconSm = ProgramIcon(GetSystemMetrics(SM_CXSMICON));
  form.hCursor = LoadCursor(nullptr, IDC_ARROW);
  form.hbrBackground = FormBrush();
  form.lpszClassName = name;
  RegisterClassExW(&form);
}

}  // namespace

void Window::Create(const wchar_t* className, const std::string& caption, DWORD style, DWORD extendedStyle,
                    HWND parentOrOwner, int id) {
  RegisterClassOnce(className, &Window::Procedure);
  const auto menuOrId = reinterpret_cast<HMENU>(static_cast<INT_PTR>(id));
  CreateWindowExW(extendedStyle, className, ToWide(caption).c_str(), style, 0, 0, 0, 0, parentOrOwner,
                  menuOrId, GetModuleHandleW(nullptr), this);
  if (handle_ == nullptr) throw SystemError(error_number::kOutOfMemory, caption);
}

void Window::Destroy() {
  if (handle_ == nullptr) return;
  const HWND window = handle_;
  handle_ = nullptr;
  SetWindowLongPtrW(window, GWLP_USERDATA, 0);
  DestroyWindow(window);
}

LRESULT Window::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  return DefWindowProcW(handle_, message, wParam, lParam);
}

LRESULT CALLBACK Window::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  if (message == WM_NCCREATE) {
    auto* const created = reinterpret_cast<const CREATESTRUCTW*>(lParam);
    auto* const self = static_cast<Window*>(created->lpCreateParams);
    self->handle_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
  }
  auto* const self = reinterpret_cast<Window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  if (message == WM_NCDESTROY) {
    // Destroyed with its owner, or closed by the system.
    self->handle_ = nullptr;
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    return DefWindowProcW(window, message, wParam, lParam);
  }
  return self->OnMessage(message, wParam, lParam);
}

HICON ProgramIcon(int size) {
  // LR_SHARED would return the size that was loaded first, whichever is requested.
  static std::map<int, HICON> loaded;
  const auto [entry, isNew] = loaded.try_emplace(size);
  HICON& icon = entry->second;
  if (isNew)
    icon = static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(kProgramIcon),
                                         IMAGE_ICON, size, size, LR_DEFAULTCOLOR));
  return icon != nullptr ? icon : LoadIcon(nullptr, IDI_APPLICATION);
}

}  // namespace orvenza
