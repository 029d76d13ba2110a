#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/clock.h"

namespace orvenza {

/// The CRC-32 of ZIP archives.
std::uint32_t Crc32(std::string_view bytes);

/// Builds a ZIP archive. Entries are stored without compression, so that every system's own viewer reads
/// them. Less than 4 GB and 65536 entries in all.
class ZipArchive {
 public:
  /// `name` is UTF-8 with "/" as separator. Times before 1980 become 1980; seconds are rounded down to even
  /// ones.
  void Add(std::string_view name, std::string_view bytes, const LocalTime& modified);

  /// The complete archive. Nothing can be added afterwards.
  [[nodiscard]] std::string Finish();

 private:
  std::string bytes_;
  std::string directory_;
  std::uint32_t count_ = 0;
};

}  // namespace orvenza
