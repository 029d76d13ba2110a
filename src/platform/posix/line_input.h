#pragma once

#include <cstddef>
#include <string>

namespace orvenza {

/// Cuts what a descriptor delivers into lines (LF or CR LF; the last one needs no end). The descriptor stays
/// its owner's, and its mode is left as it is.
class LineInput {
 public:
  /// A longer line is delivered in pieces of this many bytes.
  static constexpr std::size_t kLongestLine = 65536;

  explicit LineInput(int descriptor) : descriptor_(descriptor), ended_(descriptor < 0) {}

  int Descriptor() const { return descriptor_; }

  /// Reads once. To be called when the descriptor has something, which the call would otherwise wait for.
  void Collect();

  bool HasLine() const;

  /// The next line without its end. Only when HasLine.
  std::string TakeLine();

  /// True when the descriptor is at its end, also after an error; lines may be left.
  bool Ended() const { return ended_; }

 private:
  int descriptor_;
  bool ended_;
  std::string buffer_;
};

}  // namespace orvenza
