#pragma once

#include <string>
#include <string_view>

namespace orvenza {

/// Normalises a folder's path for comparisons: capitals, a "\" after each level, no empty level, no "." and
/// no ".." after a name. A relative path begins with ".\". Links and several drive letters for the same place
/// are not resolved.
[[nodiscard]] std::string NormalisedFolder(const std::string& folder);

/// Whether `folder` is `parent` or below it, judged by their texts; nothing is in an empty `parent`.
[[nodiscard]] bool LiesIn(const std::string& folder, const std::string& parent);

/// The last level of a path: everything after its last "\".
std::string FileNameOf(std::string_view path);

}  // namespace orvenza
