#include "core/event_loop.h"

namespace orvenza {

void EventLoop::RequestEnd(ProgramEnd end) {
  if (!end_) end_ = end;
}

void EventLoop::CheckEnd() const {
  if (end_) throw *end_;
}

void EventLoop::Wait(std::chrono::nanoseconds limit) {
  CheckEnd();
  pump_.WaitForEvent(limit);
  CheckEnd();
}

void EventLoop::Pause(std::chrono::milliseconds duration) {
  const auto deadline = clock_.Uptime() + duration;
  for (auto now = clock_.Uptime(); now < deadline; now = clock_.Uptime()) pump_.WaitForEvent(deadline - now);
}

}  // namespace orvenza
