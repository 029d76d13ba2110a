#include "ui/button_row.h"

#include <gtest/gtest.h>

namespace orvenza {
namespace {

TEST(PlaceButton, CentresASingleButton) {
  EXPECT_EQ(PlaceButton(1, 1, 5000), (ButtonPlace{1862, 980, 1275, 375}));
}

TEST(PlaceButton, PutsEachButtonBesideTheOneBefore) {
  EXPECT_EQ(PlaceButton(1, 3, 5825), (ButtonPlace{1000, 980, 1275, 375}));
  EXPECT_EQ(PlaceButton(2, 3, 5825), (ButtonPlace{2275, 980, 1275, 375}));
  EXPECT_EQ(PlaceButton(3, 3, 5825), (ButtonPlace{3550, 980, 1275, 375}));
}

TEST(PlaceButton, LeavesTheSameRoomOnBothSides) {
  const int formWidth = 6000;
  const ButtonPlace last = PlaceButton(2, 2, formWidth);
  EXPECT_EQ(PlaceButton(1, 2, formWidth).left, formWidth - (last.left + last.width));
}

}  // namespace
}  // namespace orvenza
