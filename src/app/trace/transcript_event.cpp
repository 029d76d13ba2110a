#include "app/trace/transcript_event.h"

#include <cstdio>

namespace orvenza {
namespace {

constexpr std::size_t kKindWidth = 9;

}  // namespace

std::string EventWords(const TranscriptEvent& event) {
  std::string words(event.kind);
  if (!event.text.empty()) {
    words.append(words.size() < kKindWidth ? kKindWidth - words.size() : 0, ' ')
        .append(" ")
        .append(event.text);
  }
  if (event.times > 1) words += " (" + std::to_string(event.times) + " times)";
  return words;
}

std::string TranscriptLine(const TranscriptEvent& event) {
  char time[32];
  std::snprintf(time, sizeof time, "%9lld  ", static_cast<long long>(event.at.count()));
  return time + EventWords(event);
}

}  // namespace orvenza
