#include <gtest/gtest.h>

#include <string>

#include "core/settings.h"
#include "support/shop.h"
#include "tickets/receipt_lines.h"

// A whole shop that asks in doubt: what the next start makes of a ticket that was interrupted, and what an
// operator's choice leads to.

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;
using Lines = Shop::Lines;

const std::string kTea = ItemLineOf("TE");
const std::string kTeaCommand = ItemCommand("TE");
const std::string kAsked =
    "Scontrino delle 22:13, totale 1,00 : ticket.txt La stampa \xC3\xA8 stata interrotta. Controllare la "
    "carta : "
    "\xC3\xA8 stato stampato tutto ?";

/// Not a std::exception: no trap may stop it.
struct Killed {};

class DoubtShop : public Shop {
 public:
  explicit DoubtShop(const std::string& script = "") : Shop(script) {
    Configure(setting::kSafety, setting::kAskInDoubt, "1");
  }

  /// Starts the connector and kills it before the first `operation` on a path that contains `part`, while a
  /// file `existing` exists.
  void RunUntilKilled(const std::string& operation, const std::string& part,
                      const std::string& existing = "data") {
    files.Before(operation, [this, part, existing](const std::string& path) {
      if (path.find(part) != std::string::npos && folder.Has(existing)) throw Killed();
    });
    RunToItsKill();
  }

  /// Starts the connector and lets the power fail after `life`.
  void RunUntilPowerCut(std::chrono::milliseconds life) {
    After(life, [] { throw Killed(); });
    RunToItsKill();
  }

  void RunToItsKill() {
    EXPECT_THROW(RunToItsEnd(), Killed);
    files.Heal();
    link.SetPortOpen(false);
    person.SetMenuHandler({});
  }

  bool AnyAsked() const { return !person.Shown().empty(); }
  Lines Archived() const { return Names("storico"); }
  Lines Aborted() const { return Names("data\\abort"); }
};

TEST(InterruptedTicket, OfWhichOnlyTheArchiveIsMissingIsArchivedUnasked) {
  DoubtShop shop;
  shop.Drop("ticket.txt", {kCoffee, kPayment});
  shop.RunUntilKilled("Move", "inproces\\ticket.txt");
  ASSERT_EQ(shop.Names("data\\inproces"), Lines{"ticket.txt"});
  shop.Run();
  EXPECT_FALSE(shop.AnyAsked());
  EXPECT_EQ(shop.SentForTickets(), (Lines{kCoffeeCommand, kPaymentCommand}));
  EXPECT_EQ(shop.Archived(), Lines{"1.txt"});
  EXPECT_EQ(shop.LogForTickets(),
            (Lines{"Start Scontrino", "End Scontrino",
                   "Scontrino gi\xC3\xA0 stampato, archiviato ora : ticket.txt", "End Scontrino"}));
}

TEST(InterruptedTicket, OfWhichOneReceiptIsCompleteGoesOnBehindIt) {
  DoubtShop shop;
  shop.Drop("ticket.txt", {kCoffee, kPayment, "26;", kTea, kPayment});
  // Before the second payment is sent; the drawer and the item of the second receipt are not saved.
  int saved = 0;
  shop.files.Before("Write", [&](const std::string& path) {
    if (path.ends_with("Evidence.ini") && ++saved == 4) throw Killed();
  });
  shop.RunToItsKill();
  shop.Answer("Ok");  // The void is announced.
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), (Lines{kCoffeeCommand, kPaymentCommand, "104701", kTeaCommand, "102800",
                                          "104701", kTeaCommand, kPaymentCommand}));
  EXPECT_EQ(shop.Archived(), Lines{"1.txt"});
}

TEST(InterruptedTicket, ThatWasGivenUpIsMovedUnasked) {
  DoubtShop shop("on 1003 silence");
  shop.Drop("ticket.txt", {kCoffee, kPayment});
  shop.Answer(kGiveUp);
  shop.RunUntilKilled("Move", "inproces\\ticket.txt");
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), Lines{kCoffeeCommand});
  EXPECT_EQ(shop.Aborted(), Lines{"ticket.txt.abort.txt"});
  EXPECT_EQ(shop.Archived(), Lines{});
}

TEST(InterruptedTicket, WhosePaymentWasRefusedIsPrintedAgainUnasked) {
  DoubtShop shop("on 1036 reply ERR08");
  shop.Drop("ticket.txt", {kCoffee, kPayment});
  shop.person.Answer("Ok", 10s);  // Not given to the form any more, but to the announcement of the void.
  shop.RunUntilPowerCut(5s);
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(),
            (Lines{kCoffeeCommand, kPaymentCommand, "102800", kCoffeeCommand, kPaymentCommand}));
  EXPECT_EQ(shop.Archived(), Lines{"1.txt"});
}

