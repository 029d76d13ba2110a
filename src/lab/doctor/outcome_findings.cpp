#include "lab/doctor/outcome_findings.h"

#include <algorithm>

#include "lab/shell/wording.h"
#include "platform/system_error.h"
#include "tickets/outcome_files.h"

namespace orvenza {
namespace {

/// From here on every program that lists the folder becomes slow.
constexpr std::size_t kTooMany = 10'000;

Finding OfCount(const std::string& folder, std::size_t count) {
  const std::string fact = "The outcomes folder " + folder + " holds " + CountOf(count, "file") + ".";
  if (count <= kTooMany) return {Severity::kOk, "outcomes.count", fact};
  return {Severity::kWarning, "outcomes.count", fact,
          "Let the host remove the outcomes that it has read; Orvenza never does."};
}

}  // namespace

Findings FindInOutcomes(const Installation& shop) {
  const std::string& folder = shop.Settings().OutcomesFolder;
  if (shop.review.state == SettingsReview::State::kUnreadable || folder.empty()) return {};
  if (OutcomesFolderIsRefused(shop.Settings(), shop.paths.AppPath)) {
    return {{Severity::kWarning, "outcomes.off",
             "The outcomes folder " + folder +
                 " is searched for tickets, or is in the historic folder, or is the program folder, so it is "
                 "not used: the host gets no outcomes.",
             "Name a folder of its own in [Host] Outcomes, such as " + shop.paths.AppPath + "\\esiti\\."}};
  }
  try {
    if (!shop.folders.Exists(folder)) return {};
    const FolderListing files = shop.folders.ListFolder(folder + "*");
    return {OfCount(
        folder, static_cast<std::size_t>(std::count_if(
                    files.begin(), files.end(), [](const FolderEntry& entry) { return !entry.isFolder; })))};
  } catch (const SystemError&) {
    return {};  // A folder that cannot be read has findings of its own.
  }
}

}  // namespace orvenza
