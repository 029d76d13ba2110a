#include <utility>

#include "core/folder_path.h"
#include "core/text.h"
#include "platform/system_error.h"
#include "simulator/virtual_disk.h"

namespace orvenza {

class VirtualDisk::FilesOfDisk : public Files {
 public:
  explicit FilesOfDisk(VirtualDisk& disk) : disk_(disk) {}

  bool Exists(const std::string& path) const override {
    const Node* const node = disk_.Find(path);
    return node != nullptr && !node->isFolder;
  }

  std::uintmax_t Size(const std::string& path) const override { return disk_.FileAt(path).content.size(); }

  std::unique_ptr<ByteReader> OpenForReading(const std::string& path) const override {
    return std::make_unique<TextBytes>(disk_.Readable(path).content);
  }

  void Append(const std::string& path, std::string_view text) override {
    Node* const older = disk_.Find(path);
    if (older != nullptr && older->hold != FileHold::kNone) {
      throw SystemError(error_number::kPermissionDenied, path);
    }
    if (disk_.IsFull(disk_.KeyOf(path))) throw SystemError(error_number::kDiskFull, path);
    const bool writable = older != nullptr && !older->isFolder && !older->readOnly;
    Node& node = writable ? *older : disk_.Place(path, path);
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
    const std::string& key = disk_.KeyOf(from);
    if (moved.hold != FileHold::kNone) throw SystemError(error_number::kPermissionDenied, from);
    if (disk_.KeyOf(to).substr(0, 2) != key.substr(0, 2)) {
      throw SystemError(error_number::kPathFileAccess, from);
    }
    Node& target = disk_.Place(to, from);
    moved.name = FileNameOf(disk_.Spelled(to));
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

  void CopyModified(const std::string& from, const std::string& to) override {
    disk_.FileAt(to).modified = disk_.FileAt(from).modified;
  }

 private:
  /// Creates or replaces a file, all or nothing.
  void Store(const std::string& path, std::string content, const LocalTime& modified) {
    if (disk_.IsFull(disk_.KeyOf(path))) throw SystemError(error_number::kDiskFull, path);
    const Node* const older = disk_.Find(path);
    if (older != nullptr && older->hold != FileHold::kNone) {
      throw SystemError(error_number::kPathFileAccess, path);
    }
    Node& node = disk_.Place(path, path);
    // An unfinished file beside it is overwritten and renamed.
    disk_.nodes_.erase(disk_.KeyOf(path) + ToUpperAscii(kUnfinishedSuffix));
    node.content = std::move(content);
    node.created = disk_.clock_.Now();
    node.modified = modified;
  }

  VirtualDisk& disk_;
};

std::unique_ptr<Files> VirtualDisk::MakeFileSeam() { return std::make_unique<FilesOfDisk>(*this); }

}  // namespace orvenza
