#include "app/simulation.h"

#include <optional>
#include <utility>

#include "platform/system_error.h"

namespace orvenza {
namespace {

/// Whether a path is absolute on any system.
bool IsAbsolute(const std::string& path) {
  return path.find_first_of("/\\") == 0 || (path.size() > 1 && path[1] == ':');
}

std::optional<KeptPaper> PaperOf(Files& files, const std::string& name, const std::string& folder,
                                 const KeptPaper::Show& show) {
  if (name.empty()) return {};
  return KeptPaper(files, IsAbsolute(name) ? name : folder + "\\" + name, name, show);
}

}  // namespace

Simulation::Simulation(Files& files, const Clock& clock, Scheduler& scheduler, const FaultScript& script,
                       const std::string& folder, std::function<void(const std::string&)> show)
    : kept_(PaperOf(files, script.paperFile, folder, show)),
      register_(clock, paper_, script.profile, kept_ ? kept_->Remembered() : std::nullopt),
      link_(register_, scheduler, script),
      panel_({register_, link_, clock, files}, script, folder) {
  paper_.SetSink([this, show = std::move(show)](const std::string& line) {
    kept_ ? kept_->Print(line) : show(line);
    panel_.Printed(line);
  });
  register_.SetKeeper([this](const RegisterState& state) {
    if (kept_) kept_->Keep(state);
    panel_.Changed();
  });
}

FaultScript ReadFaultScript(const FileReader& files, const std::string& path) {
  std::string text;
  try {
    text = ReadWhole(files, path);
  } catch (const SystemError&) {
    throw ScriptError(path, 1, "a file that can be read");
  }
  return ParseFaultScript(path, text);
}

}  // namespace orvenza
