#include "platform/windows/code_page.h"

#include <windows.h>

#include "platform/system_error.h"
#include "platform/windows/windows_paths.h"

namespace orvenza {
namespace {

/// Upper limit of bytes per UTF-16 unit in any code page.
constexpr std::size_t kMostBytes = 4;

/// The short (8.3) path of the existing `folder`; empty if it has none.
std::wstring ShortSpelling(const std::wstring& folder) {
  std::wstring spelling(MAX_PATH, L'\0');
  const DWORD length = ::GetShortPathNameW(folder.c_str(), spelling.data(), MAX_PATH);
  spelling.resize(length < MAX_PATH ? length : 0);
  return spelling;
}

}  // namespace

CodePageText ToCodePage(std::wstring_view text) {
  if (text.empty()) return {};
  CodePageText result{std::string(text.size() * kMostBytes, '\0')};
  BOOL lost = FALSE;
  const bool isUtf8 =
      ::GetACP() == CP_UTF8;  // With this code page, asking whether a character was replaced is an error.
  const int count = ::WideCharToMultiByte(
      CP_ACP, isUtf8 ? 0 : WC_NO_BEST_FIT_CHARS, text.data(), static_cast<int>(text.size()),
      result.bytes.data(), static_cast<int>(result.bytes.size()), nullptr, isUtf8 ? nullptr : &lost);
  result.bytes.resize(static_cast<std::size_t>(count));
  result.whole = count > 0 && !lost;
  return result;
}

std::string CodePagePath(const std::string& path) {
  // The functions that take the result accept no other form of a long path.
  const std::wstring plain = PlainPath(path);
  if (const CodePageText text = ToCodePage(plain); text.whole) return text.bytes;
  const std::size_t nameAt = plain.find_last_of(L"\\/") + 1;  // npos + 1 is 0.
  const std::wstring folder = ShortSpelling(plain.substr(0, nameAt));
  const CodePageText text = ToCodePage(folder + plain.substr(nameAt));
  if (folder.empty() || !text.whole) throw SystemError(error_number::kBadFileName, path);
  return text.bytes;
}

}  // namespace orvenza
