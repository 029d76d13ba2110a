#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/windows/unique_handle.h"

namespace orvenza {

/// Writes all of `text` to a file. False, with the system's last error set, on failure.
[[nodiscard]] bool WriteAll(HANDLE file, std::string_view text);

/// A file being written under a temporary name beside its target. It replaces the target when finished. If
/// destroyed earlier, it leaves nothing behind. Errors are SystemErrors about the target.
class UnfinishedFile {
 public:
  explicit UnfinishedFile(const std::string& target);
  ~UnfinishedFile();
  UnfinishedFile(const UnfinishedFile&) = delete;
  UnfinishedFile& operator=(const UnfinishedFile&) = delete;

  void Add(std::string_view bytes);
  void SetModified(const FILETIME& time);
  /// Moves the file into the target's place. While another program has the old target open, retries for a
  /// fifth of a second; `pause` sleeps between two attempts.
  void Finish(const std::function<void()>& pause = [] { ::Sleep(kReplacePause); });

  /// Attempts to replace the target and the pause between them in milliseconds.
  static constexpr int kReplaceTries = 10;
  static constexpr DWORD kReplacePause = 20;

 private:
  std::string target_;
  std::wstring nativeTarget_;
  std::wstring native_;
  FileHandle file_;
};

}  // namespace orvenza
