#include "lab/rehearsal/scenario_events.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <utility>

#include "core/arguments.h"
#include "core/text.h"
#include "device/logo_check.h"

namespace orvenza {
namespace {

using std::chrono::milliseconds;

constexpr const char* kPathExpected = "a path, below the program folder or with its drive";
constexpr const char* kTimeExpected = "a time with its unit, such as 500ms, 2s, 10min or 1h";
constexpr const char* kDateExpected = "a date and time such as 16/11/2026 09:00:00";
constexpr milliseconds kLongestTime = std::chrono::hours(1000);
/// Length of a drive such as "C:", with which every path of an event begins.
constexpr std::size_t kDrive = 2;

/// Parses a date and time of exactly 19 characters.
std::optional<LocalTime> DateIn(std::string_view text) {
  constexpr std::string_view kForm = "99/99/9999 99:99:99";
  if (text.size() != kForm.size()) return {};
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool digit = text[i] >= '0' && text[i] <= '9';
    if (kForm[i] == '9' ? !digit : text[i] != kForm[i]) return {};
  }
  const auto number = [&](std::size_t at, std::size_t count) {
    int value = 0;
    std::from_chars(text.data() + at, text.data() + at + count, value);
    return value;
  };
  const LocalTime time{number(6, 4), number(3, 2), number(0, 2), number(11, 2), number(14, 2), number(17, 2)};
  const bool exists = std::chrono::year_month_day(std::chrono::year(time.year),
                                                  std::chrono::month(static_cast<unsigned>(time.month)),
                                                  std::chrono::day(static_cast<unsigned>(time.day)))
                          .ok() &&
                      time.hour < 24 && time.minute < 60 && time.second < 60;
  return exists ? std::optional(time) : std::nullopt;
}

std::string WholePath(const ScriptLine& line, std::string path, const std::string& folder) {
  std::replace(path.begin(), path.end(), '/', '\\');
  if (path.empty() || path.find_first_of("<>\"|?*") != std::string::npos) line.Refuse(kPathExpected);
  const bool whole = path.size() > 1 && path[1] == ':';
  const std::string levels = "\\" + path.substr(whole ? kDrive : 0) + "\\";
  if (levels.find("\\..\\") != std::string::npos) line.Refuse("a path without \"..\"");
  return whole ? path : folder + "\\" + path;
}

/// Removes and returns a name at the beginning of `rest`: in double quotes, or all of the first `size`
/// characters.
std::string TakeName(const ScriptLine& line, std::string_view& rest, std::size_t size) {
  const bool quoted = rest.starts_with('"');
  const std::size_t quote = quoted ? rest.find('"', 1) : 0;
  if (quote == std::string_view::npos) line.Refuse("a closing double quote");
  const std::size_t end = quoted ? quote + 1 : std::min(size, rest.size());
  const std::string name(quoted ? rest.substr(1, quote - 1) : Trim(rest.substr(0, end)));
  rest = Trim(rest.substr(end));
  return name;
}

/// Reads a path, optionally followed by the file with its content and by its time:
/// PATH from FILE of 16/11/2026 09:00:00.
void ReadNewPath(const ScriptLine& line, const std::string& folder, ScenarioEvent& event) {
  std::string_view rest = line.Rest();
  const std::size_t from = rest.ends_with(" from") ? rest.size() - 5 : rest.find(" from ");
  event.path = WholePath(line, TakeName(line, rest, std::min(from, rest.rfind(" of "))), folder);
  if (rest == "from" || rest.starts_with("from ")) {
    rest = Trim(rest.substr(4));
    event.source = TakeName(line, rest, rest.rfind(" of "));
    if (event.source.empty()) line.Refuse("a file behind \"from\"");
  }
  if (rest.empty()) return;
  if (!rest.starts_with("of ")) line.Refuse("\"from\" and a file, \"of\" and a date, or the end of the line");
  event.modified = ReadDate(line, Trim(rest.substr(3)));
}

/// A bitmap with the format of a logo. The bytes of each row are its number, counted from 1 at the bottom.
std::string LogoBitmap(int rows) {
  std::string bytes(kLogoDataOffset, '\0');
  bytes.replace(0, 2, "BM");
  bytes[10] = static_cast<char>(kLogoDataOffset);
  bytes[18] = static_cast<char>(kLogoWidth & 0xFF);
  bytes[19] = static_cast<char>(kLogoWidth >> 8);
  bytes[22] = static_cast<char>(rows);
  bytes[28] = 1;
  for (int row = 1; row <= rows; ++row) bytes.append(kLogoRowBytes, static_cast<char>(row));
  return bytes;
}

std::string ReadDrive(ScriptLine& line) {
  std::string drive(line.Word());
  if (drive.size() != 2 || drive[1] != ':') line.Refuse("a drive, such as D:");
  return drive;
}

EventKind ReadEither(ScriptLine& line, std::string_view one, EventKind kindOfOne, std::string_view other,
                     EventKind kindOfOther) {
  if (line.Skip(one)) return kindOfOne;
  if (line.Skip(other)) return kindOfOther;
  line.Refuse("\"" + std::string(one) + "\" or \"" + std::string(other) + "\"");
}

MenuItem ReadMenuItem(ScriptLine& line) {
  const auto captions = MenuCaptions();
  const auto found = std::find(captions.begin(), captions.end(), line.Rest());
  if (found == captions.end()) line.Refuse("an item of the menu: Esci, Utilita', Info or Configura");
  return static_cast<MenuItem>(found - captions.begin());
}

/// Reads events on an existing file. False when `word` is none of them.
bool ReadFileEvent(std::string_view word, ScriptLine& line, ScenarioEvent& event) {
  constexpr std::array<std::pair<std::string_view, FileHold>, 3> kHolds{
      {{"hold", FileHold::kReading}, {"lock", FileHold::kWriting}, {"release", FileHold::kNone}}};
  const auto hold =
      std::find_if(kHolds.begin(), kHolds.end(), [&](const auto& h) { return h.first == word; });
  if (hold != kHolds.end()) {
    event.kind = EventKind::kHold;
    event.hold = hold->second;
  } else if (word == "folder") {
    event.kind = EventKind::kMakeFolder;
  } else if (word == "remove") {
    event.kind = EventKind::kDelete;
  } else if (word == "read-only") {
    event.kind = EventKind::kReadOnly;
  } else {
    return false;
  }
  event.path = ReadPath(line);
  return true;
}

/// Reads a new file. False when `word` is something else.
bool ReadNewFile(std::string_view word, ScriptLine& line, ScenarioEvent& event) {
  const std::string programFolder = kRehearsalFolder;
  if (word == "logo") {
    const int rows = line.Number(1, 255, "the number of the logo's rows, 1 to 255, and its path");
    event.content = LogoBitmap(rows);
    event.path = ReadPath(line);
  } else if (word == "file" || word == "ticket") {
    ReadNewPath(line, word == "file" ? programFolder : programFolder + "\\data", event);
  } else {
    return false;
  }
  if (event.path.find_first_not_of("\\.", kDrive) == std::string::npos) line.Refuse(kPathExpected);
  event.kind = EventKind::kPut;
  return true;
}

}  // namespace

