#include "lab/table/table_command.h"

#include <chrono>
#include <set>
#include <sstream>

#include "core/text.h"
#include "lab/table/failure_table.h"
#include "lab/table/play_cases.h"

namespace orvenza {
namespace {

using namespace std::chrono_literals;

constexpr const char* kOutput = "--output";
constexpr const char* kStep = "--step";
constexpr const char* kThinned = "--thinned";

/// Progress in percent, shown on a terminal once the run takes longer than a second.
class Progress {
 public:
  Progress(Console& console, const Clock& clock) : console_(console), clock_(clock), start_(clock.Uptime()) {}

  void Tell(std::size_t done, std::size_t all) {
    if (!console_.progress || clock_.Uptime() - start_ < 1s) return;
    const std::size_t percent = 100 * done / all;
    if (percent == shown_) return;
    shown_ = percent;
    console_.err << "\rplayed: " << percent << " %" << std::flush;
  }

  /// Erases the line.
  void End() {
    if (shown_ > 0) console_.err << "\r" << std::string(16, ' ') << "\r" << std::flush;
  }

 private:
  Console& console_;
  const Clock& clock_;
  std::chrono::nanoseconds start_;
  std::size_t shown_ = 0;
};

/// Refuses a part of a name that no step has: names the similar step, or all.
[[noreturn]] void RefuseStep(const std::string& part) {
  std::vector<std::string> names;
  std::string all = "; there are";
  for (const TicketStep& step : TicketSteps()) {
    names.push_back(step.name);
    all += "\n  " + step.name;
  }
  const std::string hint = Hint(part, names);
  throw UsageError("no step is called '" + part + "'" + (hint.empty() ? all : hint));
}

/// Selects the steps whose names contain `part`, ignoring letter case.
void Choose(const std::string& part, const std::vector<TicketStep>& steps, std::set<std::string>& chosen) {
  bool known = false;
  for (const TicketStep& step : steps) {
    if (ToUpperAscii(step.name).find(ToUpperAscii(part)) == std::string::npos) continue;
    chosen.insert(step.name);
    known = true;
  }
  if (!known) RefuseStep(part);
}

/// The steps that the user selects by parts of their names, separated by ";", as in the headings of the
/// table. Without a selection, all steps.
std::vector<TicketStep> ChosenSteps(const Arguments& arguments) {
  std::vector<TicketStep> steps = TicketSteps();
  const auto text = arguments.Value(kStep);
  if (!text) return steps;
  std::set<std::string> chosen;
  std::istringstream parts(*text);
  for (std::string part; std::getline(parts, part, ';');) {
    if (!Trim(part).empty()) Choose(std::string(Trim(part)), steps, chosen);
  }
  if (chosen.empty()) RefuseStep(*text);
  std::erase_if(steps, [&](const TicketStep& step) { return !chosen.contains(step.name); });
  return steps;
}

int Run(const Arguments& arguments, LabSurroundings& lab) {
  if (!arguments.words.empty()) {
    return RefuseUsage(lab.console, "table", "unexpected word '" + arguments.words.front() + "'");
  }
  const std::vector<TicketStep> steps = ChosenSteps(arguments);
  const TableExtent extent = arguments.Has(kThinned) ? TableExtent::kThinned : TableExtent::kWhole;
  Progress progress(lab.console, lab.clock);
  const auto play = [&](TableHour hour, std::size_t before) {
    return PlayCases(steps, extent, hour, [&progress, before](std::size_t done, std::size_t all) {
      progress.Tell(before * all + done, 2 * all);
    });
  };
  const auto byDay = play(TableHour::kDay, 0);
  const auto atMidnight = play(TableHour::kMidnight, 1);
  progress.End();
  const std::string table = FailureTable(byDay, atMidnight);
  const auto output = arguments.Value(kOutput);
  if (!output) {
    lab.console.out << table;
    return 0;
  }
  const std::string document = lab.files.Exists(*output) ? ReadWhole(lab.files, *output) : std::string();
  const auto placed = PlaceTable(document, table);
  if (!placed) {
    lab.console.err << "orvenza-lab table: " << *output << " exists and has no marker lines for a table\n";
    return kFailed;
  }
  lab.files.Write(*output, *placed);
  return 0;
}

}  // namespace

Command TableCommand() {
  return {"table",
          "show what becomes of a ticket when something goes wrong",
          "[--output FILE] [--step TEXT] [--thinned]",
          "Rehearses each kind of command with each fault of the register, its line, the\n"
          "program and the PC, through each answer of the operator. For each case the table\n"
          "shows what the customer gets, where the file is in the end, and the lines of the\n"
          "error log. The format is Markdown. docs/failure-table.md holds the table, and\n"
          "docs/failure-scenarios.md explains it.",
          {{kOutput, "FILE",
            "write to FILE, which is new or empty, or contains the\ntwo marker lines of a table"},
           {kStep, "TEXT",
            "only the steps whose names contain TEXT, or one of\nseveral texts separated by \";\""},
           {kThinned, "", "try one of each group of similar error codes"}},
          "0  written\n"
          "2  not written",
          "orvenza-lab table --step 'part payment'\n"
          "orvenza-lab table --output docs/failure-table.md",
          Run};
}

}  // namespace orvenza
