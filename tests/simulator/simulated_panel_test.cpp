#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "simulator/panel_bench.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;
using Lines = std::vector<std::string>;

std::size_t NumberOf(const SimulatedPanel& panel, const std::string& caption) {
  const auto& faults = panel.Faults();
  return static_cast<std::size_t>(std::find(faults.begin(), faults.end(), caption) - faults.begin());
}

TEST(SimulatedPanel, HasTheSwitchesOfARegister) {
  const PanelBench bench;
  Lines shown;
  for (const PanelSwitch& item : bench.panel.Switches())
    shown.push_back(item.caption + (item.on ? " on" : " off"));
  EXPECT_EQ(shown,
            (Lines{"Carta scontrino on", "Carta giornale on", "Alimentazione on", "Cavo on", "Chiave on"}));
}

TEST(SimulatedPanel, EachSwitchTurnsItsOwnThing) {
  for (std::size_t number = 0; number < 5; ++number) {
    PanelBench bench;
    bench.panel.Turn(number, false);
    const auto& [device, link] = std::tie(bench.device, bench.link);
    EXPECT_EQ(device.PaperIn(Paper::kReceipt), number != 0);
    EXPECT_EQ(device.PaperIn(Paper::kJournal), number != 1);
    EXPECT_EQ(link.PowerOn(), number != 2);
    EXPECT_EQ(link.CableIn(), number != 3);
    EXPECT_EQ(device.KeyOn(), number != 4);
    for (std::size_t other = 0; other < 5; ++other)
      EXPECT_EQ(bench.panel.Switches()[other].on, number != other);
    bench.panel.Turn(number, true);
    EXPECT_TRUE(bench.panel.Switches()[number].on);
  }
}

TEST(SimulatedPanel, ASwitchThatDoesNotMoveIsNotNoted) {
  PanelBench bench;
  bench.panel.Turn(2, true);
  bench.panel.Turn(99, false);
  bench.panel.SetFault(std::nullopt);
  bench.panel.SetFault(ChosenFault{99, true});
  EXPECT_EQ(bench.panel.Scenario().find("register after"), std::string::npos);
}

TEST(SimulatedPanel, OffersTheFaultsInWords) {
  const PanelBench bench;
  const Lines& faults = bench.panel.Faults();
  ASSERT_EQ(faults.size(), 38u);
  EXPECT_EQ(Lines(faults.begin(), faults.begin() + 9),
            (Lines{"Nessuna risposta", "Risposta persa", "Risposta in ritardo di 5 s", "Errore di linea 1",
                   "Errore di linea 2", "Errore di linea 3", "Risposta illeggibile",
                   "Errore 01: Carta Giornale", "Errore 02: Carta Scontrino"}));
  EXPECT_EQ(faults.back(), "Errore 31: Dati Inesistenti PC");
}

TEST(SimulatedPanel, EachFaultStrikesTheNextCommandOnly) {
  const struct {
    const char* caption;
    Lines events;
  } cases[] = {{"Nessuna risposta", {}},
               {"Risposta persa", {"0 paper UNO"}},
               {"Risposta in ritardo di 5 s", {"0 paper UNO", "5000 1 106600"}},
               {"Errore di linea 1", {"0 2 1"}},
               {"Errore di linea 2", {"0 2 2"}},
               {"Errore di linea 3", {"0 2 3"}},
               {"Risposta illeggibile", {"0 1 ?~?~?"}},
               {"Errore 08: Tasto Errato", {"0 1 ERR08"}},
               {"Errore 23: Chiudi Scontrino", {"0 1 ERR2323"}},
               {"Errore 31: Dati Inesistenti PC", {"0 1 ERR31"}}};
  for (const auto& [caption, events] : cases) {
    PanelBench bench;
    bench.panel.SetFault(ChosenFault{NumberOf(bench.panel, caption), true});
    ASSERT_TRUE(bench.panel.Fault()) << caption;
    EXPECT_EQ(bench.panel.Faults()[bench.panel.Fault()->number], caption);
    EXPECT_TRUE(bench.panel.Fault()->once);
    bench.events.clear();
    bench.Send("106601UNO             ");
    bench.clock.Advance(9s);
    EXPECT_FALSE(bench.panel.Fault()) << caption;
    bench.events.erase(bench.events.begin());  // The command itself.
    EXPECT_EQ(bench.events, events) << caption;
    EXPECT_EQ(bench.Reply(kStatus), "321700") << caption;
  }
}

