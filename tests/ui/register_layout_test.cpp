#include "ui/register_layout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace orvenza {
namespace {

constexpr int kResolutions[] = {96, 120, 144, 192};

/// Characters 6 pixels wide and lines 14 pixels high at 96 pixels per inch; texts are never wrapped.
TextMeasure Text(std::size_t characters, int lines, int dpi) {
  return [=](int) { return Extent{static_cast<int>(characters) * 6 * dpi / 96, lines * 14 * dpi / 96}; };
}

RegisterParts Parts(int dpi, int faults = 38) {
  RegisterParts parts;
  parts.rollWidth = 315 * dpi / 96;
  parts.rollLine = 15 * dpi / 96;
  parts.listWidth = 250 * dpi / 96;
  parts.listEntry = 16 * dpi / 96;
  parts.listBorder = 2;
  parts.faults = faults;
  parts.textLine = 14 * dpi / 96;
  parts.save = Text(12, 1, dpi);
  parts.nextCommand = Text(16, 1, dpi);
  parts.untilOff = Text(13, 1, dpi);
  parts.switchOff = Text(9, 1, dpi);
  parts.copy = Text(19, 1, dpi);
  for (int i = 0; i < 5; ++i) parts.switches.push_back(Text(15, 1, dpi));
  parts.counters = Text(24, 5, dpi);
  return parts;
}

std::vector<Box> BoxesOf(const RegisterLayout& layout) {
  std::vector<Box> boxes{layout.rollHeading,
                         layout.roll,
                         layout.save,
                         layout.switchesHeading,
                         layout.faultsHeading,
                         layout.faults,
                         layout.nextCommand,
                         layout.untilOff,
                         layout.chosen,
                         layout.switchOff,
                         layout.countersHeading,
                         layout.counters,
                         layout.copy,
                         layout.status};
  boxes.insert(boxes.end(), layout.switches.begin(), layout.switches.end());
  return boxes;
}

bool Overlap(const Box& a, const Box& b) {
  return a.left < b.Right() && b.left < a.Right() && a.top < b.Bottom() && b.top < a.Bottom();
}

void ExpectInOrder(const RegisterLayout& layout, int dpi) {
  const std::vector<Box> boxes = BoxesOf(layout);
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    const Box& box = boxes[i];
    EXPECT_TRUE(box.left >= 0 && box.top >= 0 && box.width > 0 && box.height > 0) << dpi << " " << i;
    EXPECT_TRUE(box.Right() <= layout.form.width && box.Bottom() <= layout.form.height) << dpi << " " << i;
    for (std::size_t j = 0; j < i; ++j) EXPECT_FALSE(Overlap(box, boxes[j])) << dpi << " " << i << " " << j;
  }
}

TEST(RegisterLayout, KeepsEverythingApartAtEveryResolutionAndSize) {
  for (const int dpi : kResolutions) {
    const RegisterParts parts = Parts(dpi);
    const Extent usual = UsualRegister(parts, dpi);
    for (const Extent client : {usual, Extent{0, 0}, Extent{2 * usual.width, 2 * usual.height}}) {
      ExpectInOrder(LayOutRegister(parts, dpi, client), dpi);
    }
  }
}

TEST(RegisterLayout, PlacesEverything) {
  const RegisterLayout layout = LayOutRegister(Parts(96), 96, UsualRegister(Parts(96), 96));
  EXPECT_EQ(layout.form, (Extent{605, 567}));
  EXPECT_EQ(layout.rollHeading, (Box{10, 10, 315, 14}));
  EXPECT_EQ(layout.roll, (Box{10, 28, 315, 459}));
  EXPECT_EQ(layout.save, (Box{10, 499, 90, 26}));
  EXPECT_EQ(layout.switches.front(), (Box{335, 28, 260, 21}));
  EXPECT_EQ(layout.faults, (Box{335, 163, 260, 162}));
  EXPECT_EQ(layout.nextCommand, (Box{335, 329, 128, 26}));
  EXPECT_EQ(layout.untilOff, (Box{467, 329, 128, 26}));
  EXPECT_EQ(layout.chosen, (Box{335, 359, 184, 28}));
  EXPECT_EQ(layout.switchOff, (Box{523, 359, 72, 26}));
  EXPECT_EQ(layout.counters, (Box{335, 417, 260, 70}));
  EXPECT_EQ(layout.copy, (Box{335, 499, 132, 26}));
  EXPECT_EQ(layout.status, (Box{10, 529, 585, 28}));
}

TEST(RegisterLayout, GivesTheRollWhatIsAdded) {
  const RegisterParts parts = Parts(96);
  const Extent usual = UsualRegister(parts, 96);
  const RegisterLayout before = LayOutRegister(parts, 96, usual);
  const RegisterLayout after = LayOutRegister(parts, 96, {usual.width + 200, usual.height + 100});
  EXPECT_EQ(before.roll.width, 315);
  EXPECT_EQ(after.roll.width, before.roll.width + 200);
  EXPECT_EQ(after.roll.height, before.roll.height + 100);
  EXPECT_EQ(after.faults.width, before.faults.width);
}

TEST(RegisterLayout, ShowsNoMoreThanAllFaults) {
  const RegisterParts parts = Parts(96, 3);
  EXPECT_EQ(LayOutRegister(parts, 96, {1000, 1000}).faults.height, 3 * 16 + 2);
  EXPECT_EQ(LayOutRegister(parts, 96, {0, 0}).faults.height, 3 * 16 + 2);
}

TEST(RegisterLayout, ShowsAFewFaultsInASmallWindow) {
  EXPECT_EQ(LayOutRegister(Parts(96), 96, {0, 0}).faults.height, 4 * 16 + 2);
  const RegisterParts parts = Parts(96);
  EXPECT_EQ(LayOutRegister(parts, 96, UsualRegister(parts, 96)).faults.height, 10 * 16 + 2);
}

TEST(RegisterLayout, UsuallyFitsASmallScreen) {
  const Extent usual = UsualRegister(Parts(96), 96);
  EXPECT_LE(usual.width, 1024 - 20);
  EXPECT_LE(usual.height, 768 - 80) << "beside title bar and taskbar";
}

TEST(RegisterLayout, LeavesTheRollTenLinesWhateverIsBesideIt) {
  RegisterParts parts = Parts(96, 0);
  parts.switches.clear();
  parts.rollLine = 40;
  EXPECT_GE(LayOutRegister(parts, 96, {0, 0}).roll.height, 10 * 40);
}

TEST(RegisterLayout, GrowsWiderForALongCaption) {
  RegisterParts parts = Parts(96);
  parts.switches[2] = Text(80, 1, 96);
  const RegisterLayout layout = LayOutRegister(parts, 96, {0, 0});
  EXPECT_EQ(layout.switches[2].width, 480 + 22);
  ExpectInOrder(layout, 96);
}

TEST(RegisterLayout, MakesRoomForMoreCounters) {
  RegisterParts parts = Parts(96);
  const Extent usual = UsualRegister(parts, 96);
  parts.counters = Text(24, 7, 96);
  const RegisterLayout layout = LayOutRegister(parts, 96, usual);
  EXPECT_EQ(layout.form, usual);
  EXPECT_EQ(layout.counters.height, 7 * 14);
  EXPECT_EQ(layout.faults.height, 10 * 16 + 2 - 2 * 14);
}

}  // namespace
}  // namespace orvenza
