#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "support/shop.h"
#include "tickets/receipt_lines.h"
#include "tickets/ticket_processor.h"

// Long-running commands ("*"): the link is reopened before them, and again afterwards.

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;
using Lines = Shop::Lines;

const std::string kAbsent = "Dispositivo Spento o Non Collegato !";

/// The traffic on the line since start-up: each command with its end-of-text timeout, and the port.
class WatchedLine {
 public:
  explicit WatchedLine(Shop& shop) {
    shop.link.SetObserver([&](LineEvent event, const std::string& text) {
      if (event == LineEvent::kPort) events_.push_back(text);
      if (event != LineEvent::kSent) return;
      const int wait = shop.link.Property(LinkProperty::kEndOfTextWait).value_or(0);
      events_.push_back(text + " " + std::to_string(wait));
    });
  }

  /// Without start-up, the status query before the ticket, and the end of the program.
  Lines ForTickets() const { return {events_.begin() + 4, events_.end() - 1}; }

 private:
  Lines events_;
};

TEST(LongCommand, IsSentOverALinkOpenedWithTheLongWaitAndTheNextLineWithTheNormalOne) {
  Shop shop;
  const WatchedLine line(shop);
  shop.Drop("ticket.txt", {"0;1;", "21;", "0;2;", "0;3;"});
  shop.Run();
  EXPECT_EQ(line.ForTickets(), (Lines{"105101 10000", "closed", "open", "300101 50000", "closed", "open",
                                      "105102 10000", "105103 10000"}));
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
}

TEST(LongCommand, RestoresTheLinkAlsoAtTheEndOfTheFile) {
  Shop shop;
  const WatchedLine line(shop);
  shop.Drop("ticket.txt", {"22;"});
  shop.Run();
  EXPECT_EQ(line.ForTickets(), (Lines{"closed", "open", "300201 50000", "closed", "open"}));
  EXPECT_EQ(shop.link.Property(LinkProperty::kEndOfTextWait), 10000);
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
}

TEST(LongCommand, ConfiguresTheWholeLinkAgain) {
  Shop shop;
  shop.Drop("ticket.txt", {"21;"});
  shop.Run();
  const Lines set(shop.link.Settings().begin(), shop.link.Settings().end());
  const Lines opening = {"Reset 1",
                         "PortNumber 1",
                         "BaudRate 19200",
                         "Parity 1",
                         "DataBits 7",
                         "StopBits 1",
                         "FrameRetries 0",
                         "AcknowledgementWait 0",
                         "EndOfTextWait 50000",
                         "MessageRetries 0",
                         "Identifier 86",
                         "PortOpen 1"};
  ASSERT_EQ(set.size(), 3 * opening.size() + 3) << "start-up, before, after, and three closings";
  EXPECT_EQ(set[12], "PortOpen 0");
  EXPECT_EQ(Lines(set.begin() + 13, set.begin() + 25), opening);
  EXPECT_EQ(set[25], "PortOpen 0");
  EXPECT_EQ(set[34], "EndOfTextWait 10000");
}

TEST(LongCommand, PausesATenthOfASecondWhileThePortIsClosed) {
  Shop shop;
  std::vector<std::int64_t> times;
  shop.link.SetObserver([&](LineEvent event, const std::string&) {
    if (event == LineEvent::kPort) times.push_back(shop.clock.Uptime() / 1ms);
  });
  shop.Drop("ticket.txt", {"21;"});
  shop.Run(2s);
  EXPECT_EQ(times, (std::vector<std::int64_t>{0, 500, 600, 600, 700, 2200}));
}

TEST(LongCommand, EveryOneIsSentWithoutItsMark) {
  const std::pair<std::string, std::string> commands[] = {
      {"21;", "300101"},         {"22;", "300201"},          {"32;1;1;", "200101"},
      {"32;1;2;3;", "20020103"}, {"32;1;3;30;", "20030130"}, {"32;1;4;1200;", "2004011200"},
      {"32;1;5;", "200501"},     {"32;1;6;7;", "20060107"},  {"32;1;7;", "200701"},
      {"32;1;8;3;", "20080103"}, {"32;1;9;30;", "20090130"}, {"32;1;10;12;", "2010010012"},
      {"32;1;11;", "201101"},    {"32;1;12;7;", "20120107"}, {"32;1;;", "200101"}};
  for (const auto& [record, command] : commands) {
    Shop shop;
    const WatchedLine line(shop);
    shop.Drop("ticket.txt", {record});
    shop.Run(3s);
    EXPECT_EQ(line.ForTickets(), (Lines{"closed", "open", command + " 50000", "closed", "open"})) << record;
  }
}

TEST(LongCommand, ATextThatEndsInAnAsteriskIsNone) {
  Shop shop;
  const WatchedLine line(shop);
  shop.Drop("ticket.txt", {"28;1;CLIENTE NUMERO *1234567890*;"});
  shop.Run();
  EXPECT_EQ(line.ForTickets(), Lines{"105801CLIENTE NUMERO *1234567890* 10000"});
}

