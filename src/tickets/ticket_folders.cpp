#include "tickets/ticket_folders.h"

#include <algorithm>

#include "platform/system_error.h"

namespace orvenza {
namespace {

constexpr const char* kLabel = "Timer1 - ";

bool Contains(const TicketListing::SortedList& list, const std::string& entry) {
  return std::find(list.begin(), list.end(), entry) != list.end();
}

}  // namespace

void TicketFolders::RefreshNewList() {
  list1_.clear();
  list1_ = listing_.Read(settings_.TicketFolder);
}

void TicketFolders::RefreshInProcessList() {
  list2_.clear();
  if (!folders_.Exists(settings_.InProcessFolder)) folders_.Create(settings_.InProcessFolder);
  list2_ = listing_.Read(settings_.InProcessFolder);
}

bool TicketFolders::Holds(const std::string& entry) const {
  return Contains(list1_, entry) || Contains(list2_, entry);
}

std::string TicketFolders::NewPath(const std::string& entry) const {
  return settings_.TicketFolder + TicketListing::NameOf(entry);
}

std::string TicketFolders::InProcessPath(const std::string& entry) const {
  return settings_.InProcessFolder + TicketListing::NameOf(entry);
}

void TicketFolders::TakeIn(const std::string& entry) {
  const std::string file = InProcessPath(entry);
  const bool moved = MoveOrCopy(files_, NewPath(entry), file);
  if (moved || logs_.Attempt(kLabel, [&] { RemoveSource(entry); })) return;
  // The program must not end before the source is remembered.
  const auto deliver = [&] { loop_.Dispatch(); };
  const auto read = [&] { return FingerprintOf(ReadInPieces(files_, file, deliver)); };
  remembered_.TakeIn(entry, logs_.Attempt(kLabel, read));
}

void TicketFolders::FinishTakingIn(const std::string& entry) {
  const std::string file = InProcessPath(entry);
  if (!Contains(list1_, entry) || remembered_.Get().takenIn.contains(entry) || archive_.IsSettled(file))
    return;
  try {
    const std::string text = ReadWhole(files_, file);
    if (ReadWhole(files_, NewPath(entry)) != text) return;
    if (!logs_.Attempt(kLabel, [&] { RemoveSource(entry); })) remembered_.TakeIn(entry, FingerprintOf(text));
  } catch (const SystemError&) {
    // An unreadable ticket is not printed now and comes here again.
  }
}

bool TicketFolders::RemoveIfTakenIn(const std::string& entry, const BetweenPieces& between) {
  const auto& takenIn = remembered_.Get().takenIn;
  const auto copied = takenIn.find(entry);
  if (copied == takenIn.end()) return false;
  try {
    const bool isNew =
        copied->second && FingerprintOf(ReadInPieces(files_, NewPath(entry), between)) != *copied->second;
    if (!isNew) RemoveSource(entry);
    remembered_.ForgetTakenIn(entry);
    return !isNew;
  } catch (const SystemError&) {
    return true;  // already logged at the first failure
  }
}

void TicketFolders::RemoveSource(const std::string& entry) {
  const std::string source = NewPath(entry);
  if (files_.Exists(source)) RemoveReadOnlyToo(files_, source);
}

}  // namespace orvenza
