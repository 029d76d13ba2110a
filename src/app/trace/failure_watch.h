#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

#include "app/trace/event_recorder.h"

namespace orvenza {

/// Records failures of the system: each when it begins or changes, and once more when the same attempt works
/// again, so that one that lasts does not fill the trace.
class FailureWatch {
 public:
  /// Of more failures at the same time the earlier ones are forgotten, so that days fill no memory.
  static constexpr std::size_t kMostFailing = 1000;

  /// `recorder` must outlive the watch.
  explicit FailureWatch(EventRecorder& recorder) : recorder_(recorder) {}

  /// `attempt` is a verb and what it was tried with: "move data\1.txt"; `number` is that of the failure.
  void Failed(const std::string& attempt, int number);
  void Worked(const std::string& attempt);

  /// Whether anything fails at present.
  bool AnyFails() const { return !failing_.empty(); }

 private:
  EventRecorder& recorder_;
  std::map<std::string, int> failing_;
};

}  // namespace orvenza
