#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/trace/event_recorder.h"
#include "app/trace/idle_ticks.h"
#include "app/trace/transcript_event.h"
#include "platform/clock.h"

namespace orvenza {

/// The events of a rehearsal in order. Immediate repetitions are merged, and so are idle ticks.
class Transcript : public EventRecorder {
 public:
  /// `sink` receives each line once it is complete; may be null. `clock` must outlive the transcript.
  using Sink = std::function<void(const std::string& line)>;
  Transcript(const Clock& clock, Sink sink) : clock_(clock), sink_(std::move(sink)) {}

  void Add(std::string_view kind, std::string text = {}) override;

  /// Records the start of a tick.
  void Tick();

  /// Ends the transcript.
  void Close();

  const std::vector<TranscriptEvent>& Events() const { return events_; }

 private:
  std::chrono::milliseconds Now() const;
  void Append(TranscriptEvent event);
  void TellTicks();

  const Clock& clock_;
  Sink sink_;
  std::vector<TranscriptEvent> events_;
  std::size_t told_ = 0;  ///< Number of events passed to the sink.
  IdleTicks ticks_;
};

}  // namespace orvenza
