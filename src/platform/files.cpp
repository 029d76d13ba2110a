#include "platform/files.h"

#include <algorithm>
#include <array>

#include "platform/system_error.h"

namespace orvenza {

bool MayExist(const FileReader& files, const std::string& path) {
  try {
    return files.Exists(path);
  } catch (const SystemError&) {
    return true;
  }
}

std::string ReadWhole(const FileReader& files, const std::string& path, std::size_t limit) {
  const auto reader = files.OpenForReading(path);
  std::array<char, 16 * 1024> piece;
  std::string bytes;
  while (bytes.size() < limit) {
    const std::size_t got = reader->Read(piece.data(), std::min(piece.size(), limit - bytes.size()));
    if (got == 0) break;
    bytes.append(piece.data(), got);
  }
  return bytes;
}

bool MoveOrCopy(Files& files, const std::string& from, const std::string& to) {
  try {
    files.Move(from, to);
    return true;
  } catch (const SystemError&) {
    files.Copy(from, to);
    return false;
  }
}

void RemoveReadOnlyToo(Files& files, const std::string& path) {
  try {
    files.ClearAttributes(path);
  } catch (const SystemError&) {
    // Only another user may be allowed to clear the attributes. The file may be removable all the same.
  }
  files.Remove(path);
}

}  // namespace orvenza
