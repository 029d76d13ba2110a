// The program's icon, which the tests contain as well.

#include <gtest/gtest.h>
#include <windows.h>

#include "ui/windows/window.h"

namespace orvenza::test {
namespace {

LONG WidthOf(HICON icon) {
  ICONINFO info{};
  GetIconInfo(icon, &info);
  BITMAP picture{};
  GetObjectW(info.hbmColor, sizeof picture, &picture);
  DeleteObject(info.hbmColor);
  DeleteObject(info.hbmMask);
  return picture.bmWidth;
}

TEST(ProgramIcon, HasTheSizeThatIsAskedFor) {
  for (const int size : {32, 16, 48, 20, 64}) EXPECT_EQ(WidthOf(ProgramIcon(size)), size);
}

TEST(ProgramIcon, IsLoadedOnceInEachSize) {
  for (const int size : {16, 32}) EXPECT_EQ(ProgramIcon(size), ProgramIcon(size));
  EXPECT_NE(ProgramIcon(16), ProgramIcon(32));
}

TEST(ProgramIcon, IsTheProgramsOwn) {
  for (const int size : {16, 32}) EXPECT_NE(ProgramIcon(size), LoadIcon(nullptr, IDI_APPLICATION));
}

}  // namespace
}  // namespace orvenza::test
