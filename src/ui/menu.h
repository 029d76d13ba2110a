#pragma once

#include <array>
#include <string>

namespace orvenza {

/// The items of the icon's menu, in order, with a separator between any two.
enum class MenuItem { kExit, kUtilities, kInfo, kConfigure };

/// The captions of the items, in the order of MenuItem.
std::array<std::string, 4> MenuCaptions();

}  // namespace orvenza
