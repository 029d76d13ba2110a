// The program is ended at an awkward moment: what happens to the current ticket, now and at the next start.

#include <gtest/gtest.h>

#include "support/shop.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;
using Lines = Shop::Lines;

constexpr const char* kItem = "1;PANE;1,000;150;1;;;1;;";
constexpr const char* kPayment = "2;1;150;;;";
constexpr const char* kPrinted = "Scontrino stampato, continuare";
constexpr const char* kAbort = "Abortire la stampa dello scontrino";

TEST(ProgramEnd, AfterTheOperatorSaidPrintedArchivesTheTicketThoughThePortStaysClosed) {
  Shop shop("on 1036 lose-reply\nafter 10000 port-fails 1000\n");
  shop.Drop("a.txt", {kItem, kPayment});
  for (const char* answer : {kPrinted, "Annulla", "Sì"}) shop.Answer(answer);
  shop.RunToItsEnd();
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
  EXPECT_EQ(shop.Names("data\\inproces"), Lines{});
}

TEST(ProgramEnd, AfterTheOperatorGaveTheTicketUpAbortsItThoughThePortStaysClosed) {
  Shop shop("on 1003 silence\nafter 10000 port-fails 1000\n");
  shop.Drop("a.txt", {kItem, kPayment});
  for (const char* answer : {kAbort, "Annulla", "Sì"}) shop.Answer(answer);
  shop.RunToItsEnd();
  EXPECT_EQ(shop.Names("data\\abort"), Lines{"a.txt.abort.txt"});
  EXPECT_EQ(shop.Names("data\\inproces"), Lines{});
}

TEST(ProgramEnd, WhileAPaymentIsInDoubtGivesTheTicketUpAndSaysSo) {
  Shop shop("on 1036 lose-reply\n");
  shop.Drop("a.txt", {kItem, kPayment});
  shop.Answer("menu Esci");
  shop.Answer("Sì");
  shop.RunToItsEnd();
  EXPECT_EQ(shop.Names("data\\abort"), Lines{"a.txt.abort.txt"});
  EXPECT_EQ(shop.Err().back(),
            "Abort stampa scontrino. " + SettingsPath(shop.folder.Path()) + "\\data\\inproces\\a.txt");
  EXPECT_EQ(shop.Log().back(), "End");
}

TEST(ProgramEnd, AskedForWhileAReplyIsLostGivesTheTicketUp) {
  Shop shop("on 1036 lose-reply\n");
  shop.Drop("a.txt", {kItem, kPayment});
  shop.Answer("Sì");
  shop.After(5s, [&] { shop.UseMenu(MenuItem::kExit); });
  shop.RunToItsEnd();
  EXPECT_EQ(shop.Names("data\\abort"), Lines{"a.txt.abort.txt"});
}

TEST(ProgramEnd, BeforeThePaymentWasSentKeepsTheTicketForTheNextStart) {
  Shop shop("on 1003 absent 1000\n");
  shop.Drop("a.txt", {kItem, kPayment});
  shop.Answer("menu Esci");
  shop.Answer("Sì");
  shop.RunToItsEnd();
  EXPECT_EQ(shop.Names("data\\inproces"), Lines{"a.txt"});
  EXPECT_EQ(shop.Names("data\\abort"), Lines{});
}

TEST(ProgramEnd, AfterAClosureWithFurtherLinesDoesNotRepeatTheClosure) {
  Shop shop("on 3001 port-fails 1000\n");
  shop.Drop("a.txt", {"21;", "40;1;"});
  shop.Answer("Annulla");
  shop.Answer("Sì");
  shop.RunToItsEnd();
  EXPECT_EQ(shop.device.FiscalClosures(), 1);
  EXPECT_EQ(shop.Names("data\\inproces"), Lines{});
  EXPECT_EQ(shop.Names("data\\abort"), Lines{"a.txt.abort.txt"});
}

TEST(ProgramEnd, AfterAClosureAloneArchivesItThoughThePortStaysClosed) {
  Shop shop("on 3001 port-fails 1000\n");
  shop.Drop("a.txt", {"21;"});
  shop.Answer("Annulla");
  shop.Answer("Sì");
  shop.RunToItsEnd();
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
}

TEST(ProgramEnd, ReprintChosenBeforeItLeavesTheTicketForTheNextStart) {
  Shop shop("on 1036 lose-reply\nafter 10000 port-fails 1000\n");
  shop.Drop("a.txt", {kItem, kPayment});
  for (const char* answer : {"Ristampare lo scontrino ( annullare automaticamente )", "Annulla", "Sì"}) {
    shop.Answer(answer);
  }
  shop.RunToItsEnd();
  EXPECT_EQ(shop.Names("data\\inproces"), Lines{"a.txt"});
}

TEST(NextStart, PrintsAnInterruptedTicketOnceAfterVoidingWhatItLeftOpen) {
  Shop shop("on 1003 #2 reply ERR08\n");
  shop.Drop("a.txt", {kItem, kItem, "2;1;300;;;"});
  shop.Answer("menu Esci");
  shop.Answer("Sì");
  shop.RunToItsEnd();
  ASSERT_TRUE(shop.device.ReceiptOpen());

  EventLoop secondLife(shop.clock, shop.clock);
  ScriptedOperator person(secondLife);
  person.Answer("Ok");  // at the start, which finds the receipt open
  Connector connector(
      {shop.files, shop.folders, shop.profile, shop.clock, secondLife, person, shop.icon, shop.link},
      {shop.folder.Path(), "Orvenza"});
  shop.After(20s, [&] { shop.folder.Write("command.txt", "QUIT"); });
  connector.Run(false);
  ASSERT_EQ(shop.device.Receipts().size(), 2U);
  EXPECT_TRUE(shop.device.Receipts()[0].voided);
  EXPECT_EQ(shop.device.Receipts()[1].total, 300);
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
}

