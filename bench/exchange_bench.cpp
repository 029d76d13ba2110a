// The connector's own time per exchange, without register and line, compared with a bare sleep as long as the
// line's time and with a loop that always sleeps its whole slice of 10 ms. Real time: the reply is an event
// that falls due after a fixed line time.

#include <benchmark/benchmark.h>
#include <time.h>

#include <algorithm>
#include <vector>

#include "bench_folder.h"
#include "core/event_loop.h"
#include "core/logs.h"
#include "device/device_link.h"
#include "platform/ini_profile_file.h"
#include "platform/posix/posix_clock.h"
#include "platform/posix/posix_event_pump.h"
#include "platform/posix/posix_files.h"
#include "simulator/scripted_operator.h"

namespace orvenza {
namespace {

using namespace std::chrono_literals;

/// Transmission time of an item command of 85 characters and its reply at 19200 bits per second.
constexpr auto kLineTime = 46ms;

/// Answers every command after the line time.
class PromptControl : public EcrLink {
 public:
  explicit PromptControl(Scheduler& scheduler) : scheduler_(scheduler) {}
  void SetEvents(EcrLinkEvents* events) override { events_ = events; }
  std::string RxMessage() override { return "1003"; }
  void SetMessage(const std::string&) override {}
  void Send() override {
    scheduler_.After(kLineTime, [this] { events_->ReplyReceived(); });
  }
  bool DevicePresent() override { return true; }
  bool PortOpen() override { return true; }
  void SetPortOpen(bool) override {}
  void SetReset(bool) override {}
  void SetProperty(LinkProperty, int) override {}

 private:
  Scheduler& scheduler_;
  EcrLinkEvents* events_ = nullptr;
};

/// A pump whose waits do not end early when an event arrives.
class WholeSlices : public EventPump {
 public:
  explicit WholeSlices(EventPump& real) : real_(real) {}
  void Dispatch() override { real_.Dispatch(); }
  void WaitForEvent(std::chrono::nanoseconds limit) override {
    const timespec whole{0, static_cast<long>(limit.count())};
    nanosleep(&whole, nullptr);
    real_.Dispatch();
  }

 private:
  EventPump& real_;
};

/// Reports a bench's times beyond the line's time, in seconds.
void Report(benchmark::State& state, std::vector<double> own) {
  std::sort(own.begin(), own.end());
  state.counters["own_median_us"] = own[own.size() / 2] * 1e6;
  state.counters["own_p99_us"] = own[own.size() * 99 / 100] * 1e6;
}

/// A sleep as long as the line's time, which shows the overshoot of the system itself.
void BareSleep(benchmark::State& state) {
  const PosixClock clock;
  const timespec whole{0, static_cast<long>(std::chrono::nanoseconds(kLineTime).count())};
  std::vector<double> own;
  for ([[maybe_unused]] auto iteration : state) {
    const auto start = clock.Uptime();
    nanosleep(&whole, nullptr);
    const double seconds = std::chrono::duration<double>(clock.Uptime() - start - kLineTime).count();
    state.SetIterationTime(seconds);
    own.push_back(seconds);
  }
  Report(state, std::move(own));
}

void Exchange(benchmark::State& state, bool wholeSlices) {
  const BenchFolder folder;
  PosixFiles files;
  PosixClock clock;
  PosixEventPump realPump;
  WholeSlices slicedPump(realPump);
  EventLoop loop(clock, wholeSlices ? static_cast<EventPump&>(slicedPump) : realPump);
  AppSettings settings;
  Logs logs(files, clock, settings, folder.Path());
  IniProfileFile profile(files);
  ScriptedOperator nobody(loop);
  OperatorMessages messages(nobody, "bench");
  PortDialog ports(nobody, settings, profile, {folder.Path(), "bench"});
  PromptControl control(realPump);
  LinkDialogs dialogs(messages, ports, logs);
  DeviceLink link(control, settings, logs, dialogs, loop, clock);

  std::vector<double> own;
  for ([[maybe_unused]] auto iteration : state) {
    const auto start = clock.Uptime();
    link.Exchange("1003");
    const double seconds = std::chrono::duration<double>(clock.Uptime() - start - kLineTime).count();
    state.SetIterationTime(seconds);
    own.push_back(seconds);
  }
  Report(state, std::move(own));
}

BENCHMARK(BareSleep)->UseManualTime()->Iterations(200)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Exchange, EventEndsTheWait, false)
    ->UseManualTime()
    ->Iterations(200)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Exchange, WholeSlicesOf10ms, true)
    ->UseManualTime()
    ->Iterations(200)
    ->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace orvenza

BENCHMARK_MAIN();
