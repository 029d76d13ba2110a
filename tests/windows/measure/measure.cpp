// Measures the cost of the finished program with its windows and the stand-in for the control. A program of
// its own, not a test.

#include <windows.h>
// Requires <windows.h>.
#include <psapi.h>

#include <algorithm>
#include <exception>
#include <iostream>

#include "ui/windows/names.h"
#include "windows/control.h"
#include "windows/till.h"

namespace orvenza::test {
namespace {

using Clock = std::chrono::steady_clock;

constexpr DWORD kIdle = 60'000;

double MillisecondsSince(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

void Report(const char* what, std::vector<double> values, const char* unit) {
  std::sort(values.begin(), values.end());
  std::cout << what << ": median " << values[values.size() / 2] << ", " << values.front() << " to "
            << values.back() << " " << unit << std::endl;
}

/// Processor time used so far, in milliseconds.
double UsedBy(HANDLE process) {
  FILETIME created;
  FILETIME ended;
  FILETIME times[2];
  GetProcessTimes(process, &created, &ended, &times[0], &times[1]);
  double used = 0;
  for (const FILETIME& time : times)
    used += (time.dwHighDateTime * 4294967296.0 + time.dwLowDateTime) / 10'000;
  return used;
}

void StartToIcon() {
  std::vector<double> times;
  for (int i = 0; i < 11; ++i) {
    const Shop shop;
    const Control control(shop.folder);
    const auto start = Clock::now();
    const Till till(shop, Till::Link::kControl);  // without the register's window, as in a shop
    till.AwaitIcon();
    times.push_back(MillisecondsSince(start));
  }
  Report("start to icon", times, "ms");
}

void IdleProgram() {
  const Shop shop;
  const Control control(shop.folder);
  const Till till(shop, Till::Link::kControl);
  till.AwaitStart();
  WaitForSingleObject(till.Process(), 2'000);
  const double before = UsedBy(till.Process());
  WaitForSingleObject(till.Process(), kIdle);
  std::cout << "idle processor time: " << (UsedBy(till.Process()) - before) * 100 / kIdle
            << " % of one core\n";
  PROCESS_MEMORY_COUNTERS counters{};
  GetProcessMemoryInfo(till.Process(), &counters, sizeof counters);
  std::cout << "working set: " << counters.WorkingSetSize / 1024
            << " kB, committed: " << counters.PagefileUsage / 1024 << " kB\n";
}

void DroppedToFirstCommand() {
  std::vector<double> times;
  const Shop shop;
  const Control control(shop.folder);
  const Till till(shop, Till::Link::kControl);
  till.AwaitStart();
  for (int i = 1; i <= 21; ++i) {
    const auto start = Clock::now();
    const auto before = shop.folder.Read("standin.log").size();
    shop.Drop(std::to_string(i) + ".txt", "1;Pane;1,000;250;1;;;1;;\r\n2;1;250;\r\n");
    till.Await("the command",
               [&] { return shop.folder.Read("standin.log").find("sent", before) != std::string::npos; });
    times.push_back(MillisecondsSince(start));
    till.Await("the ticket", [&] { return shop.folder.Has("storico\\" + std::to_string(i) + ".txt"); });
  }
  Report("dropped to first command", times, "ms");
}

void ExchangeThroughTheControl() {
  constexpr int kItems = 150;
  std::string receipt;
  for (int i = 0; i < kItems; ++i) receipt += "1;Pane;1,000;250;1;;;1;;\r\n";
  receipt += "2;1;0;\r\n";
  std::vector<double> times;
  const Shop shop;
  const Control control(shop.folder);
  SetEnvironmentVariableA("ORVENZA_STANDIN_LOG", nullptr);
  const Till till(shop, Till::Link::kControl);
  till.AwaitStart();
  for (int i = 1; i <= 11; ++i) {
    shop.Drop(std::to_string(i) + ".txt", receipt);
    till.Await("the start", [&] { return shop.Journal("Log.txt").back() == "Start Scontrino"; });
    const auto start = Clock::now();
    till.Await("the end", [&] { return shop.Journal("Log.txt").back() == "End Scontrino"; });
    times.push_back(MillisecondsSince(start) / kItems);
  }
  Report("exchange", times, "ms");
}

}  // namespace
}  // namespace orvenza::test

int main() {
  using namespace orvenza::test;
  try {
    StartToIcon();
    IdleProgram();
    DroppedToFirstCommand();
    ExchangeThroughTheControl();
    return 0;
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << "\n";
    return 1;
  }
}
