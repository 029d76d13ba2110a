#include "lab/bundle/zip_archive.h"

#include <gtest/gtest.h>

#include "lab/bundle/zip_reader.h"

namespace orvenza::test {
namespace {

TEST(ZipArchive, HasTheChecksumOfItsFormat) {
  EXPECT_EQ(Crc32(""), 0u);
  EXPECT_EQ(Crc32("123456789"), 0xCBF43926u);
}

TEST(ZipArchive, KeepsWhatIsPutIn) {
  ZipArchive archive;
  archive.Add("a.txt", "one", {2026, 11, 16, 9, 30, 59});
  archive.Add("folder/caff\xC3\xA8.txt", std::string("\0\xFF\r\n", 4), {2026, 1, 2, 3, 4, 6});
  archive.Add("empty", "", {});
  ZipReader reader(archive.Finish());
  EXPECT_EQ(reader.names, "a.txt\nfolder/caff\xC3\xA8.txt\nempty\n");
  EXPECT_EQ(reader.entries["a.txt"].bytes, "one");
  EXPECT_EQ(reader.entries["folder/caff\xC3\xA8.txt"].bytes, std::string("\0\xFF\r\n", 4));
  EXPECT_EQ(reader.entries["empty"].bytes, "");
}

TEST(ZipArchive, KeepsTimesToTwoSeconds) {
  ZipArchive archive;
  archive.Add("now", "", {2026, 11, 16, 9, 30, 59});
  archive.Add("zero", "", {});
  ZipReader reader(archive.Finish());
  EXPECT_EQ(reader.entries["now"].date, (46u << 9) + (11u << 5) + 16u);
  EXPECT_EQ(reader.entries["now"].time, (9u << 11) + (30u << 5) + 29u);
  EXPECT_EQ(reader.entries["zero"].date, (1u << 5) + 1u);
  EXPECT_EQ(reader.entries["zero"].time, 0u);
}

TEST(ZipArchive, MayBeEmpty) { EXPECT_EQ(ZipReader(ZipArchive().Finish()).names, ""); }

}  // namespace
}  // namespace orvenza::test
