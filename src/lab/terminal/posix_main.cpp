// The integrator's tool in a terminal: creates the objects, wires them and runs.

#include <unistd.h>

#include <filesystem>
#include <iostream>

#include "core/build_version.h"
#include "lab/commands.h"
#include "lab/shell/posix/posix_machine.h"
#include "lab/shell/run_lab.h"
#include "platform/posix/posix_clock.h"
#include "platform/posix/posix_event_pump.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/posix_folders.h"

namespace {

std::string HomeFolder() {
  std::error_code unknown;
  return std::filesystem::read_symlink("/proc/self/exe", unknown).parent_path().string();
}

}  // namespace

int main(int argc, char** argv) {
  using namespace orvenza;
  std::ios::sync_with_stdio(false);
  PosixFiles files;
  PosixFolders folders;
  PosixClock clock;
  PosixEventPump pump;
  PosixMachine machine;
  const bool terminal = ::isatty(STDOUT_FILENO) != 0;
  Console console{std::cin, std::cout, std::cerr, terminal && WantsColours(), ::isatty(STDERR_FILENO) != 0,
                  terminal};
  LabSurroundings surroundings{files, folders, clock, pump, machine, console, HomeFolder(), BuildVersion()};
  return RunLab({argv + 1, argv + argc}, Commands(), surroundings);
}
