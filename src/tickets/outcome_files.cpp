#include "tickets/outcome_files.h"

#include <algorithm>

#include "core/create_all_dirs.h"
#include "core/folder_path.h"
#include "core/text.h"
#include "platform/system_error.h"

namespace orvenza {
namespace {

using namespace std::chrono_literals;

constexpr const char* kLabel = "Outcomes - ";
constexpr const char* kExtension = ".ini";
constexpr auto kBetweenLines = 1min;
constexpr auto kBetweenTries = 10s;
/// A failure that took longer holds up the tickets, such as that of a server that has gone.
constexpr auto kSlowFailure = 1s;
constexpr auto kPause = 1min;
/// So many outcomes wait for their disk; then the oldest is given up.
constexpr std::size_t kMostLate = 1000;
/// So many of a ticket's outcomes are searched for the one that an earlier run began, the newest first.
constexpr std::size_t kMostSearched = 10;

std::string NumberedName(const std::string& ticket, std::size_t number) {
  return number == 0 ? OutcomeName(ticket) : ticket + "." + std::to_string(number) + kExtension;
}

/// Whether a file is named like an outcome of this ticket.
bool IsOutcomeOf(const std::string& name, const std::string& ticket) {
  const std::string_view ending = kExtension;
  if (!name.starts_with(ticket) || !name.ends_with(ending) || name.size() < ticket.size() + ending.size())
    return false;
  const std::string_view number =
      std::string_view(name).substr(ticket.size(), name.size() - ticket.size() - ending.size());
  return number.empty() || (number.front() == '.' && number.size() > 1 && OnlyDigits(number.substr(1)));
}

}  // namespace

bool OutcomesFolderIsRefused(const AppSettings& settings, const std::string& appPath) {
  const std::string& folder = settings.OutcomesFolder;
  return LiesIn(folder, settings.TicketFolder) || LiesIn(folder, settings.InProcessFolder) ||
         LiesIn(folder, settings.AbortFolder) || LiesIn(folder, settings.HistoricFolder) ||
         NormalisedFolder(folder) == NormalisedFolder(appPath);
}

std::string OutcomeName(const std::string& ticket) { return ticket + kExtension; }

void OutcomeFiles::Open(const std::string& folder) {
  folder_ = folder;
  (void)Attempt([&] { MakeAllDirs(folders_, folder_); });
}

void OutcomeFiles::Save(const std::shared_ptr<OutcomeFile>& file) {
  const auto waiting = std::find(late_.begin(), late_.end(), file);
  if (IsPaused() || !Write(*file)) {
    if (waiting == late_.end()) late_.push_back(file);
    if (late_.size() > kMostLate) late_.erase(late_.begin());
    return;
  }
  if (waiting != late_.end()) late_.erase(waiting);
  WriteLate();
}

void OutcomeFiles::SaveLate() {
  if (!late_.empty() && Now() - tried_ >= kBetweenTries && !IsPaused()) WriteLate();
}

void OutcomeFiles::WriteLate() {
  tried_ = Now();
  const auto firstFailed =
      std::find_if(late_.begin(), late_.end(), [&](const auto& file) { return !Write(*file); });
  late_.erase(late_.begin(), firstFailed);
}

bool OutcomeFiles::Write(OutcomeFile& file) {
  const bool written = Attempt([&] {
    const std::string path = file.path.empty() ? FreePath(file.outcome.ticket) : file.path;
    WriteInFolder(path, OutcomeText(file.outcome));
    file.path = path;
    file.written = file.outcome.receipt;
  });
  if (!written) RemoveOutdated(file);
  return written;
}

/// The folder may have disappeared, or its drive may be back without it.
void OutcomeFiles::WriteInFolder(const std::string& path, const std::string& text) {
  try {
    files_.Write(path, text);
  } catch (const SystemError& failure) {
    if (failure.Number() != error_number::kPathNotFound) throw;
    MakeAllDirs(folders_, folder_);
    files_.Write(path, text);
  }
}

/// After a power cut, an outcome that says too little would be taken at its word.
void OutcomeFiles::RemoveOutdated(OutcomeFile& file) {
  if (file.path.empty() || file.written == file.outcome.receipt) return;
  try {
    files_.Remove(file.path);
    file.path.clear();
  } catch (const SystemError&) {
    // Already logged.
  }
}

/// Not necessarily the first free number: a host that never removes outcomes must not slow down its tickets.
std::string OutcomeFiles::FreePath(const std::string& ticket) const {
  const auto pathOf = [&](std::size_t number) { return folder_ + NumberedName(ticket, number); };
  const auto isTaken = [&](std::size_t number) { return files_.Exists(pathOf(number)); };
  if (!isTaken(0)) return pathOf(0);
  std::size_t taken = 0;
  std::size_t free = 1;
  for (; isTaken(free); free *= 2) taken = free;
  while (free - taken > 1) {
    const std::size_t middle = taken + (free - taken) / 2;
    (isTaken(middle) ? taken : free) = middle;
  }
  return pathOf(free);
}

std::shared_ptr<OutcomeFile> OutcomeFiles::FindStarted(const std::string& ticket,
                                                       const std::optional<Fingerprint>& text,
                                                       bool& unreadable) {
  std::shared_ptr<OutcomeFile> found;
  unreadable = !Attempt([&] {
    for (const std::string& path : NewestOf(ticket)) {
      const auto outcome = ParseOutcome(ReadWhole(files_, path));
      if (!outcome || outcome->done || outcome->ticket != ToUtf8(ticket)) continue;
      if (text && outcome->text != *text) continue;
      found = std::make_shared<OutcomeFile>(OutcomeFile{path, outcome->receipt, *outcome});
      found->outcome.ticket = ticket;
      return;
    }
  });
  return found;
}

std::vector<std::string> OutcomeFiles::NewestOf(const std::string& ticket) const {
  FolderListing found = folders_.ListFolder(folder_ + ticket + "*" + kExtension);
  std::erase_if(found,
                [&](const FolderEntry& entry) { return entry.isFolder || !IsOutcomeOf(entry.name, ticket); });
  std::sort(found.begin(), found.end(),
            [](const FolderEntry& a, const FolderEntry& b) { return a.modified > b.modified; });
  std::vector<std::string> paths;
  for (const FolderEntry& entry : found) {
    if (paths.size() < kMostSearched) paths.push_back(folder_ + entry.name);
  }
  return paths;
}

bool OutcomeFiles::Attempt(const std::function<void()>& step) {
  const auto began = Now();
  const auto failure = Logs::FailureOf(kLabel, step);
  const auto ended = Now();
  pausedUntil_.reset();
  if (!failure) return true;
  if (ended - began > kSlowFailure) pausedUntil_ = ended + kPause;
  if (told_ && ended - *told_ < kBetweenLines) return false;
  told_ = ended;
  logs_.WrErr(std::string(*failure));
  return false;
}

}  // namespace orvenza
