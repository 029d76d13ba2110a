#include "device/logo_check.h"

#include <array>
#include <memory>

#include "platform/system_error.h"

namespace orvenza {
namespace {

/// Bytes up to the end of the last header field read.
constexpr std::size_t kHeaderLength = 30;

/// The first bytes of the file; fewer if it is shorter.
std::string ReadHeader(const FileReader& files, const std::string& path) {
  const std::unique_ptr<ByteReader> reader = files.OpenForReading(path);
  std::array<char, kHeaderLength> header{};
  std::size_t length = 0;
  while (length < header.size()) {
    const std::size_t count = reader->Read(header.data() + length, header.size() - length);
    if (count == 0) break;
    length += count;
  }
  return std::string(header.data(), length);
}

std::optional<std::uint32_t> RowsInHeader(const std::string& header) {
  if (header.size() < kHeaderLength) return {};
  const auto value = [&](std::size_t offset, std::size_t width) {
    return LogoHeaderValue(std::string_view(header).substr(offset, width));
  };
  if (header.compare(0, 2, "BM") != 0) return {};
  if (value(10, 4) != kLogoDataOffset) return {};
  if (value(18, 4) != kLogoWidth) return {};
  // A negative height (a picture stored top row first) reads as a huge number.
  const std::uint32_t height = value(22, 4);
  if (height > kLogoMostRows || value(28, 2) != 1) return {};
  return height;
}

}  // namespace

std::uint32_t LogoHeaderValue(std::string_view bytes) {
  std::uint32_t number = 0;
  for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte) {
    const auto value = static_cast<unsigned char>(*byte);
    const int digits = value < 16 ? 1 : 2;
    number = (number << (4 * digits)) | value;
  }
  return number;
}

std::optional<std::uint32_t> LogoRows(const FileReader& files, const std::string& path) {
  try {
    if (files.Exists(path)) return RowsInHeader(ReadHeader(files, path));
  } catch (const SystemError&) {
    // An unreadable file is not a logo.
  }
  return {};
}

bool IsValidLogoBitmap(const FileReader& files, const std::string& path) {
  return LogoRows(files, path).has_value();
}

}  // namespace orvenza
