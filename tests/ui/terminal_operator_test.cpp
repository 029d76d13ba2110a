#include "ui/terminal/terminal_operator.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "ui/terminal/blocks.h"
#include "ui/terminal_fixture.h"

namespace orvenza::test {
namespace {

TEST_F(TerminalOperatorTest, ShowsAMessageAsAFramedBlock) {
  Type("2");
  terminal.ShowMessage(BuildMessage("Sei sicuro ? Sì, perché no",
                                    {MessageIcon::kExclamation, MessageButtons::kYesNo}, "Richiesta di Fine",
                                    "Orvenza"));
  EXPECT_EQ(out.str(), R"(
+----------------------------------------------------------------------+
| ATTENZIONE | Orvenza - Richiesta di Fine                             |
+----------------------------------------------------------------------+
|                                                                      |
|                      Sei sicuro ? Sì, perché no                      |
|                                                                      |
+----------------------------------------------------------------------+
| [1] Sì   [2] No                                                      |
+----------------------------------------------------------------------+
Numero + Invio (solo Invio: Sì; x: chiudi; m: menu)
Risposta: No
)");
}

TEST_F(TerminalOperatorTest, DrawsBoxesAsWideAsTheTerminal) {
  std::size_t width = 40;
  terminal.SetWidth([&] { return width; });
  Type("2");
  terminal.ShowMessage(BuildMessage("Sei sicuro ?", {MessageIcon::kExclamation, MessageButtons::kYesNo},
                                    "Richiesta di Fine", "Orvenza"));
  EXPECT_EQ(Count("\n+" + std::string(38, '-') + "+\n"), 4);
}

TEST_F(TerminalOperatorTest, SaysWhereTicketsGoOnceItRuns) {
  for (const auto& [separator, shown] : {std::pair(';', ";"), std::pair('\x7F', "carattere 127"),
                                         std::pair(' ', "carattere 32"), std::pair('\t', "carattere 9")}) {
    out.str("");
    terminal.SetTicketPlace([c = separator] { return DescribeTickets("/shop/data/*.txt", c); });
    terminal.CreateIcon("Orvenza - 1.0.0");
    EXPECT_EQ(out.str(),
              std::string("Orvenza - 1.0.0 in funzione: scontrini in /shop/data/*.txt, separatore ") + shown +
                  ". Menu: m + Invio\n");
  }
}

TEST_F(TerminalOperatorTest, SoundsTheBellForMessagesWhereThereIsOne) {
  TerminalOperator audible(out, loop, clock, true);
  audible.OnEndOfInput();
  audible.ShowMessage(BuildMessage("Domanda ?", {MessageIcon::kNone, MessageButtons::kYesNo}, "", "Orvenza"));
  EXPECT_EQ(Count("\a"), 1);
  audible.ShowChoice(PaperOut());
  EXPECT_EQ(Count("\a"), 1);
}

TEST_F(TerminalOperatorTest, ShowsALongMessageAtTheLeftBelowAnEmptyRow) {
  Type("");
  const std::string text =
      "Chiudendo l'applicazione non sara' più possibile stampare gli scontrini\r\nSei sicuro ?";
  terminal.ShowMessage(
      BuildMessage(text, {MessageIcon::kStop, MessageButtons::kRetryCancelConfigure}, "", "Orvenza"));
  EXPECT_EQ(out.str(), R"(
+----------------------------------------------------------------------+
| STOP | Orvenza                                                       |
+----------------------------------------------------------------------+
|                                                                      |
| Chiudendo l'applicazione non sara' più possibile stampare gli        |
| scontrini                                                            |
| Sei sicuro ?                                                         |
|                                                                      |
+----------------------------------------------------------------------+
| [1] Riprova     [2] Annulla     [3] Configura                        |
+----------------------------------------------------------------------+
Numero + Invio (solo Invio: Riprova; x: chiudi; m: menu)
Risposta: Riprova
)");
}

TEST_F(TerminalOperatorTest, NamesEachIcon) {
  const std::pair<MessageIcon, const char*> icons[] = {
      {MessageIcon::kStop, "| STOP | Orvenza "},
      {MessageIcon::kQuestion, "| DOMANDA | Orvenza "},
      {MessageIcon::kExclamation, "| ATTENZIONE | Orvenza "},
      {MessageIcon::kInformation, "| INFORMAZIONE | Orvenza "},
      {MessageIcon::kNone, "| Orvenza "}};
  for (const auto& [icon, row] : icons) {
    Type("");
    Show({icon});
    EXPECT_NE(Printed().find(row), std::string::npos) << row;
  }
}

TEST_F(TerminalOperatorTest, TakesAnAnswerInAnyForm) {
  const std::pair<const char*, int> answers[] = {{"1", 1},         {"3", 3}, {"configura", 3}, {"c", 3},
                                                 {" annulla ", 2}, {"", 1},  {"  ", 1},        {"2\r", 2},
                                                 {"x", 0},         {"X", 0}, {"A", 2},         {"chiudi", 0}};
  for (const auto& [answer, button] : answers) {
    Type(answer);
    EXPECT_EQ(Show(MessageButtons::kRetryCancelConfigure), button) << answer;
  }
}

TEST_F(TerminalOperatorTest, TakesAnAccentedAnswerInEitherEncoding) {
  for (const char* answer : {"s\xC3\xAC", "s\xEC", "si"}) {
    Type(answer);
    EXPECT_EQ(Show(MessageButtons::kYesNo), 1);
  }
}

TEST_F(TerminalOperatorTest, AsksAgainAfterAnUnknownAnswer) {
  Type("forse");
  Type("3");
  Type("2");
  EXPECT_EQ(Show(MessageButtons::kYesNo), 2);
  const std::string hint = "Numero + Invio (solo Invio: Sì; x: chiudi; m: menu)\n";
  EXPECT_NE(Printed().find(hint + kRejected + hint + kRejected + hint + "Risposta: No\n"), std::string::npos);
}

TEST_F(TerminalOperatorTest, SaysWhenADialogIsClosedWithoutAnAnswer) {
  Type("x");
  EXPECT_EQ(Show(MessageButtons::kYesNo), 0);
  EXPECT_TRUE(out.str().ends_with(kClosed));
}

TEST_F(TerminalOperatorTest, TakesNoLineThatWasTypedBeforeTheQuestion) {
  pump.arrived.push_back([this] { terminal.OnLine("1"); });
  pump.arrived.push_back([this] { terminal.OnLine("m"); });
  Type("2");
  EXPECT_EQ(Show(MessageButtons::kYesNo), 2);
  EXPECT_TRUE(out.str().starts_with(std::string(kNoQuestion) + kNoQuestion + "\n+---"));
}

TEST_F(TerminalOperatorTest, TakesNoLineThatCameTogetherWithTheLastAnswer) {
  pump.events.push_back([this] {
    terminal.OnLine("2");
    terminal.OnLine("1");
  });
  Type("1");
  EXPECT_EQ(Show(MessageButtons::kYesNo), 2);
  EXPECT_EQ(Show(MessageButtons::kYesNo), 1);
  EXPECT_EQ(Count(kNoQuestion), 1);
}

TEST_F(TerminalOperatorTest, SaysThatTheProgramRunsAndThatItEnded) {
  terminal.DeleteIcon();
  Printed();
  terminal.DeleteIcon();
  EXPECT_EQ(Printed(), "");
  terminal.CreateIcon("Orvenza - 1.0.0");
  EXPECT_EQ(Printed(), "Orvenza - 1.0.0 in funzione. Menu: m + Invio\n");
  terminal.DeleteIcon();
  terminal.DeleteIcon();
  EXPECT_EQ(Printed(), "Orvenza - 1.0.0 terminato.\n");
}

}  // namespace
}  // namespace orvenza::test
