#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/settings.h"
#include "platform/files.h"
#include "platform/folders.h"

namespace orvenza {

struct Outcome;

/// A ticket in the ticket folder.
struct HandedOver {
  std::string file;  ///< The file that it was made of.
  std::string name;  ///< Its name in the ticket folder.
  std::string text;
};

/// What became of a ticket.
struct TicketFate {
  bool inOrder = false;  ///< It was printed, or it prints nothing.
  std::string text;      ///< "printed, filed as C:\Orvenza\storico\17.txt".
};

/// Watches what becomes of tickets: in their outcomes if the settings name a folder for them, otherwise in
/// the folders between which the connector moves their files.
class TicketWatch {
 public:
  /// `appPath` is the program folder, without a trailing "\".
  TicketWatch(const FileReader& files, const Folders& folders, const AppSettings& settings,
              const std::string& appPath);

  /// Whether the connector writes outcomes. Without them, nothing is known about the parts of a split file.
  [[nodiscard]] bool HasOutcomes() const { return outcomes_; }

  /// Empty while the ticket is not done, or nothing can be read about it.
  [[nodiscard]] std::optional<TicketFate> FateOf(const HandedOver& ticket) const;

  /// Where a ticket is that is not done: "it waits in the ticket folder".
  [[nodiscard]] std::string PlaceOf(const HandedOver& ticket) const;

 private:
  [[nodiscard]] std::optional<TicketFate> FateByOutcome(const HandedOver& ticket) const;
  [[nodiscard]] std::optional<TicketFate> FateByFolder(const HandedOver& ticket) const;
  [[nodiscard]] std::optional<TicketFate> FateOfParts(const HandedOver& ticket, std::size_t count) const;
  [[nodiscard]] std::optional<Outcome> Read(const std::string& name) const;

  const FileReader& files_;
  const Folders& folders_;
  const AppSettings& settings_;
  bool outcomes_;
};

}  // namespace orvenza
