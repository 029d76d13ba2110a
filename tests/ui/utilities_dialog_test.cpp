#include "ui/utilities_dialog.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "simulator/virtual_disk.h"
#include "ui/fakes.h"

namespace orvenza::test {
namespace {

/// Waiting tickets; counting them and writing a request can fail.
class FakeTickets : public WaitingTickets {
 public:
  std::function<std::size_t()> count = [] { return std::size_t{0}; };
  std::vector<int> requests;  ///< The kinds of the requested closures.
  bool canBeWritten = true;

  std::size_t CountWaitingTickets() override { return count(); }
  bool WriteClosureRequest(int kind) override {
    if (canBeWritten) requests.push_back(kind);
    return canBeWritten;
  }
};

class UtilitiesDialogTest : public ::testing::Test {
 protected:
  UtilitiesDialogTest() {
    logPaths.ErrPath = "C:\\Orvenza\\Err.txt";
    disk.MakeFolder("C:\\Orvenza");
  }

  /// Opens the dialog, presses `button`, and answers the questions with `answers` (1 yes, 2 no, nothing
  /// closed).
  void Press(int button, std::deque<std::optional<int>> answers) {
    person.utilityButtons = {button};
    person.messageAnswers = std::move(answers);
    dialog.Show();
  }

  FakeOperator person;
  OperatorMessages messages{person, "Orvenza"};
  FakeClock clock;
  VirtualDisk disk{clock};
  LogPaths logPaths;
  Logs logs{disk.FileSeam(), clock, logPaths, "C:\\Orvenza"};
  FakeTickets tickets;
  std::function<std::size_t()>& count = tickets.count;
  UtilitiesDialog dialog{person, messages, logs, tickets};
};

TEST_F(UtilitiesDialogTest, ShowsTheThreeButtons) {
  dialog.Show();
  ASSERT_EQ(person.utilities.size(), 1U);
  EXPECT_EQ(person.utilities[0].caption, "Utilita'");
  EXPECT_EQ(person.utilities[0].buttons,
            (std::array<std::string, 3>{"&Esci", "&Chiusura Fiscale", "Chiusura &Fiscale con Finanziario"}));
}

TEST_F(UtilitiesDialogTest, ClosesWithItsFirstButton) {
  Press(1, {});
  EXPECT_TRUE(person.utilitiesClosedByButton);
  EXPECT_TRUE(person.messages.empty());
  EXPECT_TRUE(tickets.requests.empty());
}

TEST_F(UtilitiesDialogTest, RequestsTheFiscalClosureAfterOneQuestion) {
  Press(2, {1});
  EXPECT_EQ(tickets.requests, std::vector{0});
  EXPECT_TRUE(person.utilitiesClosedByButton);
  ASSERT_EQ(person.messages.size(), 1U);
  EXPECT_EQ(person.messages[0].caption, "Orvenza - Richiesta di Chiusura Fiscale");
  EXPECT_EQ(person.messages[0].text, "\r\nConfermi la Richiesta di Chiusura Fiscale ?");
  EXPECT_EQ(person.messages[0].icon, MessageIcon::kInformation);
  EXPECT_EQ(person.messages[0].buttons, (std::vector<std::string>{"Sì", "No"}));
}

TEST_F(UtilitiesDialogTest, RequestsTheClosureWithTheFinancialReport) {
  Press(3, {1});
  EXPECT_EQ(tickets.requests, std::vector{1});
  EXPECT_TRUE(person.utilitiesClosedByButton);
}

TEST_F(UtilitiesDialogTest, WritesNothingUnlessTheQuestionIsAnsweredYes) {
  for (const std::optional<int> answer : {std::optional(2), std::optional<int>()}) {
    Press(2, {answer});
    EXPECT_FALSE(person.utilitiesClosedByButton);
  }
  EXPECT_EQ(person.messages.size(), 2U);
  EXPECT_TRUE(tickets.requests.empty());
}

TEST_F(UtilitiesDialogTest, AsksTwiceWhileTicketsWait) {
  count = [] { return std::size_t{2}; };
  Press(3, {1, 1});
  EXPECT_EQ(tickets.requests, std::vector{1});
  EXPECT_TRUE(person.utilitiesClosedByButton);
  ASSERT_EQ(person.messages.size(), 2U);
  EXPECT_EQ(person.messages[1].caption, "Orvenza - Richiesta di Chiusura Fiscale");
  EXPECT_EQ(person.messages[1].text,
            "Attenzione, ci sono ancora scontrini da stampare !\r\n"
            "Confermi la Richiesta di Chiusura Fiscale ?");
  EXPECT_EQ(person.messages[1].icon, MessageIcon::kInformation);
}

TEST_F(UtilitiesDialogTest, StaysOpenWhenTheSecondQuestionIsNotAnsweredYes) {
  count = [] { return std::size_t{1}; };
  for (const std::optional<int> answer : {std::optional(2), std::optional<int>()}) {
    Press(2, {1, answer});
    EXPECT_FALSE(person.utilitiesClosedByButton);
  }
  EXPECT_EQ(person.messages.size(), 4U);
  EXPECT_TRUE(tickets.requests.empty());
}

TEST_F(UtilitiesDialogTest, AsksTwiceWhenTheTicketsCannotBeCounted) {
  count = []() -> std::size_t { throw SystemError(error_number::kPathNotFound); };
  Press(2, {1, 2});
  EXPECT_EQ(person.messages.size(), 2U);
  EXPECT_TRUE(tickets.requests.empty());
  EXPECT_EQ(disk.Content(logPaths.ErrPath), "01/02/26 10:30 - Orv_Uti - 76 - Path not found\r\n");
}

TEST_F(UtilitiesDialogTest, CountsTheTicketsAfterTheFirstQuestionOnly) {
  int counted = 0;
  count = [&] {
    ++counted;
    return std::size_t{0};
  };
  Press(2, {2});
  EXPECT_EQ(counted, 0);
  Press(2, {1});
  EXPECT_EQ(counted, 1);
}

TEST_F(UtilitiesDialogTest, StaysOpenWhereTheRequestCannotBeWritten) {
  tickets.canBeWritten = false;
  Press(2, {1});
  EXPECT_FALSE(person.utilitiesClosedByButton);
}

TEST_F(UtilitiesDialogTest, OpensOnceAtATime) {
  person.whileShown = [&, again = true]() mutable {
    if (std::exchange(again, false)) dialog.Show();
  };
  dialog.Show();
  EXPECT_EQ(person.utilities.size(), 1U);
}

TEST_F(UtilitiesDialogTest, IsClosedAfterTheProgramEnd) {
  person.whileShown = [] { throw ProgramEnd{true}; };
  EXPECT_THROW(dialog.Show(), ProgramEnd);
  person.whileShown = {};
  dialog.Show();
  EXPECT_EQ(person.utilities.size(), 2U);
}

}  // namespace
}  // namespace orvenza::test
