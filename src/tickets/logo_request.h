#pragma once

#include <string>
#include <string_view>

#include "tickets/record.h"

namespace orvenza {

/// The translation of a valid logo record: no command, but a logo to download.
inline constexpr std::string_view kLogoMarker = "BMP";

/// What a logo record asks for.
struct LogoRequest {
  /// The number in F1, a fraction rounded (a half up), as the download sends it: in two digits, "00" where F1
  /// begins with none, more digits above 99.
  std::string number;
  std::string path;  ///< F2, with "\" between its levels.
};
LogoRequest LogoRequestOf(const RecordFields& fields);

}  // namespace orvenza
