#include "tickets/ticket_total.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace orvenza::test {
namespace {

constexpr std::size_t kAll = std::numeric_limits<std::size_t>::max();

std::string Described(const std::string& text, std::size_t skipped = 0, std::size_t last = kAll) {
  return DescribeTicket("20261116090734", text, skipped, last, ';');
}

std::string Item(const std::string& quantity, const std::string& price) {
  return "1;PANE;" + quantity + ";" + price + ";1;;;1;;\r\n";
}

const std::string kPayment = "2;1;500;\r\n";

TEST(TicketTotal, IsTheSumOfTheItems) {
  EXPECT_EQ(Described(Item("1,000", "150") + kPayment), "Scontrino delle 09:07, totale 1,50");
  EXPECT_EQ(Described(Item("1,000", "5") + kPayment), "Scontrino delle 09:07, totale 0,05");
  EXPECT_EQ(
      Described(Item("2", "150") + Item("1,000", "129") + "20;1;\r\n28;1;CIAO;\r\n26;\r\n\r\n5;1;1;;;0;\r\n"),
      "Scontrino delle 09:07");
  EXPECT_EQ(Described(Item("2,000", "150") + Item("1,000", "129") +
                      "20;1;\r\n28;1;CIAO;\r\n26;\r\n\r\n5;1;1;;;0;\r\n"),
            "Scontrino delle 09:07, totale 4,29");
}

TEST(TicketTotal, IsRoundedLikeAtTheRegister) {
  EXPECT_EQ(Described(Item("0,333", "100") + kPayment), "Scontrino delle 09:07, totale 0,33");
  EXPECT_EQ(Described(Item("0,335", "100") + kPayment), "Scontrino delle 09:07, totale 0,34");
  EXPECT_EQ(Described(Item("1,255", "199") + kPayment), "Scontrino delle 09:07, totale 2,50");
  EXPECT_EQ(Described(Item("9999,999", "99999999") + kPayment),
            "Scontrino delle 09:07, totale 9999998900,00");
}

TEST(TicketTotal, IsLeftOutIfMoreThanItemsMakeIt) {
  for (const std::string line :
       {"1;1;01;;100;;;;-1;\r\n", "3;PANE;1,000;100;1;;;1;;\r\n", "6;2;01;10;\r\n", "7;1;01;100;\r\n",
        "9;PANE;1,000;100;1;;;1;;\r\n", "25;1;1;CIAO;\r\n", "99;\r\n", "1;PANE;x;150;1;;;1;;\r\n",
        "1;PANE;1,000;x;1;;;1;;\r\n", "1;PANE;1,000;;1;;;1;;\r\n", "1;PANE;1,000;1234567890;1;;;1;;\r\n"})
    EXPECT_EQ(Described(Item("1,000", "150") + line + kPayment), "Scontrino delle 09:07") << line;
  EXPECT_EQ(Described(Item("1,000", "150")), "Scontrino delle 09:07");
  EXPECT_EQ(Described(""), "Scontrino delle 09:07");
}

TEST(TicketTotal, IsThatOfTheFirstReceiptBehindTheSkippedLines) {
  const std::string text = Item("1,000", "150") + kPayment + Item("1,000", "129") + kPayment;
  EXPECT_EQ(Described(text), "Scontrino delle 09:07, totale 1,50");
  EXPECT_EQ(Described(text, 2), "Scontrino delle 09:07, totale 1,29");
  EXPECT_EQ(Described(text, 4), "Scontrino delle 09:07");
}

TEST(TicketTotal, EndsWhereTheReceiptWasDivided) {
  const std::string text = Item("1,000", "150") + Item("1,000", "129") + Item("1,000", "100") + kPayment;
  EXPECT_EQ(Described(text, 0, 2), "Scontrino delle 09:07, totale 2,79");
  EXPECT_EQ(Described(text, 0, 4), "Scontrino delle 09:07, totale 3,79");
  EXPECT_EQ(Described(text, 1, 2), "Scontrino delle 09:07, totale 1,29");
}

}  // namespace
}  // namespace orvenza::test
