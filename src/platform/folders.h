#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/clock.h"

namespace orvenza {

/// One entry of a folder listing; times in local time.
struct FolderEntry {
  std::string name;
  std::uintmax_t size = 0;
  LocalTime created;
  LocalTime accessed;
  LocalTime modified;
  /// Six positions for Archive, Read-only, Hidden, System, Compressed, Temporary: the letter of "ARHSCT"
  /// where the attribute is set, a blank where it is not.
  std::string attributes;
  bool isFolder = false;
};

using FolderListing = std::vector<FolderEntry>;

/// The folder operations of the connector. Paths are UTF-8 texts with "\" between their levels, with or
/// without one at the end.
class Folders {
 public:
  virtual ~Folders() = default;

  /// True when `path` names an existing folder; false when the system says that there is none. A look that
  /// fails for another reason throws SystemError: the folder may be there.
  virtual bool Exists(const std::string& path) const = 0;

  /// The entries, "." and ".." left out, of the folder before the last "\" of `pattern` whose names match the
  /// mask after it: "*" and "?" as usual, "*.*" for every name, letter case ignored. In no particular order.
  /// Files still being written are not shown. Throws SystemError (76 for a missing folder).
  virtual FolderListing ListFolder(const std::string& pattern) const = 0;

  /// Removes from `folder`, whose path ends in "\", the files that ListFolder never shows: what a program
  /// that was cut short has left half written. Only for a folder in which no other instance writes. Never
  /// fails: what cannot be removed stays.
  virtual void RemoveUnfinished(const std::string& folder) = 0;

  /// Makes one level; its parent must exist. Throws SystemError.
  virtual void Create(const std::string& path) = 0;

  /// Renames a folder. Throws SystemError, with number 75 when it is in use or may not be renamed.
  virtual void Rename(const std::string& from, const std::string& to) = 0;

  /// The drive that `path` lies on, as an operator would name it ("C:", "\\server\share"); empty where paths
  /// have no drives.
  virtual std::string DriveOf(const std::string& path) const = 0;

  /// True when that drive can be used now. Never fails.
  virtual bool DriveAvailable(const std::string& path) const = 0;
};

/// Whether there is a folder, or may be one: a look that fails counts as a folder. Never fails.
bool MayExist(const Folders& folders, const std::string& path);

/// A folder or file path of the settings file with "\" between its levels, however the system's users write
/// it.
std::string SettingsPath(std::string text);

}  // namespace orvenza
