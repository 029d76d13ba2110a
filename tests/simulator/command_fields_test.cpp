#include "simulator/command_fields.h"

#include <gtest/gtest.h>

namespace orvenza {
namespace {

TEST(CommandFields, TakesTheDataApart) {
  CommandFields fields("1073013CARTA           000001250");
  fields.OperatorDigits();
  EXPECT_EQ(fields.DigitsBetween(1, 0, 5), 3);
  EXPECT_EQ(fields.Text(16), "CARTA");
  EXPECT_FALSE(fields.Complete());
  EXPECT_EQ(fields.Digits(9), 1250);
  EXPECT_TRUE(fields.Complete());
}

TEST(CommandFields, RefusesOtherCharactersThanDigits) {
  CommandFields fields("10361x");
  EXPECT_EQ(fields.Digits(2), 0);
  EXPECT_FALSE(fields.Complete());
}

TEST(CommandFields, RefusesANumberOutsideItsRange) {
  CommandFields low("103600");
  low.DigitsBetween(2, 1, 40);
  EXPECT_FALSE(low.Complete());
  CommandFields high("103641");
  high.DigitsBetween(2, 1, 40);
  EXPECT_FALSE(high.Complete());
  CommandFields most("103640");
  EXPECT_EQ(most.DigitsBetween(2, 1, 40), 40);
  EXPECT_TRUE(most.Complete());
}

TEST(CommandFields, ReadsNothingMoreAfterWhatDidNotFit) {
  CommandFields fields("10360ABC");
  EXPECT_EQ(fields.Digits(5), 0);
  EXPECT_EQ(fields.Text(1), "");
  EXPECT_EQ(fields.Remaining(10), "");
  EXPECT_FALSE(fields.Complete());
}

TEST(CommandFields, TakesWhatRemainsUpToItsMost) {
  CommandFields fitting("1067abc ");
  EXPECT_EQ(fitting.Remaining(4), "abc");
  EXPECT_TRUE(fitting.Complete());
  CommandFields tooLong("1067abc ");
  EXPECT_EQ(tooLong.Remaining(3), "");
  EXPECT_FALSE(tooLong.Complete());
}

TEST(CommandFields, AsksForWhatTheCallerRequires) {
  CommandFields fields("103601");
  fields.Require(fields.Digits(2) == 1);
  EXPECT_TRUE(fields.Complete());
  fields.Require(false);
  EXPECT_FALSE(fields.Complete());
  fields.Require(true);
  EXPECT_FALSE(fields.Complete());
}

TEST(CommandFields, AsksForFixedCharacters) {
  CommandFields right("300101");
  right.Literal("01");
  EXPECT_TRUE(right.Complete());
  CommandFields wrong("300102");
  wrong.Literal("01");
  EXPECT_FALSE(wrong.Complete());
}

}  // namespace
}  // namespace orvenza
