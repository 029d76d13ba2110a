#pragma once

#include <windows.h>

#include "ui/layout.h"

namespace orvenza {

/// Pixels an inch of the screen that `window` is on; those of the whole desktop where the system knows no
/// difference.
int DpiOf(HWND window);

/// Size of small icons, as in a title bar, on a screen of `dpi` pixels an inch.
int SmallIconSize(int dpi);

/// Size of `window` with title bar and border around a form of this size.
Extent OuterSize(HWND window, Extent form, int dpi);

/// Size of the screen where dialogs appear.
Extent ScreenSize();

}  // namespace orvenza
