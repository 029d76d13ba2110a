#include "tickets/historic_rotation.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "core/catalogue.h"
#include "core/create_all_dirs.h"
#include "core/folder_path.h"
#include "tickets/ticket_archive.h"

namespace orvenza {
namespace {

/// The latest modification time of a ticket there. `base` is the historic folder without a trailing "\".
LocalTime NewestTicket(const Folders& folders, const std::string& base, const AppSettings& settings) {
  LocalTime newest;
  for (const FolderEntry& entry : folders.ListFolder(settings.HistoricFolder + settings.TicketMask)) {
    newest = std::max(newest, entry.modified);
  }
  // The mask may not match the numbers that archived tickets have as names.
  const std::string extension = "." + ArchiveExtension(settings.TicketMask);
  const std::string numbered = base + "\\?*" + extension;
  for (const FolderEntry& entry : folders.ListFolder(numbered)) {
    const std::size_t numberEnd = entry.name.size() - extension.size();
    const bool isNumber = entry.name.find_first_not_of("0123456789") == numberEnd;
    if (isNumber) newest = std::max(newest, entry.modified);
  }
  return newest;
}

std::string WithoutEnd(const std::string& folder) {
  return folder.ends_with('\\') ? folder.substr(0, folder.size() - 1) : folder;
}

/// Whether `ending` is a suffix that the rotation adds to a folder's name: "_yyyymmdd" or "_yyyymmdd_hhmmss".
bool IsOfADay(std::string_view ending) {
  constexpr std::string_view kForm = "_99999999_999999";
  constexpr std::size_t kDate = 9;
  return (ending.size() == kDate || ending.size() == kForm.size()) &&
         std::equal(ending.begin(), ending.end(), kForm.begin(),
                    [](char c, char form) { return form == '9' ? c >= '0' && c <= '9' : c == form; });
}

}  // namespace

bool HistoricHoldsTickets(const AppSettings& settings, const std::string& appPath) {
  return LiesIn(settings.InProcessFolder, settings.HistoricFolder) ||
         LiesIn(appPath + "\\", settings.HistoricFolder);
}

void RotateHistoricFolder(Folders& folders, const Clock& clock, Logs& logs, AppSettings& settings) {
  const std::string historic = settings.HistoricFolder;
  if (historic.empty() || !folders.DriveAvailable(historic) || !folders.Exists(historic)) return;
  const std::string base = WithoutEnd(historic);
  const LocalTime now = clock.Now();
  const std::string date = DateDigits(NewestTicket(folders, base, settings));
  if (date == DateDigits(now)) return;

  std::string target = base + "_" + date;
  if (!folders.ListFolder(target + "*").empty()) target += "_" + TimeDigits(now);
  folders.Rename(historic, target + "\\");
  if (folders.Exists(historic) || CreateAllDirs(folders, logs, historic)) return;
  logs.WrErr(LoadMessage(MessageId::kHistoricFolderNotMade) + " : " + historic);
  settings.HistoricFolder.clear();
}

std::vector<std::string> EarlierDays(const Folders& folders, const std::string& historic) {
  if (historic.empty()) return {};
  const std::string base = WithoutEnd(historic);
  const std::size_t nameLength = FileNameOf(base).size();
  std::vector<std::string> endings;
  for (const FolderEntry& entry : folders.ListFolder(base + "_*")) {
    std::string ending = entry.name.substr(std::min(nameLength, entry.name.size()));
    if (entry.isFolder && IsOfADay(ending)) endings.push_back(std::move(ending));
  }
  std::sort(endings.begin(), endings.end());
  for (std::string& ending : endings) ending.insert(0, base).push_back('\\');
  return endings;
}

}  // namespace orvenza
