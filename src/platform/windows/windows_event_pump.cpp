#include "platform/windows/windows_event_pump.h"

#include <windows.h>

#include <algorithm>
#include <utility>

#include "platform/windows/steady_time.h"
#include "platform/windows/system_functions.h"

namespace orvenza {
namespace {

using std::chrono::nanoseconds;

/// Longer waits and delays are cut to this.
constexpr nanoseconds kLongestWait = std::chrono::hours(24 * 365);

/// Most messages per delivery. A window that never runs out of messages (one that does not validate its paint
/// region, say) must not starve the timers.
constexpr int kMostMessages = 1000;

/// Resolution requested from the system's timer, in milliseconds.
constexpr UINT kResolution = 1;

nanoseconds Bounded(nanoseconds wait) { return std::clamp(wait, nanoseconds::zero(), kLongestWait); }

/// Starts or ends the finer resolution. Windows would search the program's folder for this library first.
void AskForResolution(const char* function) {
  using AskType = UINT(WINAPI*)(UINT);
  if (const auto ask = FindFunction<AskType>(L"winmm.dll", function)) ask(kResolution);
}

/// Rounded up, so that a wait does not end too early.
DWORD Milliseconds(nanoseconds wait) {
  constexpr std::int64_t kMost = INFINITE - 1;
  const auto count = std::chrono::ceil<std::chrono::milliseconds>(wait).count();
  return static_cast<DWORD>(std::min<std::int64_t>(count, kMost));
}

}  // namespace

WindowsEventPump::WindowsEventPump() { AskForResolution("timeBeginPeriod"); }

WindowsEventPump::~WindowsEventPump() { AskForResolution("timeEndPeriod"); }

void WindowsEventPump::Dispatch() { Deliver(); }

void WindowsEventPump::WaitForEvent(nanoseconds limit) {
  const Moment end = SteadyTime() + Bounded(limit);
  bool woken = false;
  do woken = Sleep(end);
  while (!Deliver() && !woken && SteadyTime() < end);
}

void WindowsEventPump::After(nanoseconds delay, std::function<void()> action) {
  timers_.emplace(SteadyTime() + Bounded(delay), Timer{nextNumber_++, std::move(action)});
}

void WindowsEventPump::AddDialog(void* window) { dialogs_.push_back(window); }

void WindowsEventPump::RemoveDialog(void* window) { std::erase(dialogs_, window); }

/// Sleeps until a message arrives or a timer falls due, at most until `end`. True for a message, including
/// one that the system delivers to its window directly.
bool WindowsEventPump::Sleep(Moment end) const {
  if (!timers_.empty()) end = std::min(end, timers_.begin()->first);
  const DWORD limit = Milliseconds(Bounded(end - SteadyTime()));
  return ::MsgWaitForMultipleObjectsEx(0, nullptr, limit, QS_ALLINPUT, MWMO_INPUTAVAILABLE) == WAIT_OBJECT_0;
}

bool WindowsEventPump::Deliver() {
  const bool messages = DeliverMessages();
  const bool timers = DeliverTimers();
  return messages || timers;
}

bool WindowsEventPump::DeliverMessages() {
  int count = 0;
  MSG message{};
  while (count < kMostMessages && ::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    ++count;
    if (message.message == WM_QUIT) {
      if (const auto handler = onTerminate_) handler();
      continue;
    }
    const HWND window = message.hwnd == nullptr ? nullptr : ::GetAncestor(message.hwnd, GA_ROOT);
    const bool isDialog = std::find(dialogs_.begin(), dialogs_.end(), window) != dialogs_.end();
    if (isDialog && ::IsDialogMessageW(window, &message)) continue;
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
  return count > 0;
}

bool WindowsEventPump::DeliverTimers() {
  // Timers added by these actions wait for the next delivery, so that this one ends. The number decides,
  // since the clock may show the same moment twice.
  const Moment now = SteadyTime();
  const std::uint64_t end = nextNumber_;
  bool delivered = false;
  for (auto first = timers_.begin(); first != timers_.end(); first = timers_.begin()) {
    if (first->first > now || first->second.number >= end) break;
    const auto action = std::move(first->second.action);
    timers_.erase(first);
    delivered = true;
    action();
  }
  return delivered;
}

}  // namespace orvenza
