// The connector as a program of the notification area: builds the objects, wires them, runs.

#include <windows.h>

#include <optional>

#include "app/command_line.h"
#include "app/connector.h"
#include "app/simulation.h"
#include "core/version.h"
#include "device/windows/ecr_link_adapter.h"
#include "platform/instance_lock.h"
#include "platform/windows/program_place.h"
#include "platform/windows/windows_clock.h"
#include "platform/windows/windows_event_pump.h"
#include "platform/windows/windows_files.h"
#include "platform/windows/windows_folders.h"
#include "platform/windows/windows_profile_file.h"
#include "ui/windows/parent_console.h"
#include "ui/windows/windows_operator.h"

namespace {

using namespace orvenza;

constexpr const char* kMenu = "While it runs, its icon in the notification area opens the menu.";

int Refuse(const std::string& reason) {
  ShowNotice(ParentConsole(), "Orvenza: " + reason + "\n", true);
  return 2;
}

int RunConnector(const ProgramPaths& paths, const std::optional<FaultScript>& script) {
  std::optional<ParentConsole> console;
  if (script) console.emplace();
  WindowsFiles files;
  WindowsFolders folders;
  WindowsClock clock;
  WindowsEventPump pump;
  WindowsProfileFile profile;
  EventLoop loop(clock, pump);
  WindowsOperator person(loop, pump, paths.AppPath, paths.ExecutableName + " - " + kVersionText);
  std::optional<Simulation> simulation;
  std::optional<EcrLinkAdapter> control;
  if (script) {
    simulation.emplace(files, clock, pump, *script, paths.AppPath,
                       [&](const std::string& line) { console->Write(line + "\n"); });
  } else {
    control.emplace();
  }
  Connector connector({files, folders, profile, clock, loop, person, person,
                       simulation ? simulation->Control() : static_cast<EcrLink&>(*control)},
                      paths);
  person.SetMenuHandler([&](MenuItem item) { connector.OnMenu(item); });

  pump.OnTerminate([&] { loop.RequestEnd({.unload = true}); });

  const InstanceLock lock(paths.AppPath);
  connector.Run(!lock.Acquired());
  return 0;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  const CommandLine options = ParseCommandLine(CommandWords());
  if (!options.error.empty()) return Refuse(options.error + "; see --help");
  if (options.help) ShowNotice(ParentConsole(), Usage(kMenu), false);
  if (options.version) ShowNotice(ParentConsole(), std::string("Orvenza ") + kVersionText + "\n", false);
  if (options.help || options.version) return 0;
  try {
    const std::string folder = options.folder.empty() ? HomeFolder() : FullFolder(options.folder);
    if (!WindowsFolders().Exists(folder)) return Refuse(folder + " is not a folder");
    std::optional<FaultScript> script;
    if (options.simulate)
      script = options.script ? ReadFaultScript(WindowsFiles(), *options.script) : FaultScript{};
    return RunConnector({folder, ProgramName()}, script);
  } catch (const std::exception& failure) {
    return Refuse(failure.what());
  }
}
