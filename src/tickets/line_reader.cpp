#include "tickets/line_reader.h"

#include <algorithm>
#include <utility>

namespace orvenza {
namespace {

constexpr std::size_t kBufferSize = 64 * 1024;

}  // namespace

LineReader::LineReader(std::unique_ptr<ByteReader> bytes, std::size_t longest)
    : bytes_(std::move(bytes)),
      longest_(longest),
      buffer_(std::make_unique_for_overwrite<char[]>(kBufferSize)) {}

bool LineReader::ReadLine(std::string& line) {
  line.clear();
  wasCut_ = false;
  bool any = false;
  while (Fill()) {
    if (afterReturn_ && buffer_[next_] == '\n') ++next_;
    afterReturn_ = false;
    const char* const begin = buffer_.get() + next_;
    const char* const end = buffer_.get() + filled_;
    const char* const stop = std::find_if(begin, end, [](char c) { return c == '\r' || c == '\n'; });
    any = any || begin != end;
    const auto length = static_cast<std::size_t>(stop - begin);
    const std::size_t kept = std::min(length, longest_ - line.size());
    line.append(begin, kept);
    wasCut_ = wasCut_ || kept < length;
    next_ = static_cast<std::size_t>(stop - buffer_.get());
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
  filled_ = bytes_->Read(buffer_.get(), kBufferSize);
  return filled_ > 0;
}

}  // namespace orvenza
