#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "simulator/panel_bench.h"

namespace orvenza::test {
namespace {

using Lines = std::vector<std::string>;

TEST(SimulatedPanel, MarksTheLinesOfAVoidedReceipt) {
  PanelBench bench;
  bench.Send("106601PRIMA           ");
  bench.Send(kBread);
  bench.Send(kVoid);
  bench.Send("106601DOPO            ");
  EXPECT_EQ(bench.Roll(),
            (Lines{"  PRIMA", "x             NEGOZIO DI PROVA", "x          REGISTRATORE SIMULATO",
                   "x                                     EURO", "x PANE                                1,50",
                   "x ANNULLO                            -1,50", "x 16/11/2026 09:00     SCONTRINO ANNULLATO",
                   "x ----------------------------------------", "  DOPO"}));
  EXPECT_EQ(bench.panel.LinesPrinted(), 9u);
}

TEST(SimulatedPanel, MarksTheLinesOfAVoidedDocument) {
  PanelBench bench;
  bench.Send("106301");
  bench.Send(
      "106401"
      "0"
      "RIGA");
  bench.Send(kVoid);
  bench.Send("106601DOPO            ");
  const Lines roll = bench.Roll();
  ASSERT_EQ(roll.size(), 9u);
  for (std::size_t i = 0; i < 8; ++i) EXPECT_EQ(roll[i].substr(0, 2), "x ") << roll[i];
  EXPECT_EQ(roll.back(), "  DOPO");
}

/// The marks of the roll's lines: "x" for a voided one.
std::string Marks(const PanelBench& bench) {
  std::string marks;
  for (const RollLine& line : bench.panel.Roll()) marks += line.voided ? 'x' : '-';
  return marks;
}

TEST(SimulatedPanel, MarksTheLinesOfAVoidThatIsHeldBack) {
  PanelBench bench;
  bench.Send("106601PRIMA           ");
  bench.Send(kBread);
  bench.panel.Turn(0, false);
  bench.Send(kVoid);
  EXPECT_EQ(Marks(bench), "-xxxx");
  bench.panel.Turn(0, true);
  bench.Send("114900");
  bench.Send(kBread);
  EXPECT_EQ(Marks(bench), "-xxxxxxx----");
}

TEST(SimulatedPanel, MarksNoLineBeforeASlipThatWasHeldBack) {
  PanelBench bench;
  for (int i = 0; i < 4; ++i) bench.Send("106601PRIMA           ");
  bench.panel.Turn(0, false);
  bench.Send(kBread);
  bench.panel.Turn(0, true);
  bench.Send("114900");
  bench.Send(kVoid);
  EXPECT_EQ(Marks(bench), "----xxxxxxx");
}

TEST(SimulatedPanel, ShowsTheRegistersCharactersInUtf8) {
  PanelBench bench;
  bench.Send("106601CAFF\xC8           ");
  EXPECT_EQ(bench.Roll(), Lines{"  CAFFÈ"});
}

TEST(SimulatedPanel, KeepsTheLatestLinesOnly) {
  PanelBench bench;
  for (std::size_t i = 0; i < PaperRoll::kLinesKept + 3; ++i) bench.panel.Printed(std::to_string(i));
  EXPECT_EQ(bench.panel.Roll().size(), PaperRoll::kLinesKept);
  EXPECT_EQ(bench.panel.Roll().front().text, "3");
  EXPECT_EQ(bench.panel.LinesPrinted(), PaperRoll::kLinesKept + 3);
}

TEST(SimulatedPanel, SavesTheRollWithItsVoidedSlips) {
  PanelBench bench;
  EXPECT_EQ(bench.panel.SaveRoll(), "Il rotolo è vuoto, non c'è niente da salvare.");
  EXPECT_TRUE(bench.memory.content.empty());
  bench.Send(kBread);
  bench.Send(kVoid);
  bench.Send("106601CAFF\xC8           ");
  EXPECT_EQ(bench.panel.SaveRoll(), "Rotolo salvato : rotolo-20261116-090003.txt");
  EXPECT_EQ(bench.memory.content["C:\\cassa\\rotolo-20261116-090003.txt"],
            "            NEGOZIO DI PROVA              (annullato)\r\n"
            "         REGISTRATORE SIMULATO            (annullato)\r\n"
            "                                    EURO  (annullato)\r\n"
            "PANE                                1,50  (annullato)\r\n"
            "ANNULLO                            -1,50  (annullato)\r\n"
            "16/11/2026 09:00     SCONTRINO ANNULLATO  (annullato)\r\n"
            "----------------------------------------  (annullato)\r\n"
            "CAFFÈ\r\n");
}

TEST(SimulatedPanel, NeverReplacesASavedRoll) {
  PanelBench bench;
  bench.panel.Printed("UNO");
  EXPECT_EQ(bench.panel.SaveRoll(), "Rotolo salvato : rotolo-20261116-090000.txt");
  bench.panel.Printed("DUE");
  EXPECT_EQ(bench.panel.SaveRoll(), "Rotolo salvato : rotolo-20261116-090000-2.txt");
  EXPECT_EQ(bench.panel.SaveRoll(), "Rotolo salvato : rotolo-20261116-090000-3.txt");
  EXPECT_EQ(bench.memory.content["C:\\cassa\\rotolo-20261116-090000.txt"], "UNO\r\n");
}

TEST(SimulatedPanel, SaysWhyARollCouldNotBeSaved) {
  PanelBench bench;
  bench.panel.Printed("UNO");
  bench.files.FailAlways("Write", "rotolo", error_number::kDiskFull);
  EXPECT_EQ(bench.panel.SaveRoll(), "Rotolo non salvato : Disk full");
  bench.files.Heal();
  bench.files.FailAlways("Exists", "rotolo", error_number::kPathFileAccess);
  EXPECT_EQ(bench.panel.SaveRoll(), "Rotolo non salvato : Path/File access error");
}

}  // namespace
}  // namespace orvenza::test
