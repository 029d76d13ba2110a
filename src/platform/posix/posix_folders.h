#pragma once

#include "platform/folders.h"

namespace orvenza {

/// The folders of a POSIX system. A listing shows only regular files and folders (links count as their
/// targets), and no name that contains "\", since no path of the program could reach it. A file is read-only
/// when its owner may not write it and hidden when its name begins with a dot. The creation time is that of
/// the last status change.
class PosixFolders : public Folders {
 public:
  bool Exists(const std::string& path) const override;
  FolderListing ListFolder(const std::string& pattern) const override;
  void RemoveUnfinished(const std::string& folder) override;
  void Create(const std::string& path) override;
  void Rename(const std::string& from, const std::string& to) override;
  std::string DriveOf(const std::string& path) const override;
  bool DriveAvailable(const std::string& path) const override;
};

}  // namespace orvenza
