#pragma once

#include "platform/folders.h"

namespace orvenza {

/// The folders of Windows. Names match a mask by their long form alone. File times become local time by the
/// offset of today, as the system's own conversion has it.
class WindowsFolders : public Folders {
 public:
  WindowsFolders();

  bool Exists(const std::string& path) const override;
  FolderListing ListFolder(const std::string& pattern) const override;
  void RemoveUnfinished(const std::string& folder) override;
  void Create(const std::string& path) override;
  void Rename(const std::string& from, const std::string& to) override;
  std::string DriveOf(const std::string& path) const override;
  bool DriveAvailable(const std::string& path) const override;
};

}  // namespace orvenza
