#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "core/folder_path.h"
#include "platform/folders.h"
#include "simulator/calendar.h"
#include "simulator/virtual_disk.h"

namespace orvenza::test {

/// The folder C:\shop of a virtual disk, seen from another program. Paths are relative to it.
class VirtualFolder {
 public:
  explicit VirtualFolder(VirtualDisk& disk) : disk_(disk) { disk_.MakeFolder(Path()); }

  std::string Path() const { return "C:\\shop"; }
  std::string Path(const std::string& relative) const { return Path() + "\\" + relative; }

  bool Has(const std::string& relative) const {
    return disk_.FileSeam().Exists(Path(relative)) || disk_.FolderSeam().Exists(Path(relative));
  }

  /// Content of a file; empty if it is missing.
  std::string Read(const std::string& relative) const { return disk_.Content(Path(relative)).value_or(""); }

  /// Names of the files in a folder, sorted; none if the folder is missing.
  std::vector<std::string> Names(const std::string& relative) const {
    const std::string folder = relative.empty() ? Path("") : Path(relative + "\\");
    std::vector<std::string> names;
    for (const std::string& path : disk_.Paths()) {
      if (path.starts_with(folder) && path.find('\\', folder.size()) == std::string::npos)
        names.emplace_back(FileNameOf(path));
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  /// Writes a file, creating its folders.
  void Write(const std::string& relative, const std::string& content) const {
    disk_.Put(Path(relative), content);
  }

  void MakeFolder(const std::string& relative) const { disk_.MakeFolder(Path(relative)); }

  /// Removes a file, or a folder with its content. False if there is none.
  bool Remove(const std::string& relative) const {
    const bool there = Has(relative);
    if (there) disk_.Delete(Path(relative));
    return there;
  }

  void RenameFolder(const std::string& from, const std::string& to) const {
    disk_.FolderSeam().Rename(Path(from), Path(to));
  }

  /// Sets a file's modification time, in seconds since 1 January 1970.
  void SetModified(const std::string& relative, std::int64_t seconds) const {
    disk_.Put(Path(relative), Read(relative), Later({1970, 1, 1, 0, 0, 0}, std::chrono::seconds(seconds)));
  }

 private:
  VirtualDisk& disk_;
};

}  // namespace orvenza::test
