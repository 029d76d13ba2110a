// Text of unknown encoding. Properties: the result is UTF-8, and cutting and counting agree.

#include "core/text.h"

#include <algorithm>
#include <string>

#include "choices.h"
#include "targets.h"

namespace orvenza::fuzz {

void FuzzText(std::string_view input) {
  Choices choices(input);
  const std::size_t count = choices.Below(256);
  const std::string_view bytes = choices.Rest();
  const std::string text = ToUtf8(bytes);
  Require(ToUtf8(text) == text, "what was made UTF-8 stays as it is");
  Require(CountCharacters(FromWindows1252(bytes)) == bytes.size(), "a byte of Windows-1252 is a character");
  const std::string first = FirstCharacters(text, count);
  Require(text.starts_with(first), "the first characters are the beginning");
  Require(CountCharacters(first) == std::min(count, CountCharacters(text)), "they are as many as asked for");
  Require(ToUtf8(first) == first, "no character is cut in two");
  const std::string shown = ShownLine(bytes, count);
  for (const char c : shown)
    Require(static_cast<unsigned char>(c) >= 32, "a line that is shown has no control characters");
  Require(CountCharacters(shown) <= count + 3, "a line that is shown is cut, and dots mark the cut");
  Require(Trim(Trim(bytes)) == Trim(bytes), "what was trimmed stays as it is");
}

}  // namespace orvenza::fuzz
