#include "device/logo_check.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "device/logo_files.h"
#include "simulator/virtual_clock.h"
#include "simulator/virtual_disk.h"
#include "support/faulty_files.h"

namespace orvenza::test {
namespace {

constexpr const char* kPath = "C:\\logo.bmp";

std::optional<std::uint32_t> RowsOf(const std::string& file) {
  LogoFiles files;
  files.content[kPath] = file;
  return LogoRows(files, kPath);
}

bool IsValid(const std::string& file) {
  LogoFiles files;
  files.content[kPath] = file;
  return IsValidLogoBitmap(files, kPath);
}

TEST(LogoCheck, AcceptsUpTo254RowsOf448OneBitPixels) {
  EXPECT_TRUE(IsValid(LogoBitmap(254)));
  EXPECT_TRUE(IsValid(LogoBitmap(1)));
  EXPECT_EQ(RowsOf(LogoBitmap(254)), 254U);
  EXPECT_EQ(RowsOf(LogoBitmap(15)), 15U);
  EXPECT_EQ(RowsOf(LogoBitmap(16)), 16U);
}

TEST(LogoCheck, Refuses255Rows) { EXPECT_FALSE(IsValid(LogoBitmap(255))); }

TEST(LogoCheck, RefusesOtherWidths) {
  for (const std::uint32_t width : {0U, 1U, 447U, 449U, 0x80000000U, 0xFFFFFFFFU}) {
    EXPECT_FALSE(IsValid(LogoBitmap(100, width))) << width;
  }
}

TEST(LogoCheck, RefusesOtherDataOffsets) {
  // 54 is the offset of the rows in a bitmap without a palette, with 24 bits per pixel.
  for (const std::uint32_t offset : {0U, 54U, 61U, 63U, 62U << 24}) {
    EXPECT_FALSE(IsValid(LogoBitmap(100, 448, offset))) << offset;
  }
}

TEST(LogoCheck, ReadsTheHeaderByItsHexadecimalDigits) {
  // 0x1C00 and 0x030E read as 1C0 and 3E, which are 448 and 62.
  EXPECT_TRUE(IsValid(LogoBitmap(100, 0x1C00)));
  EXPECT_TRUE(IsValid(LogoBitmap(100, 448, 0x030E)));
}

TEST(LogoCheck, RefusesOtherDepths) {
  for (const std::uint32_t bits : {0U, 2U, 4U, 8U, 24U, 32U, 0x0101U}) {
    EXPECT_FALSE(IsValid(LogoBitmap(100, 448, 62, bits))) << bits;
  }
}

TEST(LogoCheck, RefusesOtherSignatures) {
  for (const char* signature : {"bm", "BA", "MB", "GI", "BN", "AM"}) {
    EXPECT_FALSE(IsValid(LogoBitmap(100, 448, 62, 1, signature))) << signature;
  }
}

TEST(LogoCheck, AcceptsAHeightOfZero) {
  EXPECT_TRUE(IsValid(LogoBitmap(0)));
  EXPECT_EQ(RowsOf(LogoBitmap(0)), 0U);
  EXPECT_EQ(RowsOf(LogoBitmap(255)), std::nullopt);
}

TEST(LogoCheck, RefusesNegativeAndHugeHeights) {
  for (const std::uint32_t height :
       {0xFFFFFFFFU, 0xFFFFFF9CU, 0x80000000U, 0x7FFFFFFFU, 0x10000000U + 255U}) {
    EXPECT_FALSE(IsValid(LogoBitmap(height))) << height;
  }
}

TEST(LogoCheck, RefusesAFileThatEndsInItsHeaders) {
  const std::string whole = LogoBitmap(100);
  for (std::size_t length = 0; length < 30; ++length) {
    EXPECT_FALSE(IsValid(whole.substr(0, length))) << length;
  }
  EXPECT_TRUE(IsValid(whole.substr(0, 30)));
}

TEST(LogoCheck, RefusesAMissingFileWithoutOpeningIt) {
  const LogoFiles files;
  EXPECT_FALSE(IsValidLogoBitmap(files, kPath));
  EXPECT_EQ(files.opened, 0);
}

TEST(LogoCheck, RefusesAFileThatCannotBeOpened) {
  LogoFiles files;
  files.content[kPath] = LogoBitmap(100);
  files.locked = kPath;
  EXPECT_FALSE(IsValidLogoBitmap(files, kPath));
  EXPECT_EQ(files.opened, 1);
}

TEST(LogoCheck, RefusesAFileThatCannotBeLookedAt) {
  const VirtualClock clock;
  VirtualDisk disk(clock);
  disk.Put(kPath, LogoBitmap(100));
  FaultyFiles faulty(disk.FileSeam());
  faulty.FailNext("Exists", error_number::kDeviceError);
  EXPECT_FALSE(IsValidLogoBitmap(faulty, kPath));
}

TEST(LogoCheck, ReadsOnlyTheHeaders) {
  LogoFiles files;
  files.content[kPath] = LogoBitmap(254) + std::string(1000000, '\xFF');
  EXPECT_TRUE(IsValidLogoBitmap(files, kPath));
  EXPECT_EQ(files.bytesRead, 30U);
}

TEST(LogoCheck, CopesWithAFileThatComesByteByByte) {
  LogoFiles files;
  files.content[kPath] = LogoBitmap(254);
  files.bytesAtOnce = 1;
  EXPECT_TRUE(IsValidLogoBitmap(files, kPath));
}

TEST(LogoHeaderValue, IsTheTrueNumberForTheRequiredValues) {
  EXPECT_EQ(LogoHeaderValue(LittleEndian(62, 4)), 62U);
  EXPECT_EQ(LogoHeaderValue(LittleEndian(448, 4)), 448U);
  EXPECT_EQ(LogoHeaderValue(LittleEndian(254, 4)), 254U);
  EXPECT_EQ(LogoHeaderValue(LittleEndian(1, 2)), 1U);
}

TEST(LogoHeaderValue, JoinsBytesBelowSixteenAsSingleDigits) {
  // 01 00 is read as the digits "1" and "0".
  EXPECT_EQ(LogoHeaderValue(LittleEndian(0x0100, 4)), 0x10U);
  EXPECT_EQ(LogoHeaderValue(LittleEndian(0x0F0E, 4)), 0xFEU);
  EXPECT_EQ(LogoHeaderValue(LittleEndian(0x10000, 4)), 0x100U);
  EXPECT_EQ(LogoHeaderValue(LittleEndian(0x0110, 4)), 0x110U);
  EXPECT_EQ(LogoHeaderValue(LittleEndian(0x12345678, 4)), 0x12345678U);
  EXPECT_EQ(LogoHeaderValue(LittleEndian(0xFFFFFFFF, 4)), 0xFFFFFFFFU);
}

TEST(LogoCheck, CountsTheRowsAsItReadsTheHeight) {
  EXPECT_EQ(RowsOf(LogoBitmap(256)), 16U);
  EXPECT_EQ(RowsOf(LogoBitmap(0x0F0F)), std::nullopt);
}

}  // namespace
}  // namespace orvenza::test
