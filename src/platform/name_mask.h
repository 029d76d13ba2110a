#pragma once

#include <string_view>

namespace orvenza {

/// Whether a file name matches a mask: "*" matches any characters, "?" exactly one, "*.*" every name, with or
/// without a dot. The case of the letters a to z is ignored. An empty mask matches nothing.
bool MatchesMask(std::string_view name, std::string_view mask);

}  // namespace orvenza
