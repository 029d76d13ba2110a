#pragma once

#include <windows.h>

#include <string>

namespace orvenza {

/// A window with its procedure. Destroying the object destroys the window.
class Window {
 public:
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  /// Null once the window is gone.
  HWND Handle() const { return handle_; }

 protected:
  Window() = default;
  virtual ~Window() { Destroy(); }

  /// Creates the window, hidden, at the screen's upper left corner. Throws SystemError.
  void Create(const wchar_t* className, const std::string& caption, DWORD style, DWORD extendedStyle,
              HWND parentOrOwner, int id = 0);

  void Destroy();

  /// Handles a message. Must not throw: the system is its caller.
  virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

  HWND handle_ = nullptr;
};

/// The program's own icon in `size` pixels, or the system's if the program has none. Owned by the program:
/// never destroy it.
HICON ProgramIcon(int size);

}  // namespace orvenza
