#pragma once

#include "ui/operator.h"
#include "ui/windows/form.h"

namespace orvenza {

/// The choice dialog `Orv_Info`, on the screen from the start. Its button is kCommand + 1.
class ChoiceForm final : public Form {
 public:
  ChoiceForm(Desk& desk, const ChoiceContent& content);

  /// The option selected now, from 1; 0 none.
  int Selected() const;

 private:
  Extent Arrange(int dpi) override;
  void AddOptions(const ChoiceContent& content);

  const int hiddenSelection_;  ///< The selection behind a hidden frame.
  int options_ = 0;            ///< How many are shown.
};

}  // namespace orvenza
