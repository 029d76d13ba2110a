#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <utility>

#include "device/windows/com.h"
#include "platform/event_pump.h"

namespace orvenza::test {

/// Runs actions from the message loop of the stand-in's host.
class TimerScheduler : public Scheduler {
 public:
  TimerScheduler();
  ~TimerScheduler() override;
  TimerScheduler(const TimerScheduler&) = delete;
  TimerScheduler& operator=(const TimerScheduler&) = delete;

  void After(std::chrono::nanoseconds delay, std::function<void()> action) override;

  /// Runs the due actions without waiting for the message loop.
  void RunDue();

 private:
  using Moment = std::pair<std::chrono::steady_clock::time_point, std::uint64_t>;

  static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void Arm();

  HWND window_;
  std::map<Moment, std::function<void()>> actions_;
  std::uint64_t next_ = 0;
};

}  // namespace orvenza::test
