#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "lab/doctor/installation.h"

namespace orvenza {

/// The folders of an installation and what lies in them: times, sizes, attributes and names, by name.
std::string ListFolders(const Installation& shop);

/// A ticket that lies in one of the folders.
struct FoundTicket {
  std::string place;  ///< "waiting", "inproces", "abort", "historic", or "earlier" of an earlier day.
  std::string path;
  FolderEntry entry;
};

/// At most `count` of the tickets that wait, are in process, were given up or printed, newest first. Of the
/// historic folders of earlier days the latest is looked at too. Folders that cannot be listed count as
/// empty.
std::vector<FoundTicket> LatestTickets(const Installation& shop, std::size_t count);

}  // namespace orvenza
