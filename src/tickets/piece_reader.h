#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "platform/files.h"

namespace orvenza {

/// Called between two pieces of a large file, to deliver events for example. It may throw ProgramEnd, which
/// ends the reading. May be empty.
using BetweenPieces = std::function<void()>;

/// The bytes of a file, calling `between` after each piece. A small file, of a single piece, is read without
/// a call.
class PieceReader : public ByteReader {
 public:
  static constexpr std::size_t kPiece = 64 * 1024;

  PieceReader(std::unique_ptr<ByteReader> bytes, const BetweenPieces& between)
      : bytes_(std::move(bytes)), between_(between) {}

  std::size_t Read(char* buffer, std::size_t capacity) override;

 private:
  std::unique_ptr<ByteReader> bytes_;
  BetweenPieces between_;
  std::size_t sinceCall_ = 0;
};

/// All bytes of a file, read in pieces. Throws SystemError.
[[nodiscard]] std::string ReadInPieces(const FileReader& files, const std::string& path,
                                       const BetweenPieces& between);

}  // namespace orvenza
