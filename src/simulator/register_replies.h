#pragma once

#include <string>
#include <string_view>

namespace orvenza {

/// The error codes of the simulated register.
namespace refusal {
inline constexpr std::string_view kJournalPaper = "01";
inline constexpr std::string_view kReceiptPaper = "02";
inline constexpr std::string_view kOutOfSequence = "11";
inline constexpr std::string_view kMalformed = "13";
inline constexpr std::string_view kUnknown = "16";
inline constexpr std::string_view kNotNow = "17";
inline constexpr std::string_view kTooLarge = "20";
inline constexpr std::string_view kFull = "23";
}  // namespace refusal

/// The reply that refuses a command.
inline std::string Refusal(std::string_view code) {
  std::string reply = "ERR" + std::string(code);
  // The connector recognises a full receipt by characters 6 and 7.
  if (code == refusal::kFull) reply += code;
  return reply;
}

/// The start of the reply to an executed command; the whole reply if it returns no data.
inline std::string Done(std::string_view code) { return std::string(code) + "00"; }

}  // namespace orvenza
