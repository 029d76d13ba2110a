#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/logs.h"
#include "core/settings.h"
#include "platform/folders.h"

namespace orvenza {

/// The tickets of a folder, oldest first and by name within one second: letter case ignored, and numbers in
/// names by their value, so that the tenth part of a split file comes behind its ninth. An entry is the 14
/// digits "yyyymmddhhmmss" of the modification time followed by the name.
class TicketListing {
 public:
  using SortedList = std::vector<std::string>;

  /// `rememberedFiles` is the path of the file in which RememberedTickets keeps its own.
  TicketListing(const Folders& folders, const AppSettings& settings, const Logs& logs,
                std::string rememberedFiles)
      : folders_(folders), settings_(settings), logs_(logs), rememberedFiles_(std::move(rememberedFiles)) {}

  /// The files of `folder`, which ends in "\", that fit the ticket mask; the files that the program writes
  /// and the command file, which no mask makes tickets of, aside. Throws SystemError.
  SortedList Read(const std::string& folder) const;

  /// The file name in an entry.
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
