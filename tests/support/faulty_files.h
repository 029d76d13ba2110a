#pragma once

#include <cstddef>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/files.h"
#include "platform/folders.h"
#include "platform/system_error.h"

namespace orvenza::test {

/// Injects failures into operations by name: "OpenForReading", "Read" (of the reader it returns), "Exists",
/// "Size", "Append", "Write", "Copy", "Move", "Remove", "ClearAttributes"; "ListFolder", "Create", "Rename".
/// A failing operation has no effect.
class Faults {
 public:
  /// The next `operation` fails with error `number`.
  void FailNext(const std::string& operation, int number) { FailNth(operation, 1, number); }

  /// The `n`-th `operation` from now, counted from 1, fails; the others succeed.
  void FailNth(const std::string& operation, int n, int number) {
    faults_.push_back({operation, "", number, n, false});
  }

  /// Every `operation` on a path that contains `pathPart` (empty: any) fails.
  void FailAlways(const std::string& operation, const std::string& pathPart, int number) {
    faults_.push_back({operation, pathPart, number, 1, true});
  }

  /// Calls `action` with the path before each `operation`, even if that then fails.
  void Before(const std::string& operation, std::function<void(const std::string& path)> action) {
    before_[operation] = std::move(action);
  }

  /// Ends all failures and all calls of Before.
  void Heal() {
    faults_.clear();
    before_.clear();
  }

 protected:
  /// Every operation calls this first. `other` is its second path.
  void Meet(const std::string& operation, const std::string& path, const std::string& other = {}) const {
    if (const auto found = before_.find(operation); found != before_.end()) {
      const auto action = found->second;  // A copy, since it may call Heal.
      action(path);
    }
    for (Fault& fault : faults_) {
      const bool concerned = Contains(path, fault.pathPart) || Contains(other, fault.pathPart);
      if (fault.operation != operation || !concerned || fault.countdown == 0) continue;
      if (--fault.countdown > 0) continue;
      if (fault.always) fault.countdown = 1;
      throw SystemError(fault.number, path);
    }
  }

  static bool Contains(const std::string& path, const std::string& part) {
    return path.find(part) != std::string::npos;
  }

 private:
  struct Fault {
    std::string operation;
    std::string pathPart;
    int number = 0;
    int countdown = 0;  ///< 1: the next one fails; 0: used up.
    bool always = false;
  };

  mutable std::vector<Fault> faults_;
  std::map<std::string, std::function<void(const std::string&)>> before_;
};

/// Files that fail on demand.
class FaultyFiles : public Files, public Faults {
 public:
  explicit FaultyFiles(Files& real) : real_(real) {}

  /// Readers opened from now on fail with `number` after delivering `bytes` bytes.
  void FailReadAfter(std::size_t bytes, int number) {
    readLimit_ = bytes;
    readNumber_ = number;
  }

  void Heal() {
    Faults::Heal();
    readNumber_ = 0;
  }

  bool Exists(const std::string& path) const override {
    Meet("Exists", path);
    return real_.Exists(path);
  }
  std::uintmax_t Size(const std::string& path) const override {
    Meet("Size", path);
    return real_.Size(path);
  }
  std::unique_ptr<ByteReader> OpenForReading(const std::string& path) const override {
    Meet("OpenForReading", path);
    return std::make_unique<Reader>(*this, path);
  }
  void Append(const std::string& path, std::string_view text) override {
    Meet("Append", path);
    real_.Append(path, text);
  }
  void Write(const std::string& path, std::string_view content) override {
    Meet("Write", path);
    real_.Write(path, content);
  }
  void Copy(const std::string& from, const std::string& to) override {
    Meet("Copy", from, to);
    real_.Copy(from, to);
  }
  void Move(const std::string& from, const std::string& to) override {
    Meet("Move", from, to);
    real_.Move(from, to);
  }
  void Remove(const std::string& path) override {
    Meet("Remove", path);
    real_.Remove(path);
  }
  void ClearAttributes(const std::string& path) override {
    Meet("ClearAttributes", path);
    real_.ClearAttributes(path);
  }
  void CopyModified(const std::string& from, const std::string& to) override {
    Meet("CopyModified", from, to);
    real_.CopyModified(from, to);
  }

 private:
  class Reader : public ByteReader {
   public:
    Reader(const FaultyFiles& files, std::string path)
        : files_(files),
          path_(std::move(path)),
          real_(files.real_.OpenForReading(path_)),
          left_(files.readNumber_ == 0 ? std::numeric_limits<std::size_t>::max() : files.readLimit_),
          number_(files.readNumber_) {}

    std::size_t Read(char* buffer, std::size_t capacity) override {
      files_.Meet("Read", path_);
      if (left_ == 0) throw SystemError(number_, path_);
      const std::size_t count = real_->Read(buffer, capacity < left_ ? capacity : left_);
      left_ -= count;
      return count;
    }

   private:
    const FaultyFiles& files_;
    std::string path_;
    std::unique_ptr<ByteReader> real_;
    std::size_t left_;
    int number_;
  };

  Files& real_;
  std::size_t readLimit_ = 0;
  int readNumber_ = 0;  ///< 0: reading does not fail.
};

/// Folders that fail on demand, and drives that can be removed.
class FaultyFolders : public Folders, public Faults {
 public:
  explicit FaultyFolders(Folders& real) : real_(real) {}

  /// Paths that contain `pathPart` are on the drive `drive`, which is missing until Heal.
  void TakeDriveAway(const std::string& pathPart, const std::string& drive = "Z:") {
    missingPart_ = pathPart;
    missingDrive_ = drive;
  }

  void Heal() {
    Faults::Heal();
    missingDrive_.clear();
  }

  bool Exists(const std::string& path) const override {
    Meet("Exists", path);
    return DriveAvailable(path) && real_.Exists(path);
  }
  FolderListing ListFolder(const std::string& pattern) const override {
    Reach("ListFolder", pattern);
    return real_.ListFolder(pattern);
  }
  void RemoveUnfinished(const std::string& folder) override { real_.RemoveUnfinished(folder); }
  void Create(const std::string& path) override {
    Reach("Create", path);
    real_.Create(path);
  }
  void Rename(const std::string& from, const std::string& to) override {
    Reach("Rename", from, to);
    real_.Rename(from, to);
  }
  std::string DriveOf(const std::string& path) const override {
    return Missing(path) ? missingDrive_ : real_.DriveOf(path);
  }
  bool DriveAvailable(const std::string& path) const override {
    return !Missing(path) && real_.DriveAvailable(path);
  }

 private:
  bool Missing(const std::string& path) const {
    return !missingDrive_.empty() && Contains(path, missingPart_);
  }
  void Reach(const std::string& operation, const std::string& path, const std::string& other = {}) const {
    Meet(operation, path, other);
    if (Missing(path)) throw SystemError(error_number::kPathNotFound, path);
  }

  Folders& real_;
  std::string missingPart_;
  std::string missingDrive_;  ///< Empty: no drive is missing.
};

}  // namespace orvenza::test
