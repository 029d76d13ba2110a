// `orvenza-lab check` as a program: its arguments, input, output and exit code.

#include <gtest/gtest.h>

#include <string>

#include "program/running_program.h"
#include "support/temp_folder.h"

namespace orvenza::test {
namespace {

/// The program's output, followed by a line with its exit code.
std::string Check(std::vector<std::string> words) {
  words.insert(words.begin(), {ORVENZA_LAB, "check"});
  RunningProgram lab(words);
  lab.CloseInput();
  const int status = lab.ExitStatus();
  return lab.Shown() + "status " + std::to_string(status);
}

TEST(CheckProgram, ReadsFilesByTheSettingsOfAFolder) {
  const TempFolder shop;
  const std::string settings =
      "[Version]\r\nVersion=1.06\r\n[Com Settings]\r\nComPort=99\r\n[General]\r\nSeparator (ascii,max "
      "127)=59\r\n";
  shop.Write("Orvenza.ini", settings);
  shop.Write("a.txt", "4;5;\r\n4;25;\r\n");
  const std::string file = shop.Native("a.txt").string();
  EXPECT_EQ(Check({"--folder", shop.Path(), file}),
            file + "\n    1  102805\n    2  102820\n" + file +
                ":2:1: warning: '25' is sent as '20': outside 0 to 20 [clamped]\n"
                "2 lines, 0 errors, 1 warning\nstatus 0");
  EXPECT_EQ(shop.Read("Orvenza.ini"), settings);
  EXPECT_FALSE(shop.Has("Err.txt"));
  EXPECT_FALSE(shop.Has("error.txt"));
}

TEST(CheckProgram, EndsWithOneForAnInvalidLine) {
  const TempFolder folder;
  folder.Write("a.txt", "4;x;\n");
  const std::string file = folder.Native("a.txt").string();
  EXPECT_EQ(Check({"--separator", ";", file}), file + "\n" + file +
                                                   ":1:1: error: 'x' holds other characters than digits; "
                                                   "accepted: digits, 0 to 20; others are sent as "
                                                   "20 [not-digits]\n1 line, 1 error, 0 warnings\nstatus 1");
}

TEST(CheckProgram, EndsWithTwoForWhatCannotBeRead) {
  const TempFolder folder;
  EXPECT_EQ(Check({folder.Path()}), folder.Path() + "\n" + folder.Path() +
                                        ": error: Path/File access error ( " + folder.Path() +
                                        " ) [unreadable]\n0 files, 0 lines, 0 errors, 0 warnings; " +
                                        "1 file could not be read\nstatus 2");
  EXPECT_EQ(Check({"--seperator", "59", "a.txt"}),
            "orvenza-lab check: unknown option '--seperator'; did you mean '--separator'?\n"
            "See 'orvenza-lab check --help'.\nstatus 2");
}

TEST(CheckProgram, ReadsItsStandardInput) {
  RunningProgram lab({ORVENZA_LAB, "check", "--separator", "59", "-"});
  lab.Enter("4;5;");
  lab.Enter("21;");
  lab.CloseInput();
  EXPECT_EQ(lab.ExitStatus(), 0);
  EXPECT_EQ(lab.Shown(), "-\n    1  102805\n    2  300101*\n2 lines, 0 errors, 0 warnings\n");
}

TEST(CheckProgram, WritesJson) {
  EXPECT_EQ(
      Check({"--json", "-"}),
      "{\n  \"schema\": 1,\n  \"separator\": 127,\n  \"singleQuantity\": false,\n  \"fileParser\": false,\n"
      "  \"model\": \"          \",\n  \"release\": \"\",\n  \"results\": [\n"
      "    {\"file\": \"-\", \"line\": 1, \"severity\": \"warning\", \"code\": \"no-record\", \"text\": \"no "
      "line of the file is a record: nothing is printed, and the file is filed as printed\"}\n"
      "  ],\n  \"totals\": {\n"
      "    \"files\": 1,\n    \"unreadable\": 0,\n    \"lines\": 0,\n    \"errors\": 0,\n    \"warnings\": "
      "1\n"
      "  }\n}\nstatus 0");
}

}  // namespace
}  // namespace orvenza::test
