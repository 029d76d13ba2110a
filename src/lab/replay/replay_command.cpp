#include "lab/replay/replay_command.h"

#include <charconv>
#include <optional>
#include <stdexcept>

#include "app/trace/trace_file.h"
#include "core/folder_path.h"
#include "lab/replay/replay.h"
#include "lab/shell/output_file.h"
#include "platform/folders.h"
#include "platform/system_error.h"

namespace orvenza {
namespace {

constexpr const char* kAround = "--around";
constexpr const char* kOutput = "--output";

constexpr const char* kDescription =
    "Writes a scenario for the command rehearse from a trace of the running\n"
    "connector, so that a day at the till can be played again: its settings and\n"
    "tickets, what the register replied, what the operator answered and when, which\n"
    "files were in use. What cannot be known is said in a comment of the scenario.\n"
    "\n"
    "TRACE is the file that [Host] Trace names, in the shop or from a bundle. Its\n"
    "older copies beside it (trace.1.txt and so on) are read, too. docs/trace.md\n"
    "describes the trace.";

/// "10:32".
std::optional<TimeOfDay> ReadTimeOfDay(const std::string& text) {
  const std::size_t colon = text.find(':');
  TimeOfDay time;
  const auto number = [](std::string_view digits, int most, int& value) {
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return error == std::errc() && end == digits.data() + digits.size() && digits.size() <= 2 && value >= 0 &&
           value <= most;
  };
  if (colon == std::string::npos || !number(std::string_view(text).substr(0, colon), 23, time.hour) ||
      !number(std::string_view(text).substr(colon + 1), 59, time.minute))
    return std::nullopt;
  return time;
}

/// The trace's files, oldest first.
std::string ReadFiles(const std::string& name, const FileReader& files) {
  const std::string path = SettingsPath(name);
  std::string text;
  for (int number = TraceFile::kFiles; number-- > 1;) {
    const std::string older = TraceFile::PathOf(path, number);
    if (files.Exists(older)) text += ReadWhole(files, older);
  }
  return text + ReadWhole(files, path);
}

int Run(const Arguments& arguments, LabSurroundings& around) {
  if (arguments.words.size() != 1) {
    return RefuseUsage(around.console, "replay",
                       arguments.words.empty() ? "which trace?" : "one trace at a time");
  }
  std::optional<TimeOfDay> time;
  if (const auto value = arguments.Value(kAround)) {
    time = ReadTimeOfDay(*value);
    if (!time)
      return RefuseUsage(around.console, "replay", "'" + *value + "' is no time of day such as 10:32");
  }
  const std::string& name = arguments.words.front();
  const auto output = arguments.Value(kOutput);
  if (output) RequireOutput(*output, {name}, around);
  std::string text;
  try {
    text = ReadFiles(name, around.files);
  } catch (const SystemError& failure) {
    throw std::runtime_error("the trace cannot be read: " + failure.Description());
  }
  const std::string scenario = ReplayScenario(ReadTrace(text), FileNameOf(SettingsPath(name)), time);
  if (output)
    around.files.Write(*output, scenario);
  else
    around.console.out << scenario;
  return 0;
}

}  // namespace

Command ReplayCommand() {
  return {"replay",
          "make a scenario of a trace",
          "TRACE [--around HH:MM] [--output FILE]",
          kDescription,
          {{kAround, "HH:MM", "only what was at work in this minute, or nearest to it"},
           {kOutput, "FILE", "write the scenario to FILE"}},
          "0  the scenario was written\n"
          "2  it was not",
          "orvenza-lab replay trace.txt --around 10:32 --output cassa.scenario\n"
          "orvenza-lab rehearse cassa.scenario",
          Run};
}

}  // namespace orvenza
