#include <gtest/gtest.h>

#include <string>

#include "device/logo_files.h"
#include "support/shop.h"
#include "tickets/receipt_lines.h"
#include "tickets/ticket_processor.h"

// Ticket lines that cannot be sent, and logos.

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;
using Lines = Shop::Lines;

const std::string kInvalid = "Riga non valida : ";
const Lines kStartAndEnd = {"Start Scontrino", "End Scontrino"};

/// A shop that has printed the ticket "0;1;", `line`, "0;2;" with these answers of the operator.
class PrintedShop : public Shop {
 public:
  PrintedShop(const std::string& line, const Lines& answers, const std::string& script = "") : Shop(script) {
    Drop("ticket.txt", {"0;1;", line, "0;2;"});
    for (const std::string& answer : answers) Answer(answer);
    Run(2min);
  }
};

// A line that cannot be translated.

TEST(InvalidLine, IsShownWithTheThreeChoices) {
  const PrintedShop shop("10;caff\xe8;", {kClosed});
  ASSERT_EQ(shop.person.Shown().size(), 1U);
  const ShownDialog& dialog = shop.person.Shown()[0];
  EXPECT_EQ(dialog.kind, DialogKind::kChoice);
  EXPECT_EQ(dialog.caption, "Orvenza");
  EXPECT_EQ(dialog.heading, "Riga non valida : 10;caffè;");
  EXPECT_EQ(dialog.text, "Riga scontrino non valida !");
  EXPECT_EQ(dialog.options, (Lines{kPrinted, kReprint, kGiveUp}));
  EXPECT_EQ(dialog.buttons, Lines{"&Ok"});
  EXPECT_EQ(shop.Err(), (Lines{"Riga non valida : 10;caffè;", "Riga non valida : 10;caffè;"}));
}

TEST(InvalidLine, WithoutAChoiceTheNextLineFollows) {
  const PrintedShop shop("10;x;", {kClosed});
  EXPECT_EQ(SentAfterStartUp(shop), (Lines{"321701", "105101", "105102"}));
  EXPECT_EQ(shop.LogForTickets(), kStartAndEnd);
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
}

TEST(InvalidLine, PrintedFinishesTheFile) {
  const PrintedShop shop("10;x;", {kPrinted});
  EXPECT_EQ(SentAfterStartUp(shop), (Lines{"321701", "105101"}));
  EXPECT_EQ(shop.Err(), (Lines{kInvalid + "10;x;", kInvalid + "10;x;", kAnswered + kPrinted}));
  EXPECT_EQ(shop.LogForTickets(), kStartAndEnd);
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
}

TEST(InvalidLine, ReprintStartsAgainFromTheFirstLine) {
  for (const std::string reprint : {kReprint.c_str(), "Ok"}) {
    const PrintedShop shop("10;x;", {reprint, kClosed});
    EXPECT_EQ(SentAfterStartUp(shop), (Lines{"321701", "105101", "321701", "105101", "105102"})) << reprint;
    EXPECT_EQ(shop.Err(), (Lines{kInvalid + "10;x;", kInvalid + "10;x;", kAnswered + kReprint,
                                 kInvalid + "10;x;", kInvalid + "10;x;"}));
    EXPECT_EQ(shop.LogForTickets(), (Lines{"Start Scontrino", "Start Scontrino", "End Scontrino"}));
    EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"}) << reprint;
  }
}

TEST(InvalidLine, GivingUpMovesTheTicketToTheAbortFolder) {
  const PrintedShop shop("10;x;", {kGiveUp});
  EXPECT_EQ(SentAfterStartUp(shop), (Lines{"321701", "105101"}));
  EXPECT_EQ(shop.Err(), (Lines{kInvalid + "10;x;", kInvalid + "10;x;", kAnswered + kGiveUp}));
  EXPECT_EQ(shop.LogForTickets(), Lines{"Start Scontrino"});
  EXPECT_EQ(shop.Names("storico"), Lines{});
  EXPECT_EQ(shop.Names("data\\inproces"), Lines{});
  EXPECT_EQ(shop.folder.Read("data\\abort\\ticket.txt.abort.txt"), "0;1;\r\n10;x;\r\n0;2;\r\n");
}

