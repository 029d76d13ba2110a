#include "lab/table/table_command.h"

#include <charconv>
#include <cstdint>
#include <optional>
#include <set>
#include <sstream>
#include <stdexcept>

#include "core/text.h"
#include "lab/shell/output_file.h"
#include "lab/table/failure_table.h"
#include "lab/table/pairs_report.h"
#include "lab/table/play_cases.h"
#include "lab/table/table_page.h"
#include "lab/table/table_progress.h"

namespace orvenza {
namespace {

constexpr const char* kOutput = "--output";
constexpr const char* kHtml = "--html";
constexpr const char* kStep = "--step";
constexpr const char* kThinned = "--thinned";
constexpr const char* kPairs = "--pairs";
constexpr const char* kSeed = "--seed";

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

/// The value of an option that must be a number; empty without the option.
std::optional<std::uint64_t> NumberOf(const Arguments& arguments, const char* option) {
  const auto text = arguments.Value(option);
  if (!text) return {};
  std::uint64_t number = 0;
  const auto [end, error] = std::from_chars(text->data(), text->data() + text->size(), number);
  if (text->empty() || error != std::errc() || end != text->data() + text->size()) {
    throw UsageError("'" + *text + "' is not a number");
  }
  return number;
}

/// The document `path` with the table in its place. Throws std::runtime_error if it has no place for one.
std::string WithTable(const std::string& path, const std::string& table, const Files& files) {
  const auto placed = PlaceTable(files.Exists(path) ? ReadWhole(files, path) : std::string(), table);
  if (!placed) throw std::runtime_error(path + " exists and has no marker lines for a table");
  return *placed;
}

/// Refuses outputs that could not be written, before the cases are played.
void RequireOutputs(const std::optional<std::string>& page, const std::optional<std::string>& output,
                    const LabSurroundings& lab) {
  if (page) RequirePage(*page, lab);
  if (!output) return;
  RequireOutput(*output, {}, lab);
  static_cast<void>(WithTable(*output, {}, lab.files));
}

int Run(const Arguments& arguments, LabSurroundings& lab) {
  if (!arguments.words.empty()) {
    return RefuseUsage(lab.console, "table", "unexpected word '" + arguments.words.front() + "'");
  }
  const auto seed = NumberOf(arguments, kSeed);
  const auto page = arguments.Value(kHtml);
  if (const auto pairs = NumberOf(arguments, kPairs)) {
    if (page) throw UsageError(std::string(kHtml) + " does not go with " + kPairs);
    return ReportPairs(static_cast<std::size_t>(*pairs), seed.value_or(1), lab);
  }
  if (seed) throw UsageError(std::string(kSeed) + " needs " + kPairs);
  const std::vector<TicketStep> steps = ChosenSteps(arguments);
  const auto output = arguments.Value(kOutput);
  RequireOutputs(page, output, lab);
  const TableExtent extent = arguments.Has(kThinned) ? TableExtent::kThinned : TableExtent::kWhole;
  TableProgress progress(lab.console, lab.clock);
  const auto play = [&](TableHour hour, WayOfWorking way, std::size_t before) {
    // With AskInDoubt, error codes are treated alike, so one of each group is enough.
    const TableExtent played = way == WayOfWorking::kAskInDoubt ? TableExtent::kThinned : extent;
    return PlayCases(steps, played, hour, way, [&progress, before](std::size_t done, std::size_t all) {
      progress.Tell(before * all + done, 4 * all);
    });
  };
  const PlayedCases contract{play(TableHour::kDay, WayOfWorking::kContract, 0),
                             play(TableHour::kMidnight, WayOfWorking::kContract, 1)};
  const PlayedCases askInDoubt{play(TableHour::kDay, WayOfWorking::kAskInDoubt, 2),
                               play(TableHour::kMidnight, WayOfWorking::kAskInDoubt, 3)};
  progress.End();
  if (page) lab.files.Write(*page, TablePage(contract, askInDoubt));
  if (page && !output) return 0;
  const std::string table = FailureTable(contract, askInDoubt);
  if (output)
    lab.files.Write(*output, WithTable(*output, table, lab.files));
  else
    lab.console.out << table;
  return 0;
}

}  // namespace

Command TableCommand() {
  return {"table",
          "show what becomes of a ticket when something goes wrong",
          "[--output FILE] [--html PAGE] [--step TEXT] [OPTION...]",
          "Rehearses each kind of command with each fault of the register, its line, the\n"
          "program and the PC, through each answer of the operator, without and with\n"
          "[Safety] AskInDoubt=1. For each case the table shows what the customer gets,\n"
          "where the file is in the end, and the lines of the error log. The format is\n"
          "Markdown, or with --html a page with filters. docs/failure-table.md holds the\n"
          "table, and docs/failure-scenarios.md explains it.\n"
          "\n"
          "With --pairs, two random faults strike a ticket, with AskInDoubt=1 and random\n"
          "answers. Each pair that ends as nobody chose is shown as a scenario for\n"
          "orvenza-lab rehearse.",
          {{kOutput, "FILE",
            "write to FILE, which is new or empty, or contains the\ntwo marker lines of a table"},
           {kHtml, "PAGE",
            "write an HTML page with filters to PAGE, which may\nreplace a page; no other output without "
            "--output"},
           {kStep, "TEXT",
            "only the steps whose names contain TEXT, or one of\nseveral texts separated by \";\""},
           {kThinned, "", "try one of each group of similar error codes"},
           {kPairs, "N", "play N random pairs of faults instead"},
           {kSeed, "S", "where the random numbers begin; 1 without this option"}},
          "0  written; every pair ended as it may\n"
          "1  a pair ended as nobody chose\n"
          "2  not written",
          "orvenza-lab table --step 'part payment'\n"
          "orvenza-lab table --output docs/failure-table.md\n"
          "orvenza-lab table --html failure-table.html\n"
          "orvenza-lab table --pairs 100000",
          Run};
}

}  // namespace orvenza
