#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "ui/terminal_fixture.h"

namespace orvenza::test {
namespace {

constexpr const char* kPanelBox = "| Registratore simulato      ";
constexpr const char* kPanelHint =
    "Numero: interruttore (g: guasti; s: salva; c: scenario; solo Invio: chiudi)\n";
constexpr const char* kAfterAction = "(r: mostra il registratore; solo Invio: chiudi)\n";

/// A panel with two switches and three faults.
class FakePanel : public RegisterPanel {
 public:
  void SetObserver(std::function<void()> changed) override { observer = std::move(changed); }
  const std::deque<RollLine>& Roll() const override { return roll; }
  std::size_t LinesPrinted() const override { return roll.size(); }
  std::vector<PanelSwitch> Switches() const override { return switches; }
  void Turn(std::size_t number, bool on) override { switches.at(number).on = on; }
  const std::vector<std::string>& Faults() const override { return faults; }
  std::optional<ChosenFault> Fault() const override { return fault; }
  void SetFault(std::optional<ChosenFault> chosen) override {
    fault = chosen;
    Change();
  }
  void Change() {
    if (observer) observer();
  }
  std::vector<std::string> Counters() const override { return {"Totale del giorno: 1,50", "Scontrini: 1"}; }
  std::string Scenario() const override { return "# scenario\nregister power off\n"; }
  std::string SaveRoll() override { return "Rotolo salvato : rotolo.txt"; }

  std::function<void()> observer;
  std::deque<RollLine> roll;
  std::vector<PanelSwitch> switches{{"Alimentazione", true}, {"Chiave", false}};
  std::vector<std::string> faults{"Nessuna risposta", "Errore 01: Carta Giornale",
                                  "Errore 02: Carta Scontrino"};
  std::optional<ChosenFault> fault;
};

/// As a base before the terminal, so that the panel outlives it.
struct PanelBehindTheTerminal {
  FakePanel panel;
};

class TerminalPanelTest : protected PanelBehindTheTerminal, public TerminalOperatorTest {
 protected:
  TerminalPanelTest() { terminal.SetPanel(panel); }

  /// What is said about a line in the open panel.
  std::string Said(const std::string& line) {
    terminal.OnLine("r");
    Printed();
    terminal.OnLine(line);
    std::string said = Printed();
    terminal.OnLine("x");
    Printed();
    return said;
  }

  /// The chosen fault after a line in the open panel.
  std::string Chosen(const std::string& line) {
    panel.fault.reset();
    Said(line);
    if (!panel.fault) return "none";
    return std::to_string(panel.fault->number) + (panel.fault->once ? " once" : " always");
  }
};

TEST_F(TerminalPanelTest, ShowsTheRollTheCountersTheSwitchesAndTheFault) {
  panel.roll = {{"PRIMA", false}, {"PANE                                1,50", true}};
  panel.fault = ChosenFault{1, false};
  terminal.OnLine("r");
  EXPECT_EQ(Printed(), R"(
+----------------------------------------------------------------------+
| Registratore simulato                                                |
+----------------------------------------------------------------------+
| PRIMA                                                                |
| PANE                                1,50  (annullato)                |
+----------------------------------------------------------------------+
| Totale del giorno: 1,50   Scontrini: 1                               |
+----------------------------------------------------------------------+
| [1] Alimentazione: presente   [2] Chiave: ASSENTE                    |
| Guasto: Errore 01: Carta Giornale (a ogni comando)                   |
+----------------------------------------------------------------------+
Numero: interruttore (g: guasti; s: salva; c: scenario; solo Invio: chiudi)
)");
}

TEST_F(TerminalPanelTest, ShowsTheEndOfALongRoll) {
  for (int i = 1; i <= 20; ++i) panel.roll.push_back({"RIGA " + std::to_string(i), false});
  terminal.OnLine("r");
  EXPECT_EQ(Count("| RIGA "), 8);
  EXPECT_EQ(Count("| RIGA 12 "), 0);
  EXPECT_EQ(Count("| RIGA 13 "), 1);
  EXPECT_EQ(Count("| RIGA 20 "), 1);
}

TEST_F(TerminalPanelTest, SaysThatNothingIsPrintedOrChosen) {
  terminal.OnLine("registratore");
  EXPECT_EQ(Count("| (nessuna riga stampata) "), 1);
  EXPECT_EQ(Count("| Guasto: nessuno "), 1);
}

TEST_F(TerminalPanelTest, FitsANarrowTerminal) {
  terminal.SetWidth([] { return 30; });
  panel.roll = {{"PANE                                1,50", true}};
  terminal.OnLine("r");
  std::istringstream lines(Printed());
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with('|')) {
      EXPECT_TRUE(line.ends_with(" |") && line.size() <= 32) << line;
    }
  }
}

