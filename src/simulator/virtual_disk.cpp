#include "simulator/virtual_disk.h"

#include <algorithm>
#include <utility>

#include "core/text.h"
#include "platform/name_mask.h"
#include "platform/system_error.h"

namespace orvenza {
namespace {

bool HasDrive(std::string_view path) { return path.size() >= 2 && path[1] == ':'; }

std::string ParentOf(const std::string& key) { return key.substr(0, std::min(key.rfind('\\'), key.size())); }

/// Characters that no name may hold; the colon stands behind the drive only.
bool IsWellFormed(std::string_view path) {
  constexpr std::string_view kForbidden("<>\"|?*:\0", 8);
  const std::string_view names = path.substr(HasDrive(path) ? 2 : 0);
  return !path.empty() && names.find_first_of(kForbidden) == std::string_view::npos;
}

class TextReader : public ByteReader {
 public:
  explicit TextReader(std::string text) : text_(std::move(text)) {}
  std::size_t Read(char* buffer, std::size_t capacity) override {
    const std::size_t count = text_.copy(buffer, capacity, read_);
    read_ += count;
    return count;
  }

 private:
  std::string text_;
  std::size_t read_ = 0;
};

}  // namespace

class VirtualDisk::FilesOfDisk : public Files {
 public:
  explicit FilesOfDisk(VirtualDisk& disk) : disk_(disk) {}

  bool Exists(const std::string& path) const override {
    const Node* const node = disk_.Find(path);
    return node != nullptr && !node->isFolder;
  }

  std::uintmax_t Size(const std::string& path) const override { return disk_.FileAt(path).content.size(); }

  std::unique_ptr<ByteReader> OpenForReading(const std::string& path) const override {
    return std::make_unique<TextReader>(disk_.Readable(path).content);
  }

  void Append(const std::string& path, std::string_view text) override {
    if (const Node* const node = disk_.Find(path)) {
      if (node->hold != FileHold::kNone) throw SystemError(error_number::kPermissionDenied, path);
    }
    if (disk_.IsFull(disk_.KeyOf(path))) throw SystemError(error_number::kDiskFull, path);
    Node& node = disk_.Place(path, path);
    node.content.append(text);
    node.modified = disk_.clock_.Now();
    disk_.Tell({DiskAct::kAppended, path, {}, text});
  }

  void Write(const std::string& path, std::string_view content) override {
    Store(path, std::string(content), disk_.clock_.Now());
    disk_.Tell({DiskAct::kWritten, path});
  }

  void Copy(const std::string& from, const std::string& to) override {
    const Node& source = disk_.Readable(from);
    Store(to, source.content, source.modified);
    disk_.Tell({DiskAct::kCopied, from, to});
  }

  void Move(const std::string& from, const std::string& to) override {
    Node moved = disk_.FileAt(from);
    const std::string key = disk_.KeyOf(from);
    if (moved.hold != FileHold::kNone) throw SystemError(error_number::kPermissionDenied, from);
    if (disk_.KeyOf(to).substr(0, 2) != key.substr(0, 2)) {
      throw SystemError(error_number::kPathFileAccess, from);
    }
    Node& target = disk_.Place(to, from);
    moved.name = disk_.Spelled(to).substr(disk_.Spelled(to).rfind('\\') + 1);
    target = std::move(moved);
    if (disk_.KeyOf(to) != key) disk_.nodes_.erase(key);
    disk_.Tell({DiskAct::kMoved, from, to});
  }

  void Remove(const std::string& path) override {
    const Node& node = disk_.FileAt(path);
    if (node.hold != FileHold::kNone) throw SystemError(error_number::kPermissionDenied, path);
    if (node.readOnly) throw SystemError(error_number::kPathFileAccess, path);
    disk_.nodes_.erase(disk_.KeyOf(path));
    disk_.Tell({DiskAct::kRemoved, path});
  }

  void ClearAttributes(const std::string& path) override {
    Node& node = disk_.FileAt(path);
    if (!std::exchange(node.readOnly, false)) return;
    disk_.Tell({DiskAct::kAttributesCleared, path});
  }

 private:
  /// A file that takes the place of an older one, whole or not at all.
  void Store(const std::string& path, std::string content, const LocalTime& modified) {
    if (disk_.IsFull(disk_.KeyOf(path))) throw SystemError(error_number::kDiskFull, path);
    const Node* const older = disk_.Find(path);
    if (older != nullptr && older->hold != FileHold::kNone) {
      throw SystemError(error_number::kPathFileAccess, path);
    }
    Node& node = disk_.Place(path, path);
    node.content = std::move(content);
    node.created = disk_.clock_.Now();
    node.modified = modified;
  }

