#include "lab/doctor_command.h"

#include "lab/diagnosis.h"

namespace orvenza {
namespace {

int Run(const Arguments& arguments, LabSurroundings& lab) {
  if (!arguments.words.empty()) {
    return RefuseUsage(lab.console, "doctor", "unexpected word '" + arguments.words.front() + "'");
  }
  const auto folder = ProgramFolder(arguments, lab);
  if (!folder) return kWrongUsage;
  const Installation shop = LookAt(lab, *folder);
  const Findings findings = Diagnose(shop);
  if (arguments.Has("--json")) {
    WriteDiagnosisAsJson(lab.console.out, shop, findings);
  } else {
    WriteDiagnosis(lab.console.out, shop, findings, lab.console.colours);
  }
  return StatusOf(findings);
}

}  // namespace

Command DoctorCommand() {
  return {"doctor",
          "look at an installation before opening time",
          "[--folder DIR] [--json]",
          "Looks at the settings as the connector would read them, the folders and the\n"
          "tickets in them, the logs, the command file, the link control and the serial\n"
          "port. Each finding has a severity, a code that never changes its meaning, the\n"
          "fact, and what to do about it. docs/doctor.md explains every code.\n"
          "\n"
          "Nothing is changed: no file is written, and what the next start would repair\n"
          "is only told.",
          {{"--folder", "DIR", "the program folder (default: where orvenza-lab lies)"},
           {"--json", {}, "write one JSON object"}},
          "0  nothing but notes\n"
          "1  warnings: receipts are printed, but something is not as it should be\n"
          "2  errors: receipts are not printed, or get lost; or wrong usage",
          "orvenza-lab doctor\n"
          "orvenza-lab doctor --folder C:\\Orvenza --json",
          Run};
}

std::optional<std::string> ProgramFolder(const Arguments& arguments, const LabSurroundings& lab) {
  const std::string named = arguments.Value("--folder").value_or(lab.homeFolder);
  std::string folder = lab.machine.FullFolder(named);
  if (lab.folders.Exists(folder + "\\")) return folder;
  lab.console.err << "orvenza-lab: " << named << " is not a folder\n";
  return std::nullopt;
}

}  // namespace orvenza
