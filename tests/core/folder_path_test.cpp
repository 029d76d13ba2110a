#include "core/folder_path.h"

#include <gtest/gtest.h>

namespace orvenza::test {
namespace {

TEST(FileNameOf, IsTheTextAfterTheLastBackslash) {
  EXPECT_EQ(FileNameOf("C:\\shop\\1.txt"), "1.txt");
  EXPECT_EQ(FileNameOf("1.txt"), "1.txt");
  EXPECT_EQ(FileNameOf("C:\\shop\\"), "");
}

}  // namespace
}  // namespace orvenza::test
