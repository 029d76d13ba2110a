#include "lab/rehearsal/rehearse_command.h"

#include <iterator>
#include <stdexcept>

#include "app/trace/transcript_text.h"
#include "lab/rehearsal/rehearsal.h"
#include "lab/rehearsal/rehearsal_page.h"
#include "lab/rehearsal/scenario_reader.h"
#include "lab/shell/output_file.h"
#include "platform/system_error.h"

namespace orvenza {
namespace {

constexpr const char* kFolder = "--folder";
constexpr const char* kKeep = "--keep";
constexpr const char* kHtml = "--html";
constexpr int kWentWrong = 1;

constexpr const char* kDescription =
    "Runs the whole connector, from start to exit, with the simulated register and\n"
    "the operator's answers from a script. It does not touch the PC: the shop is a\n"
    "disk in memory, C:\\Orvenza, and time passes only while something waits, so a day\n"
    "at the till takes a moment. Prints one event per line, with the milliseconds\n"
    "since the start. The same scenario gives the same transcript on every system.\n"
    "\n"
    "SCENARIO is a text file, or - for the standard input. It lists the settings that\n"
    "differ, the tickets and their times, what goes wrong, what the operator answers,\n"
    "when to stop, and what to expect. docs/rehearsal.md describes its form.";

std::string ReadScenarioText(const std::string& name, LabSurroundings& around) {
  if (name == "-") return {std::istreambuf_iterator<char>(around.console.in), {}};
  try {
    return ReadWhole(around.files, name);
  } catch (const SystemError& failure) {
    throw std::runtime_error("the scenario cannot be read: " + failure.Description());
  }
}

/// Reads a file that the scenario `name` names: relative to the scenario's folder, or to the current one if
/// the scenario comes from the standard input.
std::string ReadSourceOf(const std::string& name, const std::string& source, const FileReader& files) {
  const bool whole = source.starts_with('\\') || source.starts_with('/') || source.substr(1, 1) == ":";
  const std::size_t folder = name == "-" || whole ? 0 : name.find_last_of("\\/") + 1;  // npos + 1 is 0.
  return ReadWhole(files, name.substr(0, folder) + source);
}

void MakeFolders(Folders& folders, const std::string& path) {
  for (std::size_t end = folders.DriveOf(path).size(); end != std::string::npos;) {
    end = path.find_first_of("\\/", end + 1);
    const std::string level = path.substr(0, end);
    if (!folders.Exists(level + "\\")) folders.Create(level);
  }
}

/// Where to save a file of the rehearsal's disk: files of the program folder at the top level.
std::string KeptPath(const std::string& path) {
  const std::string shown = ShownPath(path, kRehearsalFolder);
  return shown == path ? "drive-" + path.substr(0, 1) + path.substr(2) : shown;
}

/// Creates the folder, and throws if nothing can be written to it.
void MakeFolderToKeep(const std::string& folder, LabSurroundings& around) {
  MakeFolders(around.folders, folder);
  const std::string trial = folder + "\\trial";
  around.files.Write(trial, {});
  around.files.Remove(trial);
}

void WriteOut(const RehearsalOutcome& outcome, const std::string& folder, LabSurroundings& around) {
  for (const auto& [path, content] : outcome.files) {
    const std::string target = folder + "\\" + KeptPath(path);
    MakeFolders(around.folders, target.substr(0, target.rfind('\\')));
    around.files.Write(target, content);
  }
}

/// The folder to save to; empty when none is wanted. A folder named by the user must be missing or empty.
std::string FolderToKeep(const Arguments& arguments, LabSurroundings& around, std::string& error) {
  if (const auto named = arguments.Value(kFolder)) {
    const bool taken = around.files.Exists(*named) ||
                       (around.folders.Exists(*named) && !around.folders.ListFolder(*named + "\\*").empty());
    if (taken) error = "'" + *named + "' is neither missing nor an empty folder";
    return *named;
  }
  if (!arguments.Has(kKeep)) return {};
  for (int number = 1;; ++number) {
    const std::string name = "rehearsal-" + std::to_string(number);
    if (!around.folders.Exists(name) && !around.files.Exists(name)) return name;
  }
}

int Run(const Arguments& arguments, LabSurroundings& around) {
  Console& console = around.console;
  if (arguments.words.size() != 1) {
    return RefuseUsage(console, "rehearse",
                       arguments.words.empty() ? "which scenario?" : "one scenario at a time");
  }
  std::string error;
  const std::string folder = FolderToKeep(arguments, around, error);
  if (!error.empty()) return RefuseUsage(console, "rehearse", error);
  const std::string name = arguments.words.front();
  const std::string shownName = name == "-" ? "standard input" : name;
  const auto page = arguments.Value(kHtml);
  if (page) RequirePage(*page, around);
  const std::string text = ReadScenarioText(name, around);
  Scenario scenario = ParseScenario(
      shownName, text, [&](const std::string& source) { return ReadSourceOf(name, source, around.files); });
  DialogRecord dialogs;
  if (page) scenario.onDialog = [&](const auto& dialog, auto answer) { dialogs.Note(dialog, answer); };
  if (!folder.empty()) MakeFolderToKeep(folder, around);
  const RehearsalOutcome outcome =
      Rehearse(scenario, [&console](const std::string& line) { console.out << line << "\n"; });
  if (!folder.empty()) {
    WriteOut(outcome, folder, around);
    console.out << "kept in " << folder << "\n";
  }
  console.out.flush();
  if (page) around.files.Write(*page, RehearsalPage(shownName, text, outcome, dialogs));
  for (const std::string& problem : outcome.problems) console.err << shownName << ": " << problem << "\n";
  return outcome.problems.empty() ? 0 : kWentWrong;
}

}  // namespace

Command RehearseCommand() {
  return {"rehearse",
          "play a day at the till with the simulated register",
          "SCENARIO [--keep | --folder DIR] [--html PAGE]",
          kDescription,
          {{kKeep, "", "save the shop's files in a new folder rehearsal-N\nhere, and print its name"},
           {kFolder, "DIR", "save them in DIR, which must be missing or empty"},
           {kHtml, "PAGE",
            "also write an HTML page: what happened, the dialogs and\nthe paper; PAGE may replace a page"}},
          "0  the connector ran to its end, and all expectations came true\n"
          "1  a dialog found no answer that fits, an answer was not used, the run did not\n"
          "   end or ended before a scheduled event, a line could not be carried out, a\n"
          "   fault never struck, or an expectation did not come true\n"
          "2  the scenario or the command line cannot be understood, or a file cannot be\n"
          "   written",
          "orvenza-lab rehearse carta-finita.scenario\n"
          "orvenza-lab rehearse carta-finita.scenario --folder shop\n"
          "orvenza-lab rehearse carta-finita.scenario --html carta-finita.html\n"
          "orvenza-lab rehearse - < carta-finita.scenario",
          Run};
}

}  // namespace orvenza
