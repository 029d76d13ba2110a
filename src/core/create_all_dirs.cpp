#include "core/create_all_dirs.h"

namespace orvenza {

bool CreateAllDirs(Folders& folders, Logs& logs, const std::string& path) {
  bool exists = false;
  logs.Attempt("CreateAllDirs ", [&] {
    exists = folders.Exists(path);
    if (exists) return;
    const std::string whole = path.ends_with('\\') ? path : path + "\\";
    for (std::size_t end = whole.find('\\', folders.DriveOf(path).size()); end != std::string::npos;
         end = whole.find('\\', end + 1)) {
      const std::string level = whole.substr(0, end);
      if (!level.empty() && !level.ends_with('\\') && !folders.Exists(level + "\\")) folders.Create(level);
    }
    exists = folders.Exists(path);
  });
  return exists;
}

}  // namespace orvenza
