#include "lab/doctor/ticket_findings.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <utility>

#include "lab/doctor/evidence_findings.h"
#include "lab/shell/wording.h"
#include "platform/system_error.h"
#include "tickets/historic_rotation.h"
#include "tickets/remembered_tickets.h"

namespace orvenza {
namespace {

/// A summary of the files in a folder.
struct Contents {
  std::size_t count = 0;
  std::uintmax_t bytes = 0;
  LocalTime oldest;
  LocalTime newest;
};

std::string EntryOf(const FolderEntry& file) {
  return DateDigits(file.modified) + TimeDigits(file.modified) + file.name;
}

/// Empty if the folder does not exist or cannot be listed. `counts` selects the files; null means all.
std::optional<Contents> ContentsOf(const Installation& shop, const std::string& folder,
                                   const std::string& mask,
                                   const std::function<bool(const FolderEntry&)>& counts = {}) {
  if (folder.empty()) return {};
  Contents contents;
  try {
    if (!shop.folders.Exists(folder)) return {};
    for (const FolderEntry& entry : shop.folders.ListFolder(folder + mask)) {
      if (entry.isFolder || (counts && !counts(entry))) continue;
      contents.oldest = contents.count == 0 ? entry.modified : std::min(contents.oldest, entry.modified);
      contents.newest = std::max(contents.newest, entry.modified);
      contents.bytes += entry.size;
      ++contents.count;
    }
  } catch (const SystemError&) {
    return {};
  }
  return contents;
}

bool IsOfToday(const Installation& shop, const LocalTime& time) {
  return DateDigits(time) == DateDigits(shop.now);
}

std::string Age(const Installation& shop, const LocalTime& time) { return AgeText(shop.now, time); }

void AddWaiting(Findings& findings, const Installation& shop, const RememberedFiles& remembered) {
  const auto waiting =
      ContentsOf(shop, shop.Settings().TicketFolder, shop.Settings().TicketMask,
                 [&](const FolderEntry& file) { return !remembered.takenIn.contains(EntryOf(file)); });
  if (!waiting || waiting->count == 0) return;
  const std::string fact = CountOf(waiting->count, "ticket") + " in " + shop.Settings().TicketFolder +
                           " still to be printed, the oldest " + Age(shop, waiting->oldest) + " old.";
  if (IsOfToday(shop, waiting->oldest)) {
    findings.push_back({Severity::kNote, "tickets.waiting", fact});
  } else {
    findings.push_back({Severity::kWarning, "tickets.old", fact,
                        "Move away what is not to be printed any more: the next start prints it."});
  }
}

void AddInProcess(Findings& findings, const Installation& shop, const RememberedFiles& remembered) {
  const auto left =
      ContentsOf(shop, shop.Settings().InProcessFolder, shop.Settings().TicketMask,
                 [&](const FolderEntry& file) { return !remembered.settled.contains(file.name); });
  if (!left || left->count == 0) return;
  const std::string fact = CountOf(left->count, "ticket") + " in " + shop.Settings().InProcessFolder +
                           ", the oldest " + Age(shop, left->oldest) + " old";
  if (shop.isServed && left->count == 1) {
    findings.push_back(
        {Severity::kNote, "inprocess.busy", fact + ": it is being printed, or the operator is being asked."});
  } else if (shop.Settings().AskInDoubt) {
    findings.push_back({Severity::kWarning, "inprocess.leftover",
                        fact + ": left over from an interrupted run; the next start goes on behind what is "
                               "complete on paper.",
                        "Start the connector, and answer what it asks."});
  } else {
    findings.push_back({Severity::kWarning, "inprocess.leftover",
                        fact + ": left over from an interrupted run, and printed first by the next start.",
                        "Compare with the last receipt on paper; move away what is printed already."});
  }
}

/// The files that the connector remembers, so as not to print them again after a restart.
RememberedFiles ReadRemembered(Findings& findings, const Installation& shop) {
  const std::string path = RememberedFilesPath(shop.paths.AppPath);
  try {
    if (!shop.files.Exists(path)) return {};
    return ParseRememberedFiles(ReadWhole(shop.files, path));
  } catch (const SystemError& failure) {
    findings.push_back(
        {Severity::kWarning, "tickets.memory",
         "The list of tickets that must not be printed again cannot be read: " + failure.Description() + ".",
         "Close what holds that file open: without it the next start prints them again."});
    return {};
  }
}

void AddRemembered(Findings& findings, const Installation& shop, const RememberedFiles& remembered) {
  std::string names;
  const auto add = [&](const std::string& path) { names += (names.empty() ? "" : ", ") + path; };
  for (const auto& [entry, text] : remembered.takenIn) {
    add(shop.Settings().TicketFolder + TicketListing::NameOf(entry));
  }
  for (const auto& [name, file] : remembered.settled) add(shop.Settings().InProcessFolder + name);
  if (names.empty()) return;
  const std::size_t count = remembered.takenIn.size() + remembered.settled.size();
  findings.push_back({Severity::kWarning, "tickets.remembered",
                      CountOf(count, "ticket") +
                          " that must not be printed again and could not be removed: " + names +
                          ". The connector passes over such files.",
                      "Close what holds the files open, and give the user of the till the right to remove "
                      "files there."});
}

void AddAborted(Findings& findings, const Installation& shop) {
  const auto aborted = ContentsOf(shop, shop.Settings().AbortFolder, "*");
  if (!aborted || aborted->count == 0) return;
  const std::string fact = CountOf(aborted->count, "receipt") + " given up in " +
                           shop.Settings().AbortFolder + ", the newest " + Age(shop, aborted->newest) +
                           " ago.";
  findings.push_back({IsOfToday(shop, aborted->newest) ? Severity::kWarning : Severity::kNote,
                      "abort.receipts", fact, "Settle each with the shop: print it anew, or move it away."});
}

std::size_t CountEarlierDays(const Installation& shop) {
  try {
    return EarlierDays(shop.folders, shop.Settings().HistoricFolder).size();
  } catch (const SystemError&) {
    return 0;
  }
}

void AddHistoric(Findings& findings, const Installation& shop) {
  const std::string& historic = shop.Settings().HistoricFolder;
  if (historic.empty()) {
    findings.push_back({Severity::kNote, "historic.none",
                        "[Database] HistoricTickets is empty: printed tickets are deleted."});
    return;
  }
  if (HistoricHoldsTickets(shop.Settings(), shop.paths.AppPath)) {
    findings.push_back(
        {Severity::kWarning, "historic.off",
         "The historic folder " + historic +
             " holds the tickets to be printed, so it is not used: printed tickets are deleted.",
         "Name a folder of its own in [Database] HistoricTickets, such as " + shop.paths.AppPath +
             "\\storico\\."});
    return;
  }
  const auto kept = ContentsOf(shop, historic, "*");
  if (!kept) return;
  std::string fact =
      "The historic folder holds " + CountOf(kept->count, "file") + " of " + SizeText(kept->bytes);
  if (kept->count > 0) fact += ", the oldest " + Age(shop, kept->oldest) + " old";
  const std::size_t earlier = CountEarlierDays(shop);
  if (earlier > 0) fact += "; " + CountOf(earlier, "folder") + " of earlier days beside it";
  findings.push_back({Severity::kOk, "historic.size", fact + "."});
}

}  // namespace

Findings FindInTickets(const Installation& shop) {
  Findings findings;
  if (shop.review.state == SettingsReview::State::kUnreadable) return findings;
  const RememberedFiles remembered = ReadRemembered(findings, shop);
  AddWaiting(findings, shop, remembered);
  AddInProcess(findings, shop, remembered);
  for (Finding& finding : FindInEvidence(shop, remembered)) findings.push_back(std::move(finding));
  AddRemembered(findings, shop, remembered);
  AddAborted(findings, shop);
  AddHistoric(findings, shop);
  return findings;
}

}  // namespace orvenza
