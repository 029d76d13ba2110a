#pragma once

#include <cstdint>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>

#include "lab/check/line_findings.h"
#include "lab/check/ticket_check.h"

namespace orvenza {

/// What a whole check came to.
struct CheckTotals {
  std::uint64_t files = 0;  ///< Those that could be read.
  std::uint64_t unreadable = 0;
  std::uint64_t lines = 0;  ///< Empty ones included.
  std::uint64_t errors = 0;
  std::uint64_t warnings = 0;
};

/// Where the results of a check go, as they come. Lines count from 1.
class CheckReport {
 public:
  virtual ~CheckReport() = default;

  virtual void BeginFile(const std::string& name) = 0;
  /// A valid line.
  virtual void AddCommand(std::uint64_t line, const std::string& command) = 0;
  virtual void AddFinding(std::uint64_t line, const TicketFinding& finding) = 0;
  /// The file could not be read, or not further.
  virtual void AddUnreadable(const std::string& reason) = 0;
  virtual void End(const CheckTotals& totals) = 0;
};

/// For people: the file's name, then one line for each command and each finding. `quiet` leaves the commands
/// out.
std::unique_ptr<CheckReport> MakeTextReport(std::ostream& out, bool colours, bool quiet);

/// For programs, in JSON; docs/ticket-check.md has the schema.
std::unique_ptr<CheckReport> MakeJsonReport(std::ostream& out, const CheckRules& rules);

/// "3 lines, 1 error, 0 warnings", with the number of files before it unless there is one.
std::string TotalsText(const CheckTotals& totals);

}  // namespace orvenza
