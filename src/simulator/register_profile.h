#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace orvenza {

/// Characters of the model label and of the release text in the identity reply.
inline constexpr std::size_t kIdentityWidth = 10;

/// What kind of register is simulated.
struct RegisterProfile {
  std::string model = "ORVSIM  01";    ///< kIdentityWidth characters.
  std::string release = "  01.00.00";  ///< kIdentityWidth characters.
  std::size_t receiptCapacity = 200;   ///< Entries (items, texts, discounts) a receipt holds, at least 1.
  std::size_t rollLines = 0;           ///< Lines on a roll of receipt paper; 0: it never ends.
  std::chrono::seconds
      clockAhead{};  ///< How far its clock is ahead of the PC's at the start; may be negative.
};

/// The two papers, by the error codes that report their end.
enum class Paper { kJournal = 1, kReceipt = 2 };

}  // namespace orvenza
