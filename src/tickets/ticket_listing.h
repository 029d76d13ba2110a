#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/logs.h"
#include "core/settings.h"
#include "platform/folders.h"

namespace orvenza {

/// The tickets of a folder, oldest first. Within one second names decide, ignoring letter case and comparing
/// numbers by value, so that the tenth part of a split file comes after the ninth. An entry consists of the
/// 14 digits "yyyymmddhhmmss" of the modification time and the name.
class TicketListing {
 public:
  using SortedList = std::vector<std::string>;

  /// Length of the time at the start of an entry.
  static constexpr std::size_t kStampLength = 14;

  /// `rememberedFiles` is the path of the file of RememberedTickets.
  TicketListing(const Folders& folders, const AppSettings& settings, const Logs& logs,
                std::string rememberedFiles)
      : folders_(folders), settings_(settings), logs_(logs), rememberedFiles_(std::move(rememberedFiles)) {}

  /// The files of `folder`, which ends in "\", that match the ticket mask, except the files that the program
  /// writes and the command file, which are never tickets. Throws SystemError.
  SortedList Read(const std::string& folder) const;

  /// The file name of an entry.
  static std::string NameOf(const std::string& entry);

  /// Whether an entry comes before another in a list.
  static bool IsOlder(std::string_view entry, std::string_view other);

 private:
  std::vector<std::string> OwnNames(const std::string& folder) const;

  const Folders& folders_;
  const AppSettings& settings_;
  const Logs& logs_;
  std::string rememberedFiles_;
};

}  // namespace orvenza
