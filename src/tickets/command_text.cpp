#include "tickets/command_text.h"

namespace orvenza {

std::string Join(std::initializer_list<std::string_view> parts, std::string_view tail) {
  std::size_t length = tail.size();
  for (const std::string_view part : parts) {
    if (part.empty()) return {};
    length += part.size();
  }
  std::string command;
  command.reserve(length);
  for (const std::string_view part : parts) command += part;
  return command += tail;
}

}  // namespace orvenza
