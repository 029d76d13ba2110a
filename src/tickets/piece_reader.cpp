#include "tickets/piece_reader.h"

#include <algorithm>
#include <array>

namespace orvenza {

std::size_t PieceReader::Read(char* buffer, std::size_t capacity) {
  if (sinceCall_ >= kPiece) {
    sinceCall_ = 0;
    if (between_) between_();
  }
  const std::size_t count = bytes_->Read(buffer, std::min(capacity, kPiece));
  sinceCall_ += count;
  return count;
}

std::string ReadInPieces(const FileReader& files, const std::string& path, const BetweenPieces& between) {
  PieceReader reader(files.OpenForReading(path), between);
  std::array<char, PieceReader::kPiece> piece;
  std::string text;
  while (const std::size_t count = reader.Read(piece.data(), piece.size())) {
    // Reserves the size of a large file: growing would need twice the memory.
    if (count == piece.size() && text.empty()) text.reserve(static_cast<std::size_t>(files.Size(path)));
    text.append(piece.data(), count);
  }
  return text;
}

}  // namespace orvenza
