#pragma once

#include <windows.h>

#include <string>

namespace orvenza {

/// Replaces the clipboard's content by `text`, in UTF-8 with CR LF; `owner` is a window of this thread. False
/// while another program uses the clipboard, or without memory.
bool CopyToClipboard(HWND owner, const std::string& text);

}  // namespace orvenza
