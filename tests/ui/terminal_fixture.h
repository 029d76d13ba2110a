#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "core/event_loop.h"
#include "ui/fakes.h"
#include "ui/operator_message.h"
#include "ui/terminal/terminal_operator.h"

namespace orvenza::test {

inline constexpr const char* kRejected = "Risposta non valida.\n";
inline constexpr const char* kNoQuestion = "Nessuna domanda in attesa. Menu: m + Invio\n";
inline constexpr const char* kClosed = "Chiuso senza risposta.\n";
inline constexpr const char* kMenuHint = "Numero + Invio (solo Invio: chiudi il menu)\n";

/// A terminal operator with its own clock and pump; chosen menu items are recorded.
class TerminalOperatorTest : public ::testing::Test {
 protected:
  TerminalOperatorTest() {
    terminal.SetMenuHandler([this](MenuItem item) {
      picked.push_back(item);
      if (menuAction) menuAction();
    });
    terminal.CreateIcon("Orvenza - 1.0.0");
    out.str("");
  }
  /// Enters a line during one of the next waits.
  void Type(const std::string& line) {
    pump.events.push_back([this, line] { terminal.OnLine(line); });
  }
  void EndInput() {
    pump.events.push_back([this] { terminal.OnEndOfInput(); });
  }
  /// The button pressed, 0 none.
  int Show(MessageStyle style) {
    return terminal.ShowMessage(BuildMessage("Domanda ?", style, "", "Orvenza")).value_or(0);
  }
  int Show(MessageButtons buttons) { return Show({MessageIcon::kNone, buttons}); }

  /// The output since the last call.
  std::string Printed() {
    std::string text = out.str();
    out.str("");
    return text;
  }
  /// How often `text` was printed.
  int Count(const std::string& text) const {
    int count = 0;
    const std::string all = out.str();
    for (std::size_t at = all.find(text); at != std::string::npos; at = all.find(text, at + 1)) ++count;
    return count;
  }

  FakeClock clock;
  FakePump pump{clock};
  EventLoop loop{clock, pump};
  std::ostringstream out;
  TerminalOperator terminal{out, loop, clock};
  std::vector<MenuItem> picked;
  std::function<void()> menuAction;
};

/// A choice of two options with `selected` marked.
inline ChoiceContent Options(int selected) {
  return {"Orvenza", "Attenzione ! Errore ECR :",  "08-Tasto Errato",
          true,      {"Continuare", "Ristampare"}, selected,
          "&Ok"};
}

/// A choice dialog with only its button.
inline ChoiceContent PaperOut() {
  return {"Orvenza", "Attenzione !", "Ripristinare la carta e confermare", false, {}, 0, "&Ok"};
}

/// Lists of two entries, one of them without a selection.
inline PortContent Ports() {
  PortContent content;
  content.caption = "Configurazione";
  content.labels = {"Porta COM", "Velocita'", "Parita'", "Data Bit", "Stop Bit"};
  content.entries = {{{"COM1", "COM2"}, {"9600", "19200"}, {"Odd", "Even"}, {"7", "8"}, {"1", "2"}}};
  content.selected = {1, 0, 1, 0, -1};
  content.button = "&Ok";
  return content;
}

inline const UtilitiesContent kUtilities = {"Utilita'",
                                            {"&Esci", "&Chiusura Fiscale", "Chiusura &Fiscale con"}};

}  // namespace orvenza::test
