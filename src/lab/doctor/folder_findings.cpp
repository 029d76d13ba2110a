#include "lab/doctor/folder_findings.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "core/folder_path.h"
#include "core/text.h"
#include "lab/doctor/folder_trial.h"
#include "lab/shell/wording.h"
#include "platform/system_error.h"
#include "tickets/outcome_files.h"

namespace orvenza {
namespace {

/// In bytes. Below the first, there may be no space left for tickets and logs; below the second, soon.
constexpr std::uintmax_t kTooLittleSpace = 20'000'000;
constexpr std::uintmax_t kLittleSpace = 200'000'000;

struct NamedFolder {
  std::string name;                   ///< "ticket folder".
  std::string path;                   ///< Ends in "\".
  bool isTried = true;                ///< A test file is made there.
  Severity fault = Severity::kError;  ///< Severity of its findings.
};

constexpr const char* kOutcomesFolder = "outcomes folder";

/// The program folder first, the ticket folder second.
std::vector<NamedFolder> FoldersOf(const Installation& shop) {
  std::vector<NamedFolder> folders = {{"program folder", SettingsPath(shop.paths.AppPath) + "\\", false}};
  if (shop.review.state == SettingsReview::State::kUnreadable || shop.Settings().TicketFolder.empty()) {
    return folders;
  }
  folders.push_back({"ticket folder", shop.Settings().TicketFolder});
  folders.push_back({"in-process folder", shop.Settings().InProcessFolder});
  folders.push_back({"abort folder", shop.Settings().AbortFolder});
  if (!shop.Settings().HistoricFolder.empty()) {
    folders.push_back({"historic folder", shop.Settings().HistoricFolder});
  }
  const std::string& outcomes = shop.Settings().OutcomesFolder;
  if (!outcomes.empty() && !OutcomesFolderIsRefused(shop.Settings(), shop.paths.AppPath))
    folders.push_back({kOutcomesFolder, outcomes, true, Severity::kWarning});
  return folders;
}

/// The folder itself or its closest existing parent; "" for none. A folder that cannot be checked counts as
/// existing: nothing can be created there.
std::string NearestExisting(const Folders& folders, std::string path) {
  while (!path.empty() && !MayExist(folders, path)) {
    path.pop_back();  // its "\"
    path.erase(path.rfind('\\') + 1);
  }
  return path;
}

/// The file that prevents creating a folder below `nearest`; "" for none, or if the folder exists.
std::string FileInTheWay(const Installation& shop, const std::string& nearest, const std::string& path) {
  if (nearest.size() == path.size()) return {};
  const std::string next = path.substr(0, path.find('\\', nearest.size()));
  return MayExist(shop.files, next) ? next : std::string();
}

Finding OfFolder(const Installation& shop, const NamedFolder& folder) {
  const std::string is = "The " + folder.name + " " + folder.path;
  const std::string nearest = NearestExisting(shop.folders, folder.path);
  if (!shop.folders.DriveAvailable(folder.path)) {
    return {folder.fault, "folder.drive", is + " is on a drive that cannot be reached.",
            "Connect the drive, or correct the path in the settings."};
  }
  if (const std::string file = FileInTheWay(shop, nearest, folder.path); !file.empty()) {
    return {folder.fault, "folder.file", is + " cannot be made: " + file + " is a file.",
            "Move that file away, or correct the path in the settings."};
  }
  if (!nearest.empty() && !shop.machine.MayWrite(nearest)) {
    return {folder.fault, "folder.readonly",
            nearest == folder.path ? is + " cannot be written to."
                                   : is + " is missing and cannot be made in " + nearest + ".",
            "Give the user of the till the right to write there."};
  }
  if (nearest == folder.path && folder.isTried) {
    if (const std::string fault = TryFolder(shop.files, folder.path); !fault.empty()) {
      return {folder.fault, "folder.trial", is + " cannot be used: " + fault + ".",
              "Give the user of the till the right to make, rename and remove files there."};
    }
  }
  if (nearest == folder.path) return {Severity::kOk, "folder.ok", folder.name};
  return {Severity::kNote, "folder.missing", is + " is missing; the connector makes it."};
}

/// Tickets are moved from the first folder to the second by renaming, which works on one volume only.
void AddVolumes(Findings& findings, const Installation& shop, const std::vector<NamedFolder>& folders) {
  constexpr std::size_t kTicketFolder = 1;
  const auto volumeOf = [&](const NamedFolder& folder) {
    return shop.machine.VolumeOf(NearestExisting(shop.folders, folder.path));
  };
  for (std::size_t i = kTicketFolder + 1; i < folders.size(); ++i) {
    if (folders[i].name == kOutcomesFolder) continue;  // written there, not moved
    const std::string tickets = volumeOf(folders[kTicketFolder]);
    const std::string other = volumeOf(folders[i]);
    if (tickets == other || tickets.empty() || other.empty()) continue;
    const std::string is = "The " + folders[i].name + " is on another volume than the ticket folder; ";
    if (folders[i].name == "historic folder") {
      findings.push_back(
          {Severity::kNote, "folder.volume", is + "printed tickets are copied there instead of moved."});
    } else {
      findings.push_back({Severity::kWarning, "folder.volume", is + "tickets are copied instead of moved.",
                          "Make it a usual folder within the ticket folder."});
    }
  }
}

/// Whether a file is of a kind that the program installs or writes. Logs and the command file are left out:
/// no mask takes them for tickets.
bool IsOfProgram(const std::string& name) {
  constexpr std::string_view kEndings[] = {".EXE", ".DLL", ".OCX", ".INI", ".WAV", ".BMP", ".ICO", ".MD"};
  const std::string upper = ToUpperAscii(name);
  return upper == "LICENSE.TXT" ||
         std::any_of(std::begin(kEndings), std::end(kEndings),
                     [&](std::string_view ending) { return upper.ends_with(ending); });
}

/// Tickets may be in the program folder, as long as their mask does not match the program's own files.
void AddSharedFolder(Findings& findings, const Installation& shop, const std::vector<NamedFolder>& folders) {
  if (folders.size() < 2) return;
  const std::string tickets = SettingsPath(folders[1].path);
  if (NormalisedFolder(tickets) != NormalisedFolder(folders[0].path)) return;
  std::vector<std::string> taken;
  try {
    for (const FolderEntry& entry : shop.folders.ListFolder(tickets + shop.Settings().TicketMask)) {
      if (!entry.isFolder && IsOfProgram(entry.name)) taken.push_back(entry.name);
    }
  } catch (const SystemError&) {
    return;  // An unreadable folder has findings of its own.
  }
  if (taken.empty()) return;
  findings.push_back({Severity::kWarning, "folder.program",
                      "The ticket folder is the program folder, and the mask " + shop.Settings().TicketMask +
                          " takes " + CountOf(taken.size(), "file") +
                          " of the program for tickets, such as " + taken.front() + ".",
                      "Give the tickets a folder of their own, or a mask that fits nothing else."});
}

Finding OfSpace(const std::string& names, std::uintmax_t free) {
  const std::string fact = "There is " + SizeText(free) + " free for " + names + ".";
  const std::string remedy = "Make room on that drive; old tickets of the historic folder can be moved away.";
  if (free < kTooLittleSpace) return {Severity::kError, "space.low", fact, remedy};
  if (free < kLittleSpace) return {Severity::kWarning, "space.low", fact, remedy};
  return {Severity::kOk, "space.ok", fact};
}

void AddSpace(Findings& findings, const Installation& shop, const std::vector<NamedFolder>& folders) {
  struct Volume {
    std::string id;
    std::string names;
    std::uintmax_t free;
  };
  std::vector<Volume> volumes;
  for (const NamedFolder& folder : folders) {
    const std::string nearest = NearestExisting(shop.folders, folder.path);
    const auto free = shop.machine.FreeSpace(nearest);
    if (!free) continue;
    const std::string id = shop.machine.VolumeOf(nearest);
    const auto known = std::find_if(volumes.begin(), volumes.end(),
                                    [&](const Volume& v) { return v.id == id && !id.empty(); });
    if (known == volumes.end()) {
      volumes.push_back({id, folder.name, *free});
    } else {
      known->names += ", " + folder.name;
    }
  }
  if (volumes.size() == 1) volumes.front().names = "all folders";
  for (const Volume& volume : volumes) findings.push_back(OfSpace(volume.names, volume.free));
}

}  // namespace

Findings FindInFolders(const Installation& shop) {
  Findings findings;
  const std::vector<NamedFolder> folders = FoldersOf(shop);
  std::string usable;
  for (const NamedFolder& folder : folders) {
    Finding finding = OfFolder(shop, folder);
    if (finding.severity == Severity::kOk) {
      usable += (usable.empty() ? "" : ", ") + folder.name;
    } else {
      findings.push_back(std::move(finding));
    }
  }
  if (!usable.empty()) findings.push_back({Severity::kOk, "folder.ok", "Can be written to: " + usable + "."});
  AddSharedFolder(findings, shop, folders);
  AddVolumes(findings, shop, folders);
  AddSpace(findings, shop, folders);
  return findings;
}

}  // namespace orvenza