TEST(InterruptedTicket, WhoseNameTheHostUsesAgainIsNotAskedAbout) {
  DoubtShop shop;
  shop.Drop("ticket.txt", {kCoffee, kPayment});
  shop.RunUntilKilled("Write", "Evidence.ini", "storico\\1.txt");
  shop.Drop("ticket.txt", {kTea, kPayment});
  shop.Run();
  EXPECT_FALSE(shop.AnyAsked());
  EXPECT_EQ(shop.SentForTickets(), (Lines{kCoffeeCommand, kPaymentCommand, kTeaCommand, kPaymentCommand}));
  EXPECT_EQ(shop.Names("data\\inproces"), Lines{});
}

TEST(InterruptedTicket, StaysInPlaceWhateverItsCommandMayHaveCompleted) {
  for (const char* record : {"2;1;100;", "5;0;1;;;100;", "14;100;1;1;;0;", "15;1;100;", "31;1;",
                             "34;0;100;1;", "35;1;100;1;", "21;"}) {
    const std::string command = std::string(record) == "21;" ? "30" : "10";
    DoubtShop shop("on " + command + " silence");
    shop.Drop("ticket.txt", {record});
    shop.Answer("menu Esci");
    shop.Answer("S\xC3\xAC");
    shop.RunToItsEnd();
    EXPECT_EQ(shop.Names("data\\inproces"), Lines{"ticket.txt"}) << record;
    EXPECT_NE(shop.folder.Read("Evidence.ini").find("State=under-way\r\n"), std::string::npos) << record;
  }
}

TEST(InterruptedTicket, IsAskedAboutInOneLineOfTheErrorLog) {
  DoubtShop shop("on 1036 lose-reply");
  shop.Drop("ticket.txt", {kCoffee, kPayment});
  shop.RunUntilKilled("Append", "Err.txt");
  shop.Answer(kPrinted);
  shop.Run();
  EXPECT_EQ(shop.Err(), (Lines{kAsked, "Risposta Operatore : " + kPrinted}));
}

TEST(TicketInDoubt, IsReadAgainBehindWhatIsComplete) {
  const struct {
    Lines corrected;
    std::string item;
  } rows[] = {{{kCoffee, kPayment, ItemLineOf("UVA"), kPayment}, "UVA"},
              // What is printed stays as it is, and so does the rest.
              {{ItemLineOf("MELE"), kPayment, ItemLineOf("UVA"), kPayment}, "TE"}};
  for (const auto& row : rows) {
    DoubtShop shop("on 1003 #2 silence");
    shop.Drop("ticket.txt", {kCoffee, kPayment, kTea, kPayment});
    shop.After(20s, [&] { shop.folder.Write("data\\inproces\\ticket.txt", Shop::Joined(row.corrected)); });
    shop.person.Answer(kReprint, 30s);
    shop.Run(2min);
    EXPECT_EQ(shop.SentForTickets(),
              (Lines{kCoffeeCommand, kPaymentCommand, kTeaCommand, ItemCommand(row.item), kPaymentCommand}));
  }
}

TEST(TicketInDoubt, APaperOutAtAVoidNeedsNoQuestion) {
  DoubtShop shop("on 1028 paper-out receipt");
  shop.Drop("ticket.txt", {kCoffee, "4;1;", kTea, kPayment});
  shop.Answer("Ok");
  shop.Run(1min);
  EXPECT_EQ(shop.SentForTickets(), (Lines{kCoffeeCommand, "102801", "114900", kTeaCommand, kPaymentCommand}));
}

TEST(TicketInDoubt, AnInvalidLineIsDecidedByTheOperatorEvenIfTheFormIsClosed) {
  DoubtShop shop;
  shop.Drop("ticket.txt", {kCoffee, "99;", kPayment});
  shop.Answer("close");
  shop.Answer(kGiveUp);
  shop.Run(1min);
  EXPECT_EQ(shop.SentForTickets(), Lines{kCoffeeCommand});
  EXPECT_EQ(shop.Aborted(), Lines{"ticket.txt.abort.txt"});
}

TEST(TicketInDoubt, TheEvidenceIsKeptOnlyForThoseWhoWantIt) {
  const struct {
    const char* section;
    const char* key;
    const char* value;
    bool kept;
  } rows[] = {{"Safety", "AskInDoubt", "1", true},
              {"Safety", "AskInDoubt", "0", false},
              {"Host", "Outcomes", "C:\\shop\\esiti\\", true},
              {"Host", "Outcomes", "", false}};
  for (const auto& row : rows) {
    Shop shop;
    shop.Configure(row.section, row.key, row.value);
    shop.folder.Write("Evidence.ini", "[Evidence]\r\n");
    shop.Drop("ticket.txt", {kCoffee, kPayment});
    shop.Run();
    EXPECT_EQ(shop.folder.Has("Evidence.ini"), row.kept) << row.key << row.value;
    EXPECT_EQ(shop.Err(), Lines{}) << row.key << row.value;
  }
}

}  // namespace
}  // namespace orvenza::test
