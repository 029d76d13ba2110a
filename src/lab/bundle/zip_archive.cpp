#include "lab/bundle/zip_archive.h"

#include <algorithm>
#include <array>
#include <utility>

namespace orvenza {
namespace {

constexpr std::uint32_t kEntryMark = 0x04034B50;
constexpr std::uint32_t kDirectoryMark = 0x02014B50;
constexpr std::uint32_t kEndMark = 0x06054B50;
/// Version of the format needed to read the archive: 2.0, the base version.
constexpr std::uint32_t kVersion = 20;
constexpr std::uint32_t kNamesAreUtf8 = 1u << 11;

void Append(std::string& out, std::uint32_t value, int size) {
  for (int i = 0; i < size; ++i) out += static_cast<char>((value >> (8 * i)) & 0xFF);
}

void Append2(std::string& out, std::uint32_t value) { Append(out, value, 2); }
void Append4(std::string& out, std::uint32_t value) { Append(out, value, 4); }

/// MS-DOS format: time of day in the low half, date in the high half.
std::uint32_t PackedTime(LocalTime time) {
  time = std::clamp(time, LocalTime{1980, 1, 1, 0, 0, 0}, LocalTime{2107, 12, 31, 23, 59, 58});
  const auto number = [](int value) { return static_cast<std::uint32_t>(value); };
  const std::uint32_t date = number(time.year - 1980) << 9 | number(time.month) << 5 | number(time.day);
  return date << 16 | number(time.hour) << 11 | number(time.minute) << 5 | number(time.second / 2);
}

std::array<std::uint32_t, 256> MakeCrcTable() {
  constexpr std::uint32_t kPolynomial = 0xEDB88320;
  std::array<std::uint32_t, 256> table{};
  for (std::uint32_t i = 0; i < table.size(); ++i) {
    std::uint32_t value = i;
    for (int bit = 0; bit < 8; ++bit) value = (value >> 1) ^ ((value & 1) != 0 ? kPolynomial : 0);
    table[i] = value;
  }
  return table;
}

}  // namespace

std::uint32_t Crc32(std::string_view bytes) {
  static const auto kTable = MakeCrcTable();
  std::uint32_t crc = 0xFFFFFFFF;
  for (const char c : bytes) crc = (crc >> 8) ^ kTable[(crc ^ static_cast<unsigned char>(c)) & 0xFF];
  return ~crc;
}

void ZipArchive::Add(std::string_view name, std::string_view bytes, const LocalTime& modified) {
  const auto size = static_cast<std::uint32_t>(bytes.size());
  // The fields shared by the local header and the directory.
  std::string facts;
  Append2(facts, kVersion);
  Append2(facts, kNamesAreUtf8);
  Append2(facts, 0);  // stored
  Append4(facts, PackedTime(modified));
  Append4(facts, Crc32(bytes));
  Append4(facts, size);  // stored size
  Append4(facts, size);  // original size
  Append2(facts, static_cast<std::uint32_t>(name.size()));
  Append2(facts, 0);  // no extra fields

  Append4(directory_, kDirectoryMark);
  Append2(directory_, kVersion);
  directory_.append(facts);
  Append2(directory_, 0);  // no comment
  Append2(directory_, 0);  // first volume
  Append2(directory_, 0);  // no internal attributes
  Append4(directory_, 0);  // no attributes
  Append4(directory_, static_cast<std::uint32_t>(bytes_.size()));
  directory_.append(name);

  Append4(bytes_, kEntryMark);
  bytes_.append(facts).append(name).append(bytes);
  ++count_;
}

std::string ZipArchive::Finish() {
  const auto start = static_cast<std::uint32_t>(bytes_.size());
  bytes_.append(directory_);
  Append4(bytes_, kEndMark);
  Append4(bytes_, 0);  // one volume
  Append2(bytes_, count_);
  Append2(bytes_, count_);
  Append4(bytes_, static_cast<std::uint32_t>(directory_.size()));
  Append4(bytes_, start);
  Append2(bytes_, 0);  // no comment
  return std::move(bytes_);
}

}  // namespace orvenza
