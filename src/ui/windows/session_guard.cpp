#include "ui/windows/session_guard.h"

#include "core/own_texts.h"
#include "platform/windows/wide.h"
#include "ui/windows/names.h"

namespace orvenza {

SessionGuard::SessionGuard(HWND form)
    : form_(form),
      ready_(CreateEventW(nullptr, TRUE, FALSE, nullptr)),
      ended_(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
  if (!ready_.Valid() || !ended_.Valid()) return;
  thread_ = ObjectHandle(CreateThread(nullptr, 0, &SessionGuard::Run, this, 0, &threadId_));
  if (thread_.Valid()) WaitForSingleObject(ready_.Get(), INFINITE);
}

SessionGuard::~SessionGuard() {
  if (!thread_.Valid()) return;
  SetEvent(ended_.Get());
  PostThreadMessageW(threadId_, WM_QUIT, 0, 0);
  WaitForSingleObject(thread_.Get(), INFINITE);
}

/// The thread's whole work. It touches nothing of the program but this object's handles.
DWORD WINAPI SessionGuard::Run(void* self) {
  WNDCLASSW guard{};
  guard.lpfnWndProc = &SessionGuard::Procedure;
  guard.hInstance = GetModuleHandleW(nullptr);
  guard.lpszClassName = window_class::kOrvSession;
  RegisterClassW(&guard);
  const HWND window = CreateWindowExW(0, guard.lpszClassName, L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                                      guard.hInstance, nullptr);
  if (window != nullptr) SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
  MSG message{};
  PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);  // creates the queue that WM_QUIT is posted to
  SetEvent(static_cast<SessionGuard*>(self)->ready_.Get());
  while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  if (window != nullptr) DestroyWindow(window);
  return 0;
}

LRESULT CALLBACK SessionGuard::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  const auto* const self = reinterpret_cast<const SessionGuard*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  switch (message) {
    case WM_QUERYENDSESSION:
      // Without a reason the system ends a program without visible windows after a few seconds.
      ShutdownBlockReasonCreate(window, ToWide(own_text::kCompletesReceipt).c_str());
      return TRUE;
    case WM_ENDSESSION:
      if (wParam != FALSE) {
        PostMessageW(self->form_, WM_CLOSE, 0, 0);
        WaitForSingleObject(self->ended_.Get(), INFINITE);
      }
      ShutdownBlockReasonDestroy(window);
      return 0;
    default: return DefWindowProcW(window, message, wParam, lParam);
  }
}

}  // namespace orvenza
