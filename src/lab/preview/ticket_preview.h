#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "lab/check/check_report.h"
#include "lab/check/ticket_check.h"
#include "lab/paper/paper_slip.h"
#include "simulator/paper_roll.h"
#include "simulator/simulated_register.h"
#include "simulator/virtual_clock.h"

namespace orvenza {

/// The paper of one file.
struct PaperSheet {
  std::string file;
  std::vector<PaperSlip> slips;
};

/// Carries out the commands of a check on one simulated register and records its paper. Remarks say what was
/// not printed, and why. What a ticket leaves open is gone before the next one, as the connector voids it.
class TicketPreview : public CheckReport {
 public:
  /// `check` is the check that reports here. `split` is the command that divides a receipt that is too long;
  /// empty if it cannot be divided. `findings` receives the findings of the check and those of the register.
  TicketPreview(const TicketCheck& check, std::string split, CheckReport& findings);

  void BeginFile(const std::string& name) override;
  void AddCommand(std::uint64_t line, const std::string& command) override;
  void AddFinding(std::uint64_t line, const TicketFinding& finding) override;
  void AddUnreadable(const std::string& reason) override;
  void End(const CheckTotals& totals) override;

  /// The paper of each file; complete after End.
  const std::vector<PaperSheet>& Sheets() const { return sheets_; }

  /// Number of commands that the register refused.
  std::uint64_t Refused() const { return refused_; }

 private:
  void BeginLine(std::uint64_t line);
  void EndLine();
  void EndTicket();
  void EndFile();
  void Remark(const std::string& text);
  std::string ErrorOf(const std::string& command);

  const TicketCheck& check_;
  std::string split_;
  CheckReport& findings_;
  SlipRecorder slips_;
  PaperRoll roll_;
  VirtualClock clock_;
  std::optional<SimulatedRegister> register_;
  std::vector<PaperSheet> sheets_;
  std::uint64_t line_ = 0;  // the latest one
  std::string errors_;      // why the line is refused
  std::uint64_t refused_ = 0;
};

}  // namespace orvenza
