#pragma once

#include <set>
#include <string>

#include "core/settings.h"
#include "platform/files.h"

namespace orvenza {

/// Chooses the names under which tickets are handed over. The mask of the settings fits them. None is used by
/// a ticket that waits or is printed, by one that was given up, by an outcome, or by an earlier choice.
class TicketNames {
 public:
  TicketNames(const FileReader& files, const AppSettings& settings) : files_(files), settings_(settings) {}

  /// The name for the file `path`: its own if possible. A name that the mask does not fit gets the mask's
  /// ending, and a name that is taken gets a number. Throws std::runtime_error if there is none.
  [[nodiscard]] std::string NameFor(const std::string& path);

 private:
  [[nodiscard]] std::string FittingName(const std::string& path) const;
  [[nodiscard]] bool IsFree(const std::string& name) const;

  const FileReader& files_;
  const AppSettings& settings_;
  std::set<std::string> chosen_;  // in capitals
};

/// Whether the connector prints a ticket of the first name before one of the second if their files have the
/// same time.
[[nodiscard]] bool ComesBefore(const std::string& name, const std::string& other);

}  // namespace orvenza
