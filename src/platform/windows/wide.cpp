#include "platform/windows/wide.h"

#include <windows.h>

#include <algorithm>

namespace orvenza {
namespace {

/// The system's functions take lengths as int.
constexpr std::size_t kLongest = 0x7FFFFFF0 / 4;

}  // namespace

std::wstring ToWide(std::string_view text) {
  const int length = static_cast<int>(std::min(text.size(), kLongest));
  if (length == 0) return {};
  const int needed = ::MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(needed), L'\0');
  ::MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), needed);
  return wide;
}

std::string ToUtf8(std::wstring_view text) {
  const int length = static_cast<int>(std::min(text.size(), kLongest));
  if (length == 0) return {};
  const int needed = ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(needed), '\0');
  ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), needed, nullptr, nullptr);
  return bytes;
}

bool IsWellFormed(std::wstring_view text) { return ToWide(ToUtf8(text)) == text; }

}  // namespace orvenza
