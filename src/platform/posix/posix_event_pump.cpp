#include "platform/posix/posix_event_pump.h"

#include <poll.h>
#ifdef __linux__
#include <sys/prctl.h>
#endif

#include <algorithm>
#include <ctime>

namespace orvenza {
namespace {

using std::chrono::nanoseconds;

/// Longer waits and delays are cut to this.
constexpr nanoseconds kLongestWait = std::chrono::hours(24 * 365);

nanoseconds Now() { return std::chrono::steady_clock::now().time_since_epoch(); }

nanoseconds Bounded(nanoseconds wait) { return std::clamp(wait, nanoseconds::zero(), kLongestWait); }

timespec ToTimespec(nanoseconds time) {
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time);
  timespec result{};
  result.tv_sec = static_cast<std::time_t>(seconds.count());
  result.tv_nsec = static_cast<long>((time - seconds).count());
  return result;
}

}  // namespace

PosixEventPump::PosixEventPump() {
#ifdef __linux__
  // By default the kernel may delay each wakeup by 50 microseconds.
  ::prctl(PR_SET_TIMERSLACK, 1000UL, 0UL, 0UL, 0UL);
#endif
}

void PosixEventPump::Dispatch() {
  Collect(nanoseconds::zero());
  Deliver();
}

void PosixEventPump::WaitForEvent(nanoseconds limit) {
  const Moment end = Now() + Bounded(limit);
  do Collect(TimeToNextEvent(end));
  while (!Deliver() && Now() < end);
}

void PosixEventPump::After(nanoseconds delay, std::function<void()> action) {
  timers_.emplace(Now() + Bounded(delay), std::move(action));
}

void PosixEventPump::WatchInput(int descriptor, std::function<void(const std::string&)> onLine,
                                std::function<void()> onEnd) {
  input_.emplace(descriptor);
  onLine_ = std::move(onLine);
  onEnd_ = std::move(onEnd);
}

void PosixEventPump::OnTerminate(std::function<void()> handler) {
  onTerminate_ = std::move(handler);
  if (!signals_) signals_.emplace();
}

bool PosixEventPump::InputReady() const { return input_ && (input_->HasLine() || input_->Ended()); }

nanoseconds PosixEventPump::TimeToNextEvent(Moment end) const {
  if (signalsWaiting_ > 0 || InputReady()) return nanoseconds::zero();
  if (!timers_.empty()) end = std::min(end, timers_.begin()->first);
  return Bounded(end - Now());
}

void PosixEventPump::Collect(nanoseconds limit) {
  const bool readInput = input_ && !InputReady();
  // poll ignores negative descriptors.
  pollfd watched[] = {{readInput ? input_->Descriptor() : -1, POLLIN, 0},
                      {signals_ ? signals_->ReadEnd() : -1, POLLIN, 0}};
  const timespec timeout = ToTimespec(limit);
  if (::ppoll(watched, std::size(watched), &timeout, nullptr) <= 0) return;
  if (watched[0].revents != 0) input_->Collect();
  if (watched[1].revents != 0) signalsWaiting_ += signals_->Take();
}

bool PosixEventPump::Deliver() {
  const bool signals = DeliverSignals();
  const bool timers = DeliverTimers();
  const bool input = DeliverInput();
  return signals || timers || input;
}

bool PosixEventPump::DeliverSignals() {
  bool delivered = false;
  while (signalsWaiting_ > 0) {
    --signalsWaiting_;
    delivered = true;
    const auto handler = onTerminate_;
    handler();
  }
  return delivered;
}

bool PosixEventPump::DeliverTimers() {
  // Timers added by these actions wait for the next delivery, so that this one ends.
  const Moment now = Now();
  bool delivered = false;
  for (auto first = timers_.begin(); first != timers_.end(); first = timers_.begin()) {
    if (first->first > now) break;
    const auto action = std::move(first->second);
    timers_.erase(first);
    delivered = true;
    action();
  }
  return delivered;
}

bool PosixEventPump::DeliverInput() {
  if (!InputReady()) return false;
  if (input_->HasLine()) {
    const auto handler = onLine_;
    handler(input_->TakeLine());
  } else {
    input_.reset();
    onLine_ = nullptr;
    const auto handler = std::exchange(onEnd_, nullptr);
    handler();
  }
  return true;
}

}  // namespace orvenza
