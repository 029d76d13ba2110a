#pragma once

#include <string>
#include <string_view>

namespace orvenza {

/// `bytes` with every letter replaced by "x" or "X" and every digit by "9"; a byte outside ASCII counts as a
/// small letter. Blanks, punctuation and control characters are kept, so that the structure remains visible.
std::string MaskAll(std::string_view bytes);

/// Masks a ticket line (without its line break), so that purchases and customers cannot be recognised. The
/// record type, the separators and the fields that the type uses for numbers, amounts and choices are kept;
/// all other fields are masked. So is such a field with more than a number, and the whole line if it has no
/// field or no known type. The length does not change.
std::string MaskTexts(std::string_view line, char separator);

/// The same for all lines of a ticket; line breaks are kept.
std::string MaskTicketTexts(std::string_view content, char separator);

/// The text of a log, with the quotations from tickets masked. Sets `masked` if there was one.
std::string MaskLog(const std::string& log, char separator, bool& masked);

}  // namespace orvenza
