#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/files.h"
#include "platform/system_error.h"

namespace orvenza::test {

/// Files in memory, by path, for code that reads bitmaps and writes a log.
class LogoFiles : public FileReader {
 public:
  std::map<std::string, std::string> content;
  /// Existing paths that cannot be opened.
  std::string locked;
  /// Number of bytes read so far, and most bytes per read.
  mutable std::size_t bytesRead = 0;
  std::size_t bytesAtOnce = 4096;
  mutable int opened = 0;

  bool Exists(const std::string& path) const override { return content.count(path) > 0; }
  std::uintmax_t Size(const std::string& path) const override { return content.at(path).size(); }
  std::unique_ptr<ByteReader> OpenForReading(const std::string& path) const override {
    ++opened;
    if (path == locked) throw SystemError(error_number::kPermissionDenied, path);
    return std::make_unique<Reader>(*this, content.at(path));
  }

 private:
  class Reader : public ByteReader {
   public:
    Reader(const LogoFiles& files, std::string rest) : files_(files), rest_(std::move(rest)) {}
    std::size_t Read(char* buffer, std::size_t capacity) override {
      const std::size_t count = std::min({capacity, rest_.size(), files_.bytesAtOnce});
      rest_.copy(buffer, count);
      rest_.erase(0, count);
      files_.bytesRead += count;
      return count;
    }

   private:
    const LogoFiles& files_;
    std::string rest_;
  };
};

/// `value` in `width` bytes, little-endian.
inline std::string LittleEndian(std::uint32_t value, int width) {
  std::string bytes;
  for (int i = 0; i < width; ++i) bytes += static_cast<char>((value >> (8 * i)) & 0xFF);
  return bytes;
}

/// A bitmap file with the given header fields, without its rows.
inline std::string LogoBitmap(std::uint32_t height, std::uint32_t width = 448, std::uint32_t dataOffset = 62,
                              std::uint32_t bitsPerPixel = 1, std::string_view signature = "BM") {
  std::string file(signature);
  file += LittleEndian(0, 4) + LittleEndian(0, 4) + LittleEndian(dataOffset, 4);
  file += LittleEndian(40, 4) + LittleEndian(width, 4) + LittleEndian(height, 4);
  file += LittleEndian(1, 2) + LittleEndian(bitsPerPixel, 2);
  file.resize(62);
  return file;
}

}  // namespace orvenza::test
