// The whole connector prints a receipt of 40 items on the simulated register at 19200-O-7-1, in real time,
// compared with the transmission time of the same characters.

#include <benchmark/benchmark.h>

#include "app/connector.h"
#include "bench_folder.h"
#include "platform/ini_profile_file.h"
#include "platform/posix/posix_clock.h"
#include "platform/posix/posix_event_pump.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/posix_folders.h"
#include "simulator/scripted_operator.h"
#include "simulator/simulated_link.h"

namespace orvenza {
namespace {

constexpr double kBitsPerCharacter = 10;
constexpr double kBitsPerSecond = 19200;

class NoIcon : public NotificationIcon {
 public:
  void CreateIcon(const std::string&) override {}
  void DeleteIcon() override {}
};

std::string FortyItems() {
  std::string ticket;
  for (int item = 0; item < 40; ++item) ticket += "1;PANE CASERECCIO;1,000;150;1;;;1;;\r\n";
  return ticket + "2;1;6000;;;\r\n";
}

void WriteSettings(const BenchFolder& folder, const std::string& more) {
  folder.Write("Orvenza.ini", "[Version]\r\nVersion=1.06\r\n[Database]\r\nTicketFiles=" + folder.Path() +
                                  "/data/*.txt\r\nHistoricTickets=" + folder.Path() +
                                  "/storico/\r\n[Com Settings]\r\nComPort=1\r\nSettings=19200,O,7,1\r\n"
                                  "TimeWaitForEtx=10000\r\n[General]\r\nSeparator (ascii,max 127)=59\r\n" +
                                  more);
}

/// `settings` are further lines of the settings file.
void Receipt(benchmark::State& state, const std::string& settings) {
  for ([[maybe_unused]] auto iteration : state) {
    const BenchFolder folder;
    WriteSettings(folder, settings);
    folder.Write("data/a.txt", FortyItems());
    PosixFiles files;
    PosixFolders folders;
    PosixClock clock;
    PosixEventPump pump;
    IniProfileFile profile(files);
    EventLoop loop(clock, pump);
    ScriptedOperator nobody(loop);
    NoIcon icon;
    PaperRoll paper;
    SimulatedRegister device(clock, paper);
    SimulatedLink link(device, pump);

    // From the status query before the ticket to the reply that closes it.
    std::chrono::nanoseconds start{};
    std::chrono::nanoseconds end{};
    std::size_t characters = 0;
    bool identified = false;
    link.SetObserver([&](LineEvent event, const std::string& text) {
      if (event == LineEvent::kSent && text.starts_with("3217") && identified) start = clock.Uptime();
      if (event == LineEvent::kSent && text.starts_with("1999")) identified = true;
      if (start.count() == 0 || (event != LineEvent::kSent && event != LineEvent::kReceived)) return;
      characters += text.size();
      if (event == LineEvent::kReceived && text.starts_with("1036")) {
        end = clock.Uptime();
        loop.RequestEnd({.unload = true});
      }
    });
    Connector connector({files, folders, profile, clock, loop, nobody, icon, link},
                        {folder.Path(), "Orvenza"});
    connector.Run(false);

    const double total = std::chrono::duration<double>(end - start).count();
    const double line = static_cast<double>(characters) * kBitsPerCharacter / kBitsPerSecond;
    state.SetIterationTime(total);
    state.counters["line_s"] = line;
    state.counters["total_s"] = total;
    state.counters["total_to_line"] = total / line;
  }
}
BENCHMARK_CAPTURE(Receipt, Contract, "")
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(5)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Receipt, AskInDoubt, "[Safety]\r\nAskInDoubt=1\r\n")
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(5)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace orvenza

BENCHMARK_MAIN();
