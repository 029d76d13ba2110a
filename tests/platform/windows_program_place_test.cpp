#include <gtest/gtest.h>

#include "platform/windows/program_place.h"
#include "platform/windows/windows_files.h"

namespace orvenza::test {
namespace {

TEST(ProgramPlace, NamesTheExecutableWithoutItsExtension) {
  EXPECT_EQ(ProgramName(), "orvenza_platform_tests");
}

TEST(ProgramPlace, IsTheExecutablesFolder) {
  EXPECT_TRUE(WindowsFiles().Exists(HomeFolder() + "\\" + ProgramName() + ".exe"));
}

}  // namespace
}  // namespace orvenza::test
