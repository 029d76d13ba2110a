#include "lab/table_command.h"

#include <chrono>

#include "lab/settlement_table.h"

namespace orvenza {
namespace {

using namespace std::chrono_literals;

constexpr const char* kOutput = "--output";
constexpr const char* kStep = "--step";
constexpr const char* kThinned = "--thinned";

/// How far the table is, told from the second on that it takes, on a terminal.
class Progress {
 public:
  Progress(Console& console, const Clock& clock) : console_(console), clock_(clock), start_(clock.Uptime()) {}

  void Tell(std::size_t done, std::size_t all) {
    if (!console_.progress || clock_.Uptime() - start_ < 1s) return;
    const std::size_t percent = 100 * done / all;
    if (percent == shown_) return;
    shown_ = percent;
    console_.err << "\rsettled: " << percent << " %" << std::flush;
  }

  /// Takes the line away.
  void End() {
    if (shown_ > 0) console_.err << "\r" << std::string(16, ' ') << "\r" << std::flush;
  }

 private:
  Console& console_;
  const Clock& clock_;
  std::chrono::nanoseconds start_;
  std::size_t shown_ = 0;
};

/// The steps whose names contain the text that the user gives; all where there is none.
std::vector<SettlementStep> ChosenSteps(const Arguments& arguments) {
  std::vector<SettlementStep> steps = SettlementSteps();
  if (const auto text = arguments.Value(kStep)) {
    std::erase_if(steps,
                  [&](const SettlementStep& step) { return step.name.find(*text) == std::string::npos; });
  }
  return steps;
}

int Run(const Arguments& arguments, LabSurroundings& lab) {
  if (!arguments.words.empty()) {
    return RefuseUsage(lab.console, "table", "unexpected word '" + arguments.words.front() + "'");
  }
  const std::vector<SettlementStep> steps = ChosenSteps(arguments);
  if (steps.empty()) return RefuseUsage(lab.console, "table", "no step is called so");
  Progress progress(lab.console, lab.clock);
  const SettlementExtent extent =
      arguments.Has(kThinned) ? SettlementExtent::kThinned : SettlementExtent::kWhole;
  const auto settlements =
      SettleAll(steps, extent, [&progress](std::size_t done, std::size_t all) { progress.Tell(done, all); });
  progress.End();
  const std::string table = SettlementTable(settlements);
  const auto output = arguments.Value(kOutput);
  if (!output) {
    lab.console.out << table;
    return 0;
  }
  const std::string document = lab.files.Exists(*output) ? ReadWhole(lab.files, *output) : std::string();
  const auto placed = PlaceTable(document, table);
  if (!placed) {
    lab.console.err << "orvenza-lab table: " << *output << " exists and has no place for a table\n";
    return kWrongUsage;
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
          "program and the PC, and with each answer that the operator can give, and writes\n"
          "down what the customer gets, where the file ends, and what is in the error log.\n"
          "The table is in Markdown; docs/failure-scenarios.md holds it and explains it.",
          {{kOutput, "FILE",
            "write to FILE, which is new or empty, or has a line that\nbegins and one that ends the table"},
           {kStep, "TEXT", "only the commands whose name in the table contains TEXT"},
           {kThinned, "", "of the error codes that are treated alike, try one"}},
          "0  written\n"
          "2  not written",
          "orvenza-lab table --step 'part payment'\n"
          "orvenza-lab table --output docs/failure-scenarios.md",
          Run};
}

}  // namespace orvenza
