#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "lab/rehearsal.h"
#include "lab/settlement.h"

namespace orvenza {

/// An answer as the scripted operator takes it, and what it means.
struct SettlementReply {
  std::string text;
  std::optional<Answer> meaning;  ///< Nothing where the dialog leaves no choice.
};

/// One dialog of a run.
struct AskedDialog {
  SettlementReply reply;
  std::vector<SettlementReply> others;  ///< That are to be tried too.
};

/// One rehearsal of a settlement. Its dialogs are answered by a plan first, and then in the way that goes
/// forward, until the operator loses patience.
class SettlementRun {
 public:
  /// `depth` dialogs with a choice name their other answers, unless the plan decides about them. So does each
  /// of the first dialogs the icon's menu, as long as the program was not ended from it.
  SettlementRun(const Scenario& scenario, std::vector<SettlementReply> plan, std::size_t depth);
  SettlementRun(const SettlementRun&) = delete;
  SettlementRun& operator=(const SettlementRun&) = delete;

  const RehearsalOutcome& Outcome() const { return outcome_; }
  const std::vector<AskedDialog>& Dialogs() const { return asked_; }

  /// The operator lost patience.
  bool GaveUp() const;

 private:
  std::string Decide(const ShownDialog& dialog);

  std::vector<SettlementReply> plan_;
  std::size_t depth_;
  std::vector<AskedDialog> asked_;
  std::size_t choices_ = 0;
  bool left_ = false;  // the program was ended from the menu
  RehearsalOutcome outcome_;
};

}  // namespace orvenza
