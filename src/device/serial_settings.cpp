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
  const std::string_view line = text.substr(comma + 1);
  const auto behind = [&](std::size_t characters) {
    return FirstCharacters(line.substr(FirstCharacters(line, characters).size()), 1);
  };
  return SerialSettings{LeadingInteger(text.substr(0, comma)), ParityCode(behind(0)),
                        LeadingInteger(behind(2)), LeadingInteger(behind(4))};
}

}  // namespace orvenza
