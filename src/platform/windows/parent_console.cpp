#include "platform/windows/parent_console.h"

#include <windows.h>

#include "platform/windows/wide.h"

namespace orvenza {
namespace {

bool LeadsSomewhere(HANDLE output) {
  return output != nullptr && output != INVALID_HANDLE_VALUE && GetFileType(output) != FILE_TYPE_UNKNOWN;
}

}  // namespace

ParentConsole::ParentConsole() {
  HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
  if (!LeadsSomewhere(output) && AttachConsole(ATTACH_PARENT_PROCESS))
    output = GetStdHandle(STD_OUTPUT_HANDLE);
  if (LeadsSomewhere(output)) output_ = output;
}

void ParentConsole::Write(const std::string& text) const {
  if (output_ == nullptr) return;
  DWORD mode = 0;
  DWORD written = 0;
  if (GetConsoleMode(output_, &mode)) {
    const std::wstring wide = ToWide(text);
    WriteConsoleW(output_, wide.data(), static_cast<DWORD>(wide.size()), &written, nullptr);
  } else {
    WriteFile(output_, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
  }
}

}  // namespace orvenza
