// The roll in the simulated register's window: scrolling it while lines arrive.

#include <vector>

#include "windows/picture.h"
#include "windows/register_bench.h"

namespace orvenza::test {
namespace {

using namespace control_id;

struct RegisterRollTest : RegisterBench {
  RegisterRollTest() {
    Number(1, 200);
    Settle();
    rows = First() == 0 ? 0 : 200 - First() + 1;
  }

  /// Prints lines that are the numbers from `first` to `last`.
  void Number(int first, int last) {
    std::vector<RollLine> lines;
    for (int i = first; i <= last; ++i) lines.push_back({std::to_string(i)});
    panel.Print(lines, 300);
  }
  /// The first number in view.
  int First() const { return std::atoi(InView().c_str()); }
  void AwaitFirst(int number) {
    Await("the line", [=, this] { return First() == number; });
  }

  int rows = 0;  ///< In view.
};

TEST_F(RegisterRollTest, IsAtTheEndAndStaysThere) {
  EXPECT_GE(rows, 10);
  EXPECT_TRUE(InView().ends_with("\r\n199\r\n200\r\n")) << InView();
  Number(201, 207);
  Settle();
  EXPECT_TRUE(InView().ends_with("\r\n206\r\n207\r\n")) << InView();
}

TEST_F(RegisterRollTest, IsScrolledByKeys) {
  Enter();
  const int end = First();
  const std::pair<WORD, int> keys[] = {{VK_UP, end - 1},           {VK_UP, end - 2},   {VK_DOWN, end - 1},
                                       {VK_PRIOR, end - 1 - rows}, {VK_NEXT, end - 1}, {VK_HOME, 1},
                                       {VK_NEXT, 1 + rows},        {VK_END, end}};
  for (const auto& [key, first] : keys) {
    Press(key);
    AwaitFirst(first);
  }
}

TEST_F(RegisterRollTest, IsScrolledByTheWheel) {
  Enter();
  const int end = First();
  Click(window.Handle(), kRoll);
  TurnWheel(2);
  AwaitFirst(end - 6);
  TurnWheel(-1);
  AwaitFirst(end - 3);
}

TEST_F(RegisterRollTest, IsScrolledByTheWheelWhileASwitchHasTheFocus) {
  Enter();
  const int end = First();
  TabTo(kSwitch);
  TurnWheel(1);
  AwaitFirst(end - 3);
}

TEST_F(RegisterRollTest, IsScrolledByAWheelOfFineSteps) {
  const int end = First();
  for (int i = 0; i < 2; ++i)
    SendMessageW(Control(kRoll), WM_MOUSEWHEEL, static_cast<WPARAM>(MAKELONG(0, WHEEL_DELTA / 6)), 0);
  EXPECT_EQ(First(), end - 1);
}

TEST_F(RegisterRollTest, IsScrolledByItsBar) {
  const int end = First();
  const auto scroll = [this](WORD request) { SendMessageW(Control(kRoll), WM_VSCROLL, request, 0); };
  scroll(SB_LINEUP);
  EXPECT_EQ(First(), end - 1);
  scroll(SB_PAGEUP);
  EXPECT_EQ(First(), end - 1 - rows);
  scroll(SB_PAGEDOWN);
  scroll(SB_LINEDOWN);
  EXPECT_EQ(First(), end);
  scroll(SB_TOP);
  EXPECT_EQ(First(), 1);
  scroll(SB_BOTTOM);
  EXPECT_EQ(First(), end);
  SCROLLINFO bar{};
  bar.cbSize = sizeof bar;
  bar.fMask = SIF_ALL;
  GetScrollInfo(Control(kRoll), SB_VERT, &bar);
  EXPECT_EQ(bar.nMax, 199);
  EXPECT_EQ(static_cast<int>(bar.nPage), rows);
  EXPECT_EQ(bar.nPos, end - 1);
}

TEST_F(RegisterRollTest, DoesNotJumpWhileItIsScrolledBack) {
  Enter();
  Press(VK_PRIOR);
  const int first = 200 - 2 * rows + 1;
  AwaitFirst(first);
  Number(201, 250);
  Settle();
  EXPECT_EQ(First(), first);
  Number(251, 350);  // Fifty lines are no longer kept.
  Settle();
  EXPECT_EQ(First(), first);
  TakePicture(window.Handle());
  Press(VK_HOME);
  AwaitFirst(51);
  Number(351, 360);
  Settle();
  EXPECT_EQ(First(), 61) << "its lines are gone";
  Press(VK_END);
  AwaitFirst(360 - rows + 1);
  Number(361, 361);
  Settle();
  EXPECT_EQ(First(), 361 - rows + 1);
}

}  // namespace
}  // namespace orvenza::test
