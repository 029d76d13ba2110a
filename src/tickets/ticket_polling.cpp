#include "tickets/ticket_polling.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <string_view>
#include <utility>

#include "core/catalogue.h"
#include "core/own_texts.h"
#include "core/text.h"
#include "platform/program_end.h"
#include "platform/system_error.h"
#include "tickets/line_reader.h"
#include "tickets/record.h"
#include "tickets/record_types.h"

namespace orvenza {
namespace {

constexpr const char* kLabel = "Timer1 - ";
constexpr const char* kReadLabel = "Trasmissione ";
/// Ten ticks take five seconds.
constexpr int kEagerTries = 10;
/// Longest part of the command file that is read, in bytes. A longer first line is not a command.
constexpr std::size_t kLongestCommand = 64 * 1024;
/// A megabyte; takes some hundredths of a second.
constexpr int kPiecesBetweenLooks = 16;

bool Holds(const TicketListing::SortedList& list, const std::string& entry) {
  return std::find(list.begin(), list.end(), entry) != list.end();
}

}  // namespace

bool AsksToQuit(const FileReader& files, const std::string& commandFile) {
  LineReader reader(std::make_unique<TextBytes>(ReadWhole(files, commandFile, kLongestCommand)));
  std::string line;
  reader.ReadLine(line);
  if (line.size() == kLongestCommand) return false;
  const std::string command = ToUpperAscii(Trim(line));
  // Deliberate: an empty first line is a request to quit, too.
  return command.empty() || command == "QUIT";
}

TicketPolling::TicketPolling(Files& files, Folders& folders, const AppSettings& settings, Logs& logs,
                             EventLoop& loop, PollTimer& timer, DeviceLink& link, RegisterQueries& queries,
                             ClockCorrection& clockCorrection, TicketSplitter& splitter,
                             TicketProcessor& processor, TicketArchive& archive,
                             RememberedTickets& remembered)
    : files_(files),
      folders_(folders),
      settings_(settings),
      logs_(logs),
      failures_(logs),
      loop_(loop),
      timer_(timer),
      link_(link),
      queries_(queries),
      clockCorrection_(clockCorrection),
      splitter_(splitter),
      processor_(processor),
      archive_(archive),
      remembered_(remembered),
      listing_(folders, settings, logs, remembered.Path()),
      clockCheck_(settings, clockCorrection) {}

void TicketPolling::Tick() {
  timer_.SetEnabled(false);
  const bool newListed = failures_.Attempt(kLabel, [&] { RefreshNewList(); });
  // Without the list of tickets taken in, a new ticket could replace one of the same name.
  const bool listed = failures_.Attempt(kLabel, [&] { RefreshInProcessList(); });
  const bool recalled = remembered_.Recall();
  if (newListed && listed) ForgetGone();
  failures_.Attempt(kLabel, [&] { QuitIfAsked(); });
  if (listed && recalled) failures_.Attempt(kLabel, [&] { ProcessOneTicket(); });
  failures_.Attempt(kLabel, [&] { CorrectClock(); });
  failures_.EndRound();
  timer_.SetEnabled(true);
}

void TicketPolling::RefreshNewList() {
  list1_.clear();
  list1_ = listing_.Read(settings_.TicketFolder);
}

void TicketPolling::RefreshInProcessList() {
  list2_.clear();
  if (!folders_.Exists(settings_.InProcessFolder)) folders_.Create(settings_.InProcessFolder);
  list2_ = listing_.Read(settings_.InProcessFolder);
}

/// An entry that another program removed must not stand for a later ticket.
void TicketPolling::ForgetGone() {
  remembered_.KeepTakenIn(list1_);
  const auto hasGone = [&](const std::string& entry) {
    return !Holds(list1_, entry) && !Holds(list2_, entry);
  };
  std::erase_if(heldUp_, [&](const auto& tried) { return hasGone(tried.first); });
  std::erase_if(waiting_, hasGone);
  std::erase_if(single_, hasGone);
}

void TicketPolling::QuitIfAsked() {
  const std::string& commandFile = settings_.CommandFilePath;
  if (!files_.Exists(commandFile) || !AsksToQuit(files_, commandFile)) return;
  link_.ClosePort();
  logs_.Attempt(kLabel, [&] { RemoveReadOnlyToo(files_, commandFile); });
  logs_.WrLog(LoadMessage(MessageId::kQuitCommand));
  throw ProgramEnd{.unload = true};
}

/// Called between two pieces of a large file, as long as nothing of it has been sent.
void TicketPolling::Breathe() {
  loop_.Dispatch();
  loop_.CheckEnd();
  if (++pieces_ % kPiecesBetweenLooks != 0) return;
  logs_.Attempt(kLabel, [&] { QuitIfAsked(); });
}

void TicketPolling::ProcessOneTicket() {
  archive_.RetrySettled();
  while (TryAll() == Outcome::kSplit) {
    RefreshNewList();
    RefreshInProcessList();
  }
}

TicketPolling::Outcome TicketPolling::TryAll() {
  for (const std::string& entry : InProcessOrder()) {
    if (Holds(list1_, entry)) FinishTakingIn(entry);
    if (const Outcome outcome = TryTakenIn(entry); outcome != Outcome::kNext) return outcome;
  }
  for (const std::string& entry : list1_) {
    if (const Outcome outcome = TryNew(entry); outcome != Outcome::kNext) return outcome;
  }
  return Outcome::kEnd;
}

/// A file that still has to be split goes first: parts left by an interrupted split are recognised only until
/// it is split again.
TicketListing::SortedList TicketPolling::InProcessOrder() {
  TicketListing::SortedList order = list2_;
  if (!settings_.FileParser) return order;
  std::stable_partition(order.begin(), order.end(), [&](const std::string& entry) {
    const std::string file = settings_.InProcessFolder + TicketListing::NameOf(entry);
    if (single_.contains(entry) || !MayExist(files_, file) || archive_.IsSettled(file)) return false;
    const bool wouldSplit = splitter_.WouldSplit(file, breathe_);
    if (!wouldSplit) single_.insert(entry);
    return wouldSplit;
  });
  return order;
}

TicketPolling::Outcome TicketPolling::TryNew(const std::string& entry) {
  const std::string name = TicketListing::NameOf(entry);
  if (RemoveIfTakenIn(entry)) {
    heldUp_.erase(entry);  // It is printed, so nothing need wait for it.
    return Outcome::kNext;
  }
  if (MayExist(files_, settings_.InProcessFolder + name)) {
    // While a settled or unreadable file of that name exists, the new one waits.
    heldUp_.try_emplace(entry);
    return Outcome::kNext;
  }
  if (HeldUpBefore(entry) != nullptr) {
    // Read before it is taken in, since then it would come first after a restart.
    std::string text;
    if (!Try(entry, kLabel, [&] { text = ReadInPieces(files_, settings_.TicketFolder + name, breathe_); }))
      return HeldUp(entry);
    if (MustWait(entry, text)) return Outcome::kNext;
  }
  if (!Try(entry, kLabel, [&] { TakeIn(entry, settings_.InProcessFolder + name); })) return HeldUp(entry);
  return TryTakenIn(entry);
}

TicketPolling::Outcome TicketPolling::TryTakenIn(const std::string& entry) {
  const std::string file = settings_.InProcessFolder + TicketListing::NameOf(entry);
  if (!MayExist(files_, file) || archive_.IsSettled(file)) return Outcome::kNext;
  bool split = false;
  if (!Try(entry, kLabel, [&] { split = splitter_.SplitTicketFile(file, breathe_); })) return HeldUp(entry);
  if (split) return Outcome::kSplit;
  // Read completely before anything is sent: a read error must not occur with half of it printed.
  std::string text;
  if (!Try(entry, kReadLabel, [&] { text = ReadInPieces(files_, file, breathe_); })) return HeldUp(entry);
  return MustWait(entry, text) ? Outcome::kNext : Print(entry, file, std::move(text));
}

TicketPolling::Outcome TicketPolling::Print(const std::string& entry, const std::string& file,
                                            std::string text) {
  processor_.ProcessTicketFile(file, std::move(text));
  if (MayExist(files_, file) && !archive_.IsSettled(file)) {
    ++heldUp_[entry];
    return HeldUp(entry);
  }
  heldUp_.erase(entry);
  return Outcome::kEnd;
}

/// Whether the ticket is a closure or a report while an older ticket could not be printed, which would then
/// fall into the wrong day.
bool TicketPolling::MustWait(const std::string& entry, const std::string& text) {
  const std::string* const older = HeldUpBefore(entry);
  if (older == nullptr || !HoldsReport(text)) return false;
  if (waiting_.insert(entry).second) {
    logs_.WrErr(std::string(own_text::kReportWaits) + " " + TicketListing::NameOf(entry) + ", " +
                own_text::kFirstComes + " " + TicketListing::NameOf(*older));
  }
  return true;
}

/// Whether a line of the ticket is a closure or a report.
bool TicketPolling::HoldsReport(const std::string& text) {
  LineReader reader(std::make_unique<PieceReader>(std::make_unique<ViewBytes>(text), breathe_));
  RecordFields fields;
  for (std::string line; reader.ReadLine(line);) {
    SplitRecord(line, settings_.SeparatorChar, fields);
    if (HasRole(fields[0], &RecordRoles::reports)) return true;
  }
  return false;
}

const std::string* TicketPolling::HeldUpBefore(const std::string& entry) const {
  for (const auto& [other, tries] : heldUp_) {
    if (TicketListing::IsOlder(other, entry)) return &other;
  }
  return nullptr;
}

/// Runs one step of making a ticket ready.
bool TicketPolling::Try(const std::string& entry, const char* label, const std::function<void()>& step) {
  const bool done = failures_.Attempt(label, step);
  if (!done) ++heldUp_[entry];
  return done;
}

TicketPolling::Outcome TicketPolling::HeldUp(const std::string& entry) const {
  return heldUp_.at(entry) < kEagerTries ? Outcome::kEnd : Outcome::kNext;
}

void TicketPolling::TakeIn(const std::string& entry, const std::string& file) {
  const bool moved = MoveOrCopy(files_, settings_.TicketFolder + TicketListing::NameOf(entry), file);
  if (moved || logs_.Attempt(kLabel, [&] { RemoveSource(entry); })) return;
  // The program must not end before the source is remembered.
  const auto deliver = [&] { loop_.Dispatch(); };
  const auto read = [&] { return FingerprintOf(ReadInPieces(files_, file, deliver)); };
  remembered_.TakeIn(entry, logs_.Attempt(kLabel, read));
}

/// Completes taking in a ticket that was copied by a program that ended before it removed or remembered the
/// source: name, time and text equal the copy's. The source must not be taken for another ticket once the
/// copy is printed.
void TicketPolling::FinishTakingIn(const std::string& entry) {
  const std::string name = TicketListing::NameOf(entry);
  const std::string file = settings_.InProcessFolder + name;
  if (remembered_.Get().takenIn.contains(entry) || archive_.IsSettled(file)) return;
  try {
    const std::string text = ReadWhole(files_, file);
    if (ReadWhole(files_, settings_.TicketFolder + name) != text) return;
    if (!logs_.Attempt(kLabel, [&] { RemoveSource(entry); })) remembered_.TakeIn(entry, FingerprintOf(text));
  } catch (const SystemError&) {
    // An unreadable ticket is not printed now and comes here again.
  }
}

/// A ticket that was copied but could not be removed comes again on every tick: only its removal is tried
/// again, for its copy has been processed. Another text under its name and time is a new ticket.
bool TicketPolling::RemoveIfTakenIn(const std::string& entry) {
  const auto& takenIn = remembered_.Get().takenIn;
  const auto copied = takenIn.find(entry);
  if (copied == takenIn.end()) return false;
  try {
    const std::string source = settings_.TicketFolder + TicketListing::NameOf(entry);
    const bool isNew =
        copied->second && FingerprintOf(ReadInPieces(files_, source, breathe_)) != *copied->second;
    if (!isNew) RemoveSource(entry);
    remembered_.ForgetTakenIn(entry);
    return !isNew;
  } catch (const SystemError&) {
    return true;  // already logged at the first failure
  }
}

void TicketPolling::RemoveSource(const std::string& entry) {
  const std::string source = settings_.TicketFolder + TicketListing::NameOf(entry);
  if (files_.Exists(source)) RemoveReadOnlyToo(files_, source);
}

void TicketPolling::CorrectClock() {
  if (!clockCheck_.CountTick()) return;
  if (!queries_.StatusQuery(Asking::kQuiet)) return;
  if (const auto reply = queries_.ClockQuery(Asking::kQuiet)) clockCorrection_.Correct(*reply);
}

}  // namespace orvenza
