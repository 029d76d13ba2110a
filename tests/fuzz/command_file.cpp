// The host's command file. Property: the program is asked to end if and only if the first line is "QUIT", in
// any letter case, or empty.

#include <algorithm>
#include <string>

#include "memory_shop.h"
#include "targets.h"
#include "tickets/command_file.h"

namespace orvenza::fuzz {
namespace {

/// A longer first line is not a command.
constexpr std::size_t kLongestLine = 64 * 1024;

bool SaysQuit(std::string_view input) {
  std::string_view line = input.substr(0, input.find_first_of("\r\n"));
  if (line.size() >= kLongestLine) return false;
  while (line.starts_with(' ')) line.remove_prefix(1);
  while (line.ends_with(' ')) line.remove_suffix(1);
  constexpr std::string_view kQuit = "quit";
  return line.empty() ||
         (line.size() == kQuit.size() &&
          std::equal(line.begin(), line.end(), kQuit.begin(), [](char c, char q) { return (c | 32) == q; }));
}

}  // namespace

void FuzzCommandFile(std::string_view input) {
  MemoryShop shop;
  shop.disk.Put("C:\\command.txt", std::string(input));
  Require(AsksToQuit(shop.disk.FileSeam(), "C:\\command.txt") == SaysQuit(input),
          "only QUIT or an empty first line asks to quit");
}

}  // namespace orvenza::fuzz
