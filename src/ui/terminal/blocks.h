#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "ui/operator.h"

namespace orvenza {

/// What the terminal shows of a dialog: the framed box, and the line below that says how to answer it. Both
/// end in a line feed, the prompt in ")" and a line feed. Boxes are drawn in `width` characters, see TextBox.
struct Block {
  std::string box;
  std::string prompt;
};

Block DrawMessage(const MessageContent& content, std::size_t width);

Block DrawChoice(const ChoiceContent& content, std::size_t width);

/// The overview of the five lists with their entries `selected` (indices from 0, -1 none).
Block DrawPortSettings(const PortContent& content, const std::array<int, 5>& selected, std::size_t width);

/// The entries of the list at index `list`, `selected` marked.
Block DrawPortList(const PortContent& content, std::size_t list, int selected, std::size_t width);

Block DrawUtilities(const UtilitiesContent& content, std::size_t width);

Block DrawMenu(std::size_t width);

/// Where the host puts tickets, `files` with their mask, and what closes each field of them.
std::string DescribeTickets(const std::string& files, char separator);

}  // namespace orvenza
