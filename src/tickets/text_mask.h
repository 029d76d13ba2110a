#pragma once

#include <string>
#include <string_view>

namespace orvenza {

/// `bytes` with every letter as "x" or "X" and every digit as "9"; a byte outside ASCII counts as a small
/// letter. Blanks, punctuation and control characters stay, so that the shape can still be seen.
std::string MaskAll(std::string_view bytes);

/// A ticket line (without its line end) in which nobody can read what was bought, by whom: the record type,
/// the separators and the fields that its type takes for numbers, amounts and choices stay, all others are
/// masked. So is such a field where it holds more than a number, and the whole line where no field or no
/// known type is found. Same length as `line`.
std::string MaskTexts(std::string_view line, char separator);

/// The same for all lines of a ticket's content; line ends stay as they are.
std::string MaskTicketTexts(std::string_view content, char separator);

}  // namespace orvenza
