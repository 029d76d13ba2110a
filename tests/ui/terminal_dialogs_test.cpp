#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "ui/terminal_fixture.h"

namespace orvenza::test {
namespace {

using Selection = std::array<int, 5>;
using TerminalDialogsTest = TerminalOperatorTest;

TEST_F(TerminalDialogsTest, ShowsTheOptionsOfAChoice) {
  Type("1");
  EXPECT_EQ(terminal.ShowChoice(Options(2)), 1);
  EXPECT_EQ(out.str(), R"(
+----------------------------------------------------------------------+
| Orvenza                                                              |
+----------------------------------------------------------------------+
|                                                                      |
| Attenzione ! Errore ECR :                                            |
| 08-Tasto Errato                                                      |
|                                                                      |
+----------------------------------------------------------------------+
| ( ) [1] Continuare                                                   |
| (*) [2] Ristampare                                                   |
+----------------------------------------------------------------------+
Numero + Invio (solo Invio: [2]; x: chiudi; m: menu)
Risposta: Continuare
)");
}

TEST_F(TerminalDialogsTest, TakesAChoiceByNumberByCaptionOrAsItStands) {
  const std::pair<const char*, int> answers[] = {{"1", 1}, {"2", 2},  {"continuare", 1},
                                                 {"", 2},  {"ok", 2}, {"o", 2}};
  for (const auto& [answer, option] : answers) {
    Type(answer);
    EXPECT_EQ(terminal.ShowChoice(Options(2)), option) << answer;
  }
}

TEST_F(TerminalDialogsTest, TakesNoSingleLetterForAnOption) {
  Type("c");
  Type("3");
  Type("2");
  EXPECT_EQ(terminal.ShowChoice(Options(1)), 2);
  EXPECT_EQ(Count(kRejected), 2);
}

TEST_F(TerminalDialogsTest, ConfirmsAChoiceWithNothingSelected) {
  Type("");
  EXPECT_EQ(terminal.ShowChoice(Options(0)), 0);
  EXPECT_TRUE(out.str().ends_with("(solo Invio: Ok; x: chiudi; m: menu)\nRisposta: Ok\n"));
}

TEST_F(TerminalDialogsTest, OffersOnlyTheButtonWhenTheOptionsAreHidden) {
  for (const char* answer : {"", "1", "ok", "O"}) {
    Type(answer);
    EXPECT_EQ(terminal.ShowChoice(PaperOut()), 0) << answer;
    EXPECT_TRUE(
        out.str().ends_with("| [1] Ok                                                               |\n"
                            "+----------------------------------------------------------------------+\n"
                            "Numero + Invio (solo Invio: Ok; x: chiudi; m: menu)\n"
                            "Risposta: Ok\n"));
  }
}

TEST_F(TerminalDialogsTest, PicksNoOptionBehindAHiddenFrame) {
  ChoiceContent content = PaperOut();
  content.options = {"Continuare", "Ristampare"};
  for (const char* line : {"2", "Ristampare", "1"}) Type(line);
  EXPECT_EQ(terminal.ShowChoice(content), 0);
  EXPECT_EQ(Count(kRejected), 2);
}

TEST_F(TerminalDialogsTest, ClosesAChoiceWithoutOne) {
  Type("x");
  EXPECT_EQ(terminal.ShowChoice(Options(2)), std::nullopt);
}

TEST_F(TerminalDialogsTest, ShowsThePortSettingsAndAList) {
  Type("1");
  Type("x");
  EXPECT_EQ(terminal.ShowPortSettings(Ports()), std::nullopt);
  EXPECT_EQ(out.str(), R"(
+----------------------------------------------------------------------+
| Configurazione                                                       |
+----------------------------------------------------------------------+
| [1] Porta COM   COM2                                                 |
| [2] Velocita'   9600                                                 |
| [3] Parita'     Even                                                 |
| [4] Data Bit    7                                                    |
| [5] Stop Bit    -                                                    |
+----------------------------------------------------------------------+
Numero + Invio: cambia (solo Invio: Ok; x: chiudi senza salvare; m: menu)

+----------------------------------------------------------------------+
| Configurazione - Porta COM                                           |
+----------------------------------------------------------------------+
| ( ) [1] COM1   (*) [2] COM2                                          |
+----------------------------------------------------------------------+
Numero + Invio (solo Invio: COM2; x: chiudi; m: menu)
Chiuso senza risposta.
)");
}

TEST_F(TerminalDialogsTest, ConfirmsThePortSettingsUnchanged) {
  for (const char* answer : {"", "ok"}) {
    Type(answer);
    EXPECT_EQ(terminal.ShowPortSettings(Ports()), (Selection{1, 0, 1, 0, -1})) << answer;
  }
}

TEST_F(TerminalDialogsTest, ChangesThePortSettingsListByList) {
  for (const char* line : {"1", "com1", "2", "2", "data bit", "8", "5", "3", "1", "3", "", ""}) Type(line);
  EXPECT_EQ(terminal.ShowPortSettings(Ports()), (Selection{0, 1, 1, 1, 0}));
  EXPECT_EQ(Count(kRejected), 1);
  EXPECT_EQ(Count("| [1] Porta COM   COM1 "), 5);
}

TEST_F(TerminalDialogsTest, RejectsAnUnknownListOfThePortSettings) {
  Type("6");
  Type("x");
  EXPECT_EQ(terminal.ShowPortSettings(Ports()), std::nullopt);
  EXPECT_EQ(Count(kRejected), 1);
}

TEST_F(TerminalDialogsTest, ShowsTheUtilitiesUntilAButtonClosesThem) {
  std::vector<int> pressed;
  for (const char* line : {"2", "f", "esci", "1"}) Type(line);
  terminal.ShowUtilities(kUtilities, [&](int button) {
    pressed.push_back(button);
    return button == 1;
  });
  EXPECT_EQ(pressed, (std::vector{2, 3, 1}));
  EXPECT_EQ(Count("| [2] Chiusura Fiscale  "), 3);
  EXPECT_EQ(pump.events.size(), 1U);
}

TEST_F(TerminalDialogsTest, AsksInsideTheUtilities) {
  std::vector<int> answers;
  for (const char* line : {"2", "2", "2", "1"}) Type(line);
  terminal.ShowUtilities(kUtilities, [&](int) {
    answers.push_back(Show(MessageButtons::kYesNo));
    return answers.back() == 1;
  });
  EXPECT_EQ(answers, (std::vector{2, 1}));
}

TEST_F(TerminalDialogsTest, ClosesTheUtilities) {
  Type("x");
  terminal.ShowUtilities(kUtilities, [](int) { return ADD_FAILURE(), true; });
  EXPECT_TRUE(out.str().ends_with(kClosed));
}

}  // namespace
}  // namespace orvenza::test
