#pragma once

#include <windows.h>

namespace orvenza {

/// Makes an option, a check box or a frame use the form's text colour in high contrast mode. The system's
/// theme would draw it in a colour meant for another background. Other controls are unaffected.
void KeepReadable(HWND control);

}  // namespace orvenza
