#pragma once

#include <windows.h>

#include "ui/layout.h"

namespace orvenza {

/// Pixels per inch of the screen that shows `window`, or of the whole desktop if the system does not
/// distinguish.
int DpiOf(HWND window);

/// Size of small icons, as in a title bar, at `dpi` pixels per inch.
int SmallIconSize(int dpi);

/// Size of `window` including title bar and border for a form of this size.
Extent OuterSize(HWND window, Extent form, int dpi);

/// Size of the screen where dialogs appear.
Extent ScreenSize();

}  // namespace orvenza
