#pragma once

#include <windows.h>

#include <string>

namespace orvenza {

/// A window with its procedure. Gone when the object is.
class Window {
 public:
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  /// Null once the window is gone.
  HWND Handle() const { return handle_; }

 protected:
  Window() = default;
  virtual ~Window() { Destroy(); }

  /// Makes the window, not yet visible, at the screen's upper left corner. Throws SystemError.
  void Create(const wchar_t* className, const std::string& caption, DWORD style, DWORD extendedStyle,
              HWND parentOrOwner, int id = 0);

  void Destroy();

  /// Answers a message. Must not throw: the system is its caller.
  virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

  HWND handle_ = nullptr;
};

/// The program's own icon in `size` pixels; the system's for a program without one. Kept for the program's
/// life: never to be destroyed.
HICON ProgramIcon(int size);

}  // namespace orvenza
