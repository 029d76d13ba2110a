// Drives the finished orvenza-lab on an installation, like a person at a terminal.

#include <gtest/gtest.h>

#include <filesystem>

#include "lab/bundle/zip_reader.h"
#include "program/running_program.h"
#include "support/temp_folder.h"

namespace orvenza::test {
namespace {

TEST(LabProgram, ExaminesAnInstallation) {
  const TempFolder shop;
  RunningProgram lab({ORVENZA_LAB, "doctor", "--folder", shop.Path()});
  EXPECT_EQ(lab.ExitStatus(), 1);
  EXPECT_EQ(lab.Shown().substr(0, lab.Shown().find(", 20")), "Orvenza in " + shop.Path());
  EXPECT_NE(lab.Shown().find("\nwarning  folder.foreign  "), std::string::npos);
  EXPECT_NE(lab.Shown().find("\nnote     settings.new  "), std::string::npos);
  EXPECT_TRUE(lab.Shown().ends_with(" Ready, but see the warnings.\n"));
  EXPECT_EQ(lab.Shown().find('\x1b'), std::string::npos);
  EXPECT_TRUE(std::filesystem::is_empty(shop.Native("")));
}

TEST(LabProgram, EndsWithTheExitCodeOfItsWorstFinding) {
  const TempFolder shop;
  shop.Write("Orvenza.ini", "[Version]\nVersion=7\n");
  RunningProgram lab({ORVENZA_LAB, "doctor", "--json", "--folder=" + shop.Path()});
  EXPECT_EQ(lab.ExitStatus(), 2);
  EXPECT_NE(lab.Shown().find("{\"severity\": \"error\", \"code\": \"settings.version\", "),
            std::string::npos);
}

TEST(LabProgram, SeesARunningConnector) {
  const TempFolder shop;
  RunningProgram connector({ORVENZA_PROGRAM, "--folder", shop.Path(), "--simulate"});
  ASSERT_TRUE(connector.Shows("Porta COM"));
  RunningProgram lab({ORVENZA_LAB, "doctor", "--folder", shop.Path()});
  EXPECT_EQ(lab.ExitStatus(), 0);
  EXPECT_NE(lab.Shown().find("\nnote     instance.running  "), std::string::npos);
}

TEST(LabProgram, WritesABundle) {
  const TempFolder shop;
  shop.Write("storico/1.txt",
             "23\x7f"
             "Anna\x7f"
             "1\x7f\r\n");
  shop.Write("out/here", "");
  RunningProgram lab(
      {ORVENZA_LAB, "bundle", "--folder", shop.Path(), "--output", shop.Path() + "/out/b.zip"});
  EXPECT_EQ(lab.ExitStatus(), 0);
  EXPECT_TRUE(lab.Shown().ends_with(" kB\n")) << lab.Shown();
  ZipReader archive(shop.Read("out/b.zip"));
  EXPECT_EQ(archive.entries["tickets/historic/1.txt"].bytes,
            "23\x7fXxxx\x7f"
            "1\x7f\r\n");
  RunningProgram again(
      {ORVENZA_LAB, "bundle", "--folder", shop.Path(), "--output", shop.Path() + "/out/b.zip"});
  EXPECT_EQ(again.ExitStatus(), 2);
  EXPECT_EQ(again.Shown(), "orvenza-lab bundle: " + shop.Path() + "/out/b.zip exists already\n");
}

TEST(LabProgram, WritesNoBundleWhereItCannot) {
  const TempFolder shop;
  RunningProgram lab(
      {ORVENZA_LAB, "bundle", "--folder", shop.Path(), "--output", shop.Path() + "/none/b.zip"});
  EXPECT_EQ(lab.ExitStatus(), 2);
  EXPECT_EQ(lab.Shown(), "orvenza-lab bundle: " + shop.Path() +
                             "/none/b.zip cannot be written: its folder is missing or read-only\n");
}

}  // namespace
}  // namespace orvenza::test
