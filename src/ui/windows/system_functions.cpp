#include "ui/windows/system_functions.h"

#include "platform/windows/wide.h"

namespace orvenza {

std::string ToAnsi(std::string_view text) {
  const std::wstring wide = ToWide(text);
  const auto length = static_cast<int>(wide.size());
  std::string ansi(wide.size() * 2, '\0');  // a character takes at most two bytes
  ansi.resize(static_cast<std::size_t>(WideCharToMultiByte(CP_ACP, 0, wide.data(), length, ansi.data(),
                                                           static_cast<int>(ansi.size()), nullptr, nullptr)));
  return ansi;
}

}  // namespace orvenza
