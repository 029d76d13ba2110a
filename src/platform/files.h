#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace orvenza {

/// The bytes of an open file, read sequentially. The file is closed on destruction.
class ByteReader {
 public:
  virtual ~ByteReader() = default;

  /// Reads up to `capacity` bytes and returns how many; 0 at the end of the file. Throws SystemError.
  [[nodiscard]] virtual std::size_t Read(char* buffer, std::size_t capacity) = 0;
};

/// A ByteReader of a text in memory.
class TextBytes : public ByteReader {
 public:
  explicit TextBytes(std::string text) : text_(std::move(text)) {}
  std::size_t Read(char* buffer, std::size_t capacity) override {
    const std::size_t count = text_.copy(buffer, capacity, next_);
    next_ += count;
    return count;
  }

 private:
  std::string text_;
  std::size_t next_ = 0;
};

/// Checks and reads files. Paths are UTF-8 with "\" as separator. Every operation throws SystemError when it
/// fails.
class FileReader {
 public:
  virtual ~FileReader() = default;

  /// True when `path` names an existing file that is not a folder; false when the system says that there is
  /// none. A check that fails for another reason (missing rights, a disk or share in trouble) throws
  /// SystemError: the file may exist.
  virtual bool Exists(const std::string& path) const = 0;

  /// Size in bytes.
  virtual std::uintmax_t Size(const std::string& path) const = 0;

  virtual std::unique_ptr<ByteReader> OpenForReading(const std::string& path) const = 0;
};

/// The connector's file operations, with the same rules.
class Files : public FileReader {
 public:
  /// Appends `text` to the file and creates it when missing. On return the text is with the operating system:
  /// ending the process loses nothing.
  virtual void Append(const std::string& path, std::string_view text) = 0;

  /// Makes `path` a file with exactly this content, replacing an older one. The file appears whole or not at
  /// all, and no listing shows it before it is whole.
  virtual void Write(const std::string& path, std::string_view content) = 0;

  /// Copies a file with its modification time, replacing an older target. The target appears whole or not at
  /// all, and no listing shows it before it is whole.
  virtual void Copy(const std::string& from, const std::string& to) = 0;

  /// Renames a file, replacing an older target, atomically: at no moment is it in neither place or in both.
  /// Fails when the target lies on another volume.
  virtual void Move(const std::string& from, const std::string& to) = 0;

  virtual void Remove(const std::string& path) = 0;

  /// Clears read-only, hidden and similar attributes, so that the file can be removed.
  virtual void ClearAttributes(const std::string& path) = 0;

  /// Gives the file `to` the modification time of the file `from`.
  virtual void CopyModified(const std::string& from, const std::string& to) = 0;
};

/// Suffix of a file that is still being written beside its target. Listings never show such names, see
/// Folders::RemoveUnfinished.
inline constexpr std::string_view kUnfinishedSuffix = ".orv~";

/// Whether the file exists or may exist: a failed check counts as a file. Never fails.
[[nodiscard]] bool MayExist(const FileReader& files, const std::string& path);

/// The first `limit` bytes of a file, or all of a shorter one. Throws SystemError.
[[nodiscard]] std::string ReadWhole(const FileReader& files, const std::string& path,
                                    std::size_t limit = std::numeric_limits<std::size_t>::max());

/// Renames a file, or copies it where it cannot be renamed. True when it was renamed, so that nothing is left
/// at the old path. Throws SystemError when both fail.
[[nodiscard]] bool MoveOrCopy(Files& files, const std::string& from, const std::string& to);

/// Removes a file, even a read-only one. Throws SystemError.
void RemoveReadOnlyToo(Files& files, const std::string& path);

}  // namespace orvenza
