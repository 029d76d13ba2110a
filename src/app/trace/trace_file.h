#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace orvenza {

/// The files of a trace: the current one and its older copies, "trace.txt", "trace.1.txt" to "trace.4.txt",
/// the newest first.
class TraceFile {
 public:
  static constexpr int kFiles = 5;
  static constexpr std::uintmax_t kMostBytes = 1'000'000;

  /// `files` must outlive this object.
  TraceFile(Files& files, std::string path) : files_(files), path_(std::move(path)) {}

  /// The path of the copy with this number, 0 for the current file.
  static std::string PathOf(const std::string& path, int number);

  /// Whether `path` is one of the files of the trace `trace`.
  static bool IsOne(std::string_view path, const std::string& trace);

  /// The current file begins anew if `size` more bytes do not fit: the older ones move on, and the oldest
  /// goes. True if it is then empty. Throws SystemError.
  [[nodiscard]] bool MakeRoom(std::size_t size);

  /// Appends to the current file. On return the text is with the operating system. Throws SystemError.
  void Append(std::string_view text);

 private:
  std::uintmax_t Size() const;

  Files& files_;
  std::string path_;
  std::optional<std::uintmax_t> size_;  ///< Unknown at first and after a failure.
};

}  // namespace orvenza
