// The icon's data for the shell.

#include "ui/windows/icon_record.h"

#include <gtest/gtest.h>

#include "ui/windows/window.h"

namespace orvenza::test {
namespace {

HWND Owner() { return reinterpret_cast<HWND>(static_cast<INT_PTR>(0x1234)); }

TEST(IconRecord, HoldsAllOfAnIconToBeShown) {
  const NOTIFYICONDATAA record = IconRecord(Owner(), "Orvenza - 1.0", 20);
  EXPECT_EQ(record.cbSize, 88U);
  EXPECT_EQ(record.hWnd, Owner());
  EXPECT_EQ(record.uID, 1U);
  EXPECT_EQ(record.uFlags, 7U);
  EXPECT_EQ(record.uCallbackMessage, 512U);
  ASSERT_NE(record.hIcon, nullptr);
  EXPECT_EQ(record.hIcon, ProgramIcon(20));
  EXPECT_STREQ(record.szTip, "Orvenza - 1.0");
}

TEST(IconRecord, CutsTheTipAt63Characters) {
  for (const std::size_t length : {63U, 64U, 65U, 200U}) {
    const NOTIFYICONDATAA record = IconRecord(Owner(), std::string(length, 'n'), 16);
    EXPECT_EQ(record.szTip, std::string(63, 'n')) << length;
  }
}

TEST(IconRecord, OnlyNamesAnIconToBeTakenAway) {
  const NOTIFYICONDATAA record = IconRecord(Owner());
  EXPECT_EQ(record.cbSize, 88U);
  EXPECT_EQ(record.hWnd, Owner());
  EXPECT_EQ(record.uID, 1U);
  EXPECT_EQ(record.uFlags, 0U);
  EXPECT_EQ(record.uCallbackMessage, 0U);
  EXPECT_EQ(record.hIcon, nullptr);
  EXPECT_STREQ(record.szTip, "");
}

}  // namespace
}  // namespace orvenza::test
