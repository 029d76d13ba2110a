#include "ui/roll_position.h"

#include <gtest/gtest.h>

namespace orvenza {
namespace {

TEST(RollPosition, ShowsAShortRollFromItsBeginning) {
  RollPosition position;
  position.Follow(0, 0, 10);
  EXPECT_EQ(position.First(), 0U);
  position.Follow(7, 7, 10);
  EXPECT_EQ(position.First(), 0U);
  position.ScrollBy(-1);
  EXPECT_EQ(position.First(), 0U);
  position.ScrollBy(1);
  EXPECT_EQ(position.First(), 0U);
}

TEST(RollPosition, StaysAtTheEndWhileLinesArrive) {
  RollPosition position;
  position.Follow(25, 25, 10);
  EXPECT_EQ(position.First(), 15U);
  position.Follow(40, 40, 10);
  EXPECT_EQ(position.First(), 30U);
}

TEST(RollPosition, DoesNotMoveOnceItIsScrolledBack) {
  RollPosition position;
  position.Follow(25, 25, 10);
  position.ScrollBy(-5);
  EXPECT_EQ(position.First(), 10U);
  position.Follow(40, 40, 10);
  EXPECT_EQ(position.First(), 10U);
}

TEST(RollPosition, StaysAtItsLinesWhenOldOnesAreDropped) {
  RollPosition position;
  position.Follow(100, 100, 10);
  position.ScrollBy(-40);
  EXPECT_EQ(position.First(), 50U);
  position.Follow(120, 100, 10);
  EXPECT_EQ(position.First(), 30U) << "twenty lines are gone before it";
  position.Follow(200, 100, 10);
  EXPECT_EQ(position.First(), 0U) << "its own lines are gone";
}

TEST(RollPosition, FollowsTheEndAgainOnceItIsScrolledThere) {
  RollPosition position;
  position.Follow(25, 25, 10);
  position.ScrollBy(-5);
  position.ScrollBy(5);
  position.Follow(26, 26, 10);
  EXPECT_EQ(position.First(), 16U);
  position.ScrollBy(-100);
  position.ScrollBy(100);
  position.Follow(27, 27, 10);
  EXPECT_EQ(position.First(), 17U);
}

TEST(RollPosition, StopsAtBothEnds) {
  RollPosition position;
  position.Follow(25, 25, 10);
  position.ScrollBy(-100);
  EXPECT_EQ(position.First(), 0U);
  position.ScrollBy(100);
  EXPECT_EQ(position.First(), 15U);
}

TEST(RollPosition, KeepsTheEndInViewWhenTheViewChanges) {
  RollPosition position;
  position.Follow(25, 25, 10);
  position.Follow(25, 25, 5);
  EXPECT_EQ(position.First(), 20U);
  position.Follow(25, 25, 20);
  EXPECT_EQ(position.First(), 5U);
}

TEST(RollPosition, LeavesNoEmptyRowsWhenAViewScrolledBackGrows) {
  RollPosition position;
  position.Follow(25, 25, 5);
  position.ScrollBy(-2);
  EXPECT_EQ(position.First(), 18U);
  position.Follow(25, 25, 10);
  EXPECT_EQ(position.First(), 15U);
  position.Follow(26, 26, 10);
  EXPECT_EQ(position.First(), 16U) << "it is at the end now";
}

TEST(RollPosition, TakesARollThatHeldLinesBeforeTheStart) {
  RollPosition position;
  position.Follow(0, 30, 10);
  EXPECT_EQ(position.First(), 20U);
  position.ScrollBy(-15);
  position.Follow(2, 30, 10);
  EXPECT_EQ(position.First(), 3U);
}

}  // namespace
}  // namespace orvenza
