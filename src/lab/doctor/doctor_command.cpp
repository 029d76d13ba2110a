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
          "check an installation before the shop opens",
          "[--folder DIR] [--name NAME] [--json]",
          "Checks the settings as the connector would read them, the folders and their\n"
          "tickets, the logs, the command file, the link control and the serial port. Each\n"
          "finding has a severity, a code that never changes its meaning, a fact and a\n"
          "remedy. docs/doctor.md explains every code.\n"
          "\n"
          "The installation is not changed: what the next start would repair is reported\n"
          "only. As a test of the rights, the doctor creates, renames and removes a file of\n"
          "its own in the ticket folders.",
          InstallationOptions({{"--json", {}, "write one JSON object"}}),
          "0  no warnings, no errors\n"
          "1  warnings: receipts are printed, but something is wrong\n"
          "2  errors: receipts are not printed, or get lost; or the command line is wrong",
          "orvenza-lab doctor\n"
          "orvenza-lab doctor --folder C:\\Orvenza --json",
          Run};
}

std::vector<Option> InstallationOptions(const std::vector<Option>& own) {
  std::vector<Option> options{
      {"--folder", "DIR", "the program folder (default: the folder of orvenza-lab)"},
      {"--name", "NAME",
       "the connector's executable without extension; its\nsettings file has the same "
       "name (default: Orvenza)"}};
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
