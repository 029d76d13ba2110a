#pragma once

#include <optional>
#include <string_view>

namespace orvenza {

/// The parameters of the serial line in the link control's form.
struct SerialSettings {
  int speed = 0;   ///< Bits per second.
  int parity = 0;  ///< N 0, O 1, E 2, M 3, S 4; 0 for any other letter.
  int dataBits = 0;
  int stopBits = 0;

  bool operator==(const SerialSettings&) const = default;
};

/// Parses line settings such as "19200,O,7,1", in UTF-8. Parity, data bits and stop bits are single
/// characters at fixed distances from the first comma. Empty when there is no comma.
[[nodiscard]] std::optional<SerialSettings> SplitSerialSettings(std::string_view text);

}  // namespace orvenza
