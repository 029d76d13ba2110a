#include "app/trace/failure_watch.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace orvenza::test {
namespace {

class Recorded : public EventRecorder {
 public:
  void Add(std::string_view kind, std::string text) override { all += std::string(kind) + " " + text + "\n"; }
  std::string all;
};

TEST(FailureWatch, TellsAFailureWhenItBeginsChangesAndEnds) {
  Recorded recorded;
  FailureWatch watch(recorded);
  EXPECT_FALSE(watch.AnyFails());
  watch.Worked("move a");
  for (int i = 0; i < 3; ++i) watch.Failed("move a", 70);
  watch.Failed("move b", 70);
  watch.Failed("move a", 76);
  EXPECT_TRUE(watch.AnyFails());
  watch.Worked("move a");
  watch.Worked("move a");
  EXPECT_EQ(recorded.all,
            "failed move a: 70 Permission denied\n"
            "failed move b: 70 Permission denied\n"
            "failed move a: 76 Path not found\n"
            "works move a\n");
}

TEST(FailureWatch, KeepsNoMoreThanSomeFailures) {
  Recorded recorded;
  FailureWatch watch(recorded);
  watch.Failed("move first", 70);
  for (std::size_t i = 0; i < FailureWatch::kMostFailing; ++i) watch.Failed("move " + std::to_string(i), 70);
  recorded.all.clear();
  watch.Worked("move first");
  EXPECT_EQ(recorded.all, "");
}

}  // namespace
}  // namespace orvenza::test
