#include <gtest/gtest.h>
#include <windows.h>

#include "platform/ini_text.h"
#include "platform/utf16.h"
#include "support/temp_folder.h"

namespace orvenza::test {
namespace {

// Settings files as the system's own functions read and write them: IniText must do the same.

class WindowsIniTextTest : public testing::Test {
 protected:
  std::string SystemReads(const std::string& bytes, const char* section, const char* key) {
    folder.Write("a.ini", bytes);
    std::string value(1024, '\0');
    value.resize(::GetPrivateProfileStringA(section, key, "missing", value.data(), 1024, path.c_str()));
    return value;
  }

  std::string SystemWrites(const std::string& bytes, const char* section, const char* key,
                           const char* value) {
    folder.Write("a.ini", bytes);
    EXPECT_TRUE(::WritePrivateProfileStringA(section, key, value, path.c_str()));
    return folder.Read("a.ini");
  }

  TempFolder folder;
  std::string path = folder.Path("a.ini");
};

TEST_F(WindowsIniTextTest, ReadsAsTheSystemDoes) {
  const std::string kTexts[] = {
      "[S]\r\nk=v\r\n",
      "[S]\nk=v\n",
      "[S]\r\nk=v",
      "[s]\r\nK=v\r\n",
      " [S] \r\n\t k \t=  v w \t\r\n",
      "[S]\r\nk=\r\n",
      "[S]\r\nk=a=b;c\r\n",
      "[S]\r\nk=\" v \"\r\n",
      "[S]\r\nk='v'\r\n",
      "[S]\r\nk=''v''\r\n",
      "[S]\r\nk=\"v'\r\n",
      "[S]\r\nk='v\r\n",
      "[S]\r\nk=\"\"\r\n",
      "[S]\r\nk=1\r\nk=2\r\n",
      "[S]\r\nk=1\r\n[T]\r\nk=2\r\n[S]\r\nk=3\r\n",
      "[T]\r\nk=2\r\n[S]\r\nk=1\r\n",
      "[S]\r\n;k=0\r\n ; k=0\r\nk=1\r\n",
      "[S]\r\ngarbage\r\n\x01\x02\r\nk=1\r\n",
      "[S] rest\r\nk=1\r\n",
      "[S]\r\nk=caff\xC3\xA8\r\n",
      "[S]\r\nk=caff\xE8 \x80\r\n",
      "",
      "k=1\r\n[S]\r\n",
      "[T]\r\nk=1\r\n",
      "[S]\r\nkk=1\r\n",
      "[S]\r\n[T]\r\nk=1\r\n",
      "\xFF\xFE" + Utf16FromUtf8("[S]\r\nk=v w\r\n", false),
  };
  for (const std::string& text : kTexts) {
    EXPECT_EQ(IniText(text).Value("S", "k").value_or("missing"), SystemReads(text, "S", "k")) << text;
  }
}

TEST_F(WindowsIniTextTest, WritesAsTheSystemDoes) {
  const std::string kTexts[] = {
      "",
      "[S]\r\nk=old\r\nx=1\r\n",
      "[S]\r\nx=1\r\n[T]\r\nk=2\r\n",
      "[T]\r\nk=2\r\n",
      "; note\r\n???\r\n[S]\r\n;k=0\r\njunk\r\n",
      "[S]\r\nk=1\r\nk=2\r\n",
      "x=\xE8\r\n[S]\r\n",
  };
  for (const std::string& text : kTexts) {
    IniText ini(text);
    ini.Set("S", "k", "v w");
    EXPECT_EQ(ini.Bytes(), SystemWrites(text, "S", "k", "v w")) << text;
  }
}

}  // namespace
}  // namespace orvenza::test
