#include "lab/bundle/folder_listing.h"

#include <algorithm>
#include <tuple>

#include "lab/shell/wording.h"
#include "platform/system_error.h"
#include "tickets/historic_rotation.h"

namespace orvenza {
namespace {

bool IsBefore(const FolderEntry& a, const FolderEntry& b) { return a.name < b.name; }

FolderListing Sorted(const Installation& shop, const std::string& pattern) {
  FolderListing listing = shop.folders.ListFolder(pattern);
  std::sort(listing.begin(), listing.end(), IsBefore);
  return listing;
}

/// The historic folder of the latest earlier day, with a trailing "\"; "" for none.
std::string LatestEarlierDay(const Installation& shop) {
  try {
    const std::vector<std::string> days = EarlierDays(shop.folders, shop.Settings().HistoricFolder);
    return days.empty() ? std::string() : days.back();
  } catch (const SystemError&) {
    return {};  // the parent is missing, too
  }
}

/// `folders` without duplicates: two settings may name the same folder.
std::vector<std::string> WithoutRepetition(const std::vector<std::string>& folders) {
  std::vector<std::string> once;
  for (const std::string& folder : folders) {
    if (!folder.empty() && std::find(once.begin(), once.end(), folder) == once.end()) once.push_back(folder);
  }
  return once;
}

std::string LineOf(const FolderEntry& entry) {
  const std::string size = entry.isFolder ? "folder" : std::to_string(entry.size);
  return IsoText(entry.modified) + "  " + entry.attributes + "  " +
         std::string(12 - std::min<std::size_t>(size.size(), 12), ' ') + size + "  " + entry.name + "\n";
}

}  // namespace

std::string ListFolders(const Installation& shop) {
  const AppSettings& settings = shop.Settings();
  std::string text;
  for (const std::string& folder :
       WithoutRepetition({shop.paths.AppPath + "\\", settings.TicketFolder, settings.InProcessFolder,
                          settings.AbortFolder, settings.HistoricFolder, LatestEarlierDay(shop)})) {
    text += (text.empty() ? "" : "\n") + folder + "\n";
    try {
      for (const FolderEntry& entry : Sorted(shop, folder + "*")) text += LineOf(entry);
    } catch (const SystemError& failure) {
      text += failure.Description() + "\n";
    }
  }
  return text;
}

std::vector<FoundTicket> LatestTickets(const Installation& shop, std::size_t count) {
  struct Place {
    const char* name;
    std::string folder;
    std::string mask;
  };
  const AppSettings& settings = shop.Settings();
  std::vector<FoundTicket> tickets;
  for (const Place& place :
       {Place{"waiting", settings.TicketFolder, settings.TicketMask},
        Place{"inproces", settings.InProcessFolder, settings.TicketMask},
        Place{"abort", settings.AbortFolder, "*"}, Place{"historic", settings.HistoricFolder, "*"},
        Place{"earlier", LatestEarlierDay(shop), "*"}}) {
    try {
      if (place.folder.empty()) continue;
      for (FolderEntry& entry : shop.folders.ListFolder(place.folder + place.mask)) {
        if (!entry.isFolder) tickets.push_back({place.name, place.folder + entry.name, std::move(entry)});
      }
    } catch (const SystemError&) {
      // The folder cannot be listed.
    }
  }
  const auto isNewer = [](const FoundTicket& a, const FoundTicket& b) {
    return std::tie(b.entry.modified, a.path) < std::tie(a.entry.modified, b.path);
  };
  std::sort(tickets.begin(), tickets.end(), isNewer);
  if (tickets.size() > count) tickets.resize(count);
  return tickets;
}

}  // namespace orvenza
