#include "standin/call_log.h"

#include <cstdio>

#include "device/windows/com.h"

namespace orvenza::test {

void Note(const std::string& line) {
  wchar_t path[MAX_PATH];
  const DWORD length = ::GetEnvironmentVariableW(L"ORVENZA_STANDIN_LOG", path, MAX_PATH);
  if (length == 0 || length >= MAX_PATH) return;
  const HANDLE file = ::CreateFileW(path, FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return;
  const std::string text = line + "\n";
  DWORD written = 0;
  ::WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
  ::CloseHandle(file);
}

}  // namespace orvenza::test
