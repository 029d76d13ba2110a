#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "lab/rehearsal/rehearsal_outcome.h"
#include "lab/rehearsal/scenario.h"
#include "lab/table/fault_case.h"

namespace orvenza {

/// An answer as the scripted operator takes it, and what it means.
struct CaseReply {
  std::string text;
  std::optional<Answer> meaning;  ///< Nothing where the dialog leaves no choice.
};

/// One dialog of a run.
struct AskedDialog {
  CaseReply reply;
  std::vector<CaseReply> others;  ///< That are to be tried too.
};

/// One rehearsal of a fault case. Its dialogs are answered by a plan first, and then in the way that goes
/// forward, until the operator loses patience.
class CaseRun {
 public:
  /// `depth` dialogs with a choice name their other answers, unless the plan decides about them. So does each
  /// of the first dialogs the icon's menu, as long as the program was not ended from it.
  CaseRun(const Scenario& scenario, std::vector<CaseReply> plan, std::size_t depth);
  CaseRun(const CaseRun&) = delete;
  CaseRun& operator=(const CaseRun&) = delete;

  const RehearsalOutcome& Outcome() const { return outcome_; }
  const std::vector<AskedDialog>& Dialogs() const { return asked_; }

  /// The operator lost patience.
  bool GaveUp() const;

 private:
  std::string Decide(const ShownDialog& dialog);

  std::vector<CaseReply> plan_;
  std::size_t depth_;
  std::vector<AskedDialog> asked_;
  std::size_t choices_ = 0;
  bool left_ = false;  // the program was ended from the menu
  RehearsalOutcome outcome_;
};

}  // namespace orvenza
