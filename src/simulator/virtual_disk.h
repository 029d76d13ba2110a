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

/// What another program has opened a file for.
enum class FileHold {
  kNone,
  kReading,  ///< It reads: the file can be read, but neither written nor moved nor removed.
  kWriting,  ///< It writes: nobody else gets in.
};

/// What an observer of the disk is told.
enum class DiskAct {
  kWritten,
  kAppended,  ///< `text` is what was added.
  kCopied,    ///< `path` to `target`.
  kMoved,     ///< `path` to `target`.
  kRemoved,
  kAttributesCleared,
  kFolderMade,
  kFolderRenamed,  ///< `path` to `target`.
};

/// One operation of the program that changed more than a file's time, told once it is done. The views end
/// with the call.
struct DiskEvent {
  DiskAct act;
  std::string_view path;  ///< As the program spelled it.
  std::string_view target = {};
  std::string_view text = {};
};

/// A PC's disk in memory, on the time of a clock. It behaves as the operating system's would: letter case in
/// names (a to z) does not count, and what cannot be done fails with the number that the real disk gives.
///
/// Paths begin with a drive letter; one without is below the current folder, and ".." goes up a level. The
/// seams are for the program; all other operations are what somebody else does: no observer is told, and
/// neither the read-only mark nor a full disk is in their way.
class VirtualDisk {
 public:
  /// There is a drive "C:". `clock` gives new files their times and must outlive the disk.
  explicit VirtualDisk(const Clock& clock, std::string currentFolder = "C:");
  ~VirtualDisk();
  VirtualDisk(const VirtualDisk&) = delete;
  VirtualDisk& operator=(const VirtualDisk&) = delete;

  Files& FileSeam() { return *files_; }
  Folders& FolderSeam() { return *folders_; }

  using Observer = std::function<void(const DiskEvent&)>;
  void SetObserver(Observer observer) { observer_ = std::move(observer); }

  /// Makes a file, replacing an older one, with the drive and the folders it lies in. Without `modified` it
  /// is of this moment. Throws SystemError 70 when a program holds the older one, 75 when a folder is there
  /// or a file where a folder is to be, 76 when the drive is away.
  void Put(const std::string& path, std::string content, std::optional<LocalTime> modified = {});

  /// Makes a folder with the drive and the folders it lies in. Throws SystemError 75 or 76 as Put does.
  void MakeFolder(const std::string& path);

  /// Removes a file, or a folder with everything in it. Throws SystemError 53 or 76 when there is none, as
  /// the next two do for a file, and 70 when a program holds a file that is to go.
  void Delete(const std::string& path);

  void SetReadOnly(const std::string& path, bool readOnly = true);
  void Hold(const std::string& path, FileHold hold);

  /// Whether a drive ("C:") has room for anything more.
  void SetFull(const std::string& drive, bool full);

  /// Takes a drive away with all that is on it, or brings it back.
  void SetAway(const std::string& drive, bool away);

  /// Nothing when there is no such file.
  std::optional<std::string> Content(const std::string& path) const;

  /// The paths of all files, in the order of the alphabet.
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

  /// A path as it is spelled out, and the key of what lies there.
  struct Spelling {
    std::string whole;
    std::string key;
  };

  static bool HasDrive(std::string_view path);
  static bool IsWellFormed(std::string_view path);
  static std::string ParentOf(const std::string& key);

  std::unique_ptr<Files> MakeFileSeam();
  std::unique_ptr<Folders> MakeFolderSeam();

  const Spelling* SpellingOf(const std::string& path) const;
  const std::string& KeyOf(const std::string& path) const;
  const std::string& Spelled(const std::string& path) const;
  std::string SpelledOut(const std::string& path) const;
  bool IsAway(const std::string& key) const { return away_.contains(key.substr(0, 2)); }
  bool IsFull(const std::string& key) const { return full_.contains(key.substr(0, 2)); }
  Node* Find(const std::string& path);
  bool FolderExists(const std::string& key) const;

  Node& NodeAt(const std::string& path);
  Node& FileAt(const std::string& path);
  Node& Readable(const std::string& path);
  void WantFolders(const std::string& whole) const;
  Node& Place(const std::string& path, const std::string& blame);
  Node& Make(const std::string& path, bool isFolder);
  void Tell(const DiskEvent& event) const;

  const Clock& clock_;
  std::string currentFolder_;
  std::map<std::string, Node> nodes_;  ///< By their paths in capitals, without a "\" at the end.
  std::set<std::string> away_;         ///< Drives, in capitals.
  std::set<std::string> full_;
  /// By path: a program asks for the same few again and again.
  mutable std::unordered_map<std::string, Spelling> spellings_;
  Observer observer_;
  std::unique_ptr<Files> files_;
  std::unique_ptr<Folders> folders_;
};

}  // namespace orvenza
