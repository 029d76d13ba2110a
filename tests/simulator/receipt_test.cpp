#include "simulator/receipt.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace orvenza {
namespace {

TEST(Receipt, RoundsHalvesOfACentUp) {
  const struct {
    std::int64_t price, quantity, amount;
  } cases[] = {{150, 1000, 150}, {150, 2000, 300}, {999, 125, 125}, {1, 500, 1},
               {1, 499, 0},      {3, 1500, 5},     {0, 9999999, 0}, {999999999, 9999999, 9999998990000}};
  for (const auto& [price, quantity, amount] : cases) {
    EXPECT_EQ(PriceOf(price, quantity), amount) << price << " x " << quantity;
  }
}

TEST(Receipt, TakesPercentagesInHundredths) {
  EXPECT_EQ(PercentOf(1000, 1000), 100);
  EXPECT_EQ(PercentOf(50, 100), 1);
  EXPECT_EQ(PercentOf(49, 100), 0);
  EXPECT_EQ(PercentOf(99999999, 9999), 99989999);
}

TEST(Receipt, AddsUp) {
  Receipt receipt;
  EXPECT_EQ(receipt.Sell(1000), "");
  EXPECT_EQ(receipt.Sell(500), "");
  EXPECT_EQ(receipt.ChangeItem(-50), "");
  EXPECT_EQ(receipt.TakeBack(200), "");
  EXPECT_EQ(receipt.ChangeTotal(25), "");
  EXPECT_EQ(receipt.Total(), 1275);
  EXPECT_EQ(receipt.Due(), 1275);
}

TEST(Receipt, IsPaidInPartsWithChange) {
  Receipt receipt;
  receipt.Sell(1000);
  EXPECT_EQ(receipt.Pay(600), "");
  EXPECT_FALSE(receipt.Paid());
  EXPECT_EQ(receipt.Due(), 400);
  EXPECT_EQ(receipt.Pay(500), "");
  EXPECT_TRUE(receipt.Paid());
  EXPECT_EQ(receipt.Due(), 0);
  EXPECT_EQ(receipt.Change(), 100);
}

TEST(Receipt, SellsNothingOnceItIsBeingPaid) {
  Receipt receipt;
  receipt.Sell(1000);
  receipt.Pay(1);
  EXPECT_EQ(receipt.Sell(1), "11");
  EXPECT_EQ(receipt.TakeBack(1), "11");
  EXPECT_EQ(receipt.ChangeItem(1), "11");
  EXPECT_EQ(receipt.ChangeTotal(1), "11");
  EXPECT_EQ(receipt.Total(), 1000);
}

TEST(Receipt, StaysBetweenNothingAndItsLargestAmount) {
  Receipt receipt;
  EXPECT_EQ(receipt.Sell(Receipt::kLargestAmount + 1), "20");
  EXPECT_EQ(receipt.Sell(Receipt::kLargestAmount), "");
  EXPECT_EQ(receipt.Sell(1), "20");
  EXPECT_EQ(receipt.ChangeItem(1), "20");
  EXPECT_EQ(receipt.ChangeTotal(1), "20");
  EXPECT_EQ(receipt.TakeBack(Receipt::kLargestAmount + 1), "20");
  EXPECT_EQ(receipt.ChangeTotal(-Receipt::kLargestAmount - 1), "20");
  EXPECT_EQ(receipt.Pay(Receipt::kLargestAmount + 1), "20");
  EXPECT_EQ(receipt.Total(), Receipt::kLargestAmount);
  EXPECT_FALSE(receipt.Paying());
}

TEST(Receipt, DiscountsAnItemDownToNothingOnly) {
  Receipt receipt;
  receipt.Sell(1000);
  receipt.Sell(300);
  EXPECT_EQ(receipt.ChangeItem(-200), "");
  EXPECT_EQ(receipt.LastItem(), 100);
  EXPECT_EQ(receipt.ChangeItem(-101), "20");
  EXPECT_EQ(receipt.ChangeItem(-100), "");
  EXPECT_EQ(receipt.Total(), 1000);
}

TEST(Receipt, DiscountsOnlyTheItemJustSold) {
  Receipt fresh;
  EXPECT_EQ(fresh.ChangeItem(1), "11");

  Receipt receipt;
  receipt.Sell(1000);
  receipt.EndItem();
  EXPECT_EQ(receipt.ChangeItem(-1), "11");
  receipt.Sell(1000);
  receipt.TakeBack(1);
  EXPECT_EQ(receipt.ChangeItem(-1), "11");
  receipt.Sell(1000);
  receipt.ChangeTotal(-1);
  EXPECT_EQ(receipt.ChangeItem(-1), "11");
}

}  // namespace
}  // namespace orvenza
