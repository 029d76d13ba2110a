#include "core/repeated_failures.h"

#include <iterator>

#include "core/own_texts.h"

namespace orvenza {
namespace {

std::string WithCount(const char* what, int count, const std::string& line) {
  return std::string(what) + " ( " + std::to_string(count) + " " + own_text::kTimes + " ) : " + line;
}

}  // namespace

bool RepeatedFailures::Attempt(std::string_view label, const std::function<void()>& step) {
  const auto line = Logs::FailureOf(label, step);
  if (line) Note(*line);
  return !line;
}

void RepeatedFailures::Note(const std::string& line) {
  Failure& failure = failures_[line];
  failure.roundsWithout = -1;  // counted up to 0 at the end of this round
  ++failure.count;
  const auto now = logs_.StampClock().Uptime();
  if (failure.count <= kWrittenAtFirst) {
    logs_.WrErr(std::string(line));
  } else if (now - failure.written >= kBetweenLines) {
    logs_.WrErr(WithCount(own_text::kFailureRepeated, failure.count, line));
  } else {
    return;
  }
  failure.written = now;
}

void RepeatedFailures::EndRound() {
  for (auto at = failures_.begin(); at != failures_.end();) {
    auto& [line, failure] = *at;
    const bool ended = ++failure.roundsWithout == kRoundsToEnd;
    if (ended && failure.count > kWrittenAtFirst) {
      logs_.WrErr(WithCount(own_text::kFailureEnded, failure.count, line));
    }
    at = ended ? failures_.erase(at) : std::next(at);
  }
}

}  // namespace orvenza
