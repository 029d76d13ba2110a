#pragma once

#include "support/temp_folder.h"

namespace orvenza::test {

/// The stand-in of the link control: registered for as long as the object lives, for the programs that are
/// started meanwhile. No time passes on its line. What is done to it stands in "standin.log" of the folder.
class Control {
 public:
  /// `script` is what the register behind it does.
  explicit Control(const TempFolder& folder, const std::string& script = {});
  ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
};

}  // namespace orvenza::test
