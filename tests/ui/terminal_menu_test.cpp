#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "ui/terminal_fixture.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;
using TerminalMenuTest = TerminalOperatorTest;

TEST_F(TerminalMenuTest, IsNeitherOfferedNorOpenedWithoutTheIcon) {
  terminal.DeleteIcon();
  Printed();
  Type("m");
  Type("2");
  EXPECT_EQ(Show(MessageButtons::kYesNo), 2);
  EXPECT_EQ(Count("Domanda ?"), 2);
  EXPECT_EQ(Count("Il menu si apre quando il programma è in funzione.\n"), 1);
  EXPECT_EQ(picked, std::vector<MenuItem>{});
  EXPECT_EQ(Count("(solo Invio: Sì; x: chiudi)\n"), 2);
  EXPECT_EQ(Count("m: menu"), 0);
  terminal.OnLine("");
  EXPECT_TRUE(out.str().ends_with("\nNessuna domanda in attesa.\n"));
  terminal.OnLine("m");
  EXPECT_TRUE(out.str().ends_with("Il menu si apre quando il programma è in funzione.\n"));
}

TEST_F(TerminalMenuTest, PointsToTheMenuWhenNothingIsAsked) {
  terminal.OnLine("ciao");
  terminal.OnLine("");
  EXPECT_EQ(out.str(), std::string(kNoQuestion) + kNoQuestion);
}

TEST_F(TerminalMenuTest, ShowsTheMenu) {
  terminal.OnLine("m");
  EXPECT_EQ(out.str(), R"(
+----------------------------------------------------------------------+
| Menu                                                                 |
+----------------------------------------------------------------------+
| [1] Esci                                                             |
+----------------------------------------------------------------------+
| [2] Utilita'                                                         |
+----------------------------------------------------------------------+
| [3] Info                                                             |
+----------------------------------------------------------------------+
| [4] Configura                                                        |
+----------------------------------------------------------------------+
Numero + Invio (solo Invio: chiudi il menu)
)");
}

TEST_F(TerminalMenuTest, CarriesOutTheItemPickedFromTheMenu) {
  for (const char* answer : {"1", "utilita'", "I", "c"}) {
    terminal.OnLine("menu");
    terminal.OnLine(answer);
  }
  EXPECT_EQ(picked,
            (std::vector{MenuItem::kExit, MenuItem::kUtilities, MenuItem::kInfo, MenuItem::kConfigure}));
  EXPECT_EQ(Count("Menu: Utilita'\n"), 1);
}

TEST_F(TerminalMenuTest, ClosesTheMenuWithoutAPick) {
  for (const char* answer : {"", "x"}) {
    terminal.OnLine("m");
    terminal.OnLine(answer);
  }
  terminal.OnLine("1");
  EXPECT_TRUE(picked.empty());
  EXPECT_EQ(Count("Menu chiuso.\n"), 2);
  EXPECT_EQ(Count(kNoQuestion), 1);
}

TEST_F(TerminalMenuTest, KeepsTheMenuOpenAfterAnUnknownAnswer) {
  terminal.OnLine("m");
  Printed();
  terminal.OnLine("5");
  EXPECT_EQ(Printed(), std::string(kRejected) + kMenuHint);
  terminal.OnLine("3");
  EXPECT_EQ(picked, std::vector{MenuItem::kInfo});
}

TEST_F(TerminalMenuTest, DoesNothingForAnItemWithoutAHandler) {
  terminal.SetMenuHandler(nullptr);
  terminal.OnLine("m");
  terminal.OnLine("1");
  EXPECT_TRUE(out.str().ends_with("Menu: Esci\n"));
}

TEST_F(TerminalMenuTest, ShowsAWaitingMessageAgainAfterTheMenu) {
  Type("m");
  Type("");
  Type("m");
  Type("3");
  Type("2");
  EXPECT_EQ(Show(MessageButtons::kYesNo), 2);
  EXPECT_EQ(picked, std::vector{MenuItem::kInfo});
  EXPECT_EQ(Count("Domanda ?"), 3);
}

TEST_F(TerminalMenuTest, ReturnsFromAMessageClosedByTheMenuAfterTheInnerDialog) {
  std::vector<int> results;
  menuAction = [&] {
    terminal.CloseMessage();
    results.push_back(Show(MessageButtons::kYesNo));
  };
  Type("m");
  Type("1");
  Type("2");
  results.push_back(Show(MessageButtons::kRetryCancelConfigure));
  EXPECT_EQ(results, (std::vector{2, 0}));
  EXPECT_EQ(Count(kClosed), 1);
  EXPECT_EQ(Count("Domanda ?"), 2);
}

TEST_F(TerminalMenuTest, ClosesEveryMessageThatWaits) {
  std::vector<int> results;
  menuAction = [&] {
    if (picked.back() == MenuItem::kInfo) return results.push_back(Show(MessageButtons::kYesNo));
    terminal.CloseMessage();
    results.push_back(Show(MessageButtons::kYesNo));
  };
  for (const char* line : {"m", "3", "m", "1", "1"}) Type(line);
  results.push_back(Show(MessageButtons::kYesNo));
  EXPECT_EQ(results, (std::vector{1, 0, 0}));
}

