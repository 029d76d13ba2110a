#include "lab/shell/output_file.h"

#include <stdexcept>
#include <string_view>

#include "core/text.h"

namespace orvenza {
namespace {

constexpr std::string_view kPageBegins = "<!DOCTYPE html>";

}  // namespace

void RequireOutput(const std::string& path, const std::vector<std::string>& sources,
                   const LabSurroundings& lab) {
  if (path == "-") throw UsageError("'-' is not an output; name a file");
  const std::size_t nameAt = path.find_last_of("\\/") + 1;  // npos + 1 is 0
  const std::string folder = nameAt == 0 ? "." : path.substr(0, nameAt);
  if (!lab.machine.MayWrite(folder)) {
    throw std::runtime_error(path + " cannot be written: its folder is missing or read-only");
  }
  // Windows ignores letter case; elsewhere a similar name is refused as well.
  const auto whole = [&](const std::string& file) { return ToUpperAscii(lab.machine.FullFolder(file)); };
  for (const std::string& source : sources) {
    if (whole(source) == whole(path)) throw UsageError("'" + path + "' is read and would be overwritten");
  }
}

void RequirePage(const std::string& path, const LabSurroundings& lab) {
  RequireOutput(path, {}, lab);
  if (!lab.files.Exists(path)) return;
  const std::string begins = ReadWhole(lab.files, path, kPageBegins.size());
  if (!begins.empty() && begins != kPageBegins) {
    throw std::runtime_error(path + " exists and is no HTML page");
  }
}

}  // namespace orvenza