TEST(LongCommand, TwoInARowEachHaveTheirOwnLink) {
  Shop shop;
  const WatchedLine line(shop);
  shop.Drop("ticket.txt", {"32;1;1;", "21;"});
  shop.Run();
  EXPECT_EQ(line.ForTickets(), (Lines{"closed", "open", "200101 50000", "closed", "open", "closed", "open",
                                      "300101 50000", "closed", "open"}));
}

TEST(LongCommand, IsWaitedForAsLongAsTheLongWait) {
  Shop shop("on 3001 late 49000");
  shop.Drop("ticket.txt", {"21;", "0;1;"});
  shop.Run(2min);
  EXPECT_EQ(shop.SentAt("1051"), std::vector<std::int64_t>{600 + 49000 + 100});
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST(LongCommand, IsWaitedForAtLeastAsLongAsAnyOther) {
  Shop shop("on 3001 late 14000");
  shop.Configure("Com Settings", "TimeWaitForLONGEtx", "5000");
  shop.Drop("ticket.txt", {"21;", "0;1;"});
  shop.Run(2min);
  EXPECT_EQ(shop.SentAt("1051"), std::vector<std::int64_t>{600 + 14000 + 100});
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST(LongCommand, SilenceIsLoggedWithoutADialogAndTheTicketGoesOn) {
  Shop shop("on 3001 silence");
  shop.Drop("ticket.txt", {"21;", "0;1;"});
  shop.Run(2min);
  EXPECT_EQ(shop.Err(), Lines{"ECR Error : "});
  EXPECT_EQ(shop.DialogTexts(), Lines{});
  EXPECT_EQ(shop.SentAt("1051"), std::vector<std::int64_t>{600 + 50000 + 100});
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
}

TEST(LongCommand, AnErrorReplyIsLoggedWithoutADialogAndTheTicketGoesOn) {
  for (const std::string reply : {"ERR08", "ERR11", "ERR01", "ERR2323"}) {
    Shop shop("on 3001 reply " + reply);
    shop.Drop("ticket.txt", {"21;", "0;1;"});
    shop.Run();
    EXPECT_EQ(shop.Err(), Lines{"ECR Error : " + reply});
    EXPECT_EQ(shop.DialogTexts(), Lines{}) << reply;
    EXPECT_EQ(shop.SentForTickets(), (Lines{"300101", "105101"})) << reply;
  }
}

TEST(LongCommand, ARegisterThatIsNotReadyAbortsTheTicket) {
  for (const int absentReads : {1, 2, 3}) {
    Shop shop("on 105101 absent " + std::to_string(absentReads));
    shop.Drop("ticket.txt", {"0;1;", "21;", "0;2;"});
    for (int read = 0; read < absentReads; ++read) shop.Answer("Ok");
    shop.Run();
    EXPECT_EQ(shop.SentForTickets(), Lines{"105101"}) << absentReads;
    EXPECT_EQ(shop.DialogTexts(), Lines(static_cast<std::size_t>(absentReads), kAbsent));
    EXPECT_EQ(shop.Names("data\\abort"), Lines{"ticket.txt.abort.txt"}) << absentReads;
    EXPECT_EQ(shop.Names("storico"), Lines{}) << absentReads;
    EXPECT_EQ(shop.link.Property(LinkProperty::kEndOfTextWait), 10000) << absentReads;
    EXPECT_EQ(shop.LogForTickets(), Lines{"Start Scontrino"}) << absentReads;
    EXPECT_EQ(shop.Err().back(), GivenUp(shop));
  }
}

TEST(LongCommand, ALinkThatCannotBeRestoredDoesNotKeepTheTicketFromTheArchive) {
  Shop shop("on 3001 port-fails 1000");
  shop.Drop("ticket.txt", {"21;"});
  shop.person.SetObserver(
      [](const ShownDialog&, std::string_view) { throw std::runtime_error("no screen"); });
  shop.Run(10s);
  EXPECT_EQ(shop.Err(), (Lines{"Apertura Porta non Riuscita ! ( COM1 )", "Trasmissione 51 - no screen"}));
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
}

TEST(LongCommand, TheLinkIsRestoredBeforeTheTicketIsPrintedAgain) {
  Shop shop;
  const WatchedLine line(shop);
  shop.Drop("ticket.txt", {"21;", "hello"});
  shop.Answer(kReprint);
  shop.Answer(kPrinted);
  shop.Run();
  const Lines once = {"closed", "open", "300101 50000", "closed", "open"};
  Lines twice = once;
  twice.push_back("321701 10000");
  twice.insert(twice.end(), once.begin(), once.end());
  EXPECT_EQ(line.ForTickets(), twice);
}

}  // namespace
}  // namespace orvenza::test
