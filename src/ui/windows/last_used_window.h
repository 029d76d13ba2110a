#pragma once

#include <windows.h>

namespace orvenza {

/// The window that the operator used last, among those that can be used now: what Alt+Tab would offer first.
/// Null when there is none.
HWND LastUsedWindow();

}  // namespace orvenza
