#pragma once

#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>

namespace orvenza::test {

/// Reads archives with stored entries by their directory, like a viewer, and rejects any inconsistency.
class ZipReader {
 public:
  struct Entry {
    std::string bytes;
    std::uint32_t time = 0;
    std::uint32_t date = 0;
  };

  explicit ZipReader(std::string archive) : archive_(std::move(archive)) {
    Expect(archive_.size() >= 22, "size");
    const std::size_t end = archive_.size() - 22;
    Expect(Number(end, 4) == 0x06054B50 && Number(end + 8, 2) == Number(end + 10, 2), "end");
    std::size_t at = Number(end + 16, 4);
    for (std::uint32_t i = 0; i < Number(end + 10, 2); ++i) at = ReadEntry(at);
    Expect(at == end && at == Number(end + 16, 4) + Number(end + 12, 4), "directory");
  }

  std::map<std::string, Entry> entries;
  std::string names;  ///< One per line, in directory order.

 private:
  static void Expect(bool fits, const char* what) {
    if (!fits) throw std::runtime_error(what);
  }

  std::uint32_t Number(std::size_t at, std::size_t size) const {
    std::uint32_t number = 0;
    for (std::size_t i = size; i-- > 0;)
      number = number * 256 + static_cast<unsigned char>(archive_.at(at + i));
    return number;
  }

  /// Bit by bit, without a table that could be wrong.
  static std::uint32_t Checksum(std::string_view bytes) {
    std::uint32_t rest = 0xFFFFFFFF;
    for (const char c : bytes) {
      rest ^= static_cast<unsigned char>(c);
      for (int i = 0; i < 8; ++i) rest = rest & 1 ? rest >> 1 ^ 0xEDB88320 : rest >> 1;
    }
    return ~rest;
  }

  std::size_t ReadEntry(std::size_t at) {
    Expect(Number(at, 4) == 0x02014B50 && Number(at + 8, 2) == 0x0800 && Number(at + 10, 2) == 0, "entry");
    const std::size_t nameSize = Number(at + 28, 2);
    const std::size_t size = Number(at + 24, 4);
    const std::size_t local = Number(at + 42, 4);
    const std::string name = archive_.substr(at + 46, nameSize);
    Expect(Number(local, 4) == 0x04034B50 && archive_.compare(local + 4, 26, archive_, at + 6, 26) == 0,
           "facts");
    Expect(archive_.compare(local + 30, nameSize, name) == 0 && Number(at + 20, 4) == size, "name");
    const std::string bytes = archive_.substr(local + 30 + nameSize, size);
    Expect(Checksum(bytes) == Number(at + 16, 4), "checksum");
    Expect(entries.insert({name, {bytes, Number(at + 12, 2), Number(at + 14, 2)}}).second, "twice");
    names += name + "\n";
    return at + 46 + nameSize + Number(at + 30, 2) + Number(at + 32, 2);
  }

  std::string archive_;
};

}  // namespace orvenza::test
