#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

namespace orvenza {

/// An event of a run.
struct TranscriptEvent {
  std::chrono::milliseconds at{};  ///< Since the start, rounded down.
  std::string_view kind;           ///< "sent", "reply", "dialog" etc.; a constant.
  std::string text;                ///< UTF-8 without control characters; may be empty.
  std::size_t times = 1;           ///< Consecutive repetitions at this moment.
};

/// An event's line behind its time: its kind and its text.
std::string EventWords(const TranscriptEvent& event);

/// An event's line in the transcript.
std::string TranscriptLine(const TranscriptEvent& event);

}  // namespace orvenza
