#include "lab/table/play_pairs.h"

#include <gtest/gtest.h>

#include "lab/rehearsal/rehearsal.h"
#include "lab/rehearsal/scenario_reader.h"

namespace orvenza::test {
namespace {

const std::string kAsk = "setting [Safety] AskInDoubt = 1\nuntil printed\nlimit 3h\n";

PairTicket Ticket() {
  for (const PairTicket& ticket : PairTickets()) {
    if (ticket.expected.size() == 1) return ticket;
  }
  return {};
}

TEST(PairScenario, IsTheSameForTheSameSeed) {
  const PairTicket ticket = Ticket();
  Dice first(5);
  Dice second(5);
  Dice other(6);
  const std::string text = PairScenario(ticket, first);
  EXPECT_EQ(PairScenario(ticket, second), text);
  EXPECT_NE(PairScenario(ticket, other), text);
  EXPECT_NE(text.find("AskInDoubt = 1"), std::string::npos);
}

TEST(PairRun, HasAScenarioThatPlaysItAgain) {
  const PairTicket ticket = Ticket();
  Dice dice(1);
  const PairEnd end =
      PlayPair(ticket, kAsk + "register on 1036 lose-reply\n" + ticket.scenario, PairOperator::kHonest, dice);
  ASSERT_TRUE(end.judged);
  EXPECT_EQ(end.verdict, Verdict::kFine);
  EXPECT_NE(end.scenario.find("ms Scontrino stampato, continuare\n"), std::string::npos) << end.scenario;
  const RehearsalOutcome again = Rehearse(ParseScenario("again", end.scenario));
  EXPECT_EQ(again.problems, std::vector<std::string>{});
  EXPECT_EQ(again.receipts.size(), 1u);
}

TEST(PairRun, FindsWhatNobodyChose) {
  // The contract counts link error 2 as success, so an item is missing.
  const PairTicket ticket = Ticket();
  Dice dice(1);
  const std::string contract = "until printed\nlimit 3h\nregister on 1003 link-error 2\n" + ticket.scenario;
  const PairEnd end = PlayPair(ticket, contract, PairOperator::kAny, dice);
  EXPECT_TRUE(end.judged);
  EXPECT_EQ(end.verdict, Verdict::kLost);
  EXPECT_FALSE(end.allowed);
}

TEST(PlayPairs, EndAsSomebodyChose) {
  const PairsPlayed played = PlayPairs(ORVENZA_TEST_PAIRS, 20261116);
  EXPECT_EQ(played.forbidden, 0u);
  for (const PairEnd& end : played.violations) ADD_FAILURE() << end.scenario;
  // The few pairs of a build with sanitizers scatter: 29 of its 500 end in a way that has no verdict.
  EXPECT_LT(played.notJudged * 10, static_cast<std::size_t>(ORVENZA_TEST_PAIRS));
}

}  // namespace
}  // namespace orvenza::test
