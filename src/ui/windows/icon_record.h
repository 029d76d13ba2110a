#pragma once

#include <windows.h>
// After windows.h, on which it builds.
#include <shellapi.h>

#include <string>

namespace orvenza {

/// What names the icon to the shell: its number among those of `owner`. In the layout of the first shells.
NOTIFYICONDATAA IconRecord(HWND owner);

/// The same for an icon to be shown: the program's in `size` pixels, with a tip that is cut at 63 bytes of
/// the system's code page. What is done to it is told to `owner` by kIconMessage.
NOTIFYICONDATAA IconRecord(HWND owner, const std::string& tip, int size);

}  // namespace orvenza
