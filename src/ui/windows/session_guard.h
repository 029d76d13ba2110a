#pragma once

#include <windows.h>

#include "platform/windows/unique_handle.h"

namespace orvenza {

/// Holds up the end of the Windows session until the program has ended in order.
///
/// The system ends a program as soon as its windows have processed the session's end, but the main thread can
/// end in order only after its window procedure has returned. So a window on a thread of its own receives the
/// message too, and returns only when this object is destroyed or the system's timeout expires.
class SessionGuard {
 public:
  /// `form` receives the request to close when the session ends.
  explicit SessionGuard(HWND form);
  ~SessionGuard();
  SessionGuard(const SessionGuard&) = delete;
  SessionGuard& operator=(const SessionGuard&) = delete;

 private:
  static DWORD WINAPI Run(void* self);
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

  HWND form_;
  ObjectHandle ready_;  ///< Set when the thread can be stopped.
  ObjectHandle ended_;  ///< Set when the program has ended.
  ObjectHandle thread_;
  DWORD threadId_ = 0;
};

}  // namespace orvenza
