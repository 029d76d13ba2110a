#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "app/trace/event_recorder.h"
#include "app/trace/idle_ticks.h"
#include "app/trace/trace_file.h"
#include "app/trace/trace_time.h"
#include "core/logs.h"
#include "platform/clock.h"

namespace orvenza {

/// The trace of a running connector: the lines of a transcript, with the date and time of day. Each line is
/// on the disk when the call returns; only the idle ticks wait for the next event. No call fails: after a
/// failure one line goes to the error log, and for a minute nothing is tried and every line is lost.
class Trace : public EventRecorder {
 public:
  static constexpr std::chrono::minutes kPauseAfterFailure{1};

  /// `logs` receives the failures. All must outlive the trace.
  Trace(Files& files, const Clock& clock, Logs& logs, std::string path);

  const std::string& Path() const { return path_; }

  /// Writes the first lines of this run, with which every later file begins, too.
  void Start(std::vector<TranscriptEvent> head);

  void Add(std::string_view kind, std::string text = {}) override;

  /// An event with lines below it; each becomes "  | LINE".
  void AddWithLines(std::string_view kind, const std::string& text, const std::vector<std::string>& lines);

  /// Records the start of a tick.
  void Tick();

  /// Records that the connector itself has set the PC's clock.
  void ClockSet();

  /// Writes the idle ticks.
  void Close() { TellTicks(false); }

 private:
  std::string Line(TraceTime at, const TranscriptEvent& event) const;
  void TellTicks(bool latestActs);
  void TellJump(bool set);
  void Write(const std::string& text);
  void WriteAtOnce(const std::string& text);

  const Clock& clock_;
  Logs& logs_;
  std::string path_;
  TraceFile file_;
  TraceClock time_;
  std::vector<TranscriptEvent> head_;
  IdleTicks ticks_;
  std::size_t lost_ = 0;  ///< Writes that failed or were not tried.
  std::chrono::nanoseconds pausedUntil_{};
};

}  // namespace orvenza
