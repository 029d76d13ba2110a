#include "lab/doctor/doctor_command.h"

#include <stdexcept>

#include "lab/doctor/diagnosis.h"

namespace orvenza {
namespace {

int Run(const Arguments& arguments, LabSurroundings& lab) {
  if (!arguments.words.empty()) {
    return RefuseUsage(lab.console, "doctor", "unexpected word '" + arguments.words.front() + "'");
  }
  const ProgramPaths paths = ChosenInstallation(arguments, lab);
  const Installation shop = LookAt(lab, paths);
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
          "[--folder DIR] [--name NAME] [--json]",
          "Looks at the settings as the connector would read them, the folders and the\n"
          "tickets in them, the logs, the command file, the link control and the serial\n"
          "port. Each finding has a severity, a code that never changes its meaning, the\n"
          "fact, and what to do about it. docs/doctor.md explains every code.\n"
          "\n"
          "The installation stays as it is: what the next start would repair is only told.\n"
          "To see whether tickets can be handled, a file of the doctor's own is made,\n"
          "renamed and removed in the folders of tickets.",
          InstallationOptions({{"--json", {}, "write one JSON object"}}),
          "0  nothing but notes\n"
          "1  warnings: receipts are printed, but something is not as it should be\n"
          "2  errors: receipts are not printed, or get lost; or wrong usage",
          "orvenza-lab doctor\n"
          "orvenza-lab doctor --folder C:\\Orvenza --json",
          Run};
}

std::vector<Option> InstallationOptions(const std::vector<Option>& own) {
  std::vector<Option> options{{"--folder", "DIR", "the program folder (default: where orvenza-lab lies)"},
                              {"--name", "NAME",
                               "the connector's executable without extension, after\nwhich its settings are "
                               "named (default: Orvenza)"}};
  options.insert(options.end(), own.begin(), own.end());
  return options;
}

ProgramPaths ChosenInstallation(const Arguments& arguments, const LabSurroundings& lab) {
  const std::string named = arguments.Value("--folder").value_or(lab.homeFolder);
  const std::string folder = lab.machine.FullFolder(named);
  if (!lab.folders.Exists(folder + "\\")) throw std::runtime_error("'" + named + "' is not a folder");
  return {folder, arguments.Value("--name").value_or("Orvenza")};
}

}  // namespace orvenza
