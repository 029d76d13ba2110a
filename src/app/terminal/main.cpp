// The connector in a terminal: creates the objects, wires them and runs.

#include <sys/ioctl.h>
#include <unistd.h>

#include <filesystem>
#include <iostream>
#include <optional>

#include "app/command_line.h"
#include "app/connector.h"
#include "app/simulation.h"
#include "app/trace/tracing.h"
#include "core/build_version.h"
#include "core/text.h"
#include "platform/ini_profile_file.h"
#include "platform/instance_lock.h"
#include "platform/posix/native_path.h"
#include "platform/posix/posix_clock.h"
#include "platform/posix/posix_event_pump.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/posix_folders.h"
#include "platform/program_end.h"
#include "simulator/paced_time.h"
#include "ui/terminal/blocks.h"
#include "ui/terminal/terminal_operator.h"
#include "ui/terminal/text_box.h"

namespace {

using namespace orvenza;
namespace fs = std::filesystem;

constexpr int kStandardInput = 0;
constexpr int kStandardOutput = 1;

int Refuse(const std::string& reason) {
  std::cerr << "Orvenza: " << reason << "\n";
  return exit_status::kFailed;
}

/// Width of the terminal in characters; the default if the output is no terminal or its width is unknown.
std::size_t TerminalWidth() {
  winsize size{};
  const bool known = ::ioctl(kStandardOutput, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return known ? size.ws_col : TextBox::kWidth;
}

int RunConnector(const ProgramPaths& paths, const FaultScript& script) {
  PosixFiles files;
  PosixFolders folders;
  PosixClock clock;
  PosixEventPump pump;
  std::optional<PacedTime> paced;
  if (script.pace > 1) paced.emplace(TimeSeams{clock, pump, pump}, script.pace);
  const TimeSeams time = paced ? paced->Seams() : TimeSeams{clock, pump, pump};
  const InstanceLock lock(paths.AppPath);
  Tracing tracing(files, files, clock, paths, lock.Acquired());
  Files& seenFiles = tracing.WrapFiles(files);
  IniProfileFile profile(seenFiles);
  EventLoop loop(time.clock, tracing.WrapEventPump(time.pump));
  Simulation simulation(files, clock, time.scheduler, script, paths.AppPath, [](const std::string& line) {
    std::cout << "    |" << line << "\n" << std::flush;
  });
  TerminalOperator terminal(std::cout, loop, time.clock, ::isatty(kStandardOutput) != 0);
  terminal.SetPanel(simulation.Panel());
  Connector connector({seenFiles, tracing.WrapFolders(folders), profile, tracing.WrapClock(time.clock), loop,
                       tracing.WrapOperator(terminal), tracing.WrapNotificationIcon(terminal),
                       tracing.WrapEcrLink(simulation.Control())},
                      paths);
  tracing.Watch(connector.Settings(), loop);
  if (tracing.WantsTicks()) connector.SetTickObserver([&] { tracing.OnTick(); });
  terminal.SetWidth(TerminalWidth);
  terminal.SetTicketPlace([&] {
    const AppSettings& settings = connector.Settings();
    return DescribeTickets(NativePath(settings.TicketFilesSpec), settings.SeparatorChar);
  });
  terminal.SetMenuHandler([&](MenuItem item) { tracing.OnMenu(item, [&] { connector.OnMenu(item); }); });
  pump.WatchInput(
      kStandardInput, [&](const std::string& line) { terminal.OnLine(line); },
      [&] { terminal.OnEndOfInput(); });
  pump.OnTerminate([&] { loop.RequestEnd({.unload = true}); });

  const int status = connector.Run(!lock.Acquired());
  tracing.End(status);
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  const CommandLine options = ParseCommandLine({argv + 1, argv + argc});
  if (!options.error.empty()) return Refuse(options.error + "\nSee 'Orvenza --help'.");
  if (options.help)
    std::cout << Usage("While it runs, m and Enter open the menu, r and Enter the simulated register.");
  if (options.version) std::cout << "Orvenza " << BuildVersion() << "\n";
  if (options.help || options.version) return 0;
  if (!options.simulate) {
    return Refuse(
        "this system has no link control, so no register can be reached; use --simulate for a simulated one");
  }
  try {
    const fs::path program = fs::read_symlink("/proc/self/exe");
    const fs::path wanted = options.folder.empty() ? program.parent_path() : fs::path(options.folder);
    if (!fs::is_directory(wanted)) return Refuse(wanted.string() + " is not a folder");
    const fs::path folder = fs::canonical(wanted);
    return RunConnector({folder.string(), program.filename().string()},
                        options.script ? ReadFaultScript(PosixFiles(), *options.script) : FaultScript{});
  } catch (const std::exception& failure) {
    std::cerr << WithPrefix("Orvenza: ", failure.what()) << "\n";
    return exit_status::kFailed;
  }
}
