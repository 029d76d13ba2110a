#pragma once

#include "lab/findings.h"
#include "lab/settings_review.h"

namespace orvenza {

/// What is to be said about lines of a settings file that the connector never reads, and about its
/// characters.
Findings FindInLines(const SettingsReview& review);

}  // namespace orvenza
