#include "lab/table/play_cases.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;
using Log = std::vector<std::string>;

const TicketStep kItem{"item",
                       "ticket ticket.txt\n"
                       "| 1;PANE;1,000;150;1;;;1;;\n"
                       "| 1;LATTE;2,000;129;1;;;1;;\n"
                       "| 2;1;1000;\n",
                       "1004", 1};
const TicketStep kPayment{"payment", kItem.scenario, "1036", 1};

StepFault Fault(const std::string& effect) { return {effect, {effect}, false, {}, {}}; }

StepFault FaultWhile(const std::string& effect, EventKind meanwhile) {
  return {effect, {effect}, false, meanwhile, 500ms};
}

/// The fields of the paper are: whole, other, mixed, earlier, voided, open.
TicketEnd End(std::vector<Answer> answers, CustomerPaper paper, FileEnd file, Verdict verdict, Log log) {
  return {std::move(answers), paper, file, verdict, {}, std::move(log)};
}

constexpr const char* kNoReply = "Nessuna riposta dal Dispositivo !";
constexpr const char* kPrintedLog = "Risposta Operatore : Scontrino stampato, continuare";
constexpr const char* kReprintLog =
    "Risposta Operatore : Ristampare lo scontrino ( annullare automaticamente )";
constexpr const char* kGiveUpLog = "Risposta Operatore : Abortire la stampa dello scontrino";

TEST(PlayCase, TriesEveryAnswer) {
  const FaultCase played = PlayCase(kPayment, Fault("lose-reply"), 1);
  const CustomerPaper once{1, 0, 0, 0, 0, false};
  EXPECT_EQ(played.ends,
            (std::vector<TicketEnd>{
                End({Answer::kGiveUp}, once, FileEnd::kAbort, Verdict::kInDoubt, {kNoReply, kGiveUpLog}),
                End({Answer::kReprint}, {2, 0, 0, 0, 0, false}, FileEnd::kHistoric, Verdict::kTwiceByChoice,
                    {kNoReply, kReprintLog}),
                End({Answer::kPrinted}, once, FileEnd::kHistoric, Verdict::kFine, {kNoReply, kPrintedLog}),
                End({Answer::kNoChoice, Answer::kGiveUp}, once, FileEnd::kAbort, Verdict::kInDoubt,
                    {kNoReply, kGiveUpLog}),
                End({Answer::kEndProgram}, once, FileEnd::kAbort, Verdict::kInDoubt,
                    {kNoReply, "Abort stampa scontrino. ..."}),
            }));
}

TEST(PlayCase, GoesForwardBelowItsDepth) {
  const FaultCase played = PlayCase(kPayment, Fault("silence"), 0);
  EXPECT_EQ(played.ends,
            (std::vector<TicketEnd>{End({Answer::kGiveUp}, {0, 0, 0, 0, 0, true}, FileEnd::kAbort,
                                        Verdict::kLostByChoice, {kNoReply, kGiveUpLog})}));
}

TEST(PlayCase, LooksFurtherWhereADialogFollowsAnother) {
  const FaultCase played = PlayCase(kPayment, Fault("lose-reply"), 2);
  const auto ends = [&](std::vector<Answer> answers) {
    return std::count_if(played.ends.begin(), played.ends.end(),
                         [&](const TicketEnd& end) { return end.answers == answers; });
  };
  for (const Answer second :
       {Answer::kPrinted, Answer::kReprint, Answer::kGiveUp, Answer::kNoChoice, Answer::kEndProgram}) {
    EXPECT_EQ(ends({Answer::kNoChoice, second}), 1);
  }
  EXPECT_EQ(played.ends.size(), 9u);
}

TEST(PlayCase, StartsTheProgramAgainAfterItsEnd) {
  const FaultCase played = PlayCase(kItem, FaultWhile("lose-reply", EventKind::kMenu), 1);
  const auto left = std::find_if(played.ends.begin(), played.ends.end(), [](const TicketEnd& end) {
    return end.answers == std::vector<Answer>{Answer::kEndProgram};
  });
  ASSERT_NE(left, played.ends.end());
  EXPECT_EQ(left->paper, (CustomerPaper{1, 0, 0, 0, 1, false}));
  EXPECT_EQ(left->verdict, Verdict::kFine);
}

TEST(PlayCase, StartsTheProgramAgainAfterAPowerCut) {
  const FaultCase before = PlayCase(kPayment, FaultWhile("silence", EventKind::kPowerFails), 0);
  ASSERT_EQ(before.ends.size(), 1u);
  EXPECT_EQ(before.ends[0].paper, (CustomerPaper{1, 0, 0, 0, 1, false}));
  EXPECT_EQ(before.ends[0].verdict, Verdict::kFine);
  const FaultCase after = PlayCase(kPayment, FaultWhile("lose-reply", EventKind::kPowerFails), 0);
  ASSERT_EQ(after.ends.size(), 1u);
  EXPECT_EQ(after.ends[0].paper, (CustomerPaper{2, 0, 0, 0, 0, false}));
  EXPECT_EQ(after.ends[0].verdict, Verdict::kTwice);
  EXPECT_TRUE(after.ends[0].reason.starts_with("A ticket found in the in-process folder"));
}

