#include "platform/folders.h"

#include <algorithm>

#include "platform/system_error.h"

namespace orvenza {

bool MayExist(const Folders& folders, const std::string& path) {
  try {
    return folders.Exists(path);
  } catch (const SystemError&) {
    return true;
  }
}

std::string SettingsPath(std::string text) {
  std::replace(text.begin(), text.end(), '/', '\\');
  return text;
}

}  // namespace orvenza
