#pragma once

#include <sys/stat.h>

#include <string>
#include <string_view>

#include "platform/posix/descriptor.h"

namespace orvenza {

/// Writes all of `text` to a descriptor. False, with errno set, when the system took less.
bool WriteAll(int descriptor, std::string_view text);

/// A file in the making under a name of its own beside its target. It takes the target's place when it is
/// finished; destroyed before that, it leaves nothing behind. Failures are SystemErrors about the target.
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
