#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "lab/rehearsal/rehearsal_outcome.h"
#include "lab/rehearsal/scenario.h"
#include "lab/table/fault_case.h"
#include "simulator/scripted_operator.h"

namespace orvenza {

/// An answer in the form of ScriptedOperator, and its meaning.
struct CaseReply {
  std::string text;
  std::optional<Answer> meaning;  ///< Empty if the dialog has no choice.
};

/// The possible answers to a dialog, first the one that proceeds. Closing a message with a single button is
/// the same as pressing it, and closing the question whether to end means no.
std::vector<CaseReply> RepliesTo(const ShownDialog& dialog);

/// The answer that ends the program from the icon's menu.
inline constexpr const char* kMenuExit = "menu Esci";
/// Number of dialogs after which the operator gives up.
inline constexpr std::size_t kPatience = 30;

/// One dialog of a run.
struct AskedDialog {
  CaseReply reply;
  std::vector<CaseReply> others;  ///< Other answers to try.
};

/// One rehearsal of a fault case. Dialogs are answered first according to a plan, then with the answer that
/// proceeds, until the operator loses patience.
class CaseRun {
 public:
  /// The first `depth` dialogs with a choice list their other answers, unless the plan decides them. The
  /// first dialogs also list the icon's menu, until the program was ended from it.
  CaseRun(const Scenario& scenario, std::vector<CaseReply> plan, std::size_t depth);
  CaseRun(const CaseRun&) = delete;
  CaseRun& operator=(const CaseRun&) = delete;

  const RehearsalOutcome& Outcome() const { return outcome_; }
  const std::vector<AskedDialog>& Dialogs() const { return asked_; }

  /// Whether the operator lost patience.
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
