#pragma once

#include <string_view>

namespace orvenza {

/// True when a file name fits a mask: "*" stands for any characters, "?" for one, and "*.*" for every name,
/// with or without a point. The case of the letters a to z does not count. An empty mask fits no name.
bool MatchesMask(std::string_view name, std::string_view mask);

}  // namespace orvenza
