#include "app/trace/transcript.h"

#include <utility>

namespace orvenza {

using std::chrono::milliseconds;

milliseconds Transcript::Now() const { return std::chrono::floor<milliseconds>(clock_.Uptime()); }

void Transcript::Add(std::string_view kind, std::string text) {
  TellTicks();
  const milliseconds now = Now();
  if (told_ < events_.size()) {
    TranscriptEvent& last = events_.back();
    if (last.at == now && last.kind == kind && last.text == text) {
      ++last.times;
      return;
    }
  }
  Append({now, kind, std::move(text)});
}

void Transcript::Tick() { ticks_.Note(Now()); }

void Transcript::Close() {
  TellTicks();
  if (told_ < events_.size() && sink_) sink_(TranscriptLine(events_.back()));
  told_ = events_.size();
}

/// The last event is held back, since it may be repeated.
void Transcript::Append(TranscriptEvent event) {
  Close();
  events_.push_back(std::move(event));
}

void Transcript::TellTicks() {
  // The current tick is not idle if something happens now.
  for (TranscriptEvent& event : ticks_.Tell(ticks_.Latest() == Now())) Append(std::move(event));
}

}  // namespace orvenza