TEST(PlayCase, CountsEndlessQuestionsAsAskingOn) {
  StepFault fault = Fault("reply ERR02");
  fault.eachTime = true;
  const FaultCase played = PlayCase(kItem, fault, 0);
  ASSERT_EQ(played.ends.size(), 1u);
  EXPECT_EQ(played.ends[0].verdict, Verdict::kAsksOn);
  EXPECT_EQ(played.ends[0].paper, (CustomerPaper{0, 0, 0, 0, 30, true}));
  EXPECT_EQ(played.ends[0].file, FileEnd::kWaiting);
}

TEST(PlayCase, CountsEndlessWaitingAsHanging) {
  const TicketStep restart{"restart", "register on 1004 paper-out receipt\n" + kItem.scenario, "1149", 1};
  const FaultCase played = PlayCase(restart, Fault("silence"), 0);
  ASSERT_EQ(played.ends.size(), 1u);
  EXPECT_EQ(played.ends[0].verdict, Verdict::kHang);
  EXPECT_EQ(played.ends[0].file, FileEnd::kWaiting);
}

TEST(PlayCase, TellsAWaitForOneReplyFromEndlessTries) {
  const TicketStep restart{"restart", "register on 1004 paper-out receipt\n" + kItem.scenario, "1149", 1};
  EXPECT_FALSE(PlayCase(restart, Fault("silence"), 0).ends.at(0).waits);
  EXPECT_TRUE(PlayCase(kItem, Fault("silence"), 0, TableHour::kMidnight).ends.at(0).waits);
}

TEST(PlayCase, WaitsAtMidnightUntilAReplyOrTheEndOfTheProgram) {
  const FaultCase lost = PlayCase(kItem, Fault("lose-reply"), 2, TableHour::kMidnight);
  ASSERT_EQ(lost.ends.size(), 1u);
  EXPECT_EQ(lost.ends[0].verdict, Verdict::kHang);
  EXPECT_TRUE(
      lost.ends[0].reason.starts_with("A wait for a reply that begins less than 15 s before midnight"));
  const FaultCase late = PlayCase(kItem, Fault("late 16000"), 2, TableHour::kMidnight);
  ASSERT_EQ(late.ends.size(), 1u);
  EXPECT_EQ(late.ends[0].verdict, Verdict::kFine);
  const FaultCase ended =
      PlayCase(kPayment, FaultWhile("lose-reply", EventKind::kMenu), 2, TableHour::kMidnight);
  ASSERT_EQ(ended.ends.size(), 2u);
  EXPECT_EQ(ended.ends[1].answers, (std::vector<Answer>{Answer::kEndProgram}));
  EXPECT_EQ(ended.ends[1].verdict, Verdict::kInDoubt);
}

TEST(PlayCase, PlaysTheWayInWhichTheOperatorIsAsked) {
  const FaultCase item =
      PlayCase(kItem, Fault("silence"), 0, TableHour::kMidnight, WayOfWorking::kAskInDoubt);
  EXPECT_EQ(item.ends.at(0).answers, std::vector<Answer>{Answer::kGiveUp});
  EXPECT_EQ(item.ends.at(0).verdict, Verdict::kLostByChoice);
  const FaultCase cut = PlayCase(kPayment, FaultWhile("lose-reply", EventKind::kPowerFails), 1,
                                 TableHour::kDay, WayOfWorking::kAskInDoubt);
  const auto printed = std::find_if(cut.ends.begin(), cut.ends.end(), [](const TicketEnd& end) {
    return end.answers == std::vector<Answer>{Answer::kPrinted};
  });
  ASSERT_NE(printed, cut.ends.end());
  EXPECT_EQ(printed->verdict, Verdict::kFine);
  EXPECT_EQ(printed->reason, "");
}

TEST(PlayCase, CutsThePowerAtACommand) {
  using When = PowerCut::When;
  StepFault fault{"cut", {}, false, {}, {}, {{When::kBeforeCommand, "1036", 1}}};
  const FaultCase before = PlayCase(kPayment, fault, 0);
  ASSERT_EQ(before.ends.size(), 1u);
  EXPECT_EQ(before.ends[0].paper, (CustomerPaper{1, 0, 0, 0, 1, false}));
  fault.cuts[0].when = When::kAfterReply;
  const FaultCase after = PlayCase(kPayment, fault, 0);
  ASSERT_EQ(after.ends.size(), 1u);
  EXPECT_EQ(after.ends[0].verdict, Verdict::kTwice);
}

TEST(PlayCase, CutsThePowerWhereTheFileIsMoved) {
  const TicketStep filing{"filing", kItem.scenario, {}, 1, true};
  StepFault fault{"cut", {}, false, {}, {}, {{PowerCut::When::kAfterChange, {}, 0}}};
  const FaultCase before = PlayCase(filing, fault, 0);
  EXPECT_EQ(before.ends.at(0).verdict, Verdict::kTwice);
  fault.cuts[0].number = 1;
  const FaultCase after = PlayCase(filing, fault, 0);
  EXPECT_EQ(after.ends.at(0).verdict, Verdict::kFine);
  EXPECT_EQ(after.ends.at(0).paper, (CustomerPaper{1, 0, 0, 0, 0, false}));
}

TEST(PlayCase, RefusesAStepThatIsNeverReached) {
  const TicketStep never{"never", kItem.scenario, "1036", 2};
  try {
    PlayCase(never, Fault("silence"));
    FAIL() << "the case was played";
  } catch (const std::invalid_argument& error) {
    EXPECT_STREQ(error.what(), "the scenario of \"never\" never sends 1036 #2");
  }
}

}  // namespace
}  // namespace orvenza::test
