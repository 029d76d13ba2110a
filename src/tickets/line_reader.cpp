#include "tickets/line_reader.h"

#include <algorithm>
#include <utility>

namespace orvenza {
namespace {

constexpr std::size_t kBufferSize = 64 * 1024;

}  // namespace

LineReader::LineReader(std::unique_ptr<ByteReader> bytes, std::size_t longest)
    : bytes_(std::move(bytes)), longest_(longest), buffer_(kBufferSize, '\0') {}

bool LineReader::ReadLine(std::string& line) {
  line.clear();
  wasCut_ = false;
  bool any = false;
  while (Fill()) {
    if (afterReturn_ && buffer_[next_] == '\n') ++next_;
    afterReturn_ = false;
    const auto begin = buffer_.begin() + static_cast<std::ptrdiff_t>(next_);
    const auto end = buffer_.begin() + static_cast<std::ptrdiff_t>(filled_);
    const auto stop = std::find_if(begin, end, [](char c) { return c == '\r' || c == '\n'; });
    any = any || begin != end;
    const auto length = static_cast<std::size_t>(stop - begin);
    const std::size_t kept = std::min(length, longest_ - line.size());
    line.append(buffer_, next_, kept);
    wasCut_ = wasCut_ || kept < length;
    next_ = static_cast<std::size_t>(stop - buffer_.begin());
    if (stop == end) continue;
    afterReturn_ = *stop == '\r';
    ++next_;
    return true;
  }
  return any;
}

bool LineReader::Fill() {
  if (next_ < filled_) return true;
  next_ = 0;
  filled_ = bytes_->Read(buffer_.data(), buffer_.size());
  return filled_ > 0;
}

}  // namespace orvenza
