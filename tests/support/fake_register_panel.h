#pragma once

#include <string>
#include <utility>
#include <vector>

#include "ui/register_panel.h"

namespace orvenza::test {

/// A panel without a register behind it: tests set what it shows, and read what was done to it.
class FakeRegisterPanel : public RegisterPanel {
 public:
  void SetObserver(std::function<void()> changed) override { observer = std::move(changed); }
  const std::deque<RollLine>& Roll() const override { return roll; }
  std::size_t LinesPrinted() const override { return printed; }
  std::vector<PanelSwitch> Switches() const override { return switches; }
  void Turn(std::size_t number, bool on) override {
    switches.at(number).on = on;
    Changed();
  }
  const std::vector<std::string>& Faults() const override { return faults; }
  std::optional<ChosenFault> Fault() const override { return fault; }
  void SetFault(std::optional<ChosenFault> chosen) override {
    fault = chosen;
    Changed();
  }
  std::vector<std::string> Counters() const override { return counters; }
  std::string Scenario() const override { return scenario; }
  std::string SaveRoll() override {
    ++saved;
    return saveResult;
  }

  void Changed() const {
    if (observer) observer();
  }
  /// Prints lines; `keep` lines stay on the roll.
  void Print(const std::vector<RollLine>& lines, std::size_t keep = 100'000) {
    for (const RollLine& line : lines) {
      roll.push_back(line);
      if (roll.size() > keep) roll.pop_front();
      ++printed;
      Changed();
    }
  }

  std::function<void()> observer;
  std::deque<RollLine> roll;
  std::size_t printed = 0;
  std::vector<PanelSwitch> switches{
      {"Carta scontrino"}, {"Carta giornale"}, {"Alimentazione"}, {"Cavo"}, {"Chiave"}};
  std::vector<std::string> faults{"Nessuna risposta", "Risposta persa", "Errore 02: Carta Scontrino"};
  std::optional<ChosenFault> fault;
  std::vector<std::string> counters{"Totale del giorno: 12,50", "Scontrini: 3"};
  std::string scenario = "register\nnext silence\n";
  std::string saveResult = "Rotolo salvato : rotolo.txt";
  int saved = 0;
};

}  // namespace orvenza::test
