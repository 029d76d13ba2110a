#include "app/trace/trace.h"

#include <exception>
#include <new>
#include <utility>

#include "core/text.h"
#include "platform/system_error.h"

namespace orvenza {
namespace {

constexpr const char* kLabel = "Trace - ";

/// Whether an event of this kind comes from outside a tick, so that the latest tick was idle.
bool IsOutsideTicks(std::string_view kind) { return kind == "menu" || kind == "world" || kind == "end"; }

}  // namespace

Trace::Trace(Files& files, const Clock& clock, Logs& logs, std::string path)
    : clock_(clock), logs_(logs), path_(path), file_(files, std::move(path)), time_(clock) {}

void Trace::Start(std::vector<TranscriptEvent> head) {
  std::string text;
  for (const TranscriptEvent& event : head) text += Line(time_.Now(), event);
  Write(text);
  head_ = std::move(head);
  if (!head_.empty()) head_.front().kind = "continued";
}

void Trace::Add(std::string_view kind, std::string text) { AddWithLines(kind, text, {}); }

void Trace::AddWithLines(std::string_view kind, const std::string& text,
                         const std::vector<std::string>& lines) {
  TellJump(false);
  TellTicks(!IsOutsideTicks(kind));
  std::string all = Line(time_.Now(), {{}, kind, text});
  for (const std::string& line : lines) all.append("  | ").append(line).append(kLineBreak);
  Write(all);
}

void Trace::Tick() {
  TellJump(false);
  ticks_.Note(time_.Now().time_since_epoch());
}

void Trace::ClockSet() { TellJump(true); }

std::string Trace::Line(TraceTime at, const TranscriptEvent& event) const {
  return TraceStamp(at).append("  ").append(EventWords(event)).append(kLineBreak);
}

void Trace::TellTicks(bool latestActs) {
  for (const TranscriptEvent& event : ticks_.Tell(latestActs)) Write(Line(TraceTime(event.at), event));
}

/// The line has the time before the jump, and names the one behind it.
void Trace::TellJump(bool set) {
  const TraceTime before = time_.Now();
  const auto after = time_.Jump(set);
  if (!after) return;
  TellTicks(set);
  Write(Line(before, {{}, "clock", "jumps to " + TraceStamp(*after)}));
}

void Trace::Write(const std::string& text) {
  if (lost_ > 0 && clock_.Uptime() < pausedUntil_) {
    ++lost_;
    return;
  }
  const auto failure = Logs::FailureOf(kLabel, [&] { WriteAtOnce(text); });
  if (!failure) return;
  ++lost_;
  pausedUntil_ = clock_.Uptime() + kPauseAfterFailure;
  logs_.WrErr(std::string(*failure));
}

void Trace::WriteAtOnce(const std::string& text) {
  std::string all;
  // A failed write may have left a part of its line.
  if (lost_ > 0)
    all += std::string(kLineBreak) + Line(time_.Now(), {{}, "lost", std::to_string(lost_) + " lines"});
  if (file_.MakeRoom(text.size()) && !head_.empty()) {
    for (const TranscriptEvent& event : head_) all += Line(time_.Now(), event);
  }
  file_.Append(all + text);
  lost_ = 0;
}

}  // namespace orvenza