TEST_F(TerminalPanelTest, TurnsASwitchByItsNumberOrCaption) {
  EXPECT_EQ(Said("1"), std::string("Alimentazione: ASSENTE\n") + kAfterAction);
  EXPECT_FALSE(panel.switches[0].on);
  EXPECT_EQ(Said("alim"), std::string("Alimentazione: presente\n") + kAfterAction);
  EXPECT_EQ(Said("CHIAVE"), std::string("Chiave: presente\n") + kAfterAction);
  EXPECT_TRUE(panel.switches[0].on && panel.switches[1].on);
}

TEST_F(TerminalPanelTest, ChoosesAFaultForTheNextCommandOrForAll) {
  EXPECT_EQ(Said("3"), std::string("Guasto: Nessuna risposta (al prossimo comando)\n") + kAfterAction);
  EXPECT_EQ(Said("5 sempre"),
            std::string("Guasto: Errore 02: Carta Scontrino (a ogni comando)\n") + kAfterAction);
  EXPECT_EQ(Said("0"), std::string("Guasto: nessuno\n") + kAfterAction);
  EXPECT_EQ(Chosen("5"), "2 once");
  EXPECT_EQ(Chosen("errore 01"), "1 once");
  EXPECT_EQ(Chosen("Errore 02  SEMPRE"), "2 always");
  EXPECT_EQ(Chosen("nessuna risposta sempre"), "0 always");
}

TEST_F(TerminalPanelTest, SaysWhenAFaultForTheNextCommandHasStruck) {
  Said("3");
  panel.Change();
  EXPECT_EQ(Printed(), "");
  panel.fault.reset();
  panel.Change();
  EXPECT_EQ(Printed(), "    (Guasto avvenuto: Nessuna risposta)\n");
  panel.Change();
  EXPECT_EQ(Printed(), "");
}

TEST_F(TerminalPanelTest, SaysNothingOfAFaultThatIsTakenBackOrEnded) {
  Said("3");
  EXPECT_EQ(Said("0"), std::string("Guasto: nessuno\n") + kAfterAction);
  Said("3");
  Said("4 sempre");
  panel.fault.reset();
  panel.Change();
  EXPECT_EQ(Printed(), "");
}

TEST_F(TerminalPanelTest, LeavesThePanelWithTheTerminal) {
  {
    TerminalOperator other{out, loop, clock};
    other.SetPanel(panel);
    EXPECT_TRUE(panel.observer);
  }
  EXPECT_FALSE(panel.observer);
}

TEST_F(TerminalPanelTest, ListsTheFaults) {
  terminal.OnLine("r");
  Printed();
  terminal.OnLine("g");
  EXPECT_EQ(Printed(), R"(
+----------------------------------------------------------------------+
| Registratore simulato - Guasti                                       |
+----------------------------------------------------------------------+
| [3] Nessuna risposta                                                 |
| [4] Errore 01: Carta Giornale                                        |
| [5] Errore 02: Carta Scontrino                                       |
+----------------------------------------------------------------------+
| Guasto: nessuno                                                      |
| Numero: al prossimo comando. Numero e sempre, per esempio 6 sempre:  |
| a ogni comando. 0: nessun guasto.                                    |
+----------------------------------------------------------------------+
(r: mostra il registratore; solo Invio: chiudi)
)");
  terminal.OnLine("4");
  EXPECT_EQ(panel.fault->number, 1u);
}

TEST_F(TerminalPanelTest, RefusesWhatItDoesNotKnow) {
  panel.fault = ChosenFault{0, true};
  const std::string nul("1\0", 2);
  for (const std::string& line :
       {std::string("6"), std::string("-1"), std::string("00"), std::string("errore"),
        std::string("errore 03"), std::string("1 sempre"), std::string("sempre"), std::string("1 2"),
        std::string("m"), std::string("99999999999999999999"), std::string(100000, '1'),
        std::string("\xFF\xFE"), nul, std::string("s s"), std::string("&")}) {
    EXPECT_EQ(Said(line), std::string(kRejected) + kPanelHint) << line.substr(0, 30);
  }
  EXPECT_TRUE(panel.switches[0].on);
  EXPECT_EQ(panel.fault->number, 0u);
  EXPECT_TRUE(picked.empty());
}

