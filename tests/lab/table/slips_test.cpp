#include "lab/table/slips.h"

#include <gtest/gtest.h>

namespace orvenza::test {
namespace {

using Lines = std::vector<std::string>;

const std::string kCut(40, '-');
const Slip kReceipt{"PANE  1,50", "CONTANTI  1,50", "SCONTRINO", kCut};

Lines Heading() { return {"  NEGOZIO DI PROVA", "  REGISTRATORE SIMULATO", "      EURO"}; }

Lines Printed(const Lines& lines, const std::string& end) {
  Lines paper = Heading();
  paper.insert(paper.end(), lines.begin(), lines.end());
  paper.push_back("16/11/2026 09:00          " + end);
  paper.push_back(kCut);
  return paper;
}

Lines ReceiptNumber(int number) {
  return Printed({"PANE  1,50", "CONTANTI  1,50"}, "SCONTRINO N. " + std::to_string(number));
}

Lines operator+(Lines first, const Lines& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

TEST(Slips, AreCutWhereThePaperIs) {
  EXPECT_EQ(SlipsOn(ReceiptNumber(1) + Lines{"  LATTE  1,29"}),
            (std::vector<Slip>{kReceipt, {"LATTE  1,29"}}));
}

TEST(Slips, LeaveOutWhatDiffersFromDayToDay) {
  const Lines paper =
      Printed({"      CHIUSURA FISCALE N. 12", "SCONTRINI      3", "TOTALE DEL GIORNO   9,99"}, "");
  EXPECT_EQ(SlipsOn(paper),
            (std::vector<Slip>{{"CHIUSURA FISCALE", "SCONTRINI", "TOTALE DEL GIORNO", "", kCut}}));
}

TEST(Slips, AreCounted) {
  const Lines voided = Printed({"PANE  1,50"}, "SCONTRINO ANNULLATO");
  const Lines part = Printed({"CONTANTI  1,50"}, "SCONTRINO N. 1");
  const Lines earlier = Printed({"ALTRO  1,00", "CONTANTI  1,00"}, "SCONTRINO N. 1");
  const Lines mixed = Printed({"ALTRO  1,00", "PANE  1,50"}, "SCONTRINO N. 1");
  const struct {
    Lines paper;
    CustomerPaper expected;
  } cases[] = {
      {{}, {0, 0, 0, 0, 0, false}},
      {ReceiptNumber(1), {1, 0, 0, 0, 0, false}},
      {ReceiptNumber(1) + ReceiptNumber(2), {2, 0, 0, 0, 0, false}},
      {part + ReceiptNumber(2), {1, 1, 0, 0, 0, false}},
      {mixed, {0, 0, 1, 0, 0, false}},
      {earlier + ReceiptNumber(2), {1, 0, 0, 1, 0, false}},
      {voided + voided + ReceiptNumber(1), {1, 0, 0, 0, 2, false}},
      {ReceiptNumber(1) + Heading() + Lines{"PANE  1,50"}, {1, 0, 0, 0, 0, true}},
  };
  for (const auto& [paper, expected] : cases) {
    EXPECT_EQ(Compare(paper, {kReceipt}, "ALTRO"), expected) << testing::PrintToString(paper);
  }
}

TEST(Slips, OfOneTicketCountAsWholeTogether) {
  const Slip second{"LATTE  1,29", "SCONTRINO", kCut};
  const Lines other = Printed({"LATTE  1,29"}, "SCONTRINO N. 2");
  EXPECT_EQ(Compare(ReceiptNumber(1), {kReceipt, second}, {}), (CustomerPaper{0, 1, 0, 0, 0, false}));
  EXPECT_EQ(Compare(ReceiptNumber(1) + other, {kReceipt, second}, {}), (CustomerPaper{1, 0, 0, 0, 0, false}));
  EXPECT_EQ(Compare(ReceiptNumber(1) + ReceiptNumber(2) + other, {kReceipt, second}, {}),
            (CustomerPaper{1, 1, 0, 0, 0, false}));
}

TEST(Slips, VoidedByTheTicketItselfAreNotTheCustomers) {
  const Slip voided{"LATTE  1,29", "SCONTRINO ANNULLATO", kCut};
  const Lines paper = Printed({"LATTE  1,29"}, "SCONTRINO ANNULLATO");
  EXPECT_EQ(Compare(paper + ReceiptNumber(1), {voided, kReceipt}, {}), (CustomerPaper{1, 0, 0, 0, 1, false}));
  EXPECT_EQ(Compare(ReceiptNumber(1), {voided, kReceipt}, {}), (CustomerPaper{1, 0, 0, 0, 0, false}));
}

TEST(Slips, MayBeExpectedMoreThanOnce) {
  const std::vector<Slip> twice{kReceipt, kReceipt};
  EXPECT_EQ(Compare(ReceiptNumber(1), twice, {}), (CustomerPaper{0, 1, 0, 0, 0, false}));
  EXPECT_EQ(Compare(ReceiptNumber(1) + ReceiptNumber(2), twice, {}), (CustomerPaper{1, 0, 0, 0, 0, false}));
}

}  // namespace
}  // namespace orvenza::test
