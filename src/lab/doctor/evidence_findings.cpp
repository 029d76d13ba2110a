#include "lab/doctor/evidence_findings.h"

#include <optional>

#include "platform/system_error.h"
#include "tickets/evidence.h"

namespace orvenza {
namespace {

/// What the connector would know after a start; empty: nothing.
std::optional<EvidenceRecord> ReadEvidence(Findings& findings, const Installation& shop) {
  std::string damage = "is damaged";
  try {
    const std::string path = EvidencePath(shop.paths.AppPath);
    if (!shop.files.Exists(path)) return std::nullopt;
    if (auto record = ParseEvidence(ReadWhole(shop.files, path))) return record;
  } catch (const SystemError& failure) {
    damage = "cannot be read: " + failure.Description();
  }
  findings.push_back({Severity::kWarning, "inprocess.evidence",
                      std::string(kEvidenceName) + " " + damage +
                          ". The next start does not know how far interrupted tickets have come.",
                      "Close what holds the file open. Otherwise leave it: the next start asks about each "
                      "interrupted ticket and writes the file anew."});
  return std::nullopt;
}

bool IsInDoubt(const Standing& standing) {
  return standing.state == Standing::State::kUnderWay || standing.state == Standing::State::kUnknown;
}

/// A ticket that cannot be read cannot be printed or asked about either.
bool IsAskedAbout(const Installation& shop, const std::optional<EvidenceRecord>& record,
                  const FolderEntry& file) {
  if (!record) return true;
  try {
    const std::string path = shop.Settings().InProcessFolder + file.name;
    const std::string stamp = DateDigits(file.modified) + TimeDigits(file.modified);
    return IsInDoubt(
        StandingOf(*record, {file.name, stamp, path, FingerprintOf(ReadWhole(shop.files, path))}));
  } catch (const SystemError&) {
    return false;
  }
}

std::string NamesOfAskedAbout(const Installation& shop, const RememberedFiles& remembered,
                              const std::optional<EvidenceRecord>& record) {
  const AppSettings& settings = shop.Settings();
  std::string names;
  try {
    if (!shop.folders.Exists(settings.InProcessFolder)) return {};
    for (const FolderEntry& file : shop.folders.ListFolder(settings.InProcessFolder + settings.TicketMask)) {
      if (file.isFolder || remembered.settled.contains(file.name)) continue;
      if (IsAskedAbout(shop, record, file)) names += (names.empty() ? "" : ", ") + file.name;
    }
  } catch (const SystemError&) {
    // The folder has findings of its own.
  }
  return names;
}

}  // namespace

Findings FindInEvidence(const Installation& shop, const RememberedFiles& remembered) {
  Findings findings;
  if (!shop.Settings().AskInDoubt || shop.isServed) return findings;
  const auto record = ReadEvidence(findings, shop);
  const std::string names = NamesOfAskedAbout(shop, remembered, record);
  if (names.empty()) return findings;
  findings.push_back({Severity::kWarning, "inprocess.in-doubt",
                      "The next start will ask about " + names +
                          ": printing was interrupted, and only the paper shows whether it was finished.",
                      "Look for the receipt on the paper before the start, and let the operator know."});
  return findings;
}

}  // namespace orvenza
