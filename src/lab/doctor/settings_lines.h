#pragma once

#include "lab/doctor/findings.h"
#include "lab/settings/settings_review.h"

namespace orvenza {

/// Findings about lines of a settings file that the connector never reads, and about its characters.
Findings FindInLines(const SettingsReview& review);

}  // namespace orvenza
