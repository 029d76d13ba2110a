#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "ui/operator.h"

namespace orvenza {

/// A dialog on the terminal: the framed box, and the prompt below that explains how to answer. The box ends
/// in a line feed, the prompt in ")" and a line feed. Boxes are `width` characters wide, see TextBox.
struct Block {
  std::string box;
  std::string prompt;
};

Block DrawMessage(const MessageContent& content, std::size_t width);

Block DrawChoice(const ChoiceContent& content, std::size_t width);

/// The overview of the five lists with their `selected` entries (indices from 0, -1 none).
Block DrawPortSettings(const PortContent& content, const std::array<int, 5>& selected, std::size_t width);

/// The entries of the list at index `list`, with `selected` marked.
Block DrawPortList(const PortContent& content, std::size_t list, int selected, std::size_t width);

Block DrawUtilities(const UtilitiesContent& content, std::size_t width);

Block DrawMenu(std::size_t width);

/// Explains where the host puts tickets (`files` includes the mask) and which separator ends a field.
std::string DescribeTickets(const std::string& files, char separator);

}  // namespace orvenza
