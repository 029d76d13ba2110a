#include <iterator>
#include <utility>

#include "core/folder_path.h"
#include "platform/files.h"
#include "platform/name_mask.h"
#include "platform/system_error.h"
#include "simulator/virtual_disk.h"

namespace orvenza {

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
    const std::string& folder = disk_.KeyOf(path.empty() ? "." : path);
    if (!disk_.FolderExists(folder)) throw SystemError(error_number::kPathNotFound, path);
    const std::string prefix = folder + "\\";
    FolderListing listing;
    for (auto at = disk_.nodes_.lower_bound(prefix);
         at != disk_.nodes_.end() && at->first.starts_with(prefix); ++at) {
      const Node& node = at->second;
      if (IsDeeper(*at, prefix) || node.name.ends_with(kUnfinishedSuffix)) continue;
      if (MatchesMask(node.name, pattern.substr(maskAt))) listing.push_back(EntryOf(node));
    }
    return listing;
  }

  void RemoveUnfinished(const std::string& folder) override {
    if (!IsWellFormed(folder) || disk_.IsAway(disk_.KeyOf(folder))) return;
    const std::string prefix = disk_.KeyOf(folder) + "\\";
    const auto isLeft = [&](const auto& entry) {
      const Node& node = entry.second;
      return !IsDeeper(entry, prefix) && !node.isFolder && node.hold == FileHold::kNone &&
             node.name.ends_with(kUnfinishedSuffix);
    };
    for (auto at = disk_.nodes_.lower_bound(prefix);
         at != disk_.nodes_.end() && at->first.starts_with(prefix);) {
      const std::string path = isLeft(*at) ? folder + at->second.name : std::string();
      at = path.empty() ? std::next(at) : disk_.nodes_.erase(at);
      if (!path.empty()) disk_.Tell({DiskAct::kRemoved, path});
    }
  }

  void Create(const std::string& path) override {
    const std::string& key = disk_.KeyOf(path);
    if (disk_.Find(path) != nullptr) throw SystemError(error_number::kFileExists, path);
    if (!disk_.FolderExists(ParentOf(key))) throw SystemError(error_number::kPathNotFound, path);
    if (disk_.IsFull(key)) throw SystemError(error_number::kDiskFull, path);
    disk_.Make(key, disk_.Spelled(path), true);
    disk_.Tell({DiskAct::kFolderMade, path});
  }

  void Rename(const std::string& from, const std::string& to) override {
    const std::string& source = disk_.KeyOf(from);
    const std::string& target = disk_.KeyOf(to);
    if (!Exists(from)) throw SystemError(error_number::kPathNotFound, from);
    if (disk_.Find(to) != nullptr && source != target) throw SystemError(error_number::kFileExists, to);
    if (!disk_.FolderExists(ParentOf(target))) throw SystemError(error_number::kPathNotFound, from);
    const bool isDrive = source.size() == 2;
    const bool intoItself = target.starts_with(source + "\\");
    if (isDrive || intoItself || source.substr(0, 2) != target.substr(0, 2)) {
      throw SystemError(error_number::kPathFileAccess, from);
    }
    auto nodes = TakeOut(source, from);
    nodes.front().second.name = FileNameOf(disk_.Spelled(to));
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
  /// Whether an entry below the folder `prefix` is in a subfolder of it.
  static bool IsDeeper(const std::pair<const std::string, Node>& entry, const std::string& prefix) {
    return entry.first.find('\\', prefix.size()) != std::string::npos;
  }
  static FolderEntry EntryOf(const Node& node) {
    return {node.name,     node.content.size(), node.created,
            node.modified, node.modified,       node.readOnly ? " R    " : "      ",
            node.isFolder};
  }

  /// Takes a folder with its content off the disk, the folder first; throws when a file in it is held.
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

std::unique_ptr<Folders> VirtualDisk::MakeFolderSeam() { return std::make_unique<FoldersOfDisk>(*this); }

}  // namespace orvenza
