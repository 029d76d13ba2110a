#pragma once

#include <windows.h>

#include "platform/windows/unique_handle.h"

namespace orvenza {

/// Holds up the end of the session until the program has ended in order.
///
/// The system ends a program as soon as its windows have heard of the session's end, and the program's own
/// thread can end in order only after its window has returned from hearing it. So a window on a thread of its
/// own hears it too, and returns only when this object is gone, or when the system loses its patience.
class SessionGuard {
 public:
  /// `form` is asked to close when the session ends.
  explicit SessionGuard(HWND form);
  ~SessionGuard();
  SessionGuard(const SessionGuard&) = delete;
  SessionGuard& operator=(const SessionGuard&) = delete;

 private:
  static DWORD WINAPI Run(void* self);
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

  HWND form_;
  ObjectHandle ready_;  ///< Set when the thread can be asked to end.
  ObjectHandle ended_;  ///< Set when the program has ended.
  ObjectHandle thread_;
  DWORD threadId_ = 0;
};

}  // namespace orvenza
