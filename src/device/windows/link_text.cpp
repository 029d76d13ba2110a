#include "device/windows/link_text.h"

#include <windows.h>

namespace orvenza {
namespace {

constexpr UINT kWindows1252 = 1252;

}  // namespace

std::wstring WideOfLink(std::string_view bytes) {
  // One byte becomes one character.
  std::wstring text(bytes.size(), L'\0');
  const int size = static_cast<int>(bytes.size());
  ::MultiByteToWideChar(kWindows1252, 0, bytes.data(), size, text.data(), size);
  return text;
}

std::string LinkBytesOf(std::wstring_view text) {
  const int size = static_cast<int>(text.size());
  std::string bytes(text.size(), '\0');
  const int length =
      ::WideCharToMultiByte(kWindows1252, 0, text.data(), size, bytes.data(), size, nullptr, nullptr);
  bytes.resize(static_cast<std::size_t>(length));
  return bytes;
}

}  // namespace orvenza
