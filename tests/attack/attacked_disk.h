#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "attack/attack.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "simulator/virtual_disk.h"

namespace orvenza::test {

/// The files of a virtual disk, for a program under attack. Every operation is a file call.
class AttackedFiles : public Files {
 public:
  AttackedFiles(VirtualDisk& disk, FileCalls& calls) : disk_(disk), real_(disk.FileSeam()), calls_(calls) {}

  bool Exists(const std::string& path) const override {
    return calls_.Admit("Exists", path) && real_.Exists(path);
  }
  std::uintmax_t Size(const std::string& path) const override {
    return calls_.Admit("Size", path) ? real_.Size(path) : 0;
  }
  std::unique_ptr<ByteReader> OpenForReading(const std::string& path) const override {
    if (!calls_.Admit("OpenForReading", path)) return std::make_unique<TextBytes>("");
    return std::make_unique<Reader>(real_.OpenForReading(path), calls_, path);
  }
  void Append(const std::string& path, std::string_view text) override {
    if (!calls_.Admit("Append", path)) return;
    if (calls_.IsCutOff("Append", path)) {
      real_.Append(path, text.substr(0, text.size() / 2));
      calls_.Kill();
    }
    real_.Append(path, text);
  }
  void Write(const std::string& path, std::string_view content) override {
    if (!calls_.Admit("Write", path)) return;
    if (calls_.IsCutOff("Write", path)) LeaveUnfinished(path, content);
    real_.Write(path, content);
  }
  void Copy(const std::string& from, const std::string& to) override {
    if (!calls_.Admit("Copy", from, to)) return;
    if (calls_.IsCutOff("Copy", from)) LeaveUnfinished(to, disk_.Content(from).value_or(""));
    real_.Copy(from, to);
  }
  void Move(const std::string& from, const std::string& to) override {
    if (calls_.Admit("Move", from, to)) real_.Move(from, to);
  }
  void Remove(const std::string& path) override {
    if (calls_.Admit("Remove", path)) real_.Remove(path);
  }
  void ClearAttributes(const std::string& path) override {
    if (calls_.Admit("ClearAttributes", path)) real_.ClearAttributes(path);
  }
  void CopyModified(const std::string& from, const std::string& to) override {
    if (calls_.Admit("CopyModified", from, to)) real_.CopyModified(from, to);
  }

 private:
  class Reader : public ByteReader {
   public:
    Reader(std::unique_ptr<ByteReader> real, FileCalls& calls, std::string path)
        : real_(std::move(real)), calls_(calls), path_(std::move(path)) {}
    std::size_t Read(char* buffer, std::size_t capacity) override {
      return calls_.Admit("Read", path_) ? real_->Read(buffer, capacity) : 0;
    }

   private:
    std::unique_ptr<ByteReader> real_;
    FileCalls& calls_;
    std::string path_;
  };

  [[noreturn]] void LeaveUnfinished(const std::string& target, std::string_view content) {
    disk_.Put(target + std::string(kUnfinishedSuffix), std::string(content.substr(0, content.size() / 2)));
    calls_.Kill();
  }

  VirtualDisk& disk_;
  Files& real_;
  FileCalls& calls_;
};

/// The folders of a virtual disk, for a program under attack.
class AttackedFolders : public Folders {
 public:
  AttackedFolders(VirtualDisk& disk, FileCalls& calls) : real_(disk.FolderSeam()), calls_(calls) {}

  bool Exists(const std::string& path) const override {
    return calls_.Admit("Exists", path) && real_.Exists(path);
  }
  FolderListing ListFolder(const std::string& pattern) const override {
    return calls_.Admit("ListFolder", pattern) ? real_.ListFolder(pattern) : FolderListing();
  }
  void Create(const std::string& path) override {
    if (calls_.Admit("Create", path)) real_.Create(path);
  }
  void Rename(const std::string& from, const std::string& to) override {
    if (calls_.Admit("Rename", from, to)) real_.Rename(from, to);
  }
  void RemoveUnfinished(const std::string& folder) override {
    try {
      if (calls_.Admit("RemoveUnfinished", folder)) real_.RemoveUnfinished(folder);
    } catch (const SystemError&) {
      // RemoveUnfinished never fails: what cannot be removed stays.
    }
  }
  std::string DriveOf(const std::string& path) const override { return real_.DriveOf(path); }
  bool DriveAvailable(const std::string& path) const override {
    try {
      return calls_.Admit("DriveAvailable", path) && real_.DriveAvailable(path);
    } catch (const SystemError&) {
      return false;
    }
  }

 private:
  Folders& real_;
  FileCalls& calls_;
};

}  // namespace orvenza::test
