#include "platform/files.h"

#include <algorithm>

#include "platform/system_error.h"

namespace orvenza {
namespace {

/// Size of the first read; later ones double the buffer. Most files are small.
constexpr std::size_t kPiece = 4 * 1024;

}  // namespace

bool MayExist(const Files& files, const std::string& path) {
  try {
    return files.Exists(path);
  } catch (const SystemError&) {
    return true;
  }
}

std::string ReadWhole(const Files& files, const std::string& path, std::size_t limit) {
  std::string bytes;
  const auto reader = files.OpenForReading(path);
  for (std::size_t got = 1; got > 0 && bytes.size() < limit;) {
    const std::size_t filled = bytes.size();
    const std::size_t piece = std::min(std::max(kPiece, filled), limit - filled);
    bytes.resize(filled + piece);
    got = reader->Read(bytes.data() + filled, piece);
    bytes.resize(filled + got);
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
