#pragma once

#include <windows.h>

#include "ui/layout.h"

namespace orvenza {

/// Measures the control's text the way the control draws it, in its font. `format` adds to the flags of
/// DrawText.
TextMeasure MeasureTextOf(HWND control, UINT format = 0);

/// Height of one line in `font`, in pixels.
int LineHeightOf(HWND window, HFONT font);

}  // namespace orvenza
