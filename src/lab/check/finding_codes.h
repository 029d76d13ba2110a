#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace orvenza {

/// A kind of finding.
struct FindingCode {
  std::string_view code;
  bool isError = false;  ///< The connector rejects the line; otherwise a warning.
  std::string_view meaning;
};

/// All kinds of findings, in the order of docs/ticket-check.md.
std::span<const FindingCode> FindingCodes();

/// The place of `code` among them. Throws std::logic_error if it is not there.
std::size_t PlaceOfCode(std::string_view code);

}  // namespace orvenza
