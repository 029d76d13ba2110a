#pragma once

#include "lab/doctor/findings.h"
#include "lab/settings/settings_review.h"

namespace orvenza {

/// Examines the settings file called `name`.
Findings FindInSettings(const SettingsReview& review, const std::string& name);

}  // namespace orvenza