  VirtualDisk& disk_;
};

class VirtualDisk::FoldersOfDisk : public Folders {
 public:
  explicit FoldersOfDisk(VirtualDisk& disk) : disk_(disk) {}

  bool Exists(const std::string& path) const override {
    const Node* const node = disk_.Find(path);
    return node != nullptr && node->isFolder;
  }

  FolderListing ListFolder(const std::string& pattern) const override {
    if (pattern.empty()) throw SystemError(error_number::kBadFileName);
    const std::size_t maskAt = pattern.find_last_of("\\/") + 1;  // npos + 1 is 0: the current folder.
    const std::string path = pattern.substr(0, maskAt);
    const std::string folder = disk_.KeyOf(path.empty() ? "." : path);
    if (!disk_.FolderExists(folder)) throw SystemError(error_number::kPathNotFound, path);
    const std::string prefix = folder + "\\";
    FolderListing listing;
    for (auto at = disk_.nodes_.lower_bound(prefix);
         at != disk_.nodes_.end() && at->first.starts_with(prefix); ++at) {
      const Node& node = at->second;
      const bool deeper = at->first.find('\\', prefix.size()) != std::string::npos;
      if (!deeper && MatchesMask(node.name, pattern.substr(maskAt))) listing.push_back(EntryOf(node));
    }
    return listing;
  }

  void Create(const std::string& path) override {
    const std::string key = disk_.KeyOf(path);
    if (disk_.Find(path) != nullptr) throw SystemError(error_number::kFileExists, path);
    if (!disk_.FolderExists(ParentOf(key))) throw SystemError(error_number::kPathNotFound, path);
    if (disk_.IsFull(key)) throw SystemError(error_number::kDiskFull, path);
    disk_.Make(path, true);
    disk_.Tell({DiskAct::kFolderMade, path});
  }

  void Rename(const std::string& from, const std::string& to) override {
    const std::string source = disk_.KeyOf(from);
    const std::string target = disk_.KeyOf(to);
    if (!Exists(from)) throw SystemError(error_number::kPathNotFound, from);
    if (disk_.Find(to) != nullptr && source != target) throw SystemError(error_number::kFileExists, to);
    if (!disk_.FolderExists(ParentOf(target))) throw SystemError(error_number::kPathNotFound, from);
    if (source.substr(0, 2) != target.substr(0, 2)) throw SystemError(error_number::kPathFileAccess, from);
    auto nodes = TakeOut(source, from);
    nodes.front().second.name = disk_.Spelled(to).substr(disk_.Spelled(to).rfind('\\') + 1);
    for (auto& [key, node] : nodes) disk_.nodes_[target + key.substr(source.size())] = std::move(node);
    disk_.Tell({DiskAct::kFolderRenamed, from, to});
  }

  std::string DriveOf(const std::string& path) const override {
    return HasDrive(path) ? path.substr(0, 2) : std::string();
  }

  bool DriveAvailable(const std::string& path) const override {
    return !HasDrive(path) || disk_.Find(path.substr(0, 2)) != nullptr;
  }

 private:
  static FolderEntry EntryOf(const Node& node) {
    return {node.name,     node.content.size(), node.created,
            node.modified, node.modified,       node.readOnly ? " R    " : "      ",
            node.isFolder};
  }

  /// Takes a folder with all that is in it off the disk, itself first; fails when a file in it is held.
  std::vector<std::pair<std::string, Node>> TakeOut(const std::string& folder, const std::string& path) {
    std::vector<std::pair<std::string, Node>> nodes{{folder, disk_.nodes_[folder]}};
    for (const auto& [key, node] : disk_.nodes_) {
      if (!key.starts_with(folder + "\\")) continue;
      if (node.hold != FileHold::kNone) throw SystemError(error_number::kPathFileAccess, path);
      nodes.emplace_back(key, node);
    }
    for (const auto& [key, node] : nodes) disk_.nodes_.erase(key);
    return nodes;
  }

