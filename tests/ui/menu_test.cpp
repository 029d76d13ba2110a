#include "ui/menu.h"

#include <gtest/gtest.h>

namespace orvenza {
namespace {

TEST(MenuCaptions, StandInTheOrderOfTheItems) {
  EXPECT_EQ(MenuCaptions(), (std::array<std::string, 4>{"Esci", "Utilita'", "Info", "Configura"}));
  EXPECT_EQ(static_cast<int>(MenuItem::kExit), 0);
  EXPECT_EQ(static_cast<int>(MenuItem::kUtilities), 1);
  EXPECT_EQ(static_cast<int>(MenuItem::kInfo), 2);
  EXPECT_EQ(static_cast<int>(MenuItem::kConfigure), 3);
}

}  // namespace
}  // namespace orvenza
