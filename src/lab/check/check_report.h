#pragma once

#include <cstdint>
#include <memory>
#include <ostream>
#include <string>

#include "lab/check/line_findings.h"
#include "lab/check/ticket_check.h"

namespace orvenza {

/// The totals of a whole check.
struct CheckTotals {
  std::uint64_t files = 0;  ///< Only readable ones.
  std::uint64_t unreadable = 0;
  std::uint64_t lines = 0;  ///< Including blank ones.
  std::uint64_t errors = 0;
  std::uint64_t warnings = 0;
};

/// Receives the results of a check as they are found. Lines count from 1.
class CheckReport {
 public:
  virtual ~CheckReport() = default;

  virtual void BeginFile(const std::string& name) = 0;
  /// A valid line.
  virtual void AddCommand(std::uint64_t line, const std::string& command) = 0;
  virtual void AddFinding(std::uint64_t line, const TicketFinding& finding) = 0;
  /// The file, or the rest of it, could not be read.
  virtual void AddUnreadable(const std::string& reason) = 0;
  virtual void End(const CheckTotals& totals) = 0;
};

/// For people: the file's name, then one line per command and finding. `quiet` omits the commands.
std::unique_ptr<CheckReport> MakeTextReport(std::ostream& out, bool colours, bool quiet);

/// For programs, in JSON; docs/ticket-check.md has the schema.
std::unique_ptr<CheckReport> MakeJsonReport(std::ostream& out, const CheckRules& rules);

/// "3 lines, 1 error, 0 warnings", preceded by the number of files unless it is one.
std::string TotalsText(const CheckTotals& totals);

}  // namespace orvenza
