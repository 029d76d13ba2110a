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

/// The connector's folder operations. Paths are UTF-8 with "\" as separator, with or without one at the end.
class Folders {
 public:
  virtual ~Folders() = default;

  /// True when `path` names an existing folder; false when the system says that there is none. A check that
  /// fails for another reason throws SystemError: the folder may exist.
  virtual bool Exists(const std::string& path) const = 0;

  /// The entries except "." and ".." of the folder before the last "\" of `pattern` whose names match the
  /// mask after it. In the mask "*" and "?" are wildcards, "*.*" matches every name, and letter case is
  /// ignored. The order is undefined. Unfinished files are left out. Throws SystemError (76 for a missing
  /// folder).
  virtual FolderListing ListFolder(const std::string& pattern) const = 0;

  /// Removes from `folder`, whose path ends in "\", the unfinished files that an interrupted program left
  /// behind and that ListFolder never shows. Only for a folder in which no other instance writes. Never
  /// fails: what cannot be removed stays.
  virtual void RemoveUnfinished(const std::string& folder) = 0;

  /// Creates one level; its parent must exist. Throws SystemError.
  virtual void Create(const std::string& path) = 0;

  /// Renames a folder. Throws SystemError, with number 75 when the folder is in use or may not be renamed.
  virtual void Rename(const std::string& from, const std::string& to) = 0;

  /// The drive that holds `path`, as an operator would name it ("C:", "\\server\share"); empty where paths
  /// have no drives.
  virtual std::string DriveOf(const std::string& path) const = 0;

  /// Whether that drive is usable now. Never fails.
  virtual bool DriveAvailable(const std::string& path) const = 0;
};

/// Whether the folder exists or may exist: a failed check counts as a folder. Never fails.
[[nodiscard]] bool MayExist(const Folders& folders, const std::string& path);

/// A folder or file path from the settings file, its separators turned into "\".
[[nodiscard]] std::string SettingsPath(std::string text);

}  // namespace orvenza
