#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>

#include "platform/files.h"
#include "platform/folders.h"
#include "simulator/virtual_clock.h"
#include "support/system_seams.h"
#include "support/temp_folder.h"
#include "support/virtual_folder.h"

namespace orvenza::test {

/// A folder on some disk: the disk's seams, and operations of another program in the folder, with paths
/// relative to it.
class TestDisk {
 public:
  virtual ~TestDisk() = default;

  virtual Files& FileSeam() = 0;
  virtual Folders& FolderSeam() = 0;

  /// A path in the program's spelling.
  virtual std::string Path(const std::string& relative) const = 0;
  virtual std::string Read(const std::string& relative) const = 0;
  virtual void Write(const std::string& relative, const std::string& content) = 0;
  virtual void MakeFolder(const std::string& relative) = 0;
  virtual void SetReadOnly(const std::string& relative) = 0;
  /// Sets a file's modification time, in seconds since 1 January 1970.
  virtual void SetModified(const std::string& relative, std::int64_t seconds) = 0;
  /// The names of all files in the folder, sorted and separated by commas.
  virtual std::string Names() const = 0;
};

/// The system's disk, in a temporary folder.
class SystemDisk : public TestDisk {
 public:
  Files& FileSeam() override { return files_; }
  Folders& FolderSeam() override { return folders_; }
  std::string Path(const std::string& relative) const override { return folder_.Path(relative); }
  std::string Read(const std::string& relative) const override { return folder_.Read(relative); }
  void Write(const std::string& relative, const std::string& content) override {
    folder_.Write(relative, content);
  }
  void MakeFolder(const std::string& relative) override {
    std::filesystem::create_directories(folder_.Native(relative));
  }
  void SetReadOnly(const std::string& relative) override {
    std::filesystem::permissions(folder_.Native(relative), std::filesystem::perms::owner_read);
  }
  void SetModified(const std::string& relative, std::int64_t seconds) override {
    folder_.SetModified(relative, seconds);
  }
  std::string Names() const override {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.Native(""))) {
      if (!entry.is_directory()) names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return Joined(names);
  }

  static std::string Joined(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) text += (text.empty() ? "" : ",") + name;
    return text;
  }

 private:
  TempFolder folder_;
  SystemFiles files_;
  SystemFolders folders_;
};

/// The disk of rehearsals.
class SimulatedDisk : public TestDisk {
 public:
  Files& FileSeam() override { return disk_.FileSeam(); }
  Folders& FolderSeam() override { return disk_.FolderSeam(); }
  std::string Path(const std::string& relative) const override { return folder_.Path(relative); }
  std::string Read(const std::string& relative) const override { return folder_.Read(relative); }
  void Write(const std::string& relative, const std::string& content) override {
    folder_.Write(relative, content);
  }
  void MakeFolder(const std::string& relative) override { folder_.MakeFolder(relative); }
  void SetReadOnly(const std::string& relative) override { disk_.SetReadOnly(Path(relative)); }
  void SetModified(const std::string& relative, std::int64_t seconds) override {
    folder_.SetModified(relative, seconds);
  }
  std::string Names() const override { return SystemDisk::Joined(folder_.Names("")); }

 private:
  VirtualClock clock_;
  VirtualDisk disk_{clock_};
  VirtualFolder folder_{disk_};
};

/// Creates a disk for one test.
struct DiskKind {
  const char* name;
  std::unique_ptr<TestDisk> (*make)();
};

inline void PrintTo(const DiskKind& kind, std::ostream* out) { *out << kind.name; }

/// The disks on which every test of a seam runs.
inline auto AllDisks() {
  return testing::Values(
      DiskKind{"System", []() -> std::unique_ptr<TestDisk> { return std::make_unique<SystemDisk>(); }},
      DiskKind{"Virtual", []() -> std::unique_ptr<TestDisk> { return std::make_unique<SimulatedDisk>(); }});
}

inline std::string NameOfDisk(const testing::TestParamInfo<DiskKind>& info) { return info.param.name; }

}  // namespace orvenza::test
