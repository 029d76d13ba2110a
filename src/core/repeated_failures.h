#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "core/logs.h"

namespace orvenza {

/// The trap for steps that run in rounds, tick after tick. A failure in every round would fill both error
/// logs within half an hour. So it is written the first ten times, then once a minute with its count, and
/// once more when it has ended.
class RepeatedFailures {
 public:
  static constexpr int kWrittenAtFirst = 10;
  static constexpr std::chrono::minutes kBetweenLines{1};
  static constexpr int kRoundsToEnd = 10;

  explicit RepeatedFailures(Logs& logs) : logs_(logs) {}

  /// Like Logs::Attempt. Failures with the same line are the same failure.
  bool Attempt(std::string_view label, const std::function<void()>& step);

  /// Ends a round. A failure has ended when it has not occurred for ten rounds, as not every round reaches
  /// its step.
  void EndRound();

 private:
  struct Failure {
    int count = 0;
    int roundsWithout = 0;
    std::chrono::nanoseconds written{};  ///< When its last line was written.
  };

  void Note(const std::string& line);

  Logs& logs_;
  std::map<std::string, Failure> failures_;  ///< Keyed by their lines.
};

}  // namespace orvenza
