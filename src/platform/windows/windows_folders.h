#pragma once

#include "platform/folders.h"

namespace orvenza {

/// The folders of Windows. Only long names are matched. File times become local time with today's UTC offset,
/// as in the system's own conversion.
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
