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

/// For programs, in JSON; docs/ticket-check.md describes it.
std::unique_ptr<CheckReport> MakeJsonReport(std::ostream& out, const CheckRules& rules);

// For build servers; docs/ticket-check.md says which. They report no commands.

/// Workflow commands that annotate the lines of a file.
std::unique_ptr<CheckReport> MakeGithubReport(std::ostream& out);

/// JUnit's XML: each file is a test case, which fails if a line is invalid. Keeps all findings in memory.
std::unique_ptr<CheckReport> MakeJunitReport(std::ostream& out);

/// SARIF 2.1.0.
std::unique_ptr<CheckReport> MakeSarifReport(std::ostream& out);

/// The code of a file that cannot be read.
inline constexpr std::string_view kUnreadableCode = "unreadable";

/// "FILE:LINE:FIELD: error: TEXT [CODE]".
std::string FindingText(const std::string& file, std::uint64_t line, const TicketFinding& finding);

/// "FILE: error: REASON [unreadable]".
std::string UnreadableText(const std::string& file, const std::string& reason);

/// "3 lines, 1 error, 0 warnings", preceded by the number of files unless it is one.
std::string TotalsText(const CheckTotals& totals);

}  // namespace orvenza
