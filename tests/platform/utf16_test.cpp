#include "platform/utf16.h"

#include <gtest/gtest.h>

namespace orvenza::test {
namespace {

using std::string_literals::operator""s;

TEST(Utf16, IsTheSameTextThereAndBack) {
  const struct {
    std::string text;
    std::string bytes;  ///< Little-endian.
  } rows[] = {
      {"", ""},
      {"A\r\n", "A\0\r\0\n\0"s},
      {"\xC3\xA8", "\xE8\0"s},
      {"\xE2\x82\xAC", "\xAC\x20"s},
      {"\xF0\x9F\x98\x80", "\x3D\xD8\x00\xDE"s},
  };
  for (const auto& [text, bytes] : rows) {
    EXPECT_EQ(Utf16FromUtf8(text, false), bytes);
    EXPECT_EQ(Utf8FromUtf16(bytes, false), text);
    EXPECT_EQ(Utf8FromUtf16(Utf16FromUtf8(text, true), true), text);
  }
  EXPECT_EQ(Utf16FromUtf8("A", true), "\0A"s);
}

TEST(Utf16, ReplacesWhatIsNotWellFormed) {
  const std::string replacement = "\xEF\xBF\xBD";
  EXPECT_EQ(Utf8FromUtf16("\x00\xD8"
                          "A\0"s,
                          false),
            replacement + "A")
      << "half a pair";
  EXPECT_EQ(Utf8FromUtf16("\x00\xDC"s, false), replacement);
  EXPECT_EQ(Utf8FromUtf16("A\0B"s, false), "A") << "half a unit";
  for (const char* text : {"\xE8", "\x80", "\xC0\x80", "\xED\xA0\x80", "\xF5\x80\x80\x80", "\xE2\x82"}) {
    EXPECT_EQ(Utf16FromUtf8(text, false).substr(0, 2), "\xFD\xFF"s) << text;
  }
}

}  // namespace
}  // namespace orvenza::test
