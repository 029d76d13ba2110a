#include "platform/ini_text.h"

#include <gtest/gtest.h>

#include "platform/utf16.h"

namespace orvenza::test {
namespace {

std::string ReadFrom(const std::string& text, const std::string& section, const std::string& key) {
  return IniText(text).Value(section, key).value_or("fallback");
}

std::string WriteInto(const std::string& text, const std::string& section, const std::string& key,
                      const std::string& value) {
  IniText ini(text);
  ini.Set(section, key, value);
  return ini.Bytes();
}

std::string Listed(std::string_view text) {
  std::string listed;
  for (const IniLine& line : IniText(text).Lines()) {
    const char* kinds[] = {"section", "entry", "meaningless"};
    listed += std::to_string(line.number) + " " + kinds[static_cast<int>(line.kind)] + " " + line.name + "\n";
  }
  return listed;
}

TEST(IniText, ReadsTheseValues) {
  const struct {
    const char* text;
    const char* value;
  } rows[] = {
      {"[S]\r\nk=v\r\n", "v"},
      {"[S]\nk=v\n", "v"},
      {"[S]\rk=v\r", "v"},
      {"[S]\r\nk=v", "v"},
      {"[s]\r\nK=v\r\n", "v"},
      {" [ S ] \r\n\t k \t=  v w \t\r\n", "v w"},
      {"[S]\r\nk=\r\n", ""},
      {"[S]\r\nk=a=b;c\r\n", "a=b;c"},
      {"[S]\r\nk=\" v \"\r\n", " v "},
      {"[S]\r\nk='v'\r\n", "v"},
      {"[S]\r\nk=''v''\r\n", "'v'"},
      {"[S]\r\nk=\"v'\r\n", "\"v'"},
      {"[S]\r\nk='v\r\n", "'v"},
      {"[S]\r\nk='\r\n", "'"},
      {"[S]\r\nk=\"\"\r\n", ""},
      {"[S]\r\nk=1\r\nk=2\r\n", "1"},
      {"[S]\r\nk=1\r\n[T]\r\nk=2\r\n[S]\r\nk=3\r\n", "1"},
      {"[T]\r\nk=2\r\n[S]\r\nk=1\r\n", "1"},
      {"[S]\r\n;k=0\r\n ; k=0\r\nk=1\r\n", "1"},
      {"[S]\r\ngarbage\r\n\x01\x02\r\nk=1\r\n", "1"},
      {"[S\r\nk=1\r\n", "1"},
      {"[S] rest\r\nk=1\r\n", "1"},
      {"[S] [rest]\r\nk=1\r\n", "1"},
      {"\xEF\xBB\xBF[S]\r\nk=1\r\n", "1"},
      {"[S]\r\nk=caff\xC3\xA8\r\n", "caff\xC3\xA8"},
      {"[S]\r\nk=caff\xE8\r\n", "caff\xE8"},
  };
  for (const auto& row : rows) EXPECT_EQ(ReadFrom(row.text, "S", "k"), row.value) << row.text;
}

TEST(IniText, FindsNoValueHere) {
  const char* const texts[] = {
      "",
      "\r\n\r\n",
      "[S]\r\n",
      "k=1\r\n",
      "k=1\r\n[S]\r\n",
      "[T]\r\nk=1\r\n",
      "[S]\r\n;k=1\r\n",
      "[S]\r\nk\r\n",
      "[S]\r\nkk=1\r\n",
      "[S]\r\n[T]\r\nk=1\r\n",
      "[S]\r\nx=1\r\n[S]\r\nk=1\r\n",
      "[",
      "]=[",
      "\xEF\xBB",
  };
  for (const char* text : texts) EXPECT_EQ(ReadFrom(text, "S", "k"), "fallback") << text;
}

TEST(IniText, ACommentHasNoKey) { EXPECT_EQ(ReadFrom("[S]\r\n;k=1\r\n", "S", ";k"), "fallback"); }

TEST(IniText, ReadsPastNuls) {
  EXPECT_EQ(ReadFrom(std::string("\0\0=\0\r\n[S]\0\r\nk=1\0\r\n", 19), "S", "k"), std::string("1\0", 2));
}

TEST(IniText, AKeyMayBeAPhrase) {
  EXPECT_EQ(ReadFrom("[General]\r\nSeparator (ascii,max 127)=59\r\n", "General", "separator (ASCII,max 127)"),
            "59");
}

TEST(IniText, WritesSoThatOneLineChanges) {
  const struct {
    const char* before;
    const char* after;
  } rows[] = {
      {"", "[S]\r\nk=v\r\n"},
      {"[S]\r\nk=old\r\n", "[S]\r\nk=v\r\n"},
      {"[s]\r\n  K  = \"old\" \r\nx=1\r\n", "[s]\r\nK=v\r\nx=1\r\n"},
      {"[S]\nk=old\nx=1\n", "[S]\nk=v\r\nx=1\n"},
      {"[S]\r\nk=old", "[S]\r\nk=v\r\n"},
      {"[S]", "[S]\r\nk=v\r\n"},
      {"[S]\r\na=1", "[S]\r\na=1\r\nk=v\r\n"},
      {"[S]\r\na=1\r\n\r\n[T]\r\nk=2\r\n", "[S]\r\na=1\r\nk=v\r\n\r\n[T]\r\nk=2\r\n"},
      {"[S]\r\n\r\n[T]\r\n", "[S]\r\nk=v\r\n\r\n[T]\r\n"},
      {"[T]\r\nk=2\r\n", "[T]\r\nk=2\r\n[S]\r\nk=v\r\n"},
      {"[T]\r\nk=2", "[T]\r\nk=2\r\n[S]\r\nk=v\r\n"},
      {"; note\r\n\r\n???\r\n[S]\r\n;k=0\r\njunk\r\n", "; note\r\n\r\n???\r\n[S]\r\n;k=0\r\njunk\r\nk=v\r\n"},
      {"[S]\r\nk=1\r\nk=2\r\n", "[S]\r\nk=v\r\nk=2\r\n"},
      {"[S]\r\nx=1\r\n[S]\r\nk=2\r\n", "[S]\r\nx=1\r\nk=v\r\n[S]\r\nk=2\r\n"},
      {"\xEF\xBB\xBF[S]\r\nk=1\r\n", "\xEF\xBB\xBF[S]\r\nk=v\r\n"},
      {"\xEF\xBB\xBF", "\xEF\xBB\xBF[S]\r\nk=v\r\n"},
      {"x=\xE8\r\n[S]\r\n", "x=\xE8\r\n[S]\r\nk=v\r\n"},
  };
  for (const auto& row : rows) EXPECT_EQ(WriteInto(row.before, "S", "k", "v"), row.after) << row.before;
}

TEST(IniText, AnEmptyKeyIsALineOfItsOwn) {
  const std::string note = "'***** Command File Name = command.txt *****";
  const std::string once = WriteInto("[Database]\r\na=1\r\n", "Database", "", note);
  EXPECT_EQ(once, "[Database]\r\na=1\r\n=" + note + "\r\n");
  EXPECT_EQ(WriteInto(once, "Database", "", note), once);
  EXPECT_EQ(WriteInto(once, "Database", "a", "2"), "[Database]\r\na=2\r\n=" + note + "\r\n");
  EXPECT_EQ(WriteInto(once, "Database", "b", "2"), once + "b=2\r\n");
}

TEST(IniText, AnEmptyValueIsWritten) {
  EXPECT_EQ(WriteInto("[S]\r\nk=1\r\n", "S", "k", ""), "[S]\r\nk=\r\n");
}

TEST(IniText, AValueCannotBreakTheFile) {
  EXPECT_EQ(WriteInto("", "S", "k", "v\r\n[T]"), "[S]\r\nk=v\r\n");
  EXPECT_EQ(WriteInto("", "S", "k", std::string("v\0w", 3)), "[S]\r\nk=v\r\n");
}

TEST(IniText, ReadsUtf16AndStaysInIt) {
  const std::string text = "[S]\r\nk=caff\xC3\xA8 \xF0\x9F\x98\x80\r\n";
  for (const bool bigEndian : {false, true}) {
    const std::string mark = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
    const std::string bytes = mark + Utf16FromUtf8(text, bigEndian);
    EXPECT_EQ(ReadFrom(bytes, "S", "k"), "caff\xC3\xA8 \xF0\x9F\x98\x80");
    EXPECT_EQ(WriteInto(bytes, "S", "x", "1"), mark + Utf16FromUtf8(text + "x=1\r\n", bigEndian));
    EXPECT_EQ(Listed(bytes), "1 section S\n2 entry k\n");
  }
}

TEST(IniText, FindsCharactersOfADamagedFile) {
  EXPECT_TRUE(IniText(std::string("[S]\0", 4)).HoldsNul());
  EXPECT_FALSE(IniText("\xFF\xFE" + Utf16FromUtf8("[S]\r\n", false)).HoldsNul());
}

TEST(IniText, KeepsNulsElsewhere) {
  const std::string head("\0junk\0\n", 7);
  EXPECT_EQ(WriteInto(head, "S", "k", "v"), head + "[S]\r\nk=v\r\n");
}

TEST(IniText, TellsWhatEachLineIs) {
  EXPECT_EQ(Listed("\xEF\xBB\xBF[ A ]\r\n; no = line\n\n key = 1\rgarbage\n=note\n[B"),
            "1 section A\n"
            "4 entry key\n"
            "5 meaningless \n"
            "6 entry \n"
            "7 section B\n");
  EXPECT_EQ(Listed(""), "");
}

TEST(IniText, ComparesNamesWithoutRegardToCase) {
  EXPECT_TRUE(IsSameIniName("ComPort", "COMPORT"));
  EXPECT_FALSE(IsSameIniName("ComPort", "ComPor"));
  EXPECT_FALSE(IsSameIniName("ComPort", "ComPortX"));
}

}  // namespace
}  // namespace orvenza::test
