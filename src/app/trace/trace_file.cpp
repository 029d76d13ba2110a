#include "app/trace/trace_file.h"

#include <algorithm>

namespace orvenza {

std::string TraceFile::PathOf(const std::string& path, int number) {
  if (number == 0) return path;
  const std::size_t name = path.rfind('\\') + 1;
  const std::size_t dot = path.rfind('.');
  const std::size_t end = dot == std::string::npos || dot <= name ? path.size() : dot;
  return path.substr(0, end) + "." + std::to_string(number) + path.substr(end);
}

bool TraceFile::IsOne(std::string_view path, const std::string& trace) {
  for (int number = 0; number < kFiles; ++number) {
    if (path == PathOf(trace, number)) return true;
  }
  return false;
}

std::uintmax_t TraceFile::Size() const { return files_.Exists(path_) ? files_.Size(path_) : 0; }

bool TraceFile::MakeRoom(std::size_t size) {
  if (!size_) size_ = Size();
  if (*size_ > 0 && *size_ + size > kMostBytes) {
    size_.reset();
    for (int number = kFiles - 1; number > 0; --number) {
      const std::string older = PathOf(path_, number - 1);
      if (files_.Exists(older)) files_.Move(older, PathOf(path_, number));
    }
    size_ = 0;
  }
  return *size_ == 0;
}

void TraceFile::Append(std::string_view text) {
  const auto before = std::exchange(size_, std::nullopt);
  files_.Append(path_, text);
  if (before) size_ = *before + text.size();
}

}  // namespace orvenza
