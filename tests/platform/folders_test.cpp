#include "platform/folders.h"

#include <gtest/gtest.h>

namespace orvenza::test {
namespace {

TEST(SettingsPath, HasBackslashesOnly) {
  EXPECT_EQ(SettingsPath("C:/shop\\data/*.txt"), "C:\\shop\\data\\*.txt");
  EXPECT_EQ(SettingsPath("//server/share/"), "\\\\server\\share\\");
  EXPECT_EQ(SettingsPath("/home\\x\\"), "\\home\\x\\");
  EXPECT_EQ(SettingsPath(""), "");
}

}  // namespace
}  // namespace orvenza::test
