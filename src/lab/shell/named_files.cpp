#include "lab/shell/named_files.h"

#include <algorithm>

namespace orvenza {
namespace {

std::vector<std::string> FilesNamed(const std::string& word, const LabSurroundings& surroundings) {
  const std::size_t nameAt = word.find_last_of("\\/") + 1;  // npos + 1 is 0
  if (word.find_first_of("*?", nameAt) == std::string::npos || MayExist(surroundings.files, word))
    return {word};
  std::vector<std::string> found;
  const std::string folder = word.substr(0, nameAt);
  const std::string listed = folder.empty() ? ".\\" : SettingsPath(folder);
  if (!surroundings.folders.Exists(listed)) return {word};
  for (const FolderEntry& entry : surroundings.folders.ListFolder(listed + word.substr(nameAt))) {
    if (!entry.isFolder) found.push_back(folder + entry.name);
  }
  std::sort(found.begin(), found.end());
  return found.empty() ? std::vector{word} : found;
}

}  // namespace

std::vector<std::string> FilesNamed(const std::vector<std::string>& words,
                                    const LabSurroundings& surroundings) {
  std::vector<std::string> files;
  for (const std::string& word : words) {
    const auto meant = FilesNamed(word, surroundings);
    files.insert(files.end(), meant.begin(), meant.end());
  }
  return files;
}

}  // namespace orvenza
