#pragma once

#include "lab/findings.h"
#include "lab/settings_review.h"

namespace orvenza {

/// What is to be said about a settings file called `name`.
Findings FindInSettings(const SettingsReview& review, const std::string& name);

}  // namespace orvenza
