#include <gtest/gtest.h>

#include <string>

#include "tickets/ticket_total.h"

namespace orvenza::test {
namespace {

std::string Described(const char* text, std::size_t skipped = 0) {
  return DescribeTicket("20261116200103", text, skipped, 100, ';');
}

TEST(TicketDescription, TellsAReportFromAReceipt) {
  EXPECT_EQ(Described("21;;;;;;;;;\r\n"), "Chiusura o rapporto delle 20:01");
  EXPECT_EQ(Described("1;PANE;1,000;150;1;;;1;;\r\n2;1;0;\r\n"), "Scontrino delle 20:01, totale 1,50");
}

TEST(TicketDescription, IsAboutWhatComesBehindTheLinesThatAreComplete) {
  const char* const kReceiptThenClosure = "1;PANE;1,000;150;1;;;1;;\r\n2;1;0;\r\n\r\n21;;;;;;;;;\r\n";
  EXPECT_EQ(Described(kReceiptThenClosure), "Scontrino delle 20:01, totale 1,50");
  EXPECT_EQ(Described(kReceiptThenClosure, 2), "Chiusura o rapporto delle 20:01");
}

}  // namespace
}  // namespace orvenza::test
