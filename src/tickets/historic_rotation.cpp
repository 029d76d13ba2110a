#include "tickets/historic_rotation.h"

#include <algorithm>
#include <vector>

#include "core/catalogue.h"
#include "core/create_all_dirs.h"
#include "core/text.h"
#include "tickets/ticket_archive.h"

namespace orvenza {
namespace {

/// The levels of a path that ".." does not lead out of: the server and its share, or the drive.
std::size_t LevelsOfRoot(const std::string& path) {
  if (path.starts_with("\\\\") && !path.starts_with("\\\\\\")) return 2;
  return path.size() > 1 && path[1] == ':' ? 1 : 0;
}

/// One spelling of a folder's path: capitals, a "\" behind each level, no empty level, no "." and no ".."
/// behind a name. It begins with ".\" where it counts from the folder that the program is started in.
std::string Normalised(const std::string& folder) {
  const std::string path = ToUpperAscii(SettingsPath(folder));
  const std::size_t rootLevels = LevelsOfRoot(path);
  const bool relative = rootLevels == 0 && !path.starts_with('\\');
  std::vector<std::string> levels;
  for (std::size_t at = 0; at < path.size();) {
    const std::size_t end = std::min(path.find('\\', at), path.size());
    const std::string level = path.substr(at, end - at);
    at = end + 1;
    if (level.empty() || level == ".") continue;
    const bool up = level == "..";
    if (up && levels.size() > rootLevels && levels.back() != "..") {
      levels.pop_back();
    } else if (!up || relative) {
      levels.push_back(level);
    }
  }
  std::string text = rootLevels == 2 ? "\\\\" : rootLevels == 1 ? "" : relative ? ".\\" : "\\";
  for (const std::string& level : levels) text += level + "\\";
  return text;
}

/// Whether `folder` is `parent` or lies below it, as far as their texts tell; an empty `parent` holds
/// nothing.
bool LiesIn(const std::string& folder, const std::string& parent) {
  return !parent.empty() && Normalised(folder).starts_with(Normalised(parent));
}

/// The last time at which a ticket was written there. `base` is the historic folder without a "\" at its end.
LocalTime NewestTicket(const Folders& folders, const std::string& base, const AppSettings& settings) {
  LocalTime newest;
  for (const FolderEntry& entry : folders.ListFolder(settings.HistoricFolder + settings.TicketMask)) {
    newest = std::max(newest, entry.modified);
  }
  // The mask need not fit the numbers that archived tickets have for names.
  const std::string extension = "." + ArchiveExtension(settings.TicketMask);
  for (const FolderEntry& entry : folders.ListFolder(base + "\\?*" + extension)) {
    const std::size_t numberEnd = entry.name.size() - extension.size();
    const bool isNumber = entry.name.find_first_not_of("0123456789") == numberEnd;
    if (isNumber) newest = std::max(newest, entry.modified);
  }
  return newest;
}

}  // namespace

bool HistoricHoldsTickets(const AppSettings& settings, const std::string& appPath) {
  return LiesIn(settings.TicketFolder + "inproces\\", settings.HistoricFolder) ||
         LiesIn(appPath + "\\", settings.HistoricFolder);
}

void RotateHistoricFolder(Folders& folders, const Clock& clock, Journals& journals, AppSettings& settings) {
  const std::string historic = settings.HistoricFolder;
  if (historic.empty() || !folders.Exists(historic)) return;
  const std::string base = historic.ends_with('\\') ? historic.substr(0, historic.size() - 1) : historic;
  const LocalTime now = clock.Now();
  const std::string date = DateDigits(NewestTicket(folders, base, settings));
  if (date == DateDigits(now)) return;

  std::string target = base + "_" + date;
  if (!folders.ListFolder(target + "*").empty()) target += "_" + TimeDigits(now);
  folders.Rename(historic, target + "\\");
  if (folders.Exists(historic) || CreateAllDirs(folders, journals, historic)) return;
  journals.WrErr(LoadMessage(195) + " : " + historic);
  settings.HistoricFolder.clear();
}

}  // namespace orvenza
