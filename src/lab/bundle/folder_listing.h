#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "lab/doctor/installation.h"

namespace orvenza {

/// Lists the folders of an installation: times, sizes, attributes and names, sorted by name.
std::string ListFolders(const Installation& shop);

/// A ticket in one of the folders.
struct FoundTicket {
  std::string place;  ///< "waiting", "inproces", "abort", "historic", or "earlier" for an earlier day.
  std::string path;
  FolderEntry entry;
};

/// At most `count` tickets, waiting, in process, given up or printed, newest first. Among the historic
/// folders of earlier days only the latest is searched. Folders that cannot be listed count as empty.
std::vector<FoundTicket> LatestTickets(const Installation& shop, std::size_t count);

}  // namespace orvenza
