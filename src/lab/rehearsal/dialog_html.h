#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <utility>

#include "simulator/scripted_operator.h"

namespace orvenza {

/// Keeps the dialogs of a rehearsal with their answers.
class DialogRecord {
 public:
  /// For Scenario::onDialog.
  void Note(const ShownDialog& dialog, std::string_view answer);

  /// In the order in which they appeared.
  const std::deque<ShownDialog>& Dialogs() const { return dialogs_; }

 private:
  std::deque<ShownDialog> dialogs_;
  std::deque<const ShownDialog*> shown_;  ///< The operator's own ones, in the same order.
};

/// The style of drawn dialogs, for a page.
extern const std::string_view kDialogStyle;

/// A dialog with what was answered.
[[nodiscard]] std::string DialogHtml(const ShownDialog& dialog);

}  // namespace orvenza
