#pragma once

#include <chrono>
#include <cstddef>
#include <vector>

#include "app/trace/transcript_event.h"

namespace orvenza {

/// The ticks since the latest event, however many: only the first, the latest and their number are kept.
class IdleTicks {
 public:
  /// Counts a tick at this time.
  void Note(std::chrono::milliseconds at);

  /// The latest tick; meaningless if there is none.
  std::chrono::milliseconds Latest() const { return latest_; }

  /// The events for the ticks so far, which are then forgotten. `latestActs`: the latest one is not idle.
  std::vector<TranscriptEvent> Tell(bool latestActs);

 private:
  std::size_t count_ = 0;
  std::chrono::milliseconds first_{};
  std::chrono::milliseconds latest_{};
};

}  // namespace orvenza
