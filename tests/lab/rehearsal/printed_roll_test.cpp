#include "lab/rehearsal/printed_roll.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "simulator/paper_layout.h"

namespace orvenza::test {
namespace {

using Lines = std::vector<std::string>;

/// An outcome with events of these kinds. Each "paper" event is one line, "twice" is one line printed twice.
RehearsalOutcome OutcomeOf(const std::vector<std::string_view>& kinds, const Lines& paper) {
  RehearsalOutcome outcome;
  for (const std::string_view kind : kinds) {
    const bool twice = kind == "twice";
    outcome.events.push_back({{}, twice ? "paper" : kind, {}, twice ? 2u : 1u});
  }
  outcome.paper = paper;
  return outcome;
}

/// The parts as lines "EVENT: LINE, LINE", with " cut" at the end.
Lines Parts(const RehearsalOutcome& outcome) {
  Lines parts;
  for (const PrintedPart& part : PrintedParts(outcome)) {
    std::string text = std::to_string(part.event) + ":";
    for (const std::string& line : part.lines) text += " " + line;
    parts.push_back(text + (part.cut ? " cut" : ""));
  }
  return parts;
}

TEST(PrintedRoll, AttributesLinesToTheCommandBeforeThem) {
  EXPECT_EQ(Parts(OutcomeOf({"tick", "sent", "paper", "paper", "reply", "sent", "reply", "sent", "paper"},
                            {"a", "b", "c"})),
            (Lines{"1: a b", "7: c"}));
}

TEST(PrintedRoll, AttributesOtherLinesToThemselves) {
  EXPECT_EQ(Parts(OutcomeOf({"paper", "world", "paper", "paper", "reply"}, {"a", "b", "c"})),
            (Lines{"0: a", "2: b c"}));
}

TEST(PrintedRoll, CountsRepeatedLines) {
  EXPECT_EQ(Parts(OutcomeOf({"sent", "twice", "paper", "sent", "paper"}, {"a", "a", "b", "c"})),
            (Lines{"0: a a b", "3: c"}));
}

TEST(PrintedRoll, IsCutWhereTheRegisterCutsIt) {
  EXPECT_EQ(Parts(OutcomeOf({"sent", "paper", "paper", "paper", "sent", "paper"},
                            {"a", Divider(), "b", Divider()})),
            (Lines{"0: a cut", "0: b", "4: " + Divider()}));
}

TEST(PrintedRoll, IsEmptyWithoutPaper) { EXPECT_EQ(Parts(OutcomeOf({"start", "sent"}, {})), Lines{}); }

}  // namespace
}  // namespace orvenza::test
