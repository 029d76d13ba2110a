#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "ui/operator.h"

namespace orvenza {

/// What the terminal shows of a dialog: the framed box, and the line below that says how to answer it. Both
/// end in a line feed, the prompt in ")" and a line feed.
struct Block {
  std::string box;
  std::string prompt;
};

Block DrawMessage(const MessageContent& content);

Block DrawChoice(const ChoiceContent& content);

/// The overview of the five lists with their entries `selected` (indices from 0, -1 none).
Block DrawPortSettings(const PortContent& content, const std::array<int, 5>& selected);

/// The entries of the list at index `list`, `selected` marked.
Block DrawPortList(const PortContent& content, std::size_t list, int selected);

Block DrawUtilities(const UtilitiesContent& content);

Block DrawMenu();

}  // namespace orvenza
