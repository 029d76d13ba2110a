#include "platform/windows/folder_entry.h"

#include <gtest/gtest.h>

#include "platform/windows/local_times.h"

namespace orvenza::test {
namespace {

TEST(FolderEntry, HasASizeAbove4Gigabytes) {
  WIN32_FIND_DATAW data{};
  data.nFileSizeHigh = 5;
  data.nFileSizeLow = 0xFEDCBA98;
  EXPECT_EQ(EntryOf(data, "a.txt").size, 0x5FEDCBA98u);
}

TEST(FolderEntry, HasNoSizeForAFolder) {
  WIN32_FIND_DATAW data{};
  data.dwFileAttributes = FILE_ATTRIBUTE_DIRECTORY;
  data.nFileSizeHigh = 1;
  data.nFileSizeLow = 4096;
  EXPECT_EQ(EntryOf(data, "sub").size, 0u);
  EXPECT_TRUE(EntryOf(data, "sub").isFolder);
}

TEST(FolderEntry, HasThreeTimes) {
  WIN32_FIND_DATAW data{};
  data.ftCreationTime = {0, 0x01D00000};
  data.ftLastAccessTime = {0, 0x01D10000};
  data.ftLastWriteTime = {0, 0x01D20000};
  const FolderEntry entry = EntryOf(data, "a.txt");
  EXPECT_EQ(entry.created, FromFileTime({0, 0x01D00000}));
  EXPECT_EQ(entry.accessed, FromFileTime({0, 0x01D10000}));
  EXPECT_EQ(entry.modified, FromFileTime({0, 0x01D20000}));
}

TEST(FolderEntry, HasNoYearOfFiveDigits) {
  for (const FILETIME& time : {FILETIME{0, 0x24C85A5F}, FILETIME{0, 0x30000000}, FILETIME{0, 0x7FFFFFFF},
                               FILETIME{0xFFFFFFFF, 0xFFFFFFFF}}) {
    WIN32_FIND_DATAW data{};
    data.ftLastWriteTime = time;
    EXPECT_EQ(EntryOf(data, "a.txt").modified.year, 9998) << time.dwHighDateTime;
  }
}

TEST(FolderEntry, HasALetterForEachAttributeInItsPlace) {
  const struct {
    DWORD set;
    const char* letters;
  } rows[] = {
      {FILE_ATTRIBUTE_NORMAL, "      "},
      {FILE_ATTRIBUTE_ARCHIVE, "A     "},
      {FILE_ATTRIBUTE_READONLY, " R    "},
      {FILE_ATTRIBUTE_HIDDEN, "  H   "},
      {FILE_ATTRIBUTE_SYSTEM, "   S  "},
      {FILE_ATTRIBUTE_COMPRESSED, "    C "},
      {FILE_ATTRIBUTE_TEMPORARY, "     T"},
      {FILE_ATTRIBUTE_ENCRYPTED | FILE_ATTRIBUTE_OFFLINE | FILE_ATTRIBUTE_SPARSE_FILE, "      "},
      {0xFFFFFFFF, "ARHSCT"},
  };
  for (const auto& row : rows) {
    WIN32_FIND_DATAW data{};
    data.dwFileAttributes = row.set;
    EXPECT_EQ(EntryOf(data, "a.txt").attributes, row.letters) << row.set;
  }
}

TEST(FolderEntry, HasTheNameItIsGiven) {
  WIN32_FIND_DATAW data{};
  data.cFileName[0] = L'x';
  EXPECT_EQ(EntryOf(data, "caffè.txt").name, "caffè.txt");
}

}  // namespace
}  // namespace orvenza::test
