#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "lab/commands.h"
#include "lab/shell/fake_machine.h"
#include "lab/shell/run_lab.h"
#include "simulator/virtual_clock.h"
#include "support/memory_files.h"
#include "support/system_seams.h"

namespace orvenza::test {

/// The lab with a text console, on files in memory.
class LabBench {
 public:
  explicit LabBench(std::vector<Command> commands = Commands()) : commands_(std::move(commands)) {}

  /// Runs a command line; returns its exit code.
  int Run(const std::vector<std::string>& words) { return RunLab(words, commands_, surroundings); }

  MemoryFiles files;
  SystemFolders folders;
  VirtualClock clock;
  FakeMachine machine;
  std::istringstream in;
  std::ostringstream out;
  std::ostringstream err;
  Console console{in, out, err};
  LabSurroundings surroundings{files, folders, clock, clock, machine, console, "home"};

 private:
  std::vector<Command> commands_;
};

}  // namespace orvenza::test
