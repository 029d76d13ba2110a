// The connector in the notification area: creates the objects, wires them and runs.

#include <windows.h>

#include <optional>

#include "app/command_line.h"
#include "app/connector.h"
#include "app/simulation.h"
#include "app/trace/tracing.h"
#include "core/build_version.h"
#include "core/own_texts.h"
#include "core/version.h"
#include "device/windows/ecr_link_adapter.h"
#include "platform/ini_profile_file.h"
#include "platform/instance_lock.h"
#include "platform/program_end.h"
#include "platform/windows/parent_console.h"
#include "platform/windows/program_place.h"
#include "platform/windows/windows_clock.h"
#include "platform/windows/windows_event_pump.h"
#include "platform/windows/windows_files.h"
#include "platform/windows/windows_folders.h"
#include "simulator/paced_time.h"
#include "ui/operator_message.h"
#include "ui/windows/register_window.h"
#include "ui/windows/windows_operator.h"

namespace {

using namespace orvenza;

constexpr const char* kMenu = "While it runs, its icon in the notification area opens the menu.";

/// Informs the user: on the console, or in a message of the connector if console output would not be seen.
void Tell(const std::string& text, MessageIcon icon) {
  const ParentConsole console;
  if (console.IsThere()) return console.Write(text);
  std::string message;
  for (const char c : text.substr(0, text.find_last_not_of('\n') + 1)) {
    if (c == '\n') message += '\r';
    message += c;
  }
  try {
    WindowsClock clock;
    WindowsEventPump pump;
    EventLoop loop(clock, pump);
    WindowsOperator person(loop, pump, HomeFolder(), ProgramName());
    OperatorMessages(person, ProgramName()).ShowOperatorMessage(message, {icon}, {});
  } catch (const std::exception&) {
    // There is no other way to show it.
  } catch (const ProgramEnd&) {
    // The Windows session ends, so the message cannot be read any more.
  }
}

int Refuse(const std::string& reason) {
  Tell("Orvenza: " + reason + "\n", MessageIcon::kStop);
  return exit_status::kFailed;
}

int RunConnector(const ProgramPaths& paths, const std::optional<FaultScript>& script) {
  std::optional<ParentConsole> console;
  if (script) console.emplace();
  WindowsFiles files;
  WindowsFolders folders;
  WindowsClock clock;
  WindowsEventPump pump;
  std::optional<PacedTime> paced;
  if (script && script->pace > 1) paced.emplace(TimeSeams{clock, pump, pump}, script->pace);
  const TimeSeams time = paced ? paced->Seams() : TimeSeams{clock, pump, pump};
  WindowsFiles settingsFiles(WhileRead::kEverything);  // An editor may have them open.
  const InstanceLock lock(paths.AppPath);
  Tracing tracing(files, settingsFiles, clock, paths, lock.Acquired());
  IniProfileFile profile(tracing.WrapFiles(settingsFiles));
  EventLoop loop(time.clock, tracing.WrapEventPump(time.pump));
  WindowsOperator person(loop, pump, paths.AppPath, paths.ExecutableName + " - " + kVersionText);
  std::optional<Simulation> simulation;
  std::optional<EcrLinkAdapter> control;
  if (script) {
    simulation.emplace(files, clock, time.scheduler, *script, paths.AppPath,
                       [&](const std::string& line) { console->Write(line + "\n"); });
  } else {
    control.emplace();
  }
  EcrLink& link = simulation ? simulation->Control() : static_cast<EcrLink&>(*control);
  Connector connector(
      {tracing.WrapFiles(files), tracing.WrapFolders(folders), profile, tracing.WrapClock(time.clock), loop,
       tracing.WrapOperator(person), tracing.WrapNotificationIcon(person), tracing.WrapEcrLink(link)},
      paths);
  tracing.Watch(connector.Settings(), loop);
  if (tracing.WantsTicks()) connector.SetTickObserver([&] { tracing.OnTick(); });
  person.SetMenuHandler([&](MenuItem item) { tracing.OnMenu(item, [&] { connector.OnMenu(item); }); });

  std::optional<RegisterWindow> registerWindow;
  if (simulation && lock.Acquired()) {
    registerWindow.emplace(pump, simulation->Panel());
    registerWindow->Open();
    person.AddMenuItem(own_text::kPanel, [&] { registerWindow->BringBack(); });
  }

  pump.OnTerminate([&] { loop.RequestEnd({.unload = true}); });

  const int status = connector.Run(!lock.Acquired());
  tracing.End(status);
  return status;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  const CommandLine options = ParseCommandLine(CommandWords());
  if (!options.error.empty()) return Refuse(options.error + "\nSee 'Orvenza --help'.");
  if (options.help) Tell(Usage(kMenu), MessageIcon::kInformation);
  if (options.version) Tell("Orvenza " + BuildVersion() + "\n", MessageIcon::kInformation);
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
