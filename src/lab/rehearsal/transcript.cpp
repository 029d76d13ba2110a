#include "lab/rehearsal/transcript.h"

#include <cstdio>
#include <utility>

namespace orvenza {
namespace {

using std::chrono::milliseconds;

constexpr std::string_view kTick = "tick";

}  // namespace

std::string TranscriptLine(const RehearsalEvent& event) {
  char head[80];
  std::snprintf(head, sizeof head, "%9lld  %-9.*s", static_cast<long long>(event.at.count()),
                static_cast<int>(event.kind.size()), event.kind.data());
  std::string line(head);
  if (event.text.empty()) line.erase(line.find_last_not_of(' ') + 1);
  if (!event.text.empty()) line += " " + event.text;
  if (event.times > 1) line += " (" + std::to_string(event.times) + " times)";
  return line;
}

milliseconds Transcript::Now() const { return std::chrono::floor<milliseconds>(clock_.Uptime()); }

void Transcript::Add(std::string_view kind, std::string text) {
  TellTicks();
  const milliseconds now = Now();
  if (told_ < events_.size()) {
    RehearsalEvent& last = events_.back();
    if (last.at == now && last.kind == kind && last.text == text) {
      ++last.times;
      return;
    }
  }
  Append({now, kind, std::move(text)});
}

void Transcript::Tick() {
  if (ticks_ == 0) firstTick_ = Now();
  lastTick_ = Now();
  ++ticks_;
}

void Transcript::Close() {
  TellTicks();
  if (told_ < events_.size() && sink_) sink_(TranscriptLine(events_.back()));
  told_ = events_.size();
}

/// The last event is held back, since it may be repeated.
void Transcript::Append(RehearsalEvent event) {
  Close();
  events_.push_back(std::move(event));
}

void Transcript::TellTicks() {
  if (ticks_ == 0) return;
  // The current tick is not idle if something happens now.
  const std::size_t acting = lastTick_ == Now() ? 1 : 0;
  const std::size_t idle = std::exchange(ticks_, 0) - acting;
  const std::string until = idle > 1 ? std::to_string(idle) + " idle ones" : "idle";
  if (idle > 0) Append({firstTick_, kTick, until});
  if (acting > 0) Append({lastTick_, kTick, {}});
}

}  // namespace orvenza
