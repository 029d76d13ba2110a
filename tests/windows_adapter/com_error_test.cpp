#include "device/windows/com_error.h"

#include <gtest/gtest.h>

#include "platform/system_error.h"

namespace orvenza::test {
namespace {

TEST(DescribeResult, SaysWhatSupportCanActOn) {
  const struct {
    unsigned long result;
    const char* text;
  } rows[] = {
      {0x800401F3, "0x800401F3 not registered"},
      {0x80040154, "0x80040154 not registered for 32-bit programs"},
      {0x800401F8, "0x800401F8 its library cannot be loaded"},
      {0x8007007E, "0x8007007E its library cannot be loaded"},
      {0x800700C1, "0x800700C1 its library is not for 32-bit programs"},
      {0x80040112, "0x80040112 not licensed on this PC"},
      {0x80010108, "0x80010108 the control is gone"},
      {0xA0001234, "0xA0001234"},
  };
  for (const auto& row : rows) EXPECT_EQ(DescribeResult(static_cast<HRESULT>(row.result)), row.text);
}

TEST(DescribeResult, TakesOtherDescriptionsFromTheSystem) {
  const std::string text = DescribeResult(E_ACCESSDENIED);
  EXPECT_TRUE(text.starts_with("0x80070005 ")) << text;
  EXPECT_GT(text.size(), std::string("0x80070005 ").size());
  EXPECT_NE(text.back(), '.');
}

TEST(DescribeResult, PrefersTheDescriptionThatCameWithTheFailure) {
  EXPECT_EQ(DescribeResult(CO_E_CLASSSTRING, L"a\r\nb \u00E8.\r\n"), "0x800401F3 a  b \u00E8");
}

TEST(CheckCreation, NamesTheStepThatFailed) {
  EXPECT_NO_THROW(CheckCreation(S_FALSE, "site"));
  try {
    CheckCreation(CO_E_CLASSSTRING, "site");
    FAIL();
  } catch (const SystemError& error) {
    EXPECT_EQ(error.Number(), 429);
    EXPECT_EQ(error.Description(), "Component can't create object ( site: 0x800401F3 not registered )");
  }
}

}  // namespace
}  // namespace orvenza::test
