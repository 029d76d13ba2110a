#include "lab/preview/preview_command.h"

#include "core/text.h"
#include "lab/check/check_rules.h"
#include "lab/check/file_check.h"
#include "lab/check/ticket_files.h"
#include "lab/preview/preview_drawing.h"
#include "lab/shell/output_file.h"
#include "tickets/record_types.h"

namespace orvenza {
namespace {

constexpr const char* kFormat = "--format";
constexpr const char* kOutput = "--output";
constexpr int kRefused = 1;
constexpr int kUnreadable = 2;

struct Format {
  const char* name;
  std::string (*draw)(const std::vector<PaperSheet>& sheets);
};
constexpr Format kFormats[] = {{"text", PreviewText}, {"html", PreviewHtml}, {"svg", PreviewSvg}};

/// The format that the user names, otherwise that of the output's extension, otherwise text.
const Format& FormatOf(const Arguments& arguments) {
  const auto named = arguments.Value(kFormat);
  const std::string output = arguments.Value(kOutput).value_or("");
  for (const Format& format : kFormats) {
    if (named ? *named == format.name
              : ToUpperAscii(output).ends_with(ToUpperAscii("." + std::string(format.name)))) {
      return format;
    }
  }
  if (named) {
    throw UsageError("--format '" + *named + "': expected text, html or svg" +
                     Hint(*named, {"text", "html", "svg"}));
  }
  return kFormats[0];
}

/// The command that the connector sends to divide a receipt that is too long; "" if it cannot do that.
std::string SplitCommand(const CheckRules& rules, LabSurroundings& lab) {
  TicketFindings ignored;
  return TicketCheck(rules, lab.files, lab.clock).Check(kReceiptSplitLine, ignored);
}

int Run(const Arguments& arguments, LabSurroundings& lab) {
  Console& console = lab.console;
  const std::vector<std::string> files = TicketFilesMeant(arguments, lab);
  const Format& format = FormatOf(arguments);
  const auto output = arguments.Value(kOutput);
  if (output) RequireOutput(*output, files, lab);
  const CheckRules rules = CheckRulesOf(arguments, lab);
  TellRuleNotes("preview", arguments, rules, console);
  const auto findings = MakeTextReport(console.err, false, true);
  CheckProgress progress(console, lab.clock, console.progress);
  TicketCheck check(rules, lab.files, lab.clock);
  TicketPreview preview(check, SplitCommand(rules, lab), *findings);
  FileCheck fileCheck(check, preview, progress);
  for (const std::string& file : files) {
    fileCheck.CheckFile(file, [&] { return OpenTicketFile(file, lab); });
  }
  progress.Clear();
  preview.End(fileCheck.Totals());
  const std::string drawn = format.draw(preview.Sheets());
  if (output) {
    lab.files.Write(*output, drawn);
  } else {
    console.out << drawn;
  }
  if (fileCheck.Totals().unreadable > 0) return kUnreadable;
  return fileCheck.Totals().errors + preview.Refused() > 0 ? kRefused : 0;
}

}  // namespace

Command PreviewCommand() {
  std::vector<Option> options = CheckRuleOptions();
  options.push_back(
      {kFormat, "text|html|svg", "the form (default: what the name of the output ends in,\notherwise text)"});
  options.push_back({kOutput, "FILE", "write to FILE instead of the standard output"});
  return {"preview",
          "draw the receipts of ticket files",
          "FILE... [OPTION...]",
          "Shows the paper of ticket files without printing: the lines are read and\n"
          "translated as by the connector and carried out by the simulated register. A line\n"
          "that is not printed appears in its place:\n"
          "\n"
          "  >>> line 2 refused: the reason\n"
          "\n"
          "The error output gets the findings of a check. Shop, date and receipt numbers\n"
          "are samples; the same tickets always give the same preview. HTML and SVG are\n"
          "single files without scripts. '-' is the standard input.",
          options,
          "0  every line is printed; there may be warnings\n"
          "1  at least one line is refused\n"
          "2  a file could not be read, the preview could not be written, or the command\n"
          "   line cannot be understood",
          "orvenza-lab preview ticket.txt\n"
          "orvenza-lab preview --separator 59 --output receipt.html ticket.txt\n"
          "orvenza-lab preview --format svg - < ticket.txt > receipt.svg",
          Run};
}

}  // namespace orvenza
