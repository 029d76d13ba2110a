#include <gtest/gtest.h>

#include "tickets/ticket_total.h"

namespace orvenza::test {
namespace {

TEST(TicketDescription, TellsAReportFromAReceipt) {
  EXPECT_EQ(DescribeTicket("20261116200103", "21;;;;;;;;;\r\n", 0, ';'), "Chiusura o rapporto delle 20:01");
  EXPECT_EQ(DescribeTicket("20261116200103", "1;PANE;1,000;150;1;;;1;;\r\n2;1;0;\r\n", 0, ';'),
            "Scontrino delle 20:01, totale 1,50");
}

TEST(TicketDescription, IsAboutWhatComesBehindTheLinesThatAreComplete) {
  const char* const kReceiptThenClosure = "1;PANE;1,000;150;1;;;1;;\r\n2;1;0;\r\n\r\n21;;;;;;;;;\r\n";
  EXPECT_EQ(DescribeTicket("20261116200103", kReceiptThenClosure, 0, ';'),
            "Scontrino delle 20:01, totale 1,50");
  EXPECT_EQ(DescribeTicket("20261116200103", kReceiptThenClosure, 2, ';'), "Chiusura o rapporto delle 20:01");
}

}  // namespace
}  // namespace orvenza::test
