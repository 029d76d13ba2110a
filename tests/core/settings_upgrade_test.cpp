#include <gtest/gtest.h>

#include <string>

#include "support/settings_bench.h"

namespace orvenza::test {
namespace {

class UpgradeTest : public SettingsBench {
 protected:
  /// Upgrades a file that contains only this version.
  bool Upgrade(const std::string& version) {
    Ini() = "[Version]\r\nVersion=" + version + "\r\n";
    boxes = 0;
    settings = {};
    return file.UpgradeIni(settings, [this] { ++boxes; });
  }

  int boxes = 0;
};

TEST_F(UpgradeTest, ACurrentFileIsLeftAsItIs) {
  EXPECT_TRUE(Upgrade("1.06"));
  EXPECT_EQ(Ini(), "[Version]\r\nVersion=1.06\r\n");
  EXPECT_EQ(boxes, 0);
  EXPECT_TRUE(settings.IniUpgradeDone);
}

TEST_F(UpgradeTest, EveryLaterVersionGetsItsOwnKeysAlone) {
  struct {
    const char* version;
    const char* keys;
  } const rows[] = {
      {"1.01", "[General]\r\nPc Time Correction=\r\nTime Shift=60\r\n"},
      {"1.02", "[General]\r\nSeparator (ascii,max 127)=127\r\n"},
      {"1.03", "[General]\r\nSingle Quantity=0\r\n"},
      {"1.04", "[General]\r\nFile Parser=0\r\n"},
      {"1.05", "[Database]\r\nHistoricTickets=C:\\shop\\storico\\\r\n"},
  };
  for (const auto& row : rows) {
    EXPECT_TRUE(Upgrade(row.version)) << row.version;
    EXPECT_EQ(Ini(), std::string("[Version]\r\nVersion=1.06\r\n") + row.keys);
    EXPECT_EQ(boxes, 1) << row.version;
    EXPECT_TRUE(settings.IniUpgradeDone);
  }
  EXPECT_EQ(Errors(), "");
}

TEST_F(UpgradeTest, TheOldestFileTakesTwoSteps) {
  EXPECT_TRUE(Upgrade("1.00"));
  EXPECT_EQ(Ini(),
            "[Version]\r\nVersion=1.06\r\n"
            "[Com Settings]\r\nTimeWaitForLONGEtx=50000\r\n"
            "[General]\r\nPc Time Correction=\r\nTime Shift=60\r\n");
  EXPECT_EQ(boxes, 2);
}

TEST_F(UpgradeTest, TheBoxComesAfterTheFileWasWritten) {
  Ini() = "[Version]\r\nVersion=1.05\r\n";
  std::string seen;
  EXPECT_TRUE(file.UpgradeIni(settings, [&] { seen = Ini(); }));
  EXPECT_EQ(seen, "[Version]\r\nVersion=1.06\r\n[Database]\r\nHistoricTickets=C:\\shop\\storico\\\r\n");
}

TEST_F(UpgradeTest, AnUnknownVersionIsRefusedAndNothingWritten) {
  for (const char* version : {"", "1.07", "1.6", "1.060", "0.99", "01.06", "1.06b", "uno"}) {
    EXPECT_FALSE(Upgrade(version)) << version;
    EXPECT_EQ(Ini(), std::string("[Version]\r\nVersion=") + version + "\r\n");
    EXPECT_EQ(boxes, 0);
    EXPECT_FALSE(settings.IniUpgradeDone);
    EXPECT_EQ(Errors(), "Versione File INI Errata !\r\nApplicazione Terminata.\r\n");
    memory.content.erase("C:\\shop\\error.txt");
  }
}

TEST_F(UpgradeTest, AFileWithoutAVersionIsRefused) {
  Ini() = "[Com Settings]\r\nVersion=1.06\r\n";
  EXPECT_FALSE(file.UpgradeIni(settings, [] {}));
  EXPECT_EQ(Ini(), "[Com Settings]\r\nVersion=1.06\r\n");
}

TEST_F(UpgradeTest, AReadOnlyFileIsUsedAsItIs) {
  for (const char* version : {"1.00", "1.01", "1.05"}) {
    files.FailAlways("Write", "", error_number::kPermissionDenied);
    EXPECT_TRUE(Upgrade(version));
    EXPECT_EQ(Ini(), std::string("[Version]\r\nVersion=") + version + "\r\n");
    EXPECT_EQ(boxes, 0);
    EXPECT_TRUE(settings.IniUpgradeDone);
    EXPECT_EQ(Errors(), "UpgradeIni - 70 - Permission denied ( C:\\shop\\Orvenza.ini )\r\n");
    memory.content.erase("C:\\shop\\error.txt");
  }
}

TEST_F(UpgradeTest, AStepCutShortIsTriedAgainAtTheNextStart) {
  files.FailNth("Write", 2, error_number::kDiskFull);
  EXPECT_TRUE(Upgrade("1.01"));
  EXPECT_EQ(Ini(), "[Version]\r\nVersion=1.01\r\n[General]\r\nPc Time Correction=\r\n");
  EXPECT_EQ(boxes, 0);
  EXPECT_EQ(Errors(), "UpgradeIni - 61 - Disk full ( C:\\shop\\Orvenza.ini )\r\n");
}

TEST_F(UpgradeTest, TheStepsBeforeTheOneThatFailsCount) {
  files.FailNth("Write", 3, error_number::kDiskFull);
  EXPECT_TRUE(Upgrade("1.00"));
  EXPECT_EQ(Ini(), "[Version]\r\nVersion=1.01\r\n[Com Settings]\r\nTimeWaitForLONGEtx=50000\r\n");
  EXPECT_EQ(boxes, 1);
}

}  // namespace
}  // namespace orvenza::test
