#include "device/reply.h"

#include <gtest/gtest.h>

#include <string>

namespace orvenza::test {
namespace {

using Kind = Reply::Kind;

TEST(Reply, SaysWhatItIs) {
  struct {
    const char* text;
    Kind kind;
  } const rows[] = {
      {"", Kind::kSilence},          {"3217", Kind::kDone},
      {"321700ab", Kind::kDone},     {"ERR08", Kind::kRefused},
      {"ERR", Kind::kRefused},       {"ERR..", Kind::kRefused},
      {"ERR0111", Kind::kRefused},   {"ERR01", Kind::kPaperOut},
      {"ERR02", Kind::kPaperOut},    {"ERR1702", Kind::kPaperOut},
      {"ERR-1", Kind::kLinkError},   {"ERR-2 and more", Kind::kLinkError},
      {"ERR-", Kind::kLinkError},    {"ERR-01", Kind::kLinkError},
      {"ERR**", Kind::kInvalidLine}, {"ERR08**", Kind::kInvalidLine},
      {"200100", Kind::kGarbled},    {"err08", Kind::kGarbled},
      {" ERR08", Kind::kGarbled},    {"321", Kind::kGarbled},
      {"x3217", Kind::kGarbled},
  };
  for (const auto& row : rows) EXPECT_TRUE(Reply(row.text, "3217").Is(row.kind)) << row.text;
  EXPECT_TRUE(Reply().Is(Kind::kSilence));
  EXPECT_TRUE(Reply::InvalidLine().Is(Kind::kInvalidLine));
}

TEST(Reply, AnErrorBeginsWithErr) {
  for (const char* text : {"ERR", "ERR08", "ERR-1", "ERR.."})
    EXPECT_TRUE(Reply(text, "3217").IsError()) << text;
  for (const char* text : {"", "ER", "err08", "3217ERR", " ERR08"})
    EXPECT_FALSE(Reply(text, "3217").IsError()) << text;
}

TEST(Reply, AnErrorHasTwoCodes) {
  const Reply reply("ERR0817", "3217");
  EXPECT_EQ(reply.FirstCode(), "08");
  EXPECT_EQ(reply.Code(), "17");
  EXPECT_TRUE(reply.IsError("17"));
  EXPECT_FALSE(reply.IsError("08"));
  EXPECT_FALSE(Reply("321717", "3217").IsError("17"));
}

TEST(Reply, AReceiptIsTooLongByItsSixthAndSeventhCharacters) {
  for (const char* text : {"ERR0823", "ERR082399"})
    EXPECT_TRUE(Reply(text, "3217").IsReceiptTooLong()) << text;
  for (const char* text : {"ERR23", "ERR082", "3217023", "ERR08 23"})
    EXPECT_FALSE(Reply(text, "3217").IsReceiptTooLong()) << text;
}

TEST(Reply, OnlyARefusalSaysThatNothingWasExecuted) {
  for (const char* text : {"ERR08", "ERR11", "ERR**"}) EXPECT_TRUE(Reply(text, "3217").IsRefusal()) << text;
  for (const char* text : {"", "3217", "200100", "ERR01", "ERR02", "ERR-1", "ERR-2", "ERR-3"})
    EXPECT_FALSE(Reply(text, "3217").IsRefusal()) << text;
}

}  // namespace
}  // namespace orvenza::test
