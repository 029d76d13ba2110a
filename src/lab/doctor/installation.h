#pragma once

#include "lab/settings/settings_review.h"
#include "lab/shell/machine.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/folders.h"

namespace orvenza {

/// An installation under examination.
struct Installation {
  Files& files;
  const Folders& folders;
  const Machine& machine;
  const Clock& clock;
  ProgramPaths paths;
  LocalTime now;
  bool isServed = false;  ///< A connector runs in it.
  SettingsReview review;

  const AppSettings& Settings() const { return review.settings; }
};

}  // namespace orvenza
