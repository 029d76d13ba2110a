#include "device/serial_settings.h"

#include "core/text.h"

namespace orvenza {
namespace {

int ParityCode(std::string_view letter) {
  const std::size_t code = std::string_view("NOEMS").find(ToUpperAscii(letter));
  return letter.empty() || code == std::string_view::npos ? 0 : static_cast<int>(code);
}

}  // namespace

std::optional<SerialSettings> SplitSerialSettings(std::string_view text) {
  const std::size_t comma = text.find(',');
  if (comma == std::string_view::npos) return std::nullopt;
  const auto after = [&](std::size_t distance) { return Middle(text, comma + 1 + distance, 1); };
  return SerialSettings{LeadingInteger(text.substr(0, comma)), ParityCode(after(1)), LeadingInteger(after(3)),
                        LeadingInteger(after(5))};
}

}  // namespace orvenza
