#include "tickets/ticket_polling.h"

#include <algorithm>
#include <utility>

#include "core/catalogue.h"
#include "core/folder_path.h"
#include "core/text.h"
#include "platform/program_end.h"
#include "platform/system_error.h"
#include "tickets/line_reader.h"

namespace orvenza {
namespace {

constexpr const char* kLabel = "Timer1 - ";
constexpr std::size_t kStampLength = 14;
/// Five seconds of ticks, and a minute of them.
constexpr int kEagerTries = 10;
constexpr int kTicksBetweenTries = 120;
/// Bytes of the command file that are looked at. A longer first line is no command.
constexpr std::size_t kLongestCommand = 64 * 1024;

std::string NameOf(const std::string& entry) { return entry.substr(kStampLength); }

/// What the lists are sorted by. In small letters, because the name of a closure request consists of "z" and
/// is to come after a "_" too, and with all other characters before that letter; a number by how many digits
/// count in it, and then by these.
std::string SortKey(std::string_view entry) {
  constexpr std::string_view kDigits = "0123456789";
  std::string key(entry.substr(0, kStampLength));
  for (std::string_view rest = entry.substr(kStampLength); !rest.empty();) {
    if (const std::size_t digits = std::min(rest.find_first_not_of(kDigits), rest.size()); digits > 0) {
      const std::string_view number = WithoutLeadingZeros(rest.substr(0, digits));
      key += '0';
      key += static_cast<char>(number.size());
      key += number;
      rest.remove_prefix(digits);
      continue;
    }
    const char c = rest.front();
    if (static_cast<unsigned char>(c) > 'z') key += "y\x7F";
    key += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    rest.remove_prefix(1);
  }
  return key;
}

/// A file that cannot be taken in, read or split is tried on each tick first, before all others, and then
/// rarely, so that it does not hold up the others for ever. `tries` holds its tries and the ticks it was
/// passed over.
bool IsDue(std::map<std::string, int>& tries, const std::string& file) {
  const auto found = tries.find(file);
  if (found == tries.end() || found->second < kEagerTries) return true;
  return ++found->second % kTicksBetweenTries == 0;
}

}  // namespace

bool AsksToQuit(const Files& files, const std::string& commandFile) {
  LineReader reader(std::make_unique<TextBytes>(ReadWhole(files, commandFile, kLongestCommand)));
  std::string line;
  reader.ReadLine(line);
  if (line.size() == kLongestCommand) return false;
  const std::string command = ToUpperAscii(Trim(line));
  // An empty first line is a request to quit too, deliberately.
  return command.empty() || command == "QUIT";
}

TicketPolling::TicketPolling(Files& files, Folders& folders, const AppSettings& settings, Journals& journals,
                             PollTimer& timer, DeviceLink& link, RegisterQueries& queries,
                             ClockCorrection& clockCorrection, TicketSplitter& splitter,
                             TicketProcessor& processor, TicketArchive& archive)
    : files_(files),
      folders_(folders),
      settings_(settings),
      journals_(journals),
      timer_(timer),
      link_(link),
      queries_(queries),
      clockCorrection_(clockCorrection),
      splitter_(splitter),
      processor_(processor),
      archive_(archive) {}

void TicketPolling::Tick() {
  timer_.SetEnabled(false);
  journals_.Attempt(kLabel, [&] { RefreshNewList(); });
  // Without the list of what was taken in, a new ticket could replace one of the same name.
  const bool listed = journals_.Attempt(kLabel, [&] { RefreshInProcessList(); });
  bool quit = false;
  journals_.Attempt(kLabel, [&] { quit = QuitAsked(); });
  if (quit) Quit();
  if (listed) journals_.Attempt(kLabel, [&] { ProcessOneTicket(); });
  journals_.Attempt(kLabel, [&] { CorrectClock(); });
  timer_.SetEnabled(true);
}

void TicketPolling::RefreshNewList() {
  list1_.clear();
  list1_ = ReadList(settings_.TicketFolder);
  // What somebody else has removed meanwhile must not stand for a later ticket.
  const auto hasGone = [&](const std::string& entry) {
    return std::find(list1_.begin(), list1_.end(), entry) == list1_.end();
  };
  std::erase_if(takenIn_, [&](const auto& copied) { return hasGone(copied.first); });
  std::erase_if(refused_, [&](const auto& tried) { return hasGone(tried.first); });
}

void TicketPolling::RefreshInProcessList() {
  list2_.clear();
  if (!folders_.Exists(settings_.InProcessFolder)) folders_.Create(settings_.InProcessFolder);
  list2_ = ReadList(settings_.InProcessFolder);
}

std::vector<std::string> TicketPolling::OwnNames(const std::string& folder) const {
  const std::string place = NormalisedFolder(folder);
  std::vector<std::string> paths = journals_.Paths();
  paths.push_back(settings_.CommandFilePath);
  std::vector<std::string> names;
  for (const std::string& path : paths) {
    const std::size_t name = path.rfind('\\') + 1;
    if (NormalisedFolder(path.substr(0, name)) == place) names.push_back(ToUpperAscii(path.substr(name)));
  }
  return names;
}

TicketPolling::SortedList TicketPolling::ReadList(const std::string& folder) const {
  const std::vector<std::string> own = OwnNames(folder);
  const auto isOwn = [&](const std::string& name) {
    return !own.empty() && std::find(own.begin(), own.end(), ToUpperAscii(name)) != own.end();
  };
  std::vector<std::pair<std::string, std::string>> keyed;  // the key of an entry, and the entry
  for (const FolderEntry& file : folders_.ListFolder(folder + settings_.TicketMask)) {
    if (file.isFolder || isOwn(file.name)) continue;
    std::string entry = DateDigits(file.modified) + TimeDigits(file.modified) + file.name;
    keyed.emplace_back(SortKey(entry), std::move(entry));
  }
  std::sort(keyed.begin(), keyed.end());
  SortedList list;
  list.reserve(keyed.size());
  for (auto& [key, entry] : keyed) list.push_back(std::move(entry));
  return list;
}

std::size_t TicketPolling::CountWaitingTickets() {
  RefreshNewList();
  const auto waits = [&](const std::string& entry) { return !takenIn_.contains(entry); };
  return static_cast<std::size_t>(std::count_if(list1_.begin(), list1_.end(), waits));
}

void TicketPolling::PutLast(const std::string& name) {
  RefreshNewList();
  if (list1_.empty() || NameOf(list1_.back()) == name) return;
  files_.CopyModified(settings_.TicketFolder + NameOf(list1_.back()), settings_.TicketFolder + name);
}

bool TicketPolling::QuitAsked() {
  return files_.Exists(settings_.CommandFilePath) && AsksToQuit(files_, settings_.CommandFilePath);
}

void TicketPolling::Quit() {
  link_.ClosePort();
  journals_.Attempt(kLabel, [&] { RemoveReadOnlyToo(files_, settings_.CommandFilePath); });
  journals_.WrLog(LoadMessage(104));
  throw ProgramEnd{.unload = true};
}

void TicketPolling::ProcessOneTicket() {
  std::string file;
  const bool chosen = journals_.Attempt(kLabel, [&] { ChooseFile(file); });
  if (file.empty()) return;
  if (chosen && MayExist(files_, file)) processor_.ProcessTicketFile(file);
  if (MayExist(files_, file) && !archive_.IsSettled(file)) {
    ++left_[file];
  } else {
    left_.erase(file);
  }
}

void TicketPolling::ChooseFile(std::string& file) {
  archive_.RetrySettled();
  for (;;) {
    file = FirstInProcess();
    if (file.empty()) file = TakeInNext();
    if (file.empty() || !splitter_.SplitTicketFile(file)) return;
    file.clear();
    RefreshNewList();
    RefreshInProcessList();
  }
}

/// A file that is yet to be split goes first: its parts, where an interrupted split has left some, are known
/// as such only as long as it has not been split again.
std::string TicketPolling::FirstInProcess() {
  std::string first;
  for (const std::string& entry : list2_) {
    std::string file = settings_.InProcessFolder + NameOf(entry);
    if (!MayExist(files_, file) || archive_.IsSettled(file) || !IsDue(left_, file)) continue;
    if (!settings_.FileParser || splitter_.WouldSplit(file)) return file;
    if (first.empty()) first = std::move(file);
  }
  return first;
}

std::string TicketPolling::TakeInNext() {
  for (const std::string& entry : list1_) {
    std::string file = settings_.InProcessFolder + NameOf(entry);
    // Where a file of that name still lies, settled or unreadable, the new one waits until it has gone.
    if (IsTakenIn(entry) || MayExist(files_, file) || !IsDue(refused_, entry)) continue;
    if (journals_.Attempt(kLabel, [&] { TakeIn(entry, file); })) return file;
    // Held for a moment: what is newer, a closure of the day perhaps, must not overtake it.
    if (++refused_[entry] < kEagerTries) return {};
  }
  return {};
}

void TicketPolling::TakeIn(const std::string& entry, const std::string& file) {
  const bool moved = MoveOrCopy(files_, settings_.TicketFolder + NameOf(entry), file);
  if (moved || journals_.Attempt(kLabel, [&] { RemoveSource(entry); })) return;
  takenIn_[entry];
  journals_.Attempt(kLabel, [&] { takenIn_[entry] = ReadWhole(files_, file); });
}

/// A ticket that was copied but could not be removed comes again on every tick: only its removal is tried
/// again, for its copy has been processed. Another text under its name and time is a new ticket.
bool TicketPolling::IsTakenIn(const std::string& entry) {
  const auto copied = takenIn_.find(entry);
  if (copied == takenIn_.end()) return false;
  try {
    const std::string source = settings_.TicketFolder + NameOf(entry);
    const bool isNew = copied->second && ReadWhole(files_, source) != *copied->second;
    if (!isNew) RemoveSource(entry);
    takenIn_.erase(copied);
    return !isNew;
  } catch (const SystemError&) {
    return true;  // logged when it happened first
  }
}

void TicketPolling::RemoveSource(const std::string& entry) {
  const std::string source = settings_.TicketFolder + NameOf(entry);
  if (files_.Exists(source)) RemoveReadOnlyToo(files_, source);
}

void TicketPolling::CorrectClock() {
  if (!clockCorrection_.CountTick()) return;
  queries_.StatusQuery("*");
  if (link_.ReplyText.starts_with("4201")) clockCorrection_.Correct(link_.ReplyText);
}

}  // namespace orvenza
