#include "lab/table/verdict.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace orvenza::test {
namespace {

TicketEnd End(std::vector<Answer> answers, int whole, int other, FileEnd file) {
  TicketEnd end;
  end.answers = std::move(answers);
  end.paper.whole = whole;
  end.paper.other = other;
  end.file = file;
  return end;
}

TEST(TicketVerdict, IsFineWhenEverythingCameOutOnce) {
  EXPECT_EQ(VerdictOf(End({}, 1, 0, FileEnd::kHistoric)), Verdict::kFine);
  EXPECT_EQ(VerdictOf(End({Answer::kReprint}, 1, 0, FileEnd::kHistoric)), Verdict::kFine);
  EXPECT_EQ(VerdictOf(End({Answer::kGiveUp}, 1, 0, FileEnd::kAbort)), Verdict::kInDoubt);
}

TEST(TicketVerdict, KnowsWhoseChoiceALossIs) {
  for (const Answer answer : {Answer::kGiveUp, Answer::kPrinted, Answer::kNoChoice, Answer::kCloseReceipt}) {
    EXPECT_EQ(VerdictOf(End({answer}, 0, 0, FileEnd::kHistoric)), Verdict::kLostByChoice);
  }
  for (const Answer answer : {Answer::kReprint, Answer::kLeaveReceipt, Answer::kTryPort, Answer::kLeavePort,
                              Answer::kStay, Answer::kEndProgram}) {
    EXPECT_EQ(VerdictOf(End({answer}, 0, 1, FileEnd::kHistoric)), Verdict::kLost);
  }
  EXPECT_EQ(VerdictOf(End({}, 0, 0, FileEnd::kAbort)), Verdict::kLost);
}

TEST(TicketVerdict, BlamesTheEndOfTheProgramForATicketThatItGaveUp) {
  EXPECT_EQ(VerdictOf(End({Answer::kEndProgram}, 0, 0, FileEnd::kAbort)), Verdict::kLostByChoice);
  EXPECT_EQ(VerdictOf(End({Answer::kEndProgram}, 0, 0, FileEnd::kHistoric)), Verdict::kLost);
}

TEST(TicketVerdict, KnowsWhoseChoiceASecondReceiptIs) {
  for (const Answer answer : {Answer::kReprint, Answer::kCloseReceipt}) {
    EXPECT_EQ(VerdictOf(End({answer}, 2, 0, FileEnd::kHistoric)), Verdict::kTwiceByChoice);
  }
  for (const Answer answer : {Answer::kGiveUp, Answer::kPrinted, Answer::kNoChoice, Answer::kEndProgram}) {
    EXPECT_EQ(VerdictOf(End({answer}, 2, 0, FileEnd::kHistoric)), Verdict::kTwice);
  }
  EXPECT_EQ(VerdictOf(End({}, 1, 1, FileEnd::kHistoric)), Verdict::kTwice);
}

TEST(TicketVerdict, TakesOnlyAnAnswerThatAskedForTheLossWhereTheOperatorIsAsked) {
  constexpr WayOfWorking kAsk = WayOfWorking::kAskInDoubt;
  EXPECT_EQ(VerdictOf(End({Answer::kGiveUp}, 0, 0, FileEnd::kAbort), kAsk), Verdict::kLostByChoice);
  EXPECT_EQ(VerdictOf(End({Answer::kPrinted}, 0, 0, FileEnd::kHistoric), kAsk), Verdict::kLostByChoice);
  EXPECT_EQ(VerdictOf(End({Answer::kGiveUp}, 0, 0, FileEnd::kHistoric), kAsk), Verdict::kLost);
  EXPECT_EQ(VerdictOf(End({Answer::kPrinted}, 0, 0, FileEnd::kAbort), kAsk), Verdict::kLost);
  for (const Answer answer :
       {Answer::kNoChoice, Answer::kCloseReceipt, Answer::kKeepForeign, Answer::kEndProgram}) {
    EXPECT_EQ(VerdictOf(End({answer}, 0, 0, FileEnd::kAbort), kAsk), Verdict::kLost);
  }
}

TEST(TicketVerdict, LosesAReceiptKeyedInByHandUnlessItsVoidWasChosen) {
  TicketEnd end = End({}, 1, 0, FileEnd::kHistoric);
  end.paper.keyedInVoided = 1;
  EXPECT_EQ(VerdictOf(end, WayOfWorking::kAskInDoubt), Verdict::kLost);
  EXPECT_EQ(VerdictOf(end, WayOfWorking::kContract), Verdict::kFine);
  end.answers = {Answer::kVoidForeign};
  EXPECT_EQ(VerdictOf(end, WayOfWorking::kAskInDoubt), Verdict::kFine);
}

TEST(TicketVerdict, QuestionsExcuseOnlyATicketThatStillWaits) {
  constexpr WayOfWorking kAsk = WayOfWorking::kAskInDoubt;
  EXPECT_EQ(AskedOn(End({}, 0, 0, FileEnd::kWaiting), kAsk), Verdict::kAsksOn);
  EXPECT_EQ(AskedOn(End({}, 1, 0, FileEnd::kWaiting), kAsk), Verdict::kAsksOn);
  EXPECT_EQ(AskedOn(End({}, 0, 0, FileEnd::kHistoric), kAsk), Verdict::kLost);
  EXPECT_EQ(AskedOn(End({}, 2, 0, FileEnd::kWaiting), kAsk), Verdict::kTwice);
  EXPECT_EQ(AskedOn(End({}, 2, 0, FileEnd::kWaiting), WayOfWorking::kContract), Verdict::kAsksOn);
}

TEST(TicketVerdict, AReceiptWithAnEarlierTicketsLinesIsOneTooMany) {
  TicketEnd end = End({}, 1, 0, FileEnd::kHistoric);
  end.paper.mixed = 1;
  EXPECT_EQ(VerdictOf(end), Verdict::kTwice);
}

TEST(TicketVerdict, ForbidsWhatTheOperatorDidNotChoose) {
  for (const Verdict verdict : {Verdict::kLost, Verdict::kTwice, Verdict::kHang}) {
    EXPECT_TRUE(IsForbidden(verdict));
  }
  for (const Verdict verdict : {Verdict::kFine, Verdict::kInDoubt, Verdict::kTwiceByChoice,
                                Verdict::kLostByChoice, Verdict::kAsksOn}) {
    EXPECT_FALSE(IsForbidden(verdict));
  }
}

TEST(TicketVerdict, TakesEachLineOfTheErrorLogOnceAndWithoutWhatVaries) {
  RehearsalOutcome outcome;
  outcome.files["C:\\Orvenza\\Err.txt"] =
      "16/11/2026 09:00:00 - ECR Error : 08-Tasto Errato\r\n"
      "16/11/2026 09:00:01 - 11-Sequenza Errata\r\n"
      "16/11/2026 09:00:02 - ECR Error : \r\n"
      "16/11/2026 09:00:03 - Carta Giornale Esaurita !\r\n"
      "16/11/2026 09:00:04 - Riga non valida : 1;PANE\r\n"
      "16/11/2026 09:00:04 - Scontrino delle 09:00, totale 1,50 : a.txt La stampa è stata interrotta. "
      "Controllare la carta : è stato stampato tutto ?\r\n"
      "16/11/2026 09:00:04 - Attenzione ! Carta Giornale Esaurita ! Ripristinare la carta e confermare\r\n"
      "16/11/2026 09:00:05 - Abort stampa scontrino. C:\\Orvenza\\data\\inproces\\1.txt\r\n";
  EXPECT_EQ(ErrorLines(outcome),
            (std::vector<std::string>{
                "ECR Error : ...", "11-Sequenza Errata", "Carta ... Esaurita !", "Riga non valida : ...",
                "... La stampa è stata interrotta. Controllare la carta : è stato stampato tutto ?",
                "Attenzione ! Carta ... Esaurita ! ...", "Abort stampa scontrino. ..."}));
  EXPECT_EQ(ErrorLines({}), std::vector<std::string>{});
}

TEST(TicketVerdict, ExplainsOnlyForbiddenEndsByARule) {
  const TicketStep step{"item", "", "1003", 1};
  const StepFault fault{"link error 2", {"link-error 2"}, false, {}, {}};
  TicketEnd end = End({}, 0, 1, FileEnd::kHistoric);
  end.verdict = Verdict::kLost;
  EXPECT_EQ(RuleFor(step, fault, end), "Link error 2 counts as success.");
  end.verdict = Verdict::kLostByChoice;
  EXPECT_EQ(RuleFor(step, fault, end), "");
}

TEST(TicketVerdict, ExplainsAClosureByItsReplyOnlyIfTheTicketCountsAsPrinted) {
  const TicketStep step{"fiscal closure", "", "3001", 1};
  const StepFault fault{"reply lost", {"lose-reply"}, false, {}, {}};
  TicketEnd end = End({}, 0, 0, FileEnd::kHistoric);
  end.verdict = Verdict::kLost;
  EXPECT_TRUE(RuleFor(step, fault, end).starts_with("The reply to a closure or a report"));
  end.file = FileEnd::kAbort;
  EXPECT_EQ(RuleFor(step, fault, end), "");
}

TEST(TicketVerdict, ExplainsATicketGivenUpForAnAbsentRegisterOnlyAtAClosure) {
  const StepFault fault{"register off (after its reply)", {"absent 3"}, false, {}, {}};
  TicketEnd end = End({}, 0, 0, FileEnd::kAbort);
  end.verdict = Verdict::kLost;
  end.log = {"Dispositivo Spento o Non Collegato !", "Abort stampa scontrino. ..."};
  const TicketStep closure{"status query", "ticket a.txt\n| 21;;;;;;;;;\n", "321701", 1};
  EXPECT_TRUE(RuleFor(closure, fault, end).starts_with("A closure or a report gives its ticket up"));
  const TicketStep item{"first item", "ticket a.txt\n| 1;PANE;1,000;150;1;;;1;;\n", "1003", 1};
  EXPECT_EQ(RuleFor(item, fault, end), "");
  end.log.pop_back();
  EXPECT_EQ(RuleFor(closure, fault, end), "");
}

TEST(TicketVerdict, HasNoRuleForALostReply) {
  const TicketStep step{"item", "", "1003", 1};
  const StepFault fault{"reply lost", {"lose-reply"}, false, {}, {}};
  TicketEnd end = End({Answer::kReprint}, 0, 0, FileEnd::kHistoric);
  end.log = {"Nessuna riposta dal Dispositivo !"};
  for (const Verdict verdict : {Verdict::kLost, Verdict::kTwice}) {
    end.verdict = verdict;
    EXPECT_EQ(RuleFor(step, fault, end), "");
  }
}

}  // namespace
}  // namespace orvenza::test
