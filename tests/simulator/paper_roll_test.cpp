#include "simulator/paper_roll.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orvenza {
namespace {

TEST(PaperRoll, CollectsItsLines) {
  PaperRoll paper;
  paper.Print("uno");
  paper.Print("due");
  EXPECT_EQ(paper.Text(), "uno\ndue\n");
  EXPECT_EQ(paper.Lines().size(), 2u);
}

TEST(PaperRoll, HandsEachLineToItsSink) {
  PaperRoll paper;
  std::vector<std::string> seen;
  paper.SetSink([&](const std::string& line) { seen.push_back(line); });
  paper.Print("uno");
  paper.SetSink(nullptr);
  paper.Print("due");
  EXPECT_EQ(seen, std::vector<std::string>{"uno"});
}

TEST(PaperRoll, ForgetsTheOldestLinesInTime) {
  PaperRoll paper;
  for (std::size_t i = 0; i < PaperRoll::kLinesKept + 2; ++i) paper.Print(std::to_string(i));
  EXPECT_EQ(paper.Lines().size(), PaperRoll::kLinesKept);
  EXPECT_EQ(paper.Lines().front(), "2");
}

}  // namespace
}  // namespace orvenza