TEST(AbortFolder, KeepsEveryTicketOfAHostThatUsesOneName) {
  Shop shop;
  for (int ticket = 0; ticket < 3; ++ticket) {
    shop.After(std::chrono::seconds(5 * ticket),
               [&shop, ticket] { shop.Drop("ticket.txt", {"99;" + std::to_string(ticket) + ";"}); });
    shop.Answer(kAbort);
  }
  shop.Run(20s);
  EXPECT_EQ(shop.Names("data\\abort"),
            (Lines{"ticket.txt.abort.1.txt", "ticket.txt.abort.2.txt", "ticket.txt.abort.txt"}));
  EXPECT_EQ(shop.folder.Read("data\\abort\\ticket.txt.abort.txt"), "99;2;\r\n");
}

TEST(HistoricFolderAboveTheTickets, IsSwitchedOffBeforeItCarriesThemAway) {
  Shop shop;
  shop.Configure("Database", "HistoricTickets", shop.folder.Path());
  shop.Drop("a.txt", {kItem, kPayment});
  shop.Run(10s);
  EXPECT_EQ(shop.device.Receipts().size(), 1U);
  EXPECT_EQ(shop.Err(),
            Lines{"Archivio storico disattivato, la cartella contiene gli scontrini da stampare : " +
                  SettingsPath(shop.folder.Path()) + "\\"});
}

TEST(HistoricFolderAboveTheProgram, IsSwitchedOffThoughTheTicketsLieElsewhere) {
  Shop shop;
  shop.disk.Put("C:\\tickets\\a.txt", "40;1;\r\n");
  shop.Configure("Database", "TicketFiles", "C:\\tickets\\*.txt");
  shop.Configure("Database", "HistoricTickets", shop.folder.Path());
  shop.Run(5s);
  EXPECT_EQ(shop.SentForTickets(), Lines{"104901"});
  EXPECT_EQ(shop.Err(),
            Lines{"Archivio storico disattivato, la cartella contiene gli scontrini da stampare : " +
                  SettingsPath(shop.folder.Path()) + "\\"});
}

TEST(AlarmOfAnAbsentRegister, EndsWhenTheOperatorConfiguresItsPort) {
  Shop shop("on 1003 absent 1000\n");
  shop.Drop("a.txt", {kItem, kPayment});
  shop.Answer("menu Configura");
  shop.Answer("COM9");
  std::optional<int> port;
  shop.link.SetObserver([&](LineEvent event, const std::string&) {
    if (event == LineEvent::kPort) port = shop.link.Property(LinkProperty::kPortNumber);
  });
  for (const char* answer : {"Ok", "Ok", "menu Esci", "Sì"}) shop.Answer(answer);
  shop.RunToItsEnd();
  EXPECT_EQ(port, 9);
}

TEST(ProgramEnd, AfterACashMovementDoesNotBookItAgain) {
  Shop shop("on 1031 absent 1000\n");
  shop.Drop("a.txt", {"34;0;5000;1;", "40;1;"});
  shop.Answer("menu Esci");
  shop.Answer("Sì");
  shop.RunToItsEnd();
  EXPECT_EQ(shop.Names("data\\inproces"), Lines{});
  EXPECT_EQ(shop.Names("data\\abort"), Lines{"a.txt.abort.txt"});
}

TEST(ProgramEnd, AfterARefusedPaymentKeepsTheTicketForTheNextStart) {
  Shop shop("on 1036 reply ERR13\n");
  shop.Drop("a.txt", {kItem, kPayment});
  shop.Answer("menu Esci");
  shop.Answer("Sì");
  shop.RunToItsEnd();
  EXPECT_EQ(shop.Names("data\\inproces"), Lines{"a.txt"});
}

TEST(ProgramEnd, AfterALogoWasGivenUpAbortsItsTicket) {
  Shop shop("on 4052 reply ERR16\n");
  std::string bitmap(62 + 56, '\0');
  const auto put = [&](std::size_t offset, unsigned value) {
    bitmap[offset] = static_cast<char>(value & 255);
    bitmap[offset + 1] = static_cast<char>(value >> 8);
  };
  bitmap.replace(0, 2, "BM");
  put(10, 62);
  put(18, 448);
  put(22, 1);
  put(28, 1);
  shop.folder.Write("logo.bmp", bitmap);
  shop.Drop("a.txt", {"33;1;" + shop.folder.Path("logo.bmp") + ";"});
  for (const char* answer : {kAbort, "menu Esci", "Sì"}) shop.Answer(answer);
  shop.RunToItsEnd();
  EXPECT_EQ(shop.Names("data\\abort"), Lines{"a.txt.abort.txt"});
}

TEST(ProgramEnd, IsAskedAboutOnceHoweverOftenTheMenuIsUsed) {
  Shop shop;
  for (int use = 0; use < 5000; ++use) shop.Answer("menu Esci");
  shop.Answer("Sì");
  shop.After(2s, [&] { shop.UseMenu(MenuItem::kExit); });
  shop.RunToItsEnd();
  EXPECT_EQ(shop.person.Shown().size(), 1U);
}

}  // namespace
}  // namespace orvenza::test
