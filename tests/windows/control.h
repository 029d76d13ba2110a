#pragma once

#include "support/temp_folder.h"

namespace orvenza::test {

/// The stand-in for the link control, registered during the object's lifetime for the programs started
/// meanwhile. Transmission takes no time. Calls are logged in "standin.log" of the folder.
class Control {
 public:
  /// `script` configures the register behind it.
  explicit Control(const TempFolder& folder, const std::string& script = {});
  ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
};

}  // namespace orvenza::test
