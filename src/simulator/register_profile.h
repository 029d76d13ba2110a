#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace orvenza {

/// Width of the model label and of the release text in the identity reply, in characters.
inline constexpr std::size_t kIdentityWidth = 10;

/// The configuration of the simulated register.
struct RegisterProfile {
  std::string model = "ORVSIM  01";    ///< kIdentityWidth characters.
  std::string release = "  01.00.00";  ///< kIdentityWidth characters.
  std::size_t receiptCapacity =
      200;  ///< Maximum number of entries (items, texts, discounts) in a receipt, at least 1.
  std::size_t rollLines = 0;  ///< Lines on a roll of receipt paper; 0: endless.
  std::chrono::seconds
      clockAhead{};  ///< How far its clock is ahead of the PC's at the start; may be negative.
};

/// The two papers. Each value is the error code that reports its end.
enum class Paper { kJournal = 1, kReceipt = 2 };

}  // namespace orvenza
