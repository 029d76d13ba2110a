#include "platform/posix/line_input.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace orvenza {

void LineInput::Collect() {
  std::array<char, 4096> chunk;
  const ssize_t count = ::read(descriptor_, chunk.data(), chunk.size());
  if (count > 0) {
    buffer_.append(chunk.data(), static_cast<std::size_t>(count));
  } else {
    ended_ = count == 0 || (errno != EINTR && errno != EAGAIN);
  }
}

bool LineInput::HasLine() const {
  if (ended_ && !buffer_.empty()) return true;
  return buffer_.size() >= kLongestLine || buffer_.find('\n') != std::string::npos;
}

std::string LineInput::TakeLine() {
  const std::size_t end = std::min({buffer_.find('\n'), buffer_.size(), kLongestLine});
  std::string line = buffer_.substr(0, end);
  const bool cutAtLineEnd = end < buffer_.size() && buffer_[end] == '\n';
  buffer_.erase(0, cutAtLineEnd ? end + 1 : end);
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

}  // namespace orvenza
