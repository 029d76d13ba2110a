#include "ui/register_texts.h"

#include <gtest/gtest.h>

#include "support/fake_register_panel.h"

namespace orvenza {
namespace {

using Texts = std::vector<std::string>;

TEST(Mnemonics, AreTheFirstFreeLetters) {
  EXPECT_EQ(WithMnemonics({"Carta scontrino", "Carta giornale", "Cavo", "Chiave"}, "crs"),
            (Texts{"C&arta scontrino", "Car&ta giornale", "Ca&vo", "C&hiave"}));
}

TEST(Mnemonics, AreMissingWhereNoLetterIsFree) {
  EXPECT_EQ(WithMnemonics({"Aa", "A", "1 è", ""}, ""), (Texts{"&Aa", "A", "1 è", ""}));
}

TEST(Mnemonics, LeaveAnAmpersandOfTheCaptionAsItIs) {
  EXPECT_EQ(WithMnemonics({"R&S"}, ""), (Texts{"&R&&S"}));
}

TEST(FaultText, SaysWhatIsChosenAndForHowLong) {
  test::FakeRegisterPanel panel;
  EXPECT_EQ(FaultText(panel), "Nessun guasto attivo");
  panel.fault = {1, true};
  EXPECT_EQ(FaultText(panel), "Attivo: Risposta persa, al prossimo comando");
  panel.fault = {0, false};
  EXPECT_EQ(FaultText(panel), "Attivo: Nessuna risposta, a ogni comando");
}

TEST(SwitchText, SaysItsState) {
  EXPECT_EQ(SwitchText({"Cavo", true}), "Cavo: presente");
  EXPECT_EQ(SwitchText({"Cavo", false}), "Cavo: ASSENTE");
}

TEST(JoinLines, PutsBreaksOnlyBetweenLines) {
  EXPECT_EQ(JoinLines({}), "");
  EXPECT_EQ(JoinLines({"a"}), "a");
  EXPECT_EQ(JoinLines({"", "b", ""}), "\r\nb\r\n");
}

TEST(WithLineBreaks, WritesEveryBreakInTheSameWay) {
  EXPECT_EQ(WithLineBreaks("a\nb\r\n\nc"), "a\r\nb\r\n\r\nc");
  EXPECT_EQ(WithLineBreaks(""), "");
}

}  // namespace
}  // namespace orvenza