TEST(InvalidLine, IsOneThatHasLostItsLastFieldForWantOfASeparator) {
  const PrintedShop shop("4;5", {kGiveUp});
  EXPECT_EQ(shop.Err(), (Lines{kInvalid + "4;5", kInvalid + "4;5", kAnswered + kGiveUp}));
}

TEST(InvalidLine, ReprintVoidsTheOpenReceipt) {
  Shop shop;
  shop.Drop("ticket.txt", {kCoffee, "10;x;", kPayment});
  shop.Answer(kReprint);
  shop.Answer(kClosed);
  shop.Run();
  EXPECT_EQ(SentAfterStartUp(shop),
            (Lines{"321701", kCoffeeCommand, "321701", "102800", "321701", kCoffeeCommand, kPaymentCommand}));
  ASSERT_EQ(shop.device.Receipts().size(), 2U);
  EXPECT_TRUE(shop.device.Receipts()[0].voided);
  EXPECT_FALSE(shop.device.Receipts()[1].voided);
}

TEST(InvalidLine, OneThatIsVeryLongIsLoggedCutAndShownShorter) {
  const PrintedShop shop("10;" + std::string(600, 'x') + ";", {kClosed});
  EXPECT_EQ(shop.Err()[0], kInvalid + "10;" + std::string(497, 'x') + "...");
  EXPECT_EQ(shop.person.Shown()[0].heading, kInvalid + "10;" + std::string(57, 'x') + "...");
}

// A line without any separator.

TEST(LineWithoutSeparator, IsLoggedOnceAndShown) {
  const PrintedShop shop("hello", {kGiveUp});
  EXPECT_EQ(shop.Err(), (Lines{kInvalid + "hello", kAnswered + kGiveUp}));
  ASSERT_EQ(shop.person.Shown().size(), 1U);
  EXPECT_EQ(shop.person.Shown()[0].heading, "Riga non valida : hello");
  EXPECT_EQ(shop.person.Shown()[0].text, "Riga scontrino non valida !");
}

TEST(LineWithoutSeparator, PrintedFinishesTheFile) {
  const PrintedShop shop("hello", {kPrinted});
  EXPECT_EQ(SentAfterStartUp(shop), (Lines{"321701", "105101"}));
  EXPECT_EQ(shop.LogForTickets(), kStartAndEnd);
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
}

TEST(LineWithoutSeparator, ReprintStartsAgainFromTheFirstLine) {
  const PrintedShop shop("hello", {kReprint, kPrinted});
  EXPECT_EQ(SentAfterStartUp(shop), (Lines{"321701", "105101", "321701", "105101"}));
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
}

TEST(LineWithoutSeparator, AnyOtherAnswerAbortsTheTicket) {
  for (const std::string& answer : {kGiveUp, kClosed}) {
    const PrintedShop shop("hello", {answer});
    EXPECT_EQ(SentAfterStartUp(shop), (Lines{"321701", "105101"})) << answer;
    EXPECT_EQ(shop.LogForTickets(), Lines{"Start Scontrino"}) << answer;
    EXPECT_EQ(shop.Names("storico"), Lines{}) << answer;
    EXPECT_EQ(shop.Names("data\\abort"), Lines{"ticket.txt.abort.txt"}) << answer;
  }
}

// Logos.

/// Writes a bitmap of two rows, the lower one with bytes 0x0F, into the shop's folder. Returns its record.
std::string WriteLogo(const Shop& shop) {
  shop.folder.Write("logo.bmp", LogoBitmap(2) + std::string(56, '\x0F') + std::string(56, '\xA0'));
  return "33;7;" + shop.folder.Path("logo.bmp") + ";";
}

std::string Repeated(const std::string& text, int count) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

const std::string kTopRow = "405207001" + Repeated("A0", 56);
const std::string kBottomRow = "405207002" + Repeated("0F", 56);

