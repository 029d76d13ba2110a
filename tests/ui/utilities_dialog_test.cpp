#include "ui/utilities_dialog.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "ui/fakes.h"

namespace orvenza::test {
namespace {

using Written = std::vector<std::pair<std::string, std::string>>;

/// Waiting tickets; counting or reordering them can fail.
class FakeTickets : public WaitingTickets {
 public:
  std::function<std::size_t()> count = [] { return std::size_t{0}; };
  std::vector<std::string> putLast;
  bool putLastFails = false;

  std::size_t CountWaitingTickets() override { return count(); }
  void PutLast(const std::string& name) override {
    putLast.push_back(name);
    if (putLastFails) throw SystemError(error_number::kPermissionDenied);
  }
};

class UtilitiesDialogTest : public ::testing::Test {
 protected:
  UtilitiesDialogTest() {
    settings.TicketFolder = "C:\\Orvenza\\data\\";
    settings.TicketMask = "*.txt";
    settings.SeparatorChar = '|';
    settings.ErrPath = "C:\\Orvenza\\Err.txt";
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
  FakeFiles files;
  FakeClock clock;
  AppSettings settings;
  Logs logs{files, clock, settings, "C:\\Orvenza"};
  FakeTickets tickets;
  std::function<std::size_t()>& count = tickets.count;
  UtilitiesDialog dialog{person, messages, files, logs, settings, tickets};
};

const Written kFiscalClosure = {{"C:\\Orvenza\\data\\zzzzzzzzzzzzzzzz.txt", "21|||||||||\r\n"}};
const Written kFinancialClosure = {{"C:\\Orvenza\\data\\zzzzzzzzzzzzzzzz.txt", "22|||||||||\r\n"}};

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
  EXPECT_TRUE(files.written.empty());
}

TEST_F(UtilitiesDialogTest, RequestsTheFiscalClosureAfterOneQuestion) {
  Press(2, {1});
  EXPECT_EQ(files.written, kFiscalClosure);
  EXPECT_TRUE(person.utilitiesClosedByButton);
  ASSERT_EQ(person.messages.size(), 1U);
  EXPECT_EQ(person.messages[0].caption, "Orvenza - Richiesta di Chiusura Fiscale");
  EXPECT_EQ(person.messages[0].text, "\r\nConfermi la Richiesta di Chiusura Fiscale ?");
  EXPECT_EQ(person.messages[0].icon, MessageIcon::kInformation);
  EXPECT_EQ(person.messages[0].buttons, (std::vector<std::string>{"Sì", "No"}));
}

TEST_F(UtilitiesDialogTest, RequestsTheClosureWithTheFinancialReport) {
  Press(3, {1});
  EXPECT_EQ(files.written, kFinancialClosure);
  EXPECT_TRUE(person.utilitiesClosedByButton);
}

TEST_F(UtilitiesDialogTest, WritesNothingUnlessTheQuestionIsAnsweredYes) {
  for (const std::optional<int> answer : {std::optional(2), std::optional<int>()}) {
    Press(2, {answer});
    EXPECT_FALSE(person.utilitiesClosedByButton);
  }
  EXPECT_EQ(person.messages.size(), 2U);
  EXPECT_TRUE(files.written.empty());
}

TEST_F(UtilitiesDialogTest, AsksTwiceWhileTicketsWait) {
  count = [] { return std::size_t{2}; };
  Press(3, {1, 1});
  EXPECT_EQ(files.written, kFinancialClosure);
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
  EXPECT_TRUE(files.written.empty());
}

TEST_F(UtilitiesDialogTest, AsksTwiceWhenTheTicketsCannotBeCounted) {
  count = []() -> std::size_t { throw SystemError(error_number::kPathNotFound); };
  Press(2, {1, 2});
  EXPECT_EQ(person.messages.size(), 2U);
  EXPECT_TRUE(files.written.empty());
  EXPECT_EQ(files.appended, "01/02/26 10:30 - Orv_Uti - 76 - Path not found\r\n");
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

TEST_F(UtilitiesDialogTest, NamesTheRequestAfterTheMask) {
  const std::pair<const char*, const char*> cases[] = {
      {"*.txt", "zzzzzzzzzzzzzzzz.txt"},
      {"*.dat", "zzzzzzzzzzzzzzzz.dat"},
      {"*.*", "zzzzzzzzzzzzzzzz."},
      {"sc*.txt", "sczzzzzzzzzzzzzzzz.txt"},
      {"", "zzzzzzzzzzzzzzzz"},
      {"sc*_*.txt", "sczzzzzzzzzzzzzzzz_.txt"},
      {"sc????.txt", "sczzzz.txt"},
      {"scontrino.txt", "scontrino.txt"},
      {"*?.txt", "zzzzzzzzzzzzzzzzz.txt"},
      {"*_??.txt", "zzzzzzzzzzzzzzzz_zz.txt"},
  };
  for (const auto& [mask, name] : cases) {
    settings.TicketMask = mask;
    dialog.WriteClosureRequest(0);
    EXPECT_EQ(files.written.back().first, std::string("C:\\Orvenza\\data\\") + name) << mask;
  }
}

TEST_F(UtilitiesDialogTest, ReplacesNoWaitingTicketWhereAllHaveOneName) {
  settings.TicketMask = "scontrino.txt";
  files.existing = "C:\\Orvenza\\data\\scontrino.txt";
  Press(2, {1});
  EXPECT_FALSE(person.utilitiesClosedByButton);
  EXPECT_TRUE(files.written.empty());
  EXPECT_EQ(files.appended,
            "01/02/26 10:30 - Orv_Uti - 58 - File already exists ( C:\\Orvenza\\data\\scontrino.txt )\r\n");
}

TEST_F(UtilitiesDialogTest, PutsTheRequestBehindTheWaitingTickets) {
  Press(2, {1});
  EXPECT_EQ(tickets.putLast, std::vector<std::string>{"zzzzzzzzzzzzzzzz.txt"});
}

TEST_F(UtilitiesDialogTest, ClosesWhenTheRequestStandsThoughItCannotBePutLast) {
  tickets.putLastFails = true;
  Press(2, {1});
  EXPECT_TRUE(person.utilitiesClosedByButton);
  EXPECT_EQ(files.written, kFiscalClosure);
  EXPECT_EQ(files.appended, "01/02/26 10:30 - Orv_Uti - 70 - Permission denied\r\n");
}

TEST_F(UtilitiesDialogTest, WritesTheRecordTypeOfTheKindAndNineSeparators) {
  const std::pair<int, const char*> cases[] = {
      {0, "21|||||||||\r\n"}, {1, "22|||||||||\r\n"}, {2, "21|||||||||\r\n"}, {-1, "21|||||||||\r\n"}};
  for (const auto& [kind, line] : cases) {
    dialog.WriteClosureRequest(kind);
    EXPECT_EQ(files.written.back().second, line) << kind;
  }
}

TEST_F(UtilitiesDialogTest, WritesTheSeparatorOfTheSettings) {
  settings.SeparatorChar = 127;
  dialog.WriteClosureRequest(1);
  EXPECT_EQ(files.written.back().second, "22\x7F\x7F\x7F\x7F\x7F\x7F\x7F\x7F\x7F\r\n");
}

TEST_F(UtilitiesDialogTest, NotesARequestThatCannotBeWrittenAndStaysOpen) {
  files.writesFail = true;
  Press(2, {1});
  EXPECT_FALSE(person.utilitiesClosedByButton);
  EXPECT_EQ(files.appended, "01/02/26 10:30 - Orv_Uti - 61 - Disk full\r\n");
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
