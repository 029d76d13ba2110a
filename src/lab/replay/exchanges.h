#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "lab/replay/trace_events.h"

namespace orvenza {

/// A command and what came of it.
struct Exchange {
  std::string command;               ///< In the register's encoding, with masked texts.
  std::chrono::milliseconds sent{};  ///< TracedEvent::passed.
  TraceTime wall;                    ///< What the PC's clock showed.
  int speed = 0;                     ///< Speed of the line in bits per second.
  std::optional<std::string> reply;  ///< The text of the reply; empty: none came.
  int linkError = 0;                 ///< The link error in its place; 0: none.
  std::chrono::milliseconds
      ended{};               ///< When it came; without a reply, when the port was closed or all ended.
  std::size_t event = 0;     ///< Number of the event in which it was sent.
  bool saidPrinted = false;  ///< The operator has said that the receipt was printed.
  bool cut = false;          ///< Without a reply: the port was closed, or all ended, while one could come.
};

/// The exchanges that begin in the events from `first` to before `end`.
std::vector<Exchange> ReadExchanges(const std::vector<TracedEvent>& events, std::size_t first,
                                    std::size_t end);

/// How long the characters of a command and its reply take on the line.
std::chrono::milliseconds LineTime(std::size_t characters, int speed);

}  // namespace orvenza
