#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "core/logs.h"

namespace orvenza {

/// The error trap of what runs in rounds, tick after tick. A failure that comes back in each of them would
/// fill both error logs within half an hour: it is written the first ten times, then once a minute with how
/// often it has come, and once more when it has ended.
class RepeatedFailures {
 public:
  static constexpr int kWrittenAtFirst = 10;
  static constexpr std::chrono::minutes kBetweenLines{1};
  static constexpr int kRoundsToEnd = 10;

  explicit RepeatedFailures(Logs& logs) : logs_(logs) {}

  /// As Logs::Attempt. A failure is the same as an earlier one when its line is.
  bool Attempt(std::string_view label, const std::function<void()>& step);

  /// A round is over. A failure has ended when it has not come for ten rounds: not every round gets as far as
  /// its step.
  void EndRound();

 private:
  struct Failure {
    int count = 0;
    int roundsWithout = 0;
    std::chrono::nanoseconds written{};  ///< When its last line was.
  };

  void Note(const std::string& line);

  Logs& logs_;
  std::map<std::string, Failure> failures_;  ///< By their lines.
};

}  // namespace orvenza
