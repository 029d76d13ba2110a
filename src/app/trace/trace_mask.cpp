#include "app/trace/trace_mask.h"

#include <cstdio>
#include <memory>

#include "core/text.h"
#include "simulator/command_fields.h"
#include "simulator/commands.h"
#include "tickets/line_reader.h"
#include "tickets/text_mask.h"

namespace orvenza {
namespace {

constexpr std::size_t kCode = 4;

/// One byte for each character.
std::string InWindows1252(std::string_view text) {
  std::string bytes;
  while (!text.empty()) {
    const std::string character = FirstCharacters(text, 1);
    bytes += FirstInWindows1252(character);
    text.remove_prefix(character.size());
  }
  return bytes;
}

bool IsHexDigit(char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f'); }

/// A line in the form of a scenario's content.
std::string Spelled(std::string_view line) {
  std::string text;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const auto byte = static_cast<unsigned char>(line[i]);
    const bool looksLikeNumber = line[i] == '<' && i + 1 < line.size() && IsHexDigit(line[i + 1]);
    if (byte >= 32 && byte != 127 && !looksLikeNumber) {
      text += FromWindows1252(line.substr(i, 1));
      continue;
    }
    char number[8];
    std::snprintf(number, sizeof number, "<%02X>", unsigned{byte});
    text += number;
  }
  return text;
}

}  // namespace

std::string MaskCommand(std::string_view command) {
  const std::string_view code = command.substr(0, kCode);
  const RegisterCommand* const known = FindRegisterCommand(code);
  std::string masked = std::string(code) + MaskAll(command.substr(code.size()));
  if (known == nullptr) return masked;
  // A logo's row is the shop's picture, not a text.
  if (known->effect == CommandEffect::kLogoRow) return std::string(command);
  std::vector<CommandFields::Span> values;
  CommandFields fields(command, &values);
  known->read(fields);
  for (const CommandFields::Span& value : values)
    masked.replace(value.at, value.count, command.substr(value.at, value.count));
  return masked;
}

std::string MaskQuotes(std::string_view text, char separator) {
  bool masked = false;
  const std::string all = MaskLog(InWindows1252(ToUtf8(text)), separator, masked);
  return masked ? FromWindows1252(all) : std::string(text);
}

std::vector<std::string> ContentLines(std::string_view content, const char* separator) {
  std::vector<std::string> lines;
  LineReader reader(std::make_unique<ViewBytes>(content));
  for (std::string line; reader.ReadLine(line);) {
    lines.push_back(Spelled(separator == nullptr ? line : MaskTexts(line, *separator)));
  }
  return lines;
}

}  // namespace orvenza
