#pragma once

#include <windows.h>

namespace orvenza {

/// The usable window that the operator used last: the first one that Alt+Tab would offer. Null when there is
/// none but `except`.
HWND LastUsedWindow(HWND except = nullptr);

}  // namespace orvenza
