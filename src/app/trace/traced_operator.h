#pragma once

#include <vector>

#include "app/trace/traced_files.h"
#include "simulator/scripted_operator.h"
#include "ui/operator.h"

namespace orvenza {

/// Passes all dialogs on to an operator and reports them to a trace, with the answers in the form of
/// ScriptedOperator.
class TracedOperator : public Operator {
 public:
  TracedOperator(Operator& person, const TraceWatches& watches) : person_(person), watches_(watches) {}

  std::optional<int> ShowMessage(const MessageContent& content) override;
  void CloseMessage() override;
  std::optional<int> ShowChoice(const ChoiceContent& content) override;
  std::optional<std::array<int, 5>> ShowPortSettings(const PortContent& content) override;
  void ShowUtilities(const UtilitiesContent& content, const std::function<bool(int)>& pressed) override;

 private:
  void TellDialog(ShownDialog dialog);
  void TellAnswer(const std::string& answer);

  Operator& person_;
  const TraceWatches& watches_;
  std::vector<bool*> openMessages_;  ///< For each open message: set when it is closed.
};

}  // namespace orvenza
