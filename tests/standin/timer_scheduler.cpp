#include "standin/timer_scheduler.h"

#include <algorithm>

namespace orvenza::test {
namespace {

using Time = std::chrono::steady_clock;

constexpr UINT kDue = WM_APP;
constexpr UINT_PTR kTimer = 1;

}  // namespace

TimerScheduler::TimerScheduler()
    // A window class of the system: a class of our own would outlive its window procedure in this library.
    : window_(::CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr)) {
  ::SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  ::SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&OnMessage));
}

TimerScheduler::~TimerScheduler() {
  ::SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
  ::DestroyWindow(window_);
}

void TimerScheduler::After(std::chrono::nanoseconds delay, std::function<void()> action) {
  const auto due = Time::now() + std::chrono::duration_cast<Time::duration>(delay);
  actions_.emplace(Moment{due, next_++}, std::move(action));
  Arm();
}

LRESULT CALLBACK TimerScheduler::OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* scheduler = reinterpret_cast<TimerScheduler*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
  if (scheduler != nullptr && (message == kDue || message == WM_TIMER)) {
    scheduler->RunDue();
    return 0;
  }
  return ::DefWindowProcW(window, message, wParam, lParam);
}

void TimerScheduler::RunDue() {
  const HWND window = window_;
  const auto now = Time::now();
  while (!actions_.empty() && actions_.begin()->first.first <= now) {
    const auto action = std::move(actions_.begin()->second);
    actions_.erase(actions_.begin());
    action();
    // The action may have destroyed the control and this object.
    if (::IsWindow(window) == FALSE) return;
  }
  Arm();
}

void TimerScheduler::Arm() {
  ::KillTimer(window_, kTimer);
  if (actions_.empty()) return;
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(actions_.begin()->first.first - Time::now());
  if (left.count() <= 0) {
    ::PostMessageW(window_, kDue, 0, 0);
  } else {
    ::SetTimer(window_, kTimer, static_cast<UINT>(std::min<long long>(left.count(), 0x7FFFFFFF)), nullptr);
  }
}

}  // namespace orvenza::test
