#pragma once

#include <windows.h>

namespace orvenza {

/// Has an option or a frame take the form's text colour where the system shows high contrast. Drawn by the
/// system's theme it has a colour of its own, made for another background. Other controls stay as they are.
void KeepReadable(HWND control);

}  // namespace orvenza
