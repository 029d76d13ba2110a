#include "core/folder_path.h"

#include <algorithm>
#include <vector>

#include "core/text.h"
#include "platform/folders.h"

namespace orvenza {
namespace {

/// Levels that ".." cannot leave: the server and its share, or the drive.
std::size_t LevelsOfRoot(const std::string& path) {
  if (path.starts_with("\\\\") && !path.starts_with("\\\\\\")) return 2;
  return path.size() > 1 && path[1] == ':' ? 1 : 0;
}

}  // namespace

std::string NormalisedFolder(const std::string& folder) {
  const std::string path = ToUpperAscii(SettingsPath(folder));
  const std::size_t rootLevels = LevelsOfRoot(path);
  const bool relative = rootLevels == 0 && !path.starts_with('\\');
  std::vector<std::string_view> levels;
  levels.reserve(8);  // One allocation for a usual path.
  for (std::size_t at = 0; at < path.size();) {
    const std::size_t end = std::min(path.find('\\', at), path.size());
    const std::string_view level = std::string_view(path).substr(at, end - at);
    at = end + 1;
    if (level.empty() || level == ".") continue;
    const bool up = level == "..";
    if (up && levels.size() > rootLevels && levels.back() != "..") {
      levels.pop_back();
    } else if (!up || relative) {
      levels.push_back(level);
    }
  }
  std::string text = rootLevels == 2 ? "\\\\" : rootLevels == 1 ? "" : relative ? ".\\" : "\\";
  for (const std::string_view level : levels) text.append(level) += '\\';
  return text;
}

bool LiesIn(const std::string& folder, const std::string& parent) {
  return !parent.empty() && NormalisedFolder(folder).starts_with(NormalisedFolder(parent));
}

std::string FileNameOf(std::string_view path) { return std::string(path.substr(path.rfind('\\') + 1)); }

}  // namespace orvenza
