#include "app/trace/idle_ticks.h"

#include <string>
#include <utility>

namespace orvenza {
namespace {

constexpr std::string_view kTick = "tick";

}  // namespace

void IdleTicks::Note(std::chrono::milliseconds at) {
  if (count_ == 0) first_ = at;
  latest_ = at;
  ++count_;
}

std::vector<TranscriptEvent> IdleTicks::Tell(bool latestActs) {
  std::vector<TranscriptEvent> events;
  if (count_ == 0) return events;
  const std::size_t acting = latestActs ? 1 : 0;
  const std::size_t idle = std::exchange(count_, 0) - acting;
  if (idle > 0) events.push_back({first_, kTick, idle > 1 ? std::to_string(idle) + " idle ones" : "idle"});
  if (acting > 0) events.push_back({latest_, kTick, {}});
  return events;
}

}  // namespace orvenza