TEST(LogoLine, SendsTheRowsAndGoesOn) {
  Shop shop;
  shop.Drop("ticket.txt", {WriteLogo(shop), "0;1;"});
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), (Lines{kTopRow, kBottomRow, "105101"}));
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
  EXPECT_EQ(shop.DialogTexts(), Lines{});
}

TEST(LogoLine, ADownloadGivenUpAbortsTheTicket) {
  Shop shop("on 4052 #2 reply ERR16");
  shop.Drop("ticket.txt", {WriteLogo(shop), "0;1;"});
  shop.Answer(kGiveUp);
  shop.Answer("Ok");
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), (Lines{kTopRow, kBottomRow}));
  EXPECT_EQ(shop.DialogTexts(), (Lines{"16-Non Previsto", "Controllare alimentazione Cash !"}));
  EXPECT_EQ(shop.Err(), (Lines{"ECR Error : 16-Non Previsto", kAnswered + kGiveUp, GivenUp(shop)}));
  EXPECT_EQ(shop.Names("data\\abort"), Lines{"ticket.txt.abort.txt"});
  EXPECT_EQ(shop.Names("storico"), Lines{});
}

TEST(LogoLine, ADownloadGivenUpStaysSoWhereTheProgramEndsThen) {
  Shop shop("on 4052 reply ERR16\non 4052 port-fails 2");
  shop.Drop("ticket.txt", {WriteLogo(shop), "0;1;"});
  for (const std::string& answer : {kGiveUp, std::string("Annulla"), std::string("Sì")}) shop.Answer(answer);
  shop.RunToItsEnd();
  EXPECT_EQ(shop.Names("data\\inproces"), Lines{});
  EXPECT_EQ(shop.Names("data\\abort"), Lines{"ticket.txt.abort.txt"});
}

TEST(LogoLine, AFileThatIsLockedAfterItsCheckAbortsTheTicket) {
  Shop shop;
  shop.Drop("ticket.txt", {"0;1;", WriteLogo(shop), "0;2;"});
  int opened = 0;
  shop.files.Before("OpenForReading", [&](const std::string& path) {
    if (path.ends_with("logo.bmp") && ++opened == 2)
      shop.files.FailAlways("OpenForReading", "logo.bmp", error_number::kPermissionDenied);
  });
  shop.Answer("Ok");
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), Lines{"105101"});
  EXPECT_EQ(shop.DialogTexts(), Lines{"Controllare alimentazione Cash !"});
  EXPECT_EQ(shop.Err(),
            (Lines{"Trasmissione 70 - Permission denied ( " + shop.Spelled("logo.bmp )"), GivenUp(shop)}));
  EXPECT_EQ(shop.Names("data\\abort"), Lines{"ticket.txt.abort.txt"});
}

TEST(LogoLine, AFolderInPlaceOfAFileMakesTheLineInvalid) {
  Shop shop;
  const std::string record = "33;7;" + shop.folder.Path("data") + ";";
  shop.Drop("ticket.txt", {record, "0;1;"});
  shop.Answer(kClosed);
  shop.Run();
  EXPECT_EQ(shop.Err(), (Lines{"File BMP non valido ! ( " + shop.folder.Path("data )"), kInvalid + record,
                               kInvalid + record}));
  EXPECT_EQ(shop.SentForTickets(), Lines{"105101"});
}

TEST(LogoLine, AFileThatIsNoLogoMakesTheLineInvalid) {
  Shop shop;
  shop.folder.Write("logo.bmp", LogoBitmap(255));
  const std::string record = "33;7;C:\\logo.bmp;";
  shop.Drop("ticket.txt", {record, "0;1;"});
  shop.Answer(kClosed);
  shop.Run();
  EXPECT_EQ(shop.Err(),
            (Lines{"File BMP non valido ! ( C:\\logo.bmp )", kInvalid + record, kInvalid + record}));
  EXPECT_EQ(shop.SentForTickets(), Lines{"105101"});
}

}  // namespace
}  // namespace orvenza::test
