#pragma once

#include <array>
#include <string>

namespace orvenza {

/// The icon's menu, in its order. A separator stands between any two items.
enum class MenuItem { kExit, kUtilities, kInfo, kConfigure };

/// The captions of the items, in the order of MenuItem.
std::array<std::string, 4> MenuCaptions();

}  // namespace orvenza
