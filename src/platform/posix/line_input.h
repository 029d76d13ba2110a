#pragma once

#include <cstddef>
#include <string>

namespace orvenza {

/// Splits the input of a descriptor into lines (LF or CR LF; the last line needs no break). The caller keeps
/// the descriptor, whose mode is not changed.
class LineInput {
 public:
  /// A longer line is delivered in pieces of this size, in bytes.
  static constexpr std::size_t kLongestLine = 65536;

  explicit LineInput(int descriptor) : descriptor_(descriptor), ended_(descriptor < 0) {}

  int Descriptor() const { return descriptor_; }

  /// Reads once. Blocks unless the descriptor is readable.
  void Collect();

  bool HasLine() const;

  /// The next line without its line break. Requires HasLine.
  std::string TakeLine();

  /// Whether the input has ended, possibly by an error. Lines may still be waiting.
  bool Ended() const { return ended_; }

 private:
  int descriptor_;
  bool ended_;
  std::string buffer_;
};

}  // namespace orvenza
