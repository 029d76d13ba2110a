#pragma once

#include <string>
#include <vector>

#include "lab/table/dice.h"
#include "lab/table/slips.h"

namespace orvenza {

/// A ticket at which pairs of faults strike.
struct PairTicket {
  std::string scenario;               ///< As in TicketStep.
  std::string content;                ///< Content of its file.
  std::vector<Slip> expected;         ///< What it prints.
  std::vector<std::string> commands;  ///< The first four digits of what is sent for it, with repetitions.
};

/// The tickets of all steps, each once.
std::vector<PairTicket> PairTickets();

/// A scenario (docs/rehearsal.md) with AskInDoubt=1 in which two random faults strike the ticket. It has no
/// answers yet.
std::string PairScenario(const PairTicket& ticket, Dice& dice);

}  // namespace orvenza
