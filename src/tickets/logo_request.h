#pragma once

#include <string>
#include <string_view>

#include "tickets/record.h"

namespace orvenza {

/// The translation of a valid logo record: not a command but a logo to download.
inline constexpr std::string_view kLogoMarker = "BMP";

/// The content of a logo record.
struct LogoRequest {
  /// The number in F1, rounded (halves up), in the form that the download sends: two digits, more above 99,
  /// "00" if F1 does not begin with a number.
  std::string number;
  std::string path;  ///< F2, with "\" as separator.
};
LogoRequest LogoRequestOf(const RecordFields& fields);

}  // namespace orvenza
