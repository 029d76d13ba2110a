// The integrator's tool at the Windows console: creates the objects, wires them and runs.

#include <windows.h>

#include <iostream>

#include "core/build_version.h"
#include "lab/commands.h"
#include "lab/shell/run_lab.h"
#include "lab/shell/windows/console_mode.h"
#include "lab/shell/windows/windows_machine.h"
#include "platform/windows/console_buffer.h"
#include "platform/windows/program_place.h"
#include "platform/windows/windows_clock.h"
#include "platform/windows/windows_event_pump.h"
#include "platform/windows/windows_files.h"
#include "platform/windows/windows_folders.h"

int main() {
  using namespace orvenza;
  const ConsoleMode mode;
  std::ios::sync_with_stdio(false);
  ConsoleBuffer outputBuffer(GetStdHandle(STD_OUTPUT_HANDLE));
  ConsoleBuffer errorBuffer(GetStdHandle(STD_ERROR_HANDLE));
  std::ostream output(mode.OutputIsConsole() ? &outputBuffer : std::cout.rdbuf());
  std::ostream error(mode.ErrorIsConsole() ? &errorBuffer : std::cerr.rdbuf());
  error << std::unitbuf;
  // As with the standard streams.
  error.tie(&output);
  std::cin.tie(&output);
  // A running connector must never find a log locked.
  WindowsFiles files(WhileRead::kEverything);
  WindowsFolders folders;
  WindowsClock clock;
  WindowsEventPump pump;
  WindowsMachine machine;
  Console console{std::cin,
                  output,
                  error,
                  mode.ShowsColours() && WantsColours(),
                  mode.ErrorIsConsole(),
                  mode.OutputIsConsole()};
  LabSurroundings surroundings{files, folders, clock, pump, machine, console, HomeFolder(), BuildVersion()};
  const int status = RunLab(CommandWords(), Commands(), surroundings);
  output.flush();  // before the console is restored
  return status;
}
