#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace orvenza {

/// A ByteReader of a text that outlives it.
class ViewBytes : public ByteReader {
 public:
  explicit ViewBytes(std::string_view text) : rest_(text) {}
  std::size_t Read(char* buffer, std::size_t capacity) override {
    const std::size_t count = rest_.copy(buffer, capacity);
    rest_.remove_prefix(count);
    return count;
  }

 private:
  std::string_view rest_;
};

/// Reads a text file line by line in one pass. CR LF, LF and a single CR all end a line; the last line needs
/// no line break. Any other byte, including NUL, is part of a line.
class LineReader {
 public:
  /// Lines are cut to `longest` bytes.
  explicit LineReader(std::unique_ptr<ByteReader> bytes, std::size_t longest = std::string::npos);

  /// Reads the next line, without its line break, into `line`; false at the end of the file. Throws
  /// SystemError.
  bool ReadLine(std::string& line);

  /// Whether the last line was cut.
  bool WasCut() const { return wasCut_; }

 private:
  bool Fill();

  std::unique_ptr<ByteReader> bytes_;
  std::size_t longest_;
  std::unique_ptr<char[]> buffer_;
  std::size_t next_ = 0;
  std::size_t filled_ = 0;
  bool wasCut_ = false;
  bool afterReturn_ = false;  // the last line ended in CR, so a following LF belongs to it
};

}  // namespace orvenza
