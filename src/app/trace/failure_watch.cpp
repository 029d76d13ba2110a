#include "app/trace/failure_watch.h"

#include "platform/system_error.h"

namespace orvenza {

void FailureWatch::Failed(const std::string& attempt, int number) {
  if (failing_.size() >= kMostFailing && !failing_.contains(attempt)) failing_.clear();
  const auto [known, isNew] = failing_.try_emplace(attempt, number);
  if (!isNew && known->second == number) return;
  known->second = number;
  recorder_.Add("failed",
                attempt + ": " + std::to_string(number) + " " + std::string(StandardDescription(number)));
}

void FailureWatch::Worked(const std::string& attempt) {
  if (failing_.erase(attempt) > 0) recorder_.Add("works", attempt);
}

}  // namespace orvenza
