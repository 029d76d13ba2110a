#include "platform/folders.h"

#include <algorithm>

namespace orvenza {

std::string SettingsPath(std::string text) {
  std::replace(text.begin(), text.end(), '/', '\\');
  return text;
}

}  // namespace orvenza
