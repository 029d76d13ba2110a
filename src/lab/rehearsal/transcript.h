#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "lab/rehearsal/rehearsal_outcome.h"
#include "platform/clock.h"

namespace orvenza {

/// An event's line in the transcript.
std::string TranscriptLine(const RehearsalEvent& event);

/// The events of a rehearsal in order. Immediate repetitions are merged, and so are idle ticks.
class Transcript {
 public:
  /// `sink` receives each line once it is complete; may be null. `clock` must outlive the transcript.
  using Sink = std::function<void(const std::string& line)>;
  Transcript(const Clock& clock, Sink sink) : clock_(clock), sink_(std::move(sink)) {}

  /// Records an event now; `kind` is a constant.
  void Add(std::string_view kind, std::string text = {});

  /// Records the start of a tick.
  void Tick();

  /// Ends the transcript.
  void Close();

  const std::vector<RehearsalEvent>& Events() const { return events_; }

 private:
  std::chrono::milliseconds Now() const;
  void Append(RehearsalEvent event);
  void TellTicks();

  const Clock& clock_;
  Sink sink_;
  std::vector<RehearsalEvent> events_;
  std::size_t told_ = 0;   ///< Number of events passed to the sink.
  std::size_t ticks_ = 0;  ///< Since the last event; the latest was at `lastTick_`.
  std::chrono::milliseconds firstTick_{};
  std::chrono::milliseconds lastTick_{};
};

}  // namespace orvenza
