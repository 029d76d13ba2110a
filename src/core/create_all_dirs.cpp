#include "core/create_all_dirs.h"

namespace orvenza {

void MakeAllDirs(Folders& folders, const std::string& path) {
  const std::string whole = path.ends_with('\\') ? path : path + "\\";
  for (std::size_t end = whole.find('\\', folders.DriveOf(path).size()); end != std::string::npos;
       end = whole.find('\\', end + 1)) {
    const std::string level = whole.substr(0, end);
    if (!level.empty() && !level.ends_with('\\') && !folders.Exists(level + "\\")) folders.Create(level);
  }
}

bool CreateAllDirs(Folders& folders, Logs& logs, const std::string& path) {
  const auto create = [&] {
    if (folders.Exists(path)) return true;
    MakeAllDirs(folders, path);
    return folders.Exists(path);
  };
  return logs.Attempt("CreateAllDirs ", create).value_or(false);
}

}  // namespace orvenza
