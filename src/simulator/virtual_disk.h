#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/clock.h"
#include "platform/files.h"
#include "platform/folders.h"

namespace orvenza {

/// How another program has opened a file.
enum class FileHold {
  kNone,
  kReading,  ///< For reading: the file can be read, but not written, moved or removed.
  kWriting,  ///< For writing: no access for others.
};

/// The operations that an observer of the disk receives.
enum class DiskAct {
  kWritten,
  kAppended,  ///< `text` was appended.
  kCopied,    ///< `path` to `target`.
  kMoved,     ///< `path` to `target`.
  kRemoved,
  kAttributesCleared,
  kFolderMade,
  kFolderRenamed,  ///< `path` to `target`.
};

/// An operation of the program that changed more than a file's time, reported afterwards. The views are valid
/// during the call only.
struct DiskEvent {
  DiskAct act;
  std::string_view path;  ///< As the program wrote it.
  std::string_view target = {};
  std::string_view text = {};
};

/// A PC's disk in memory, on the time of a clock. It behaves like the operating system's: letter case in
/// names (a to z) is ignored, and failures have the numbers of the real disk.
///
/// Paths begin with a drive letter; others are relative to the current folder, and ".." goes up a level. The
/// program uses the interfaces; all other operations act for the outside world: they are not reported to the
/// observer, and neither the read-only attribute nor a full disk stops them.
class VirtualDisk {
 public:
  /// Drive "C:" exists from the start. `clock` gives new files their times and must outlive the disk.
  explicit VirtualDisk(const Clock& clock, std::string currentFolder = "C:");
  ~VirtualDisk();
  VirtualDisk(const VirtualDisk&) = delete;
  VirtualDisk& operator=(const VirtualDisk&) = delete;

  Files& FileSeam() { return *files_; }
  Folders& FolderSeam() { return *folders_; }

  using Observer = std::function<void(const DiskEvent&)>;
  void SetObserver(Observer observer) { observer_ = std::move(observer); }

  /// Creates or replaces a file, with its drive and folders. Without `modified` it is dated now. Throws
  /// SystemError 70 when a program holds the old file, 75 when a folder is in the way or a file where a
  /// folder is needed, 76 when the drive is removed.
  void Put(const std::string& path, std::string content, std::optional<LocalTime> modified = {});

  /// Creates a folder with its drive and parents. Throws SystemError 75 or 76 like Put.
  void MakeFolder(const std::string& path);

  /// Removes a file, or a folder with its content. Throws SystemError 53 or 76 when it does not exist, as the
  /// next two do for a file, and 70 when a program holds a file to be removed.
  void Delete(const std::string& path);

  void SetReadOnly(const std::string& path, bool readOnly = true);
  void Hold(const std::string& path, FileHold hold);

  /// Sets whether a drive ("C:") is full.
  void SetFull(const std::string& drive, bool full);

  /// Removes a drive with its content, or brings it back.
  void SetAway(const std::string& drive, bool away);

  /// Empty when there is no such file.
  std::optional<std::string> Content(const std::string& path) const;

  /// The paths of all files in alphabetical order.
  std::vector<std::string> Paths() const;

 private:
  class FilesOfDisk;
  class FoldersOfDisk;
  struct Node {
    std::string name;
    bool isFolder = false;
    bool readOnly = false;
    FileHold hold = FileHold::kNone;
    std::string content;
    LocalTime created;
    LocalTime modified;
  };

  /// An absolute path, and the key of its node.
  struct Spelling {
    std::string whole;
    std::string key;
  };

  static bool HasDrive(std::string_view path);
  static bool IsWellFormed(std::string_view path);
  static std::string ParentOf(const std::string& key);
  static std::string_view DriveIn(std::string_view key) { return key.substr(0, 2); }

  std::unique_ptr<Files> MakeFileSeam();
  std::unique_ptr<Folders> MakeFolderSeam();

  const Spelling* SpellingOf(const std::string& path) const;
  const std::string& KeyOf(const std::string& path) const;
  const std::string& Spelled(const std::string& path) const;
  std::string SpelledOut(const std::string& path) const;
  bool IsAway(const std::string& key) const { return away_.contains(DriveIn(key)); }
  bool IsFull(const std::string& key) const { return full_.contains(DriveIn(key)); }
  Node* Find(const std::string& path);
  bool FolderExists(const std::string& key) const;

  Node& NodeAt(const std::string& path);
  Node& FileAt(const std::string& path);
  Node& Readable(const std::string& path);
  Node& Place(const std::string& path, const std::string& blame);
  Node& Make(const std::string& key, std::string_view whole, bool isFolder);
  void Tell(const DiskEvent& event) const;

  const Clock& clock_;
  std::string currentFolder_;
  std::map<std::string, Node> nodes_;        ///< By path in capitals, without a trailing "\".
  std::set<std::string, std::less<>> away_;  ///< Removed drives, in capitals.
  std::set<std::string, std::less<>> full_;
  /// A cache: a program uses the same few paths again and again.
  mutable std::unordered_map<std::string, Spelling> spellings_;
  Observer observer_;
  std::unique_ptr<Files> files_;
  std::unique_ptr<Folders> folders_;
};

}  // namespace orvenza
