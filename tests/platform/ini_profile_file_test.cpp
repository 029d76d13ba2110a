#include "platform/ini_profile_file.h"

#include <gtest/gtest.h>

#include "platform/failure_of.h"
#include "support/faulty_files.h"
#include "support/memory_files.h"

namespace orvenza::test {
namespace {

const std::string kPath = "C:\\shop\\Orvenza.ini";

class IniProfileFileTest : public ::testing::Test {
 protected:
  std::string& Ini() { return memory.content[kPath]; }
  std::string Read() { return profile.Load(kPath)->Value("S", "k").value_or("missing"); }
  std::string FailureOfReading() {
    return FailureOf([&] { Read(); });
  }
  std::string FailureOfWriting() {
    return FailureOf([&] { profile.Write(kPath, "S", "k", "w"); });
  }

  MemoryFiles memory;
  FaultyFiles files{memory};
  IniProfileFile profile{files};
};

TEST_F(IniProfileFileTest, ReadsAndWritesAFile) {
  Ini() = "; a note\r\n[S]\r\nk=v\r\n";
  EXPECT_EQ(Read(), "v");
  profile.Write(kPath, "S", "k", "w");
  EXPECT_EQ(Ini(), "; a note\r\n[S]\r\nk=w\r\n");
}

TEST_F(IniProfileFileTest, WhatWasReadStaysAsItWas) {
  Ini() = "[S]\r\nk=v\r\n";
  const auto content = profile.Load(kPath);
  profile.Write(kPath, "S", "k", "w");
  files.FailAlways("OpenForReading", "", error_number::kDeviceError);
  EXPECT_EQ(content->Value("S", "k"), "v");
}

TEST_F(IniProfileFileTest, AMissingFileSaysNothing) { EXPECT_EQ(Read(), "missing"); }

TEST_F(IniProfileFileTest, AMissingFileIsNotMade) {
  EXPECT_EQ(FailureOfWriting(), "53 File not found ( " + kPath + " )");
  EXPECT_TRUE(memory.content.empty());
}

TEST_F(IniProfileFileTest, AFileThatCannotBeReadIsNeitherTakenForAMissingOneNorReplaced) {
  const std::string text = "[S]\r\nk=v\r\n";
  for (const char* operation : {"Exists", "OpenForReading", "Read"}) {
    Ini() = text;
    files.FailAlways(operation, "", error_number::kDeviceError);
    EXPECT_EQ(FailureOfReading(), "57 Device I/O error ( " + kPath + " )") << operation;
    FailureOfWriting();
    files.Heal();
    EXPECT_TRUE(Ini() == text || Ini() == "[S]\r\nk=w\r\n") << operation;
  }
}

TEST_F(IniProfileFileTest, AFileThatFailsHalfwayIsNotReplaced) {
  const std::string text = "[S]\r\nk=v\r\n";
  Ini() = text;
  files.FailReadAfter(4, error_number::kDeviceError);
  EXPECT_EQ(FailureOfReading(), "57 Device I/O error ( " + kPath + " )");
  EXPECT_EQ(FailureOfWriting(), "57 Device I/O error ( " + kPath + " )");
  EXPECT_EQ(Ini(), text);
}

TEST_F(IniProfileFileTest, AFileOfOneMebibyteIsRead) {
  const std::string tail = "[S]\r\nk=v\r\n";
  Ini() = std::string(IniProfileFile::kLargestFile - tail.size() - 1, ';') + "\n" + tail;
  EXPECT_EQ(Read(), "v");
}

TEST_F(IniProfileFileTest, ALargerFileIsLeftAlone) {
  const std::string text = "[S]\nk=v\n" + std::string(IniProfileFile::kLargestFile, ';');
  Ini() = text;
  EXPECT_EQ(FailureOfReading(), "75 Path/File access error ( " + kPath + " )");
  EXPECT_EQ(FailureOfWriting(), "75 Path/File access error ( " + kPath + " )");
  EXPECT_EQ(Ini(), text);
}

TEST_F(IniProfileFileTest, AWriteThatFailsIsReported) {
  Ini() = "[S]\r\n";
  files.FailNext("Write", error_number::kDiskFull);
  EXPECT_EQ(FailureOfWriting(), "61 Disk full ( " + kPath + " )");
}

}  // namespace
}  // namespace orvenza::test
