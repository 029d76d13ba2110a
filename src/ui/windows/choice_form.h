#pragma once

#include "ui/operator.h"
#include "ui/windows/form.h"

namespace orvenza {

/// The choice dialog `Orv_Info`; visible from construction. Its button is kCommand + 1.
class ChoiceForm final : public Form {
 public:
  ChoiceForm(Desk& desk, const ChoiceContent& content);

  /// The currently selected option, from 1; 0 none.
  int Selected() const;

 private:
  Extent Arrange(int dpi) override;
  void AddOptions(const ChoiceContent& content);

  const int hiddenSelection_;  ///< The selection while the frame is hidden.
  int options_ = 0;            ///< Number of options shown.
};

}  // namespace orvenza
