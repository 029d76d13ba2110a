#include "lab/table/pair_scenario.h"

#include <algorithm>
#include <cstdio>
#include <set>

#include "lab/rehearsal/rehearsal.h"
#include "lab/rehearsal/scenario_reader.h"
#include "lab/table/case_grid.h"
#include "lab/table/case_run.h"
#include "lab/table/ticket_outcome.h"

namespace orvenza {
namespace {

using Texts = std::vector<std::string>;

/// Length of a command's code.
constexpr std::size_t kCode = 4;
/// The program, its folder and its register are ready after half a second; some faults take minutes.
constexpr std::size_t kLatest[] = {800, 3'000, 40'000, 300'000};
constexpr std::size_t kMostChanges = 40;

constexpr const char* kAskInDoubt = "setting [Safety] AskInDoubt = 1\nuntil printed\nlimit 3h\n";

/// Effects on a command; those in one string strike it together.
const std::vector<Texts>& Effects() {
  static const std::vector<Texts> all{
      {"silence"},
      {"lose-reply"},
      {"late 16000"},
      {"late 52000"},
      {"link-error 1"},
      {"link-error 2"},
      {"link-error 3"},
      {"reply ##"},
      {"paper-out receipt"},
      {"paper-out journal"},
      {"absent 3"},
      {"silence", "absent 3"},
      {"lose-reply", "absent 3"},
      {"silence", "port-fails 2"},
      {"lose-reply", "port-fails 2"},
      {"lose-reply", "paper-out receipt"},
      {"lose-reply", "paper-out journal"},
  };
  return all;
}

std::string Refusal(Dice& dice) {
  char text[32];
  std::snprintf(text, sizeof text, "reply ERR%02u", static_cast<unsigned>(dice.Below(31) + 1));
  return text;
}

/// A command and its occurrence, such as "1036 #1": one of the ticket's, or of what may follow a fault.
std::string Place(const PairTicket& ticket, Dice& dice) {
  static const Texts kCorrections{"1028", "1149", "3217", "1036"};
  const std::size_t place = dice.Below(ticket.commands.size());
  const std::string& command = dice.Chance(75) ? ticket.commands[place] : dice.OneOf(kCorrections);
  const auto before = ticket.commands.begin() + static_cast<std::ptrdiff_t>(place);
  const auto count = static_cast<std::size_t>(std::count(ticket.commands.begin(), before, command));
  return command + " #" + std::to_string(count + 1 + (dice.Chance(30) ? dice.Below(4) : 0));
}

std::string Moment(Dice& dice) {
  return "at " + std::to_string(1 + dice.Below(kLatest[dice.Below(std::size(kLatest))])) + "ms ";
}

/// A receipt that is divided may be divided elsewhere, but then its slips are not those expected.
Texts EffectsOn(const PairTicket& ticket, Dice& dice) {
  if (dice.Chance(5) && ticket.expected.size() == 1) return {"reply ERR2323"};
  return dice.OneOf(Effects());
}

/// The lines of one fault.
std::string FaultLines(const PairTicket& ticket, Dice& dice) {
  switch (dice.Below(10)) {
    case 0: return "power fails before " + Place(ticket, dice) + "\n";
    case 1: return "power fails after " + Place(ticket, dice) + "\n";
    case 2: return "power fails at change " + std::to_string(1 + dice.Below(kMostChanges)) + "\n";
    case 3: return Moment(dice) + "power fails\n";
    case 4: return Moment(dice) + (dice.Chance(50) ? "menu Esci\n" : "session ends\n");
    default: break;
  }
  const std::string place = "register on " + Place(ticket, dice) + (dice.Chance(3) ? " x* " : " ");
  if (dice.Chance(30)) return place + Refusal(dice) + "\n";
  std::string lines;
  for (const std::string& effect : EffectsOn(ticket, dice)) lines += place + effect + "\n";
  return lines;
}

PairTicket TicketOf(const std::string& text) {
  Scenario scenario = ParseScenario("ticket", std::string(kAskInDoubt) + text);
  PairTicket ticket{text, scenario.events.back().content, SlipsExpected(scenario), {}};
  scenario.transcript = false;
  const CaseRun run(scenario, {}, 0);
  for (const std::string& command : run.Outcome().sent) {
    ticket.commands.push_back(command.substr(0, kCode));
  }
  return ticket;
}

}  // namespace

std::vector<PairTicket> PairTickets() {
  std::vector<PairTicket> tickets;
  std::set<std::string> known;
  for (const TicketStep& step : TicketSteps()) {
    if (known.insert(step.scenario).second) tickets.push_back(TicketOf(step.scenario));
  }
  return tickets;
}

std::string PairScenario(const PairTicket& ticket, Dice& dice) {
  std::string text = kAskInDoubt;
  if (dice.Chance(50)) text += "start 16/11/2026 23:59:50\n";
  if (dice.Chance(50)) text += "register speed instant\n";
  const std::string first = FaultLines(ticket, dice);
  text += first + FaultLines(ticket, dice);
  return text + ticket.scenario;
}

}  // namespace orvenza
