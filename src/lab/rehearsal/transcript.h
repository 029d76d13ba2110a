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

/// The line of the transcript for an event.
std::string TranscriptLine(const RehearsalEvent& event);

/// The events of a rehearsal in their order. Those that repeat themselves at once are one, and so are ticks
/// in which nothing happens.
class Transcript {
 public:
  /// `sink` is handed each line once it is complete; null: nobody. `clock` must outlive the transcript.
  using Sink = std::function<void(const std::string& line)>;
  Transcript(const Clock& clock, Sink sink) : clock_(clock), sink_(std::move(sink)) {}

  /// Something happened now; `kind` is a constant.
  void Add(std::string_view kind, std::string text = {});

  /// A tick begins now.
  void Tick();

  /// Nothing more will happen.
  void Close();

  const std::vector<RehearsalEvent>& Events() const { return events_; }

 private:
  std::chrono::milliseconds Now() const;
  void Append(RehearsalEvent event);
  void TellTicks();

  const Clock& clock_;
  Sink sink_;
  std::vector<RehearsalEvent> events_;
  std::size_t told_ = 0;   ///< Events that the sink has had.
  std::size_t ticks_ = 0;  ///< Since the last event, the last one at `lastTick_`.
  std::chrono::milliseconds firstTick_{};
  std::chrono::milliseconds lastTick_{};
};

}  // namespace orvenza