milliseconds ReadTime(ScriptLine& line) {
  const std::string_view word = line.Word();
  const auto digits = std::min(word.find_first_not_of("0123456789"), word.size());
  const int number = line.NumberIn(word.substr(0, digits), 0, 1'000'000'000, kTimeExpected);
  const std::string_view unit = word.substr(digits);
  milliseconds time{-1};
  if (unit == "ms") time = milliseconds(number);
  if (unit == "s") time = std::chrono::seconds(number);
  if (unit == "min") time = std::chrono::minutes(number);
  if (unit == "h") time = std::chrono::hours(number);
  if (time.count() < 0 || time > kLongestTime) line.Refuse(kTimeExpected);
  return time;
}

LocalTime ReadDate(const ScriptLine& line, std::string_view text) {
  const auto date = DateIn(text);
  if (!date) line.Refuse(kDateExpected);
  return *date;
}

std::string ReadPath(ScriptLine& line, const std::string& folder) {
  return WholePath(line, line.Text(kPathExpected), folder);
}

bool ReadEvent(std::string_view word, ScriptLine& line, ScenarioEvent& event) {
  if (ReadNewFile(word, line, event) || ReadFileEvent(word, line, event)) return true;
  if (word == "drive") {
    event.path = ReadDrive(line);
    event.kind = ReadEither(line, "away", EventKind::kDriveAway, "back", EventKind::kDriveBack);
  } else if (word == "disk") {
    event.path = ReadDrive(line);
    event.kind = ReadEither(line, "full", EventKind::kDiskFull, "free", EventKind::kDiskFree);
  } else if (word == "clock") {
    if (!line.Skip("refused")) line.Refuse("\"refused\"");
    event.kind = EventKind::kRefuseClock;
  } else {
    return false;
  }
  line.End();
  return true;
}

void RefuseWord(const ScriptLine& line, std::string_view word, const std::vector<std::string>& words) {
  if (const std::string hint = Hint(word, words); !hint.empty()) {
    line.Refuse("another word than '" + std::string(word) + "'" + hint);
  }
  std::string all;
  for (const std::string& known : words) {
    const bool last = known == words.back();
    all += (all.empty() ? "\"" : last ? " or \"" : ", \"") + known + "\"";
  }
  line.Refuse(all);
}

const std::vector<std::string>& EventWords() {
  static const std::vector<std::string> words{"file", "ticket", "logo",    "folder", "remove", "read-only",
                                              "hold", "lock",   "release", "drive",  "disk",   "clock"};
  return words;
}

PowerCut ReadPowerCut(ScriptLine& line) {
  const std::string expected =
      "\"fails\", then \"before\" or \"after\", a command and which one, such as before 1036 #2; or \"at "
      "change\" "
      "and a number";
  PowerCut cut;
  if (!line.Skip("fails")) line.Refuse(expected);
  const std::string_view word = line.Word();
  if (word == "at" && line.Skip("change")) {
    cut.when = PowerCut::When::kAfterChange;
    cut.number = static_cast<std::size_t>(line.Number(1, ScriptLine::kMost, expected));
  } else {
    if (word != "before" && word != "after") line.Refuse(expected);
    cut.when = word == "before" ? PowerCut::When::kBeforeCommand : PowerCut::When::kAfterReply;
    cut.command = line.Word();
    if (cut.command.empty() || !OnlyDigits(cut.command)) line.Refuse(expected);
    if (line.Next() == '#')
      cut.number =
          static_cast<std::size_t>(line.NumberIn(line.Word().substr(1), 1, ScriptLine::kMost, expected));
  }
  line.End();
  return cut;
}

ScenarioEvent ReadEventInTime(ScriptLine& line) {
  ScenarioEvent event;
  event.at = ReadTime(line);
  const std::string_view word = line.Word();
  if (ReadEvent(word, line, event)) return event;
  if (word == "menu") {
    event.kind = EventKind::kMenu;
    event.item = ReadMenuItem(line);
    return event;
  }
  if (word == "quit") {
    event.kind = EventKind::kQuit;
  } else if (word == "session" && line.Skip("ends")) {
    event.kind = EventKind::kSessionEnds;
  } else if (word == "power" && line.Skip("fails")) {
    event.kind = EventKind::kPowerFails;
  } else if (word == "start" && line.Skip("again")) {
    event.kind = EventKind::kStartAgain;
  } else if (word == "start") {
    line.Refuse("\"again\"");
  } else if (word == "power") {
    line.Refuse("\"fails\"");
  } else if (word == "session") {
    line.Refuse("\"ends\"");
  } else {
    std::vector<std::string> words = EventWords();
    words.insert(words.end(), {"menu", "quit", "start", "session", "power"});
    RefuseWord(line, word, words);
  }
  line.End();
  return event;
}

}  // namespace orvenza