  VirtualDisk& disk_;
};

VirtualDisk::VirtualDisk(const Clock& clock, std::string currentFolder)
    : clock_(clock),
      currentFolder_(std::move(currentFolder)),
      files_(std::make_unique<FilesOfDisk>(*this)),
      folders_(std::make_unique<FoldersOfDisk>(*this)) {
  MakeFolder("C:");
}

VirtualDisk::~VirtualDisk() = default;

void VirtualDisk::Put(const std::string& path, std::string content, std::optional<LocalTime> modified) {
  MakeFolder(ParentOf(Spelled(path)));
  Node& node = Make(path, false);
  node = {node.name, false, false, FileHold::kNone, std::move(content), clock_.Now(), {}};
  node.modified = modified.value_or(node.created);
}

void VirtualDisk::MakeFolder(const std::string& path) {
  const std::string whole = Spelled(path);
  for (std::size_t end = 0; end != std::string::npos;) {
    end = whole.find('\\', end + 1);
    if (!FolderExists(ToUpperAscii(whole.substr(0, end)))) Make(whole.substr(0, end), true);
  }
}

void VirtualDisk::Delete(const std::string& path) {
  const std::string key = KeyOf(path);
  std::erase_if(nodes_,
                [&](const auto& entry) { return entry.first == key || entry.first.starts_with(key + "\\"); });
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

/// The whole path, "\" between its levels and none at its end.
std::string VirtualDisk::Spelled(const std::string& path) const {
  if (!IsWellFormed(path)) throw SystemError(error_number::kBadFileName, path.c_str());
  std::string whole;
  const auto add = [&whole](char c) {
    const char separator = c == '/' ? '\\' : c;
    if (separator != '\\' || !whole.ends_with('\\')) whole += separator;
  };
  if (!HasDrive(path)) {
    const bool fromRoot = path[0] == '\\' || path[0] == '/';
    for (const char c : fromRoot ? currentFolder_.substr(0, 2) : currentFolder_ + "\\") add(c);
  }
  for (const char c : path == "." ? std::string() : path) add(c);
  if (whole.ends_with('\\')) whole.pop_back();
  return whole;
}

std::string VirtualDisk::KeyOf(const std::string& path) const { return ToUpperAscii(Spelled(path)); }

/// What is at a path, null when there is nothing or its drive is away.
VirtualDisk::Node* VirtualDisk::Find(const std::string& path) {
  if (!IsWellFormed(path)) return nullptr;
  const std::string key = KeyOf(path);
  const auto found = nodes_.find(key);
  return found == nodes_.end() || IsAway(key) ? nullptr : &found->second;
}

bool VirtualDisk::FolderExists(const std::string& key) const {
  const auto found = nodes_.find(key);
  return found != nodes_.end() && found->second.isFolder && !IsAway(key);
}

VirtualDisk::Node& VirtualDisk::FileAt(const std::string& path) {
  const std::string key = KeyOf(path);
  Node* const node = Find(path);
  if (node == nullptr) {
    throw SystemError(FolderExists(ParentOf(key)) ? error_number::kFileNotFound : error_number::kPathNotFound,
                      path);
  }
  if (node->isFolder) throw SystemError(error_number::kPathFileAccess, path);
  return *node;
}

VirtualDisk::Node& VirtualDisk::Readable(const std::string& path) {
  Node& node = FileAt(path);
  if (node.hold == FileHold::kWriting) throw SystemError(error_number::kPermissionDenied, path);
  return node;
}

/// A file to be written or replaced, made when it is missing. One that may not be is blamed on `blame`.
VirtualDisk::Node& VirtualDisk::Place(const std::string& path, const std::string& blame) {
  const std::string key = KeyOf(path);
  if (!FolderExists(ParentOf(key))) throw SystemError(error_number::kPathNotFound, path);
  const Node* const older = Find(path);
  if (older != nullptr && (older->isFolder || older->readOnly || older->hold != FileHold::kNone)) {
    throw SystemError(error_number::kPathFileAccess, blame);
  }
  return Make(path, false);
}

VirtualDisk::Node& VirtualDisk::Make(const std::string& path, bool isFolder) {
  const std::string whole = Spelled(path);
  const auto [at, isNew] = nodes_.try_emplace(ToUpperAscii(whole));
  Node& node = at->second;
  if (isNew) {
    node.name = whole.substr(whole.rfind('\\') + 1);
    node.isFolder = isFolder;
    node.created = node.modified = clock_.Now();
  }
  return node;
}

void VirtualDisk::Tell(const DiskEvent& event) const {
  if (observer_) observer_(event);
}

}  // namespace orvenza
