#include "lab/check/check_command.h"

#include <algorithm>

#include "lab/check/check_report.h"
#include "lab/check/check_rules.h"
#include "lab/check/file_check.h"
#include "lab/check/ticket_files.h"

namespace orvenza {
namespace {

constexpr int kInvalidLine = 1;
constexpr int kUnreadable = 2;

constexpr const char* kFormat = "--format";
constexpr const char* kJsonOption = "--json";
constexpr const char* kText = "text";
constexpr const char* kJson = "json";
constexpr const char* kGithub = "github";
constexpr const char* kJunit = "junit";
constexpr const char* kSarif = "sarif";

/// The format that --format or --json selects.
std::string FormatOf(const Arguments& arguments) {
  const std::vector<std::string> formats{kText, kJson, kGithub, kJunit, kSarif};
  const std::string format = arguments.Value(kFormat).value_or(arguments.Has(kJsonOption) ? kJson : kText);
  if (std::find(formats.begin(), formats.end(), format) == formats.end()) {
    throw UsageError("--format '" + format + "': expected text, json, github, junit or sarif" +
                     Hint(format, formats));
  }
  if (arguments.Has(kJsonOption) && format != kJson) {
    throw UsageError(std::string(kJsonOption) + " means --format json, not --format " + format);
  }
  return format;
}

std::unique_ptr<CheckReport> ReportOf(const std::string& format, bool quiet, const CheckRules& rules,
                                      Console& console) {
  if (format == kJson) return MakeJsonReport(console.out, rules);
  if (format == kGithub) return MakeGithubReport(console.out);
  if (format == kJunit) return MakeJunitReport(console.out);
  if (format == kSarif) return MakeSarifReport(console.out);
  return MakeTextReport(console.out, console.colours, quiet);
}

int Run(const Arguments& arguments, LabSurroundings& surroundings) {
  Console& console = surroundings.console;
  const std::vector<std::string> files = TicketFilesMeant(arguments, surroundings);
  const std::string format = FormatOf(arguments);
  const CheckRules rules = CheckRulesOf(arguments, surroundings);
  TellRuleNotes("check", arguments, rules, console);
  const bool quiet = arguments.Has("--quiet");
  const auto report = ReportOf(format, quiet, rules, console);
  // Results that appear on the terminal show the progress themselves.
  CheckProgress progress(console, surroundings.clock, console.progress && (quiet || !console.terminal));
  TicketCheck check(rules, surroundings.files, surroundings.clock);
  FileCheck fileCheck(check, *report, progress);
  for (const std::string& file : files) {
    fileCheck.CheckFile(file, [&] { return OpenTicketFile(file, surroundings); });
  }
  progress.Clear();
  report->End(fileCheck.Totals());
  if (fileCheck.Totals().unreadable > 0) return kUnreadable;
  return fileCheck.Totals().errors > 0 ? kInvalidLine : 0;
}

}  // namespace

Command CheckCommand() {
  std::vector<Option> options = CheckRuleOptions();
  options.push_back({"--quiet", "", "show the findings only, not the commands"});
  options.push_back(
      {kFormat, "text|json|github|junit|sarif",
       "text for people (the default); the others for programs,\nthe last three for build servers"});
  options.push_back({kJsonOption, "", "the same as --format json"});
  return {"check",
          "show the commands and errors of ticket files",
          "FILE... [OPTION...]",
          "Reads ticket files as the connector does and shows, line by line, the command\n"
          "that the register gets, or every reason why it gets none:\n"
          "\n"
          "  FILE:LINE:FIELD: error: what was found and what is accepted [code]\n"
          "\n"
          "Fields count from 0, the record type. A warning means that a line is valid but\n"
          "may not print what the programmer meant: a text is cut, a value is changed, a\n"
          "payment does not cover the items. A point at half height stands for a blank in a\n"
          "command. '-' is the standard input. Nothing is sent and nothing is written.",
          options,
          "0  every line is valid; there may be warnings\n"
          "1  at least one line is invalid\n"
          "2  a file could not be read, or the command line cannot be understood",
          "orvenza-lab check ticket.txt\n"
          "orvenza-lab check --folder C:\\Orvenza --quiet C:\\Orvenza\\data\\abort\\*.txt\n"
          "orvenza-lab check --model \"QUARNIS A\" --release 2.02.00 ticket.txt\n"
          "orvenza-lab check --format json - < ticket.txt\n"
          "orvenza-lab check --format junit tickets/*.txt > check.xml",
          Run};
}

}  // namespace orvenza