TEST(SimulatedPanel, AFaultCanStrikeUntilItIsSwitchedOff) {
  PanelBench bench;
  bench.panel.SetFault(ChosenFault{NumberOf(bench.panel, "Errore 12: Dati Inesistenti"), false});
  for (int i = 0; i < 3; ++i) EXPECT_EQ(bench.Reply(kStatus), "ERR12");
  ASSERT_TRUE(bench.panel.Fault());
  EXPECT_FALSE(bench.panel.Fault()->once);
  bench.panel.SetFault(std::nullopt);
  EXPECT_FALSE(bench.panel.Fault());
  EXPECT_EQ(bench.Reply(kStatus), "321700");
}

TEST(SimulatedPanel, ShowsWhatTheScriptHasSwitched) {
  PanelBench bench(
      "after 1000 power off\nafter 2000 every link-error 2\nafter 3000 next reply CIAO\n"
      "on 1036 lose-reply\nafter 4000 next late 5000");
  EXPECT_TRUE(bench.panel.Switches()[2].on);
  bench.clock.Advance(1s);
  EXPECT_FALSE(bench.panel.Switches()[2].on);
  const auto chosen = [&] {
    const auto fault = bench.panel.Fault();
    return fault ? bench.panel.Faults()[fault->number] + (fault->once ? " once" : " always") : "none";
  };
  EXPECT_EQ(chosen(), "none");
  bench.clock.Advance(1s);
  EXPECT_EQ(chosen(), "Errore di linea 2 always");
  bench.clock.Advance(1s);
  EXPECT_EQ(chosen(), "Dallo script: reply CIAO once");
  bench.clock.Advance(1s);
  EXPECT_EQ(chosen(), "Risposta in ritardo di 5 s once");
  EXPECT_EQ(bench.panel.Faults().size(), 39u);
  bench.panel.Turn(2, true);
  bench.panel.SetFault(ChosenFault{38, true});
  EXPECT_EQ(bench.Reply(kStatus), "CIAO");
}

TEST(SimulatedPanel, CountsTheDay) {
  PanelBench bench("roll 300");
  EXPECT_EQ(bench.panel.Counters(), (Lines{"Totale del giorno: 0,00", "Scontrini: 0", "Chiusure fiscali: 0",
                                           "Aperto: niente", "Righe sul rotolo: 0 di 300"}));
  bench.Send(kBread);
  bench.Send(kPayment);
  bench.Send(kBread);
  EXPECT_EQ(bench.panel.Counters(), (Lines{"Totale del giorno: 1,50", "Scontrini: 1", "Chiusure fiscali: 0",
                                           "Aperto: scontrino, 1,50", "Righe sul rotolo: 12 di 300"}));
  bench.Send(kVoid);
  bench.Send("300101");
  bench.Send("106301");
  EXPECT_EQ(bench.panel.Counters(), (Lines{"Totale del giorno: 0,00", "Scontrini: 0", "Chiusure fiscali: 1",
                                           "Aperto: documento non fiscale", "Righe sul rotolo: 24 di 300"}));
}

TEST(SimulatedPanel, SaysWhenTheRegisterAwaitsTheRestart) {
  for (const auto& [number, text] : {std::pair(0u, "Carta scontrino: la cassa attende il riavvio"),
                                     std::pair(1u, "Carta giornale: la cassa attende il riavvio")}) {
    PanelBench bench;
    bench.panel.Turn(number, false);
    bench.Send(kBread);
    EXPECT_EQ(bench.panel.Counters().size(), 5u);
    bench.panel.Turn(number, true);
    EXPECT_EQ(bench.panel.Counters().back(), text);
    bench.Send("114900");
    EXPECT_EQ(bench.panel.Counters().size(), 5u);
  }
}

TEST(SimulatedPanel, TellsAnObserverOfEveryChange) {
  PanelBench bench;
  std::vector<std::size_t> told;
  bench.panel.SetObserver([&] { told.push_back(bench.panel.LinesPrinted()); });
  const auto changes = [&](const std::function<void()>& action) {
    const std::size_t before = told.size();
    action();
    return told.size() > before;
  };
  EXPECT_TRUE(changes([&] { bench.panel.Turn(4, false); }));
  EXPECT_TRUE(changes([&] { bench.panel.Turn(4, true); }));
  EXPECT_TRUE(changes([&] { bench.panel.SetFault(ChosenFault{0, true}); }));
  EXPECT_TRUE(changes([&] { bench.Send(kStatus); })) << "the fault is used up";
  EXPECT_TRUE(changes([&] { bench.Send(kBread); }));
  EXPECT_EQ(told.back(), 4u);
  EXPECT_TRUE(changes([&] { bench.Send(kVoid); }));
  bench.panel.SetObserver(nullptr);
  EXPECT_FALSE(changes([&] { bench.Send(kBread); }));
}

}  // namespace
}  // namespace orvenza::test
