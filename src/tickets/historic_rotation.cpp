#include "tickets/historic_rotation.h"

#include <algorithm>

#include "core/catalogue.h"
#include "core/create_all_dirs.h"
#include "core/folder_path.h"
#include "core/text.h"
#include "tickets/ticket_archive.h"

namespace orvenza {
namespace {

/// Whether `folder` is `parent` or lies below it, as far as their texts tell; an empty `parent` holds
/// nothing.
bool LiesIn(const std::string& folder, const std::string& parent) {
  return !parent.empty() && NormalisedFolder(folder).starts_with(NormalisedFolder(parent));
}

/// The last time at which a ticket was written there. `base` is the historic folder without a "\" at its end.
LocalTime NewestTicket(const Folders& folders, const std::string& base, const AppSettings& settings) {
  LocalTime newest;
  for (const FolderEntry& entry : folders.ListFolder(settings.HistoricFolder + settings.TicketMask)) {
    newest = std::max(newest, entry.modified);
  }
  // The mask need not fit the numbers that archived tickets have for names.
  const std::string extension = "." + ArchiveExtension(settings.TicketMask);
  const std::string numbered = base + "\\?*" + extension;
  for (const FolderEntry& entry : folders.ListFolder(numbered)) {
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
