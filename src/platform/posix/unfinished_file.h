#pragma once

#include <sys/stat.h>

#include <string>
#include <string_view>

#include "platform/posix/descriptor.h"

namespace orvenza {

/// Writes all of `text` to a descriptor. False, with errno set, on failure.
[[nodiscard]] bool WriteAll(int descriptor, std::string_view text);

/// A file being written under a temporary name beside its target. It replaces the target when finished. If
/// destroyed earlier, it leaves nothing behind. Errors are SystemErrors about the target.
class UnfinishedFile {
 public:
  UnfinishedFile(const std::string& target, mode_t mode);
  ~UnfinishedFile();
  UnfinishedFile(const UnfinishedFile&) = delete;
  UnfinishedFile& operator=(const UnfinishedFile&) = delete;

  void Add(std::string_view bytes);
  void SetMode(mode_t mode);
  void SetModified(const timespec& time);
  void Finish();

 private:
  std::string target_;
  std::string nativeTarget_;
  std::string native_;
  Descriptor file_;
};

}  // namespace orvenza
