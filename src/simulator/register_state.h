#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "simulator/receipt.h"
#include "simulator/register_profile.h"

namespace orvenza {

/// All that the simulated register remembers from one command to the next.
struct RegisterState {
  std::optional<Receipt> receipt{};            ///< Empty while no receipt is open.
  bool documentOpen = false;                   ///< A non-fiscal document.
  std::map<std::int64_t, std::string> foot{};  ///< Lines for the end of the next receipt, by position.
  std::optional<Paper> paperOut{};
  bool commandHeld = false;  ///< A command was accepted after the paper ran out.
  std::vector<std::string> linesHeld{};
  std::size_t linesPrinted = 0;  ///< On this roll.
  /// Since the last fiscal closure: the sum in cents and the number of closed receipts.
  std::int64_t dailyTotal = 0;
  int dailyReceipts = 0;
  int fiscalClosures = 0;
  std::size_t logoRows = 0;
  std::chrono::seconds clockAhead{};  ///< How far its clock is ahead of the PC's.

  bool operator==(const RegisterState&) const = default;
};

}  // namespace orvenza
