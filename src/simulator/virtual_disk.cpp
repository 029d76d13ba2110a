#include "simulator/virtual_disk.h"

#include <algorithm>
#include <utility>

#include "core/folder_path.h"
#include "core/text.h"
#include "platform/system_error.h"

namespace orvenza {
namespace {

bool IsSeparator(char c) { return c == '\\' || c == '/'; }

/// Characters that names may not contain.
bool IsForbidden(char c) {
  switch (c) {
    case '<':
    case '>':
    case '"':
    case '|':
    case '?':
    case '*':
    case ':':
    case '\0': return true;
    default: return false;
  }
}

}  // namespace

bool VirtualDisk::HasDrive(std::string_view path) {
  const bool letter =
      !path.empty() && ((path[0] >= 'A' && path[0] <= 'Z') || (path[0] >= 'a' && path[0] <= 'z'));
  return letter && path.size() >= 2 && path[1] == ':';
}

std::string VirtualDisk::ParentOf(const std::string& key) {
  return key.substr(0, std::min(key.rfind('\\'), key.size()));
}

/// A colon may only follow the drive letter.
bool VirtualDisk::IsWellFormed(std::string_view path) {
  const std::string_view names = path.substr(HasDrive(path) ? 2 : 0);
  return !path.empty() && std::none_of(names.begin(), names.end(), IsForbidden);
}

VirtualDisk::VirtualDisk(const Clock& clock, std::string currentFolder)
    : clock_(clock),
      currentFolder_(std::move(currentFolder)),
      files_(MakeFileSeam()),
      folders_(MakeFolderSeam()) {
  MakeFolder("C:");
}

VirtualDisk::~VirtualDisk() = default;

void VirtualDisk::Put(const std::string& path, std::string content, std::optional<LocalTime> modified) {
  MakeFolder(ParentOf(Spelled(path)));
  const Node* const older = Find(path);
  if (older != nullptr && older->isFolder) throw SystemError(error_number::kPathFileAccess, path);
  if (older != nullptr && older->hold != FileHold::kNone) {
    throw SystemError(error_number::kPermissionDenied, path);
  }
  Node& node = Make(KeyOf(path), Spelled(path), false);
  node = {node.name, false, false, FileHold::kNone, std::move(content), clock_.Now(), {}};
  node.modified = modified.value_or(node.created);
}

void VirtualDisk::MakeFolder(const std::string& path) {
  const std::string& whole = Spelled(path);
  const std::string& key = KeyOf(path);
  if (IsAway(key)) throw SystemError(error_number::kPathNotFound, whole);
  for (std::size_t end = 0; end != std::string::npos;) {
    end = key.find('\\', end + 1);
    // What is above a file exists, so nothing has been created when this throws.
    const Node& level = Make(key.substr(0, end), whole.substr(0, end), true);
    if (!level.isFolder) throw SystemError(error_number::kPathFileAccess, whole);
  }
}

void VirtualDisk::Delete(const std::string& path) {
  NodeAt(path);
  const std::string& key = KeyOf(path);
  const auto goes = [&](const auto& entry) {
    return entry.first == key || entry.first.starts_with(key + "\\");
  };
  for (const auto& entry : nodes_) {
    if (goes(entry) && entry.second.hold != FileHold::kNone) {
      throw SystemError(error_number::kPermissionDenied, path);
    }
  }
  std::erase_if(nodes_, goes);
}

void VirtualDisk::SetReadOnly(const std::string& path, bool readOnly) { FileAt(path).readOnly = readOnly; }

void VirtualDisk::Hold(const std::string& path, FileHold hold) { FileAt(path).hold = hold; }

void VirtualDisk::SetFull(const std::string& drive, bool full) {
  if (full)
    full_.insert(ToUpperAscii(drive));
  else
    full_.erase(ToUpperAscii(drive));
}

void VirtualDisk::SetAway(const std::string& drive, bool away) {
  if (away)
    away_.insert(ToUpperAscii(drive));
  else
    away_.erase(ToUpperAscii(drive));
}

std::optional<std::string> VirtualDisk::Content(const std::string& path) const {
  const auto found = nodes_.find(KeyOf(path));
  if (found == nodes_.end() || found->second.isFolder) return std::nullopt;
  return found->second.content;
}

std::vector<std::string> VirtualDisk::Paths() const {
  std::vector<std::string> paths;
  for (const auto& [key, node] : nodes_) {
    if (node.isFolder) continue;
    std::string path = node.name;
    for (std::string up = ParentOf(key);; up = ParentOf(up)) {
      path.insert(0, nodes_.at(up).name + "\\");
      if (up.size() == 2) break;
    }
    paths.push_back(std::move(path));
  }
  return paths;
}

/// Null for a malformed path.
const VirtualDisk::Spelling* VirtualDisk::SpellingOf(const std::string& path) const {
  if (const auto known = spellings_.find(path); known != spellings_.end()) return &known->second;
  if (!IsWellFormed(path)) return nullptr;
  Spelling& spelling = spellings_[path];
  spelling.whole = SpelledOut(path);
  spelling.key = ToUpperAscii(spelling.whole);
  return &spelling;
}

const std::string& VirtualDisk::Spelled(const std::string& path) const {
  if (const Spelling* const spelling = SpellingOf(path)) return spelling->whole;
  throw SystemError(error_number::kBadFileName, path.c_str());
}

const std::string& VirtualDisk::KeyOf(const std::string& path) const {
  if (const Spelling* const spelling = SpellingOf(path)) return spelling->key;
  throw SystemError(error_number::kBadFileName, path.c_str());
}

/// The absolute path, with "\" as separator and none at its end. Like on a real disk, a drive has no parent.
std::string VirtualDisk::SpelledOut(const std::string& path) const {
  const bool fromRoot = path[0] == '\\' || path[0] == '/';
  std::string asked = path;
  if (!HasDrive(path)) asked.insert(0, fromRoot ? currentFolder_.substr(0, 2) : currentFolder_ + "\\");
  std::string whole;
  whole.reserve(asked.size());
  whole.append(asked, 0, 2);
  for (std::string_view rest = std::string_view(asked).substr(2); !rest.empty();) {
    const auto end = std::find_if(rest.begin(), rest.end(), IsSeparator);
    const std::string_view level = rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
    rest.remove_prefix(std::min(level.size() + 1, rest.size()));
    if (level == "..")
      whole = ParentOf(whole);
    else if (!level.empty() && level != ".")
      whole.append("\\").append(level);
  }
  return whole;
}

/// The node at a path; null when there is none or its drive is removed.
VirtualDisk::Node* VirtualDisk::Find(const std::string& path) {
  const Spelling* const spelling = SpellingOf(path);
  if (spelling == nullptr || IsAway(spelling->key)) return nullptr;
  const auto found = nodes_.find(spelling->key);
  return found == nodes_.end() ? nullptr : &found->second;
}

bool VirtualDisk::FolderExists(const std::string& key) const {
  const auto found = nodes_.find(key);
  return found != nodes_.end() && found->second.isFolder && !IsAway(key);
}

VirtualDisk::Node& VirtualDisk::NodeAt(const std::string& path) {
  if (Node* const node = Find(path)) return *node;
  const bool inFolder = FolderExists(ParentOf(KeyOf(path)));
  throw SystemError(inFolder ? error_number::kFileNotFound : error_number::kPathNotFound, path);
}

VirtualDisk::Node& VirtualDisk::FileAt(const std::string& path) {
  Node& node = NodeAt(path);
  if (node.isFolder) throw SystemError(error_number::kPathFileAccess, path);
  return node;
}

VirtualDisk::Node& VirtualDisk::Readable(const std::string& path) {
  Node& node = FileAt(path);
  if (node.hold == FileHold::kWriting) throw SystemError(error_number::kPermissionDenied, path);
  return node;
}

/// The file to write or replace, created when missing. Errors are reported for `blame`.
VirtualDisk::Node& VirtualDisk::Place(const std::string& path, const std::string& blame) {
  if (!FolderExists(ParentOf(KeyOf(path)))) throw SystemError(error_number::kPathNotFound, path);
  const Node* const older = Find(path);
  if (older != nullptr && (older->isFolder || older->readOnly || older->hold != FileHold::kNone)) {
    throw SystemError(error_number::kPathFileAccess, blame);
  }
  return Make(KeyOf(path), Spelled(path), false);
}

/// The node at a key, created when missing. `whole` spells its path.
VirtualDisk::Node& VirtualDisk::Make(const std::string& key, std::string_view whole, bool isFolder) {
  const auto [at, isNew] = nodes_.try_emplace(key);
  Node& node = at->second;
  if (isNew) {
    node.name = FileNameOf(whole);
    node.isFolder = isFolder;
    node.created = node.modified = clock_.Now();
  }
  return node;
}

void VirtualDisk::Tell(const DiskEvent& event) const {
  if (observer_) observer_(event);
}

}  // namespace orvenza
