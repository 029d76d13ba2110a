#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/shop.h"
#include "tickets/ticket_polling.h"

// The correction of the PC's clock by ticks.

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;
using Lines = Shop::Lines;
using Times = std::vector<std::int64_t>;

/// A shop that corrects its clock every 30 seconds if the difference exceeds a minute.
class CorrectingShop : public Shop {
 public:
  explicit CorrectingShop(const std::string& script = "", const std::string& seconds = "30") : Shop(script) {
    Configure("General", "Pc Time Correction", seconds);
    Configure("General", "Time Shift", "60");
  }
};

TEST(ClockTick, AsksTheRegisterOnEvery61stTick) {
  CorrectingShop shop;
  shop.Run(92s);
  EXPECT_EQ(shop.SentAt("3217"), (Times{0, 30500, 61000, 91500})) << "the first is start-up's";
  EXPECT_EQ(shop.SentAt("4201"), (Times{30500, 61000, 91500}));
  EXPECT_EQ(shop.clock.TimesSet(), std::vector<LocalTime>{}) << "the clocks agree";
}

TEST(ClockTick, NeverAsksWhenCorrectionsAreOff) {
  for (const char* seconds : {"0", "", "-30", "x"}) {
    CorrectingShop shop("clock 600", seconds);
    shop.Run(10min);
    EXPECT_EQ(shop.Sent(), (Lines{"321700", "199900"})) << seconds;
  }
}

TEST(ClockTick, SetsThePcClockToTheRegisters) {
  CorrectingShop shop("clock 600");
  shop.Run(80s);
  EXPECT_EQ(shop.clock.TimesSet(), (std::vector<LocalTime>{{2026, 11, 16, 9, 10, 0}}));
  EXPECT_EQ(shop.SentAt("4201"), (Times{30500, 61000}));
}

TEST(ClockTick, ATickSpentPrintingCountsAsHalfASecond) {
  CorrectingShop shop("on 1051 late 14000");
  shop.Drop("ticket.txt", {"0;1;"});
  shop.Run(50s);
  EXPECT_EQ(shop.SentAt("4201"), (Times{500, 44500})) << "the first follows the ticket's status query";
}

TEST(ClockTick, PrintsATicketBeforeTheQueryThatIsDueOnTheSameTick) {
  CorrectingShop shop;
  shop.After(30300ms, [&] { shop.Drop("ticket.txt", {"0;1;"}); });
  shop.Run(31s);
  EXPECT_EQ(shop.SentAt("1051"), Times{30500});
  EXPECT_EQ(shop.Sent(), (Lines{"321700", "199900",            // start-up
                                "321701", "420100", "105101",  // the ticket
                                "321700", "420100"}));
}

TEST(ClockTick, ShowsNoDialogWhateverTheRegisterDoes) {
  const std::pair<std::string, std::string> troubles[] = {
      {"after 20000 absent 1", "Dispositivo Spento o Non Collegato !"},
      {"on 3217 #2 silence", "Nessuna risposta dal Dispositivo !"},
      {"on 3217 #2 reply ERR08", "ECR Error : ERR08"},
      {"on 3217 #2 link-error 1", "Errore Comunicazione : ERR-1"},
      {"on 4201 silence", "Nessuna risposta dal Dispositivo !"},
      {"on 4201 reply ERR01", "ECR Error : ERR01"},
      {"on 4201 reply 999900", "Errore di risposta dal Dispositivo !"},
      {"on 4201 reply 42021611260800", "Errore di risposta dal Dispositivo !"},
      {"on 4201 reply 99991611260800", "Errore di risposta dal Dispositivo !"},
  };
  for (const auto& [script, line] : troubles) {
    CorrectingShop shop("clock 600\n" + script);
    shop.Run(60s);
    EXPECT_EQ(shop.DialogTexts(), Lines{}) << script;
    EXPECT_EQ(shop.Err(), Lines{line}) << script;
    EXPECT_EQ(shop.clock.TimesSet(), std::vector<LocalTime>{}) << script;
  }
}

TEST(ClockTick, PollingGoesOnAfterACorrectionThatTheSystemRefuses) {
  CorrectingShop shop("clock 600");
  shop.clock.RefuseSetTime(true);
  shop.After(40s, [&] { shop.Drop("ticket.txt", {"0;1;"}); });
  shop.Run(100s);
  EXPECT_EQ(shop.SentForTickets().size(), 5U) << "four clock queries and the ticket";
  EXPECT_EQ(shop.Err(), Lines{"Timer1 - 70 - Permission denied"});
}

}  // namespace
}  // namespace orvenza::test
