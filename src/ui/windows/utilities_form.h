#pragma once

#include "ui/operator.h"
#include "ui/windows/form.h"

namespace orvenza {

/// The utilities dialog `Orv_Uti`; visible from construction. Its buttons are kCommand + 1 to 3.
class UtilitiesForm final : public Form {
 public:
  UtilitiesForm(Desk& desk, const UtilitiesContent& content);

 private:
  Extent Arrange(int dpi) override;
};

}  // namespace orvenza
