// One tick with 10, 1,000 and 10,000 waiting ticket files, compared with a bare listing of the same folders
// with times. "Look" is the work of every tick: both lists and the command file. "Tick" also takes one ticket
// in, prints it on a register without delays, and archives it.

#include <benchmark/benchmark.h>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <utility>
#include <vector>

#include "app/connector.h"
#include "bench_folder.h"
#include "platform/ini_profile_file.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/posix_folders.h"
#include "simulator/scripted_operator.h"
#include "simulator/simulated_link.h"
#include "simulator/virtual_clock.h"

namespace orvenza {
namespace {

constexpr const char* kTicket = "1;PANE;1,000;150;1;;;1;;\r\n2;1;150;;;\r\n";

/// The polling loop and its objects, in a folder with `tickets` waiting tickets.
struct PollingShop {
  explicit PollingShop(int tickets) {
    for (int ticket = 0; ticket < tickets; ++ticket) Drop(ticket);
    folder.Write("inproces/x", "");
    folder.Write("abort/x", "");
    settings.SeparatorChar = ';';
    settings.TicketFolder = folder.Path() + "\\data\\";
    settings.TicketMask = "*.txt";
    settings.InProcessFolder = folder.Path() + "\\inproces\\";
    settings.AbortFolder = folder.Path() + "\\abort\\";
    settings.CommandFilePath = folder.Path() + "\\command.txt";
    settings.LogPath = folder.Path() + "\\Log.txt";
    settings.ComSettings = "19200,O,7,1";
    link.OpenDeviceLink(10000);
  }

  void Drop(int ticket) {
    char name[40];
    std::snprintf(name, sizeof name, "data/ticket_%05d.txt", ticket);
    folder.Write(name, kTicket);
  }

  BenchFolder folder;
  PosixFiles files;
  PosixFolders folders;
  VirtualClock clock;
  IniProfileFile profile{files};
  EventLoop loop{clock, clock};
  ScriptedOperator nobody{loop};
  AppSettings settings;
  Logs logs{files, clock, settings, folder.Path()};
  PollTimer timer{clock};
  OperatorMessages messages{nobody, "bench"};
  PortDialog ports{nobody, settings, profile, {folder.Path(), "bench"}};
  ErrorTexts texts{profile, folder.Path() + "\\ErrDesc.ini"};
  PaperRoll paper;
  SimulatedRegister device{clock, paper};
  SimulatedLink control{device, clock, ParseFaultScript("bench", "speed instant\n")};
  LinkDialogs dialogs{messages, ports, logs};
  DeviceLink link{control, settings, logs, dialogs, loop, clock};
  ClockCorrection correction{clock, settings, logs};
  CashDialogues cash{link, settings, logs, messages, dialogs, loop, correction};
  ErrorRecovery recovery{texts, settings, cash, nobody, logs, "bench"};
  RegisterQueries queries{link, cash, recovery, dialogs, logs, loop, timer};
  LogoDownload logo{link, settings, recovery, files, logs, messages};
  RecordTranslator translator{queries.Identity(), settings, files, logs};
  Evidence evidence{files, logs, folder.Path()};
  TicketWitnesses witnesses;
  RememberedTickets remembered{files, logs, folder.Path()};
  TicketArchive archive{files, folders, settings, logs, messages, remembered, witnesses};
  TicketSplitter splitter{files, settings, logs, archive, witnesses};
  LineSender sender{link, settings, cash, recovery, logo, translator, logs, witnesses};
  TicketProcessor processor{files,    settings, logs,    loop,     cash,
                            recovery, sender,   archive, evidence, witnesses};
  RepeatedFailures failures{logs};
  CommandFile commandFile{files, settings, logs, loop, link};
  TicketFolders ticketFolders{files, folders, settings, logs, loop, archive, remembered};
  TicketQueue queue{files,         settings, logs,      failures, commandFile,
                    ticketFolders, splitter, processor, archive};
  ClockCheck clockCheck{settings, queries, correction};
  TicketPolling polling{timer, failures, commandFile, ticketFolders, queue, clockCheck};
};

std::size_t ListBarely(const std::string& path) {
  std::vector<std::pair<std::string, time_t>> found;
  DIR* const folder = opendir(path.c_str());
  while (const dirent* entry = readdir(folder)) {
    struct stat status {};
    if (fstatat(dirfd(folder), entry->d_name, &status, 0) == 0)
      found.emplace_back(entry->d_name, status.st_mtime);
  }
  closedir(folder);
  return found.size();
}

void BareListing(benchmark::State& state) {
  const PollingShop shop(static_cast<int>(state.range(0)));
  for ([[maybe_unused]] auto iteration : state) {
    benchmark::DoNotOptimize(ListBarely(shop.folder.Path() + "/data"));
    benchmark::DoNotOptimize(ListBarely(shop.folder.Path() + "/inproces"));
  }
  state.SetComplexityN(state.range(0));
}

void Look(benchmark::State& state) {
  PollingShop shop(static_cast<int>(state.range(0)));
  for ([[maybe_unused]] auto iteration : state) {
    shop.ticketFolders.RefreshNewList();
    shop.ticketFolders.RefreshInProcessList();
    benchmark::DoNotOptimize(shop.files.Exists(shop.settings.CommandFilePath));
  }
  state.SetComplexityN(state.range(0));
}

void Tick(benchmark::State& state) {
  int ticket = static_cast<int>(state.range(0));
  PollingShop shop(ticket);
  for ([[maybe_unused]] auto iteration : state) {
    shop.polling.Tick();
    state.PauseTiming();
    shop.Drop(ticket++);
    state.ResumeTiming();
  }
  state.SetComplexityN(state.range(0));
}

BENCHMARK(BareListing)
    ->Arg(10)
    ->Arg(1000)
    ->Arg(10000)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity(benchmark::oNLogN);
BENCHMARK(Look)->Arg(10)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond)->Complexity(benchmark::oNLogN);
BENCHMARK(Tick)->Arg(10)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond)->Complexity(benchmark::oNLogN);

}  // namespace
}  // namespace orvenza

BENCHMARK_MAIN();
