#pragma once

#include <string>
#include <string_view>

namespace orvenza {

/// One spelling of a folder's path, to compare it with others: capitals, a "\" behind each level, no empty
/// level, no "." and no ".." behind a name. It begins with ".\" where it counts from the folder that the
/// program is started in. A link, and another drive letter for the same place, stay other texts.
[[nodiscard]] std::string NormalisedFolder(const std::string& folder);

/// The last level of a path: everything after its last "\".
std::string FileNameOf(std::string_view path);

}  // namespace orvenza
