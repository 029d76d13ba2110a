#include "lab/bundle/bundle_command.h"

#include <algorithm>

#include "lab/bundle/support_bundle.h"
#include "lab/bundle/zip_archive.h"
#include "lab/doctor/diagnosis.h"
#include "lab/doctor/doctor_command.h"
#include "lab/shell/output_file.h"
#include "lab/shell/wording.h"

namespace orvenza {
namespace {

constexpr const char* kWithDescriptions = "--with-descriptions";

std::string Archive(const std::vector<BundleEntry>& entries) {
  ZipArchive archive;
  for (const BundleEntry& entry : entries) {
    if (!entry.missing) archive.Add(entry.name, entry.bytes, entry.modified);
  }
  return archive.Finish();
}

int Run(const Arguments& arguments, LabSurroundings& lab) {
  if (!arguments.words.empty()) {
    return RefuseUsage(lab.console, "bundle", "unexpected word '" + arguments.words.front() + "'");
  }
  const ProgramPaths paths = ChosenInstallation(arguments, lab);
  const Installation shop = LookAt(lab, paths);
  const std::string output =
      arguments.Value("--output")
          .value_or("orvenza-support-" + DateDigits(shop.now) + "-" + TimeDigits(shop.now) + ".zip");
  RequireOutput(output, {}, lab);
  if (lab.files.Exists(output) || lab.folders.Exists(output)) {
    lab.console.err << "orvenza-lab bundle: " << output << " exists already\n";
    return kFailed;
  }
  const auto entries = CollectBundle(shop, Diagnose(shop), arguments.Has(kWithDescriptions));
  const std::string archive = Archive(entries);
  lab.files.Write(output, archive);
  lab.console.out << entries.front().bytes << "\nWritten: " << output << ", " << SizeText(archive.size())
                  << "\n";
  return 0;
}

}  // namespace

Command BundleCommand() {
  return {"bundle",
          "collect what support needs in one file",
          "[--folder DIR] [--name NAME] [--output FILE]\n                   [--with-descriptions]",
          "Writes a ZIP archive with the settings, the logs and their older copies, folder\n"
          "listings, versions, the findings of the doctor and the last ten tickets, and\n"
          "prints its contents. A file that cannot be read is listed as missing.\n"
          "\n"
          "Texts of tickets are masked, also where a log quotes them: letters become x,\n"
          "digits 9. Record types, separators, amounts and quantities stay. For details see\n"
          "docs/bundle.md.",
          InstallationOptions(
              {{"--output", "FILE",
                "the archive to write; it must not exist yet\n(default: orvenza-support-DATE-TIME.zip here)"},
               {kWithDescriptions, {}, "leave the texts of tickets unmasked"}}),
          "0  written\n"
          "2  not written, or written without showing its contents",
          "orvenza-lab bundle --folder C:\\Orvenza\n"
          "orvenza-lab bundle --output D:\\for-support.zip",
          Run};
}

}  // namespace orvenza
