#include "lab/doctor/ticket_findings.h"

#include "lab/shell/shop_bench.h"
#include "tickets/remembered_tickets.h"

namespace orvenza::test {
namespace {

class TicketFindings : public ShopBench {};

TEST_F(TicketFindings, CountWhatWaits) {
  disk.Put(At("data\\1.txt"), "4;5;", LocalTime{2026, 11, 16, 8, 55, 0});
  disk.Put(At("data\\2.txt"), "4;5;");
  disk.Put(At("data\\other.tmp"), "4;5;");
  EXPECT_EQ(Said(),
            "note tickets.waiting: 2 tickets in C:\\Orvenza\\data\\ still to be printed, the oldest 5 "
            "minutes old.\n");
}

TEST_F(TicketFindings, NameWhatTheConnectorRemembersAndCountItNowhereElse) {
  disk.Put(At("data\\1.txt"), "4;5;", LocalTime{2026, 11, 16, 8, 55, 0});
  disk.Put(At("data\\inproces\\2.txt"), "4;5;");
  RememberedFiles remembered;
  remembered.takenIn["202611160855001.txt"];
  remembered.settled["2.txt"] = {true, FingerprintOf("4;5;")};
  disk.Put(At("Remembered.ini"), RememberedFilesText(remembered));
  EXPECT_EQ(Said(),
            "warning tickets.remembered: 2 tickets that must not be printed again and could not be removed: "
            "C:\\Orvenza\\data\\1.txt, C:\\Orvenza\\data\\inproces\\2.txt. The connector passes over such "
            "files.\n");
}

TEST_F(TicketFindings, WarnOfAMemoryThatCannotBeRead) {
  disk.Put(At("Remembered.ini"), "");
  disk.Hold(At("Remembered.ini"), FileHold::kWriting);
  EXPECT_EQ(Said().find("warning tickets.memory: "), 0U) << Said();
}

TEST_F(TicketFindings, WarnOfReceiptsOfAnEarlierDay) {
  disk.Put(At("data\\1.txt"), "4;5;", kYesterday);
  EXPECT_EQ(
      Said(),
      "warning tickets.old: 1 ticket in C:\\Orvenza\\data\\ still to be printed, the oldest 1 day old.\n");
}

TEST_F(TicketFindings, WarnOfAnInterruptedReceipt) {
  Edit("AskInDoubt=1", "AskInDoubt=0");
  disk.Put(At("data\\inproces\\1.txt"), "4;5;", kYesterday);
  const std::string said = Said();
  EXPECT_EQ(said.substr(said.find("warning")),
            "warning inprocess.leftover: 1 ticket in C:\\Orvenza\\data\\inproces\\, the oldest 1 day old: "
            "left over from an interrupted run, and printed first by the next start.\n");
}

TEST_F(TicketFindings, KnowAReceiptThatIsBeingPrinted) {
  machine.served = true;
  disk.Put(At("data\\inproces\\1.txt"), "4;5;");
  EXPECT_EQ(Said(),
            "note instance.running: The connector runs on this folder; a second start is refused.\n"
            "note inprocess.busy: 1 ticket in C:\\Orvenza\\data\\inproces\\, the oldest less than a minute "
            "old: it is being printed, or the operator is being asked.\n");
}

TEST_F(TicketFindings, KnowThatOnlyOneReceiptIsPrintedAtATime) {
  machine.served = true;
  disk.Put(At("data\\inproces\\1.txt"), "4;5;");
  disk.Put(At("data\\inproces\\2.txt"), "4;5;");
  EXPECT_NE(Said().find("warning inprocess.leftover: 2 tickets"), std::string::npos);
}

TEST_F(TicketFindings, ReportReceiptsGivenUp) {
  disk.Put(At("data\\abort\\1.txt.abort.txt"), "4;5;", kYesterday);
  EXPECT_EQ(Said(),
            "note abort.receipts: 1 receipt given up in C:\\Orvenza\\data\\abort\\, the newest 1 day ago.\n");
  disk.Put(At("data\\abort\\2.txt.abort.txt"), "4;5;");
  EXPECT_EQ(Said(),
            "warning abort.receipts: 2 receipts given up in C:\\Orvenza\\data\\abort\\, the newest less than "
            "a minute "
            "ago.\n");
}

TEST_F(TicketFindings, MeasureTheHistoricFolder) {
  disk.Put(At("storico\\1.txt"), "4;5;", kYesterday);
  disk.Put(At("storico\\2.txt"), "2;1;50;");
  disk.MakeFolder(At("storico_20261114"));
  disk.MakeFolder(At("storico_vecchio"));
  disk.Put(At("storico_20261115.zip"), "");
  const std::string inOrder = InOrder();
  EXPECT_NE(
      inOrder.find("ok historic.size: The historic folder holds 2 files of 11 bytes, the oldest 1 day old; 1 "
                   "folder of earlier days beside it.\n"),
      std::string::npos)
      << inOrder;
}

TEST_F(TicketFindings, ReportWhenPrintedTicketsAreDeleted) {
  Edit("C:\\Orvenza\\storico\\", " ");
  EXPECT_EQ(Said(),
            "note historic.none: [Database] HistoricTickets is empty: printed tickets are deleted.\n");
}

TEST_F(TicketFindings, ReportAHistoricFolderThatWouldNotBeUsed) {
  Edit("HistoricTickets", "");
  EXPECT_EQ(
      Said(),
      "warning settings.default: [Database] HistoricTickets is missing; \"C:\\Orvenza\\data\\inproces\\\" is "
      "used, where a new file has \"C:\\Orvenza\\storico\\\".\n"
      "warning historic.off: The historic folder C:\\Orvenza\\data\\inproces\\ holds the tickets to be "
      "printed, "
      "so it is not used: printed tickets are deleted.\n");
}

}  // namespace
}  // namespace orvenza::test
