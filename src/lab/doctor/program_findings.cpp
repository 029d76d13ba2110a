#include "lab/doctor/program_findings.h"

#include <algorithm>
#include <iterator>

#include "core/folder_path.h"
#include "core/logs.h"
#include "lab/shell/wording.h"
#include "platform/ini_profile_file.h"
#include "platform/ini_text.h"
#include "platform/system_error.h"
#include "tickets/command_file.h"
#include "tickets/line_reader.h"

namespace orvenza {
namespace {

constexpr std::size_t kLargestSettings = IniProfileFile::kLargestFile;
constexpr std::uintmax_t kNearRotation = Logs::kRotationSize / 10 * 9;

/// Start of every line of today's log: the common prefix of stamps at three times of the day.
std::string StampOfToday(const Installation& shop) {
  std::string common;
  for (const int hour : {3, 12, 21}) {
    LocalTime time = shop.now;
    time.hour = hour;
    const std::string stamp = shop.clock.Stamp(time);
    if (common.empty()) common = stamp;
    const auto end = std::mismatch(common.begin(), common.end(), stamp.begin(), stamp.end()).first;
    common.erase(end, common.end());
  }
  return common;
}

std::size_t CountLinesOfToday(const Installation& shop, const std::string& path) {
  const std::string today = StampOfToday(shop);
  std::size_t count = 0;
  LineReader reader(shop.files.OpenForReading(path));
  for (std::string line; reader.ReadLine(line);) {
    if (line.starts_with(today)) ++count;
  }
  return count;
}

void AddLog(Findings& findings, const Installation& shop, const std::string& path) {
  if (!shop.files.Exists(path)) {
    if (shop.machine.MayWrite(SettingsPath(shop.paths.AppPath) + "\\")) return;
    findings.push_back({Severity::kWarning, "log.readonly",
                        FileNameOf(path) + " is missing and cannot be made.",
                        "Give the user of the till the right to write to the program folder."});
    return;
  }
  if (!shop.machine.MayWrite(path)) {
    findings.push_back({Severity::kWarning, "log.readonly", FileNameOf(path) + " cannot be written to.",
                        "Give the user of the till the right to write it; clear its read-only mark."});
  }
  const std::uintmax_t size = shop.files.Size(path);
  if (size <= kNearRotation) return;
  findings.push_back({Severity::kNote, "log.rotation",
                      FileNameOf(path) + " has " + SizeText(size) + "; above " +
                          SizeText(Logs::kRotationSize) + " it becomes " + FileNameOf(Logs::BakOf(path)) +
                          ", and what was there is gone."});
}

void AddErrorsOfToday(Findings& findings, const Installation& shop) {
  const std::string& path = shop.Settings().ErrPath;
  const std::size_t count = shop.files.Exists(path) ? CountLinesOfToday(shop, path) : 0;
  if (count == 0) return;
  findings.push_back({Severity::kWarning, "log.errors-today",
                      CountOf(count, "line") + " of today in Err.txt.",
                      "Read them; docs/manuale-operatore.md says what they mean."});
}

void AddFallback(Findings& findings, const Installation& shop) {
  try {
    if (!shop.files.Exists(shop.paths.AppPath + "\\" + Logs::kErrFallback)) return;
  } catch (const SystemError&) {
    return;  // If even checking for files fails, other findings report it.
  }
  findings.push_back(
      {Severity::kNote, "log.fallback",
       "error.txt holds errors from before the settings were read, or that Err.txt did not take."});
}

void AddLogs(Findings& findings, const Installation& shop) {
  for (const std::string& path : {shop.Settings().LogPath, shop.Settings().ErrPath}) {
    try {
      AddLog(findings, shop, path);
    } catch (const SystemError&) {
      // Removed since it was found.
    }
  }
  try {
    AddErrorsOfToday(findings, shop);
  } catch (const SystemError&) {
    findings.push_back({Severity::kWarning, "log.unreadable", "Err.txt cannot be read.",
                        "Close the program that keeps it open, or give this user the right to read it."});
  }
  AddFallback(findings, shop);
  const bool isQuiet = std::none_of(findings.begin(), findings.end(),
                                    [](const Finding& finding) { return finding.code.starts_with("log."); });
  if (isQuiet) findings.push_back({Severity::kOk, "log.ok", "The logs can be written; no error of today."});
}

void AddCommandFile(Findings& findings, const Installation& shop) {
  const std::string& path = shop.Settings().CommandFilePath;
  try {
    if (!shop.files.Exists(path)) return;
    if (!AsksToQuit(shop.files, path)) {
      findings.push_back({Severity::kNote, "command.other",
                          "command.txt is there, but does not ask the connector to end; it is left alone."});
    } else if (shop.isServed) {
      findings.push_back({Severity::kWarning, "command.quit",
                          "command.txt asks the running connector to end.", "Start it again."});
    } else {
      findings.push_back({Severity::kError, "command.quit",
                          "command.txt is there, which ends the connector right after its next start.",
                          "Delete command.txt, and see why the host program wrote it."});
    }
  } catch (const SystemError&) {
    findings.push_back({Severity::kWarning, "command.unreadable", "command.txt cannot be read.",
                        "Delete command.txt, or close the program that keeps it open."});
  }
}

void AddInstance(Findings& findings, const Installation& shop) {
  if (shop.isServed) {
    findings.push_back({Severity::kNote, "instance.running",
                        "The connector runs on this folder; a second start is refused."});
  } else {
    findings.push_back({Severity::kOk, "instance.none", "No connector runs on this folder."});
  }
}

void AddTexts(Findings& findings, const Installation& shop) {
  if (MayExist(shop.files, shop.paths.ErrDesc())) return;
  findings.push_back({Severity::kNote, "texts.missing", "ErrDesc.ini is missing; the next start writes it."});
}

/// Other programs have settings files of this kind, e.g. desktop.ini.
bool IsSettingsFile(const Installation& shop, const std::string& path) {
  try {
    const std::vector<IniLine> lines = IniText(ReadWhole(shop.files, path, kLargestSettings)).Lines();
    return std::any_of(lines.begin(), lines.end(), [](const IniLine& line) {
      return line.kind == IniLine::Kind::kSection &&
             (IsSameIniName(line.name, "Version") || IsSameIniName(line.name, setting::kComSettings));
    });
  } catch (const SystemError&) {
    return false;
  }
}

/// A connector whose executable was renamed has settings under another name.
void AddOtherSettings(Findings& findings, const Installation& shop) {
  if (shop.review.state != SettingsReview::State::kNew) return;
  try {
    for (const FolderEntry& entry : shop.folders.ListFolder(shop.paths.AppPath + "\\*.ini")) {
      if (entry.isFolder || IsSameIniName(entry.name, FileNameOf(shop.paths.ErrDesc()))) continue;
      if (!IsSettingsFile(shop, shop.paths.AppPath + "\\" + entry.name)) continue;
      findings.push_back({Severity::kNote, "settings.other",
                          "There is " + entry.name + ", which a connector of that name reads (--name " +
                              entry.name.substr(0, entry.name.rfind('.')) + ")."});
    }
  } catch (const SystemError&) {
    // The folder has findings of its own.
  }
}

/// The settings, the program or a log is enough to recognise one.
bool IsInstallation(const Installation& shop) {
  const std::string program = shop.paths.AppPath + "\\" + shop.paths.ExecutableName;
  const std::string signs[] = {shop.paths.Ini(), shop.paths.ErrDesc(),    program,
                               program + ".exe", shop.Settings().LogPath, shop.Settings().ErrPath};
  return std::any_of(std::begin(signs), std::end(signs),
                     [&](const std::string& path) { return MayExist(shop.files, path); });
}

void AddNoInstallation(Findings& findings, const Installation& shop) {
  const bool ofAnotherName = std::any_of(findings.begin(), findings.end(), [](const Finding& finding) {
    return finding.code == "settings.other";
  });
  if (ofAnotherName || IsInstallation(shop)) return;
  findings.push_back({Severity::kWarning, "folder.foreign",
                      "Nothing in " + shop.paths.AppPath +
                          " tells of an installation: neither the program nor its settings nor a log.",
                      "See whether this is the folder that is meant (--folder), and the name (--name)."});
}

void AddIniRights(Findings& findings, const Installation& shop) {
  if (!MayExist(shop.files, shop.paths.Ini()) || shop.machine.MayWrite(shop.paths.Ini())) return;
  findings.push_back(
      {Severity::kWarning, "settings.readonly",
       FileNameOf(shop.paths.Ini()) + " cannot be written to: the port dialog and repairs have no effect.",
       "Give the user of the till the right to write it; clear its read-only mark."});
}

}  // namespace

Findings FindInProgram(const Installation& shop) {
  Findings findings;
  AddInstance(findings, shop);
  AddCommandFile(findings, shop);
  AddOtherSettings(findings, shop);
  AddNoInstallation(findings, shop);
  AddIniRights(findings, shop);
  AddTexts(findings, shop);
  AddLogs(findings, shop);
  return findings;
}

}  // namespace orvenza
