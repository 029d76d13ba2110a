#include "tickets/remembered_tickets.h"

#include <algorithm>
#include <charconv>
#include <exception>
#include <utility>

#include "core/text.h"
#include "platform/system_error.h"
#include "tickets/line_reader.h"

namespace orvenza {
namespace {

constexpr const char* kLabel = "Remembered.ini - ";
constexpr std::string_view kNote =
    "; Tickets that are printed although their files could not be removed. Written, and removed, by Orvenza.";
constexpr std::string_view kTakenIn = "[TakenIn]";
constexpr std::string_view kSettled = "[Settled]";
constexpr std::string_view kCopied = "copied";
constexpr std::string_view kNotCopied = "not-copied";
constexpr std::string_view kUnknown = "-";
constexpr std::size_t kStampLength = TicketListing::kStampLength;
constexpr int kMostTries = 10;

/// Removes and returns the text up to the next blank of `rest`.
std::string_view NextWord(std::string_view& rest) {
  const std::size_t end = std::min(rest.find(' '), rest.size());
  const std::string_view word = rest.substr(0, end);
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return word;
}

bool ReadNumber(std::string_view digits, int base, std::uint64_t& number) {
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number, base);
  return error == std::errc() && end == digits.data() + digits.size();
}

std::string Hexadecimal(std::uint64_t number) {
  char digits[16];
  const auto [end, error] = std::to_chars(std::begin(digits), std::end(digits), number, 16);
  return std::string(digits, end);
}

std::string FingerprintText(const Fingerprint& text) {
  return std::to_string(text.size) + " " + Hexadecimal(text.digest);
}

void ReadTakenIn(std::string_view value, RememberedFiles& into) {
  const std::string_view stamp = NextWord(value);
  const std::string_view size = NextWord(value);
  const std::string_view digest = NextWord(value);
  if (stamp.size() != kStampLength || !OnlyDigits(stamp) || value.empty()) return;
  const std::string entry = std::string(stamp) + std::string(value);
  Fingerprint text;
  if (size == kUnknown && digest == kUnknown) {
    into.takenIn[entry];
  } else if (ReadNumber(size, 10, text.size) && ReadNumber(digest, 16, text.digest)) {
    into.takenIn[entry] = text;
  }
}

void ReadSettled(std::string_view value, RememberedFiles& into) {
  const std::string_view copied = NextWord(value);
  RememberedFiles::Settled file{copied == kCopied, {}};
  if (!file.copied && copied != kNotCopied) return;
  if (!ReadNumber(NextWord(value), 10, file.text.size) || !ReadNumber(NextWord(value), 16, file.text.digest))
    return;
  if (!value.empty()) into.settled[std::string(value)] = file;
}

}  // namespace

Fingerprint FingerprintOf(std::string_view text) {
  // FNV-1a.
  std::uint64_t digest = 0xcbf29ce484222325;
  for (const char c : text) digest = (digest ^ static_cast<unsigned char>(c)) * 0x100000001b3;
  return {text.size(), digest};
}

std::string RememberedFilesPath(const std::string& programFolder) {
  return programFolder + "\\Remembered.ini";
}

RememberedFiles ParseRememberedFiles(std::string_view text) {
  RememberedFiles files;
  std::string section;
  LineReader reader(std::make_unique<ViewBytes>(text));
  for (std::string line; reader.ReadLine(line);) {
    if (line.starts_with('[')) section = line;
    const std::size_t value = line.find('=') + 1;
    if (value == 0) continue;
    if (section == kTakenIn) ReadTakenIn(std::string_view(line).substr(value), files);
    if (section == kSettled) ReadSettled(std::string_view(line).substr(value), files);
  }
  return files;
}

std::string RememberedFilesText(const RememberedFiles& files) {
  std::string text;
  const auto add = [&](std::string_view line) { text.append(line).append(kLineBreak); };
  add(kNote);
  int number = 0;
  add(kTakenIn);
  for (const auto& [entry, known] : files.takenIn) {
    add(std::to_string(++number) + "=" + entry.substr(0, kStampLength) + " " +
        (known ? FingerprintText(*known) : "- -") + " " + entry.substr(kStampLength));
  }
  number = 0;
  add(kSettled);
  for (const auto& [name, file] : files.settled) {
    add(std::to_string(++number) + "=" + std::string(file.copied ? kCopied : kNotCopied) + " " +
        FingerprintText(file.text) + " " + name);
  }
  return text;
}

bool RememberedTickets::Recall() {
  if (!recalled_) Read();
  if (recalled_ && unsaved_) Save();
  return recalled_ || tries_ >= kMostTries;
}

void RememberedTickets::Read() {
  ++tries_;
  RememberedFiles read;
  recalled_ = Attempt([&] {
    try {
      read = ParseRememberedFiles(ReadWhole(files_, path_));
    } catch (const SystemError& failure) {
      if (failure.Number() != error_number::kFileNotFound) throw;
    }
  });
  // Information from the current run is newer.
  remembered_.takenIn.merge(read.takenIn);
  remembered_.settled.merge(read.settled);
}

void RememberedTickets::TakeIn(const std::string& entry, std::optional<Fingerprint> text) {
  remembered_.takenIn[entry] = text;
  Save();
}

void RememberedTickets::ForgetTakenIn(const std::string& entry) {
  if (remembered_.takenIn.erase(entry) > 0) Save();
}

void RememberedTickets::KeepTakenIn(const TicketListing::SortedList& list) {
  const auto hasGone = [&](const auto& taken) {
    return std::find(list.begin(), list.end(), taken.first) == list.end();
  };
  if (std::erase_if(remembered_.takenIn, hasGone) > 0) Save();
}

void RememberedTickets::Settle(const std::string& name, const RememberedFiles::Settled& file) {
  const auto [place, isNew] = remembered_.settled.try_emplace(name, file);
  if (!isNew && std::exchange(place->second, file) == file) return;
  Save();
}

void RememberedTickets::ForgetSettled(const std::string& name) {
  if (remembered_.settled.erase(name) > 0) Save();
}

void RememberedTickets::Save() {
  unsaved_ = true;
  if (!recalled_) return;
  unsaved_ = !Attempt([&] {
    if (!remembered_.Empty()) return files_.Write(path_, RememberedFilesText(remembered_));
    try {
      RemoveReadOnlyToo(files_, path_);
    } catch (const SystemError& failure) {
      if (failure.Number() != error_number::kFileNotFound) throw;
    }
  });
}

bool RememberedTickets::Attempt(const std::function<void()>& step) {
  bool done = false;
  if (told_) {
    try {
      step();
      done = true;
    } catch (const std::exception&) {
      // Already logged.
    }
  } else {
    done = logs_.Attempt(kLabel, step);
  }
  told_ = !done;
  return done;
}

}  // namespace orvenza