TEST_F(TerminalMenuTest, LeavesOtherDialogsOpenWhenMessagesAreClosed) {
  menuAction = [&] { terminal.CloseMessage(); };
  for (const char* line : {"m", "1", "2"}) Type(line);
  EXPECT_EQ(terminal.ShowChoice(Options(1)), 2);
  EXPECT_EQ(Count("08-Tasto Errato"), 2);
}

TEST_F(TerminalMenuTest, IgnoresFurtherLinesForAMessageThatIsClosedAlready) {
  menuAction = [&] { terminal.CloseMessage(); };
  pump.events.emplace_back([this] {
    for (const char* line : {"m", "1", "1", "m"}) terminal.OnLine(line);
  });
  EXPECT_EQ(Show(MessageButtons::kYesNo), 0);
  EXPECT_EQ(Count(kNoQuestion), 2);
  EXPECT_EQ(picked.size(), 1U);
}

TEST_F(TerminalMenuTest, TakesNoAnswerForAMenuThatADialogHasCovered) {
  terminal.OnLine("m");
  Type("1");
  Type("2");
  EXPECT_EQ(Show(MessageButtons::kYesNo), 2);
  EXPECT_TRUE(picked.empty());
}

TEST_F(TerminalMenuTest, NotesTheEndThatAMenuItemThrows) {
  menuAction = [] { throw ProgramEnd{true}; };
  terminal.OnLine("m");
  EXPECT_NO_THROW(terminal.OnLine("1"));
  EXPECT_TRUE(loop.EndRequested());
}

TEST_F(TerminalMenuTest, LetsAPauseRunToItsEndWhenAMenuItemEndsTheProgram) {
  menuAction = [&] {
    loop.RequestEnd({true});
    Show(MessageButtons::kYesNo);
  };
  Type("m");
  Type("1");
  EXPECT_NO_THROW(loop.Pause(200ms));
  EXPECT_EQ(clock.uptime, 200ms);
  EXPECT_THROW(loop.CheckEnd(), ProgramEnd);
}

TEST_F(TerminalMenuTest, ThrowsTheProgramEndFromADialogAndForgetsIt) {
  pump.events.emplace_back([this] { loop.RequestEnd({true}); });
  EXPECT_THROW(Show(MessageButtons::kYesNo), ProgramEnd);
  Printed();
  terminal.OnLine("1");
  EXPECT_EQ(Printed(), kNoQuestion);
}

TEST_F(TerminalMenuTest, ThrowsTheProgramEndFromNestedDialogs) {
  menuAction = [&] { Show(MessageButtons::kYesNo); };
  Type("m");
  Type("1");
  pump.events.emplace_back([this] { loop.RequestEnd({false}); });
  EXPECT_THROW(terminal.ShowPortSettings(Ports()), ProgramEnd);
  EXPECT_EQ(Count("| Configurazione"), 1);
  Printed();
  terminal.OnLine("1");
  EXPECT_EQ(Printed(), kNoQuestion);
}

TEST_F(TerminalMenuTest, ClosesADialogOneSecondAfterItWasShownOnceTheInputHasEnded) {
  terminal.OnEndOfInput();
  EXPECT_EQ(Show(MessageButtons::kYesNo), 0);
  EXPECT_EQ(clock.uptime, 1s);
  EXPECT_EQ(Show(MessageButtons::kOk), 0);
  EXPECT_EQ(clock.uptime, 2s);
  EXPECT_EQ(Count(kClosed), 2);
}

TEST_F(TerminalMenuTest, ClosesEveryKindOfDialogWhenTheInputEnds) {
  terminal.OnEndOfInput();
  EXPECT_EQ(terminal.ShowChoice(Options(2)), std::nullopt);
  EXPECT_EQ(terminal.ShowPortSettings(Ports()), std::nullopt);
  terminal.ShowUtilities(kUtilities, [](int) { return false; });
  EXPECT_EQ(clock.uptime, 3s);
}

TEST_F(TerminalMenuTest, ClosesWaitingDialogsFromTheInnermostWhenTheInputEnds) {
  std::vector<int> results;
  menuAction = [&] { results.push_back(Show(MessageButtons::kYesNo)); };
  Type("m");
  Type("3");
  EndInput();
  results.push_back(Show(MessageButtons::kYesNo));
  EXPECT_EQ(results, (std::vector{0, 0}));
  EXPECT_EQ(clock.uptime, 1s);
}

TEST_F(TerminalMenuTest, TakesTheLastLineBeforeTheEndOfTheInput) {
  pump.events.emplace_back([this] {
    terminal.OnLine("2");
    terminal.OnEndOfInput();
  });
  EXPECT_EQ(Show(MessageButtons::kYesNo), 2);
}

}  // namespace
}  // namespace orvenza::test
