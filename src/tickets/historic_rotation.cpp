#include "tickets/historic_rotation.h"

#include <algorithm>

#include "core/catalogue.h"
#include "core/create_all_dirs.h"
#include "core/text.h"

namespace orvenza {
namespace {

/// Whether `folder` is `parent` or lies below it; both end in "\", an empty `parent` holds nothing.
bool LiesIn(const std::string& folder, const std::string& parent) {
  return !parent.empty() &&
         ToUpperAscii(SettingsPath(folder)).starts_with(ToUpperAscii(SettingsPath(parent)));
}

}  // namespace

bool HistoricHoldsTickets(const AppSettings& settings, const std::string& appPath) {
  return LiesIn(settings.TicketFolder + "inproces\\", settings.HistoricFolder) ||
         LiesIn(appPath + "\\", settings.HistoricFolder);
}

void RotateHistoricFolder(Folders& folders, const Clock& clock, Journals& journals, AppSettings& settings) {
  const std::string historic = settings.HistoricFolder;
  if (historic.empty() || !folders.Exists(historic)) return;
  LocalTime newest;
  for (const FolderEntry& entry : folders.ListFolder(historic + settings.TicketMask)) {
    newest = std::max(newest, entry.modified);
  }
  const LocalTime now = clock.Now();
  const std::string date = DateDigits(newest);
  if (date == DateDigits(now)) return;

  const std::string base = historic.ends_with('\\') ? historic.substr(0, historic.size() - 1) : historic;
  std::string target = base + "_" + date;
  if (!folders.ListFolder(target + "*").empty()) target += "_" + TimeDigits(now);
  folders.Rename(historic, target + "\\");
  if (folders.Exists(historic) || CreateAllDirs(folders, journals, historic)) return;
  journals.WrErr(LoadMessage(195) + " : " + historic);
  settings.HistoricFolder.clear();
}

}  // namespace orvenza
