#pragma once

#include <windows.h>
// Requires windows.h.
#include <shellapi.h>

#include <string>

namespace orvenza {

/// Identifies the icon to the shell by its number and `owner`, in the layout of the first shell version.
NOTIFYICONDATAA IconRecord(HWND owner);

/// The same for showing the icon: the program's icon in `size` pixels, with a tip that is cut at 63 bytes of
/// the system's code page. The shell sends kIconMessage to `owner`.
NOTIFYICONDATAA IconRecord(HWND owner, const std::string& tip, int size);

}  // namespace orvenza
