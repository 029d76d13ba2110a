#include "tickets/ticket_queue.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "core/own_texts.h"
#include "tickets/line_reader.h"
#include "tickets/record.h"
#include "tickets/record_types.h"

namespace orvenza {
namespace {

constexpr const char* kLabel = "Timer1 - ";
constexpr const char* kReadLabel = "Trasmissione ";
/// Ten ticks take five seconds.
constexpr int kEagerTries = 10;

}  // namespace

TicketQueue::TicketQueue(Files& files, const AppSettings& settings, Logs& logs, RepeatedFailures& failures,
                         CommandFile& commandFile, TicketFolders& folders, TicketSplitter& splitter,
                         TicketProcessor& processor, TicketArchive& archive)
    : files_(files),
      settings_(settings),
      logs_(logs),
      failures_(failures),
      folders_(folders),
      splitter_(splitter),
      processor_(processor),
      archive_(archive),
      breathe_([&commandFile] { commandFile.Breathe(); }) {}

/// An entry that another program removed must not stand for a later ticket.
void TicketQueue::ForgetGone() {
  folders_.ForgetGone();
  const auto hasGone = [&](const std::string& entry) { return !folders_.Holds(entry); };
  std::erase_if(heldUp_, [&](const auto& tried) { return hasGone(tried.first); });
  std::erase_if(waiting_, hasGone);
  std::erase_if(single_, hasGone);
}

void TicketQueue::ProcessOneTicket() {
  archive_.RetrySettled();
  while (TryAll() == Outcome::kSplit) {
    folders_.RefreshNewList();
    folders_.RefreshInProcessList();
  }
}

TicketQueue::Outcome TicketQueue::TryAll() {
  for (const std::string& entry : InProcessOrder()) {
    folders_.FinishTakingIn(entry);
    if (const Outcome outcome = TryTakenIn(entry); outcome != Outcome::kNext) return outcome;
  }
  for (const std::string& entry : folders_.New()) {
    if (const Outcome outcome = TryNew(entry); outcome != Outcome::kNext) return outcome;
  }
  return Outcome::kEnd;
}

/// A file that still has to be split goes first: parts left by an interrupted split are recognised only until
/// it is split again.
TicketListing::SortedList TicketQueue::InProcessOrder() {
  TicketListing::SortedList order = folders_.InProcess();
  if (!settings_.FileParser) return order;
  std::stable_partition(order.begin(), order.end(), [&](const std::string& entry) {
    const std::string file = folders_.InProcessPath(entry);
    if (single_.contains(entry) || !MayExist(files_, file) || archive_.IsSettled(file)) return false;
    const bool wouldSplit = splitter_.WouldSplit(file, breathe_);
    if (!wouldSplit) single_.insert(entry);
    return wouldSplit;
  });
  return order;
}

TicketQueue::Outcome TicketQueue::TryNew(const std::string& entry) {
  if (folders_.RemoveIfTakenIn(entry, breathe_)) {
    // A copy that is still there has not been printed.
    if (!MayExist(files_, folders_.InProcessPath(entry))) heldUp_.erase(entry);
    return Outcome::kNext;
  }
  if (MayExist(files_, folders_.InProcessPath(entry))) {
    // While a settled or unreadable file of that name exists, the new one waits.
    heldUp_.try_emplace(entry);
    return Outcome::kNext;
  }
  if (HeldUpBefore(entry) != nullptr) {
    // Read before it is taken in, since then it would come first after a restart.
    std::string text;
    if (!Try(entry, kLabel, [&] { text = ReadInPieces(files_, folders_.NewPath(entry), breathe_); }))
      return HeldUp(entry);
    if (MustWait(entry, text)) return Outcome::kNext;
  }
  if (!Try(entry, kLabel, [&] { folders_.TakeIn(entry); })) return HeldUp(entry);
  return TryTakenIn(entry);
}

TicketQueue::Outcome TicketQueue::TryTakenIn(const std::string& entry) {
  const std::string file = folders_.InProcessPath(entry);
  if (!MayExist(files_, file) || archive_.IsSettled(file)) return Outcome::kNext;
  bool split = false;
  if (!Try(entry, kLabel, [&] { split = splitter_.SplitTicketFile(file, breathe_); })) return HeldUp(entry);
  if (split) return Outcome::kSplit;
  // Read completely before anything is sent: a read error must not occur with half of it printed.
  std::string text;
  if (!Try(entry, kReadLabel, [&] { text = ReadInPieces(files_, file, breathe_); })) return HeldUp(entry);
  return MustWait(entry, text) ? Outcome::kNext : Print(entry, file, std::move(text));
}

TicketQueue::Outcome TicketQueue::Print(const std::string& entry, const std::string& file, std::string text) {
  processor_.ProcessTicketFile(entry, file, std::move(text));
  if (MayExist(files_, file) && !archive_.IsSettled(file)) {
    ++heldUp_[entry];
    return HeldUp(entry);
  }
  heldUp_.erase(entry);
  return Outcome::kEnd;
}

/// Whether the ticket is a closure or a report while an older ticket could not be printed, which would then
/// fall into the wrong day.
bool TicketQueue::MustWait(const std::string& entry, const std::string& text) {
  const std::string* const older = HeldUpBefore(entry);
  if (older == nullptr || !HoldsReport(text)) return false;
  if (waiting_.insert(entry).second) {
    logs_.WrErr(std::string(own_text::kReportWaits) + " " + TicketListing::NameOf(entry) + ", " +
                own_text::kFirstComes + " " + TicketListing::NameOf(*older));
  }
  return true;
}

/// Whether a line of the ticket is a closure or a report.
bool TicketQueue::HoldsReport(const std::string& text) {
  LineReader reader(std::make_unique<PieceReader>(std::make_unique<ViewBytes>(text), breathe_));
  RecordFields fields;
  for (std::string line; reader.ReadLine(line);) {
    SplitRecord(line, settings_.SeparatorChar, fields);
    if (HasRole(fields[0], &RecordRoles::reports)) return true;
  }
  return false;
}

const std::string* TicketQueue::HeldUpBefore(const std::string& entry) const {
  for (const auto& [other, tries] : heldUp_) {
    if (TicketListing::IsOlder(other, entry)) return &other;
  }
  return nullptr;
}

/// Runs one step of making a ticket ready.
bool TicketQueue::Try(const std::string& entry, const char* label, const std::function<void()>& step) {
  const bool done = failures_.Attempt(label, step);
  if (!done) ++heldUp_[entry];
  return done;
}

TicketQueue::Outcome TicketQueue::HeldUp(const std::string& entry) const {
  return heldUp_.at(entry) < kEagerTries ? Outcome::kEnd : Outcome::kNext;
}

}  // namespace orvenza