TEST_F(TerminalPanelTest, SavesTheRollAndPrintsTheScenario) {
  EXPECT_EQ(Said("s"), std::string("Rotolo salvato : rotolo.txt\n") + kAfterAction);
  EXPECT_EQ(Said("C"), std::string("\n# scenario\nregister power off\n\n") + kAfterAction);
}

TEST_F(TerminalPanelTest, StaysOpenUntilItIsClosed) {
  terminal.OnLine("r");
  terminal.OnLine("1");
  terminal.OnLine("r");
  EXPECT_EQ(Count(kPanelBox), 2);
  for (const char* close : {"", "x"}) {
    Printed();
    terminal.OnLine(close);
    EXPECT_EQ(Printed(), "Registratore chiuso.\n");
    terminal.OnLine("1");
    EXPECT_EQ(Printed(), "Nessuna domanda in attesa. Menu: m + Invio - Registratore: r + Invio\n");
    terminal.OnLine("r");
  }
}

TEST_F(TerminalPanelTest, IsMentionedWhereTheMenuIs) {
  terminal.CreateIcon("Orvenza");
  EXPECT_EQ(Printed(), "Orvenza in funzione. Menu: m + Invio - Registratore: r + Invio\n");
  terminal.DeleteIcon();
  Printed();
  terminal.OnLine("ciao");
  EXPECT_EQ(Printed(), "Nessuna domanda in attesa. Registratore: r + Invio\n");
}

TEST_F(TerminalPanelTest, OpensBeforeTheProgramRuns) {
  terminal.DeleteIcon();
  Type("r");
  Type("");
  Type("2");
  EXPECT_EQ(Show(MessageButtons::kYesNo), 2);
  EXPECT_EQ(Count(kPanelBox), 1);
  EXPECT_EQ(Count("(solo Invio: Sì; x: chiudi; r: registratore)\n"), 2);
}

TEST_F(TerminalPanelTest, TakesNothingFromAWaitingDialog) {
  for (const char* line : {"r", "1", "2", "x", "2"}) Type(line);
  EXPECT_EQ(Show(MessageButtons::kYesNo), 2);
  EXPECT_EQ(Count("Domanda ?"), 2) << "the dialog is shown again";
  EXPECT_EQ(Count("x: chiudi; m: menu; r: registratore)\n"), 2);
  EXPECT_FALSE(panel.switches[0].on);
  EXPECT_TRUE(panel.switches[1].on);
}

TEST_F(TerminalPanelTest, LeavesTheLetterToAButtonThatHasIt) {
  for (const char* line : {"reg", "", "r"}) Type(line);
  EXPECT_EQ(Show(MessageButtons::kRetryCancelConfigure), 1);
  EXPECT_EQ(Count(kPanelBox), 1);
  EXPECT_EQ(Count("x: chiudi; m: menu; reg: registratore)\n"), 2);
  EXPECT_EQ(Count("Risposta: Riprova\n"), 1);
}

TEST_F(TerminalPanelTest, OpensInEveryKindOfDialog) {
  for (const char* line : {"r", "", "2"}) Type(line);
  EXPECT_EQ(terminal.ShowChoice(Options(1)), 2);
  for (const char* line : {"1", "r", "", "1", ""}) Type(line);
  ASSERT_TRUE(terminal.ShowPortSettings(Ports()));
  for (const char* line : {"r", "", "1"}) Type(line);
  terminal.ShowUtilities(kUtilities, [](int button) { return button == 1; });
  EXPECT_EQ(Count(kPanelBox), 3);
}

TEST_F(TerminalPanelTest, TakesNoAnswerForAPanelThatADialogHasCovered) {
  terminal.OnLine("r");
  Type("1");
  Type("2");
  EXPECT_EQ(Show(MessageButtons::kYesNo), 2);
  EXPECT_TRUE(panel.switches[0].on);
  EXPECT_EQ(Count(kRejected), 1);
}

TEST_F(TerminalPanelTest, ClosesWithTheEndOfTheInput) {
  Type("r");
  EndInput();
  EXPECT_EQ(Show(MessageButtons::kYesNo), 0);
  EXPECT_EQ(Count(kClosed), 1);
  terminal.OnLine("1");
  EXPECT_TRUE(panel.switches[0].on);
}

TEST_F(TerminalOperatorTest, HasNoPanelWithoutASimulatedRegister) {
  terminal.OnLine("r");
  EXPECT_EQ(Printed(), kNoQuestion);
  Type("reg");
  Type("r");
  EXPECT_EQ(Show(MessageButtons::kRetryCancelConfigure), 1);
  EXPECT_EQ(Count("registratore"), 0);
}

}  // namespace
}  // namespace orvenza::test
