#include "platform/windows/windows_profile_file.h"

#include <gtest/gtest.h>

#include "platform/failure_of.h"
#include "support/temp_folder.h"

namespace orvenza::test {
namespace {

class WindowsProfileFileTest : public testing::Test {
 protected:
  std::string Read(const std::string& section, const std::string& key, const std::string& fallback = "?") {
    return profile.Read(path, section, key, fallback);
  }

  TempFolder folder;
  std::string path = folder.Path("Orvenza.ini");
  WindowsProfileFile profile;
};

TEST_F(WindowsProfileFileTest, ReadsValues) {
  folder.Write("Orvenza.ini",
               "; a note\r\n[Com Settings]\r\nComPort = 3 \r\nIdent=\"  V\"\r\nEmpty=\r\n"
               "[General]\r\nSeparator (ascii,max 127)=59\r\nComPort=4\r\n");
  EXPECT_EQ(Read("Com Settings", "ComPort"), "3");
  EXPECT_EQ(Read("COM SETTINGS", "comport"), "3");
  EXPECT_EQ(Read("Com Settings", "Ident"), "  V");
  EXPECT_EQ(Read("Com Settings", "Empty"), "");
  EXPECT_EQ(Read("General", "Separator (ascii,max 127)"), "59");
  EXPECT_EQ(Read("General", "ComPort"), "4");
}

TEST_F(WindowsProfileFileTest, FallsBackWhereThereIsNoValue) {
  EXPECT_EQ(Read("General", "None", "no file  "), "no file  ");
  folder.Write("Orvenza.ini", "[General]\r\nA=1\r\n");
  EXPECT_EQ(Read("General", "None", "no key  "), "no key  ");
  EXPECT_EQ(Read("None", "A", "no section"), "no section");
  EXPECT_EQ(profile.Read("", "General", "A", "no path"), "no path");
  EXPECT_EQ(profile.Read("Q:\\x.ini", "General", "A", "no drive"), "no drive");
}

TEST_F(WindowsProfileFileTest, WritesANewFile) {
  profile.Write(path, "Version", "Version", "1.06");
  profile.Write(path, "Database", "", "'***** a note *****");
  EXPECT_EQ(folder.Read("Orvenza.ini"),
            "[Version]\r\nVersion=1.06\r\n[Database]\r\n='***** a note *****\r\n");
}

TEST_F(WindowsProfileFileTest, KeepsTheRestOfTheFile) {
  folder.Write("Orvenza.ini", "; a note\r\n[A]\r\nx=1\r\ny=2\r\n[B]\r\nz=3\r\n");
  profile.Write(path, "A", "x", "10");
  EXPECT_EQ(folder.Read("Orvenza.ini"), "; a note\r\n[A]\r\nx=10\r\ny=2\r\n[B]\r\nz=3\r\n");
}

TEST_F(WindowsProfileFileTest, KeepsBytesAsTheyStand) {
  std::string bytes;
  for (int code = 0x80; code <= 0xFF; ++code) bytes += static_cast<char>(code);
  folder.Write("Orvenza.ini", "[A]\r\nx=" + bytes + "\r\n");
  EXPECT_EQ(Read("A", "x"), bytes);
  profile.Write(path, "A", "y", "caffè €");
  EXPECT_EQ(folder.Read("Orvenza.ini"), "[A]\r\nx=" + bytes + "\r\ny=caffè €\r\n");
  EXPECT_EQ(Read("A", "y"), "caffè €");
}

TEST_F(WindowsProfileFileTest, ReadsLongValuesWhole) {
  const std::string value(5000, 'v');
  folder.Write("Orvenza.ini", "[A]\r\nx=" + value + "\r\n");
  EXPECT_EQ(Read("A", "x"), value);
}

TEST_F(WindowsProfileFileTest, AValueEndsBeforeItsFirstLineBreak) {
  profile.Write(path, "A", "x", "one\r\n[B]");
  EXPECT_EQ(folder.Read("Orvenza.ini"), "[A]\r\nx=one\r\n");
}

TEST_F(WindowsProfileFileTest, ReachesAFolderThatTheCodePageCannotSpell) {
  const std::string odd = folder.Path("\xE5\xBA\x97");  // A Chinese character.
  std::filesystem::create_directory(folder.Native("") / std::filesystem::path(u8"\u5E97"));
  profile.Write(odd + "\\Orvenza.ini", "A", "x", "1");
  EXPECT_EQ(profile.Read(odd + "\\Orvenza.ini", "A", "x", "?"), "1");
}

TEST_F(WindowsProfileFileTest, ReportsWhatCannotBeWritten) {
  const std::string deep = folder.Path("none\\Orvenza.ini");
  EXPECT_EQ(FailureOf([&] { profile.Write(deep, "A", "x", "1"); }), "76 Path not found ( " + deep + " )");
  EXPECT_EQ(FailureOf([&] { profile.Write("", "A", "x", "1"); }), "52 Bad file name or number");
}

}  // namespace
}  // namespace orvenza::test
