#include "lab/scenario.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <limits>
#include <utility>

#include "core/text.h"
#include "simulator/script_line.h"

namespace orvenza {
namespace {

using std::chrono::milliseconds;

constexpr std::string_view kFirstWords =
    "\"file\", \"ticket\", \"logo\", \"folder\", \"remove\", \"read-only\", \"hold\", \"lock\", \"release\", "
    "\"drive\", \"disk\", \"clock\", \"at\", \"start\", \"settings\", \"setting\", \"register\", \"answer\", "
    "\"second\", \"limit\" or \"expect\"";
constexpr std::string_view kDeedsInTime =
    "\"file\", \"ticket\", \"logo\", \"folder\", \"remove\", \"read-only\", \"hold\", \"lock\", \"release\", "
    "\"drive\", \"disk\", \"clock\", \"menu\", \"quit\" or \"session\"";
constexpr const char* kPathExpected = "a path, below the program folder or with its drive";
constexpr const char* kTimeExpected = "a time with its unit, such as 500ms, 2s, 10min or 1h";
constexpr const char* kDateExpected = "a date and time such as 16/11/2026 09:00:00";
constexpr std::string_view kEventKinds[] = {
    "start", "tick",     "sent",    "reply",   "port",   "absent", "dialog", "answer",  "menu",
    "world", "log",      "error",   "file",    "folder", "taken",  "split",  "written", "copied",
    "moved", "archived", "aborted", "deleted", "paper",  "icon",   "clock",  "end"};
constexpr std::string_view kEventExpected =
    "an event of the transcript and a part of its text, such as sent 1036";
/// Bytes of a logo row, and what comes before the first one.
constexpr std::size_t kLogoRow = 56;
constexpr std::size_t kLogoHead = 62;

milliseconds ReadTime(ScriptLine& line) {
  const std::string_view word = line.Word();
  const auto digits = std::min(word.find_first_not_of("0123456789"), word.size());
  const int number = line.NumberIn(word.substr(0, digits), 0, 1'000'000'000, kTimeExpected);
  const std::string_view unit = word.substr(digits);
  if (unit == "ms") return milliseconds(number);
  if (unit == "s") return std::chrono::seconds(number);
  if (unit == "min") return std::chrono::minutes(number);
  if (unit == "h") return std::chrono::hours(number);
  line.Refuse(kTimeExpected);
}

/// A date and time of exactly 19 characters.
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

std::string ReadPath(ScriptLine& line, const std::string& folder = kRehearsalFolder) {
  std::string path = line.Text(kPathExpected);
  std::replace(path.begin(), path.end(), '/', '\\');
  if (path.find_first_of("<>\"|?*") != std::string::npos) line.Refuse(kPathExpected);
  const bool whole = path.size() > 1 && path[1] == ':';
  return whole ? path : folder + "\\" + path;
}

/// A path that may be followed by the time of the file: PATH of 16/11/2026 09:00:00.
void ReadDatedPath(ScriptLine& line, const std::string& folder, Deed& deed) {
  const std::string_view rest = line.Rest();
  const std::size_t of = rest.rfind(" of ");
  if (of != std::string_view::npos) {
    deed.modified = DateIn(rest.substr(of + 4));
    if (!deed.modified) line.Refuse(kDateExpected);
  }
  deed.path = ReadPath(line, folder);
  if (of != std::string_view::npos) deed.path.resize(deed.path.size() - (rest.size() - of));
}

/// A bitmap of the shape that a logo has; the bytes of each row are its number from the bottom, from 1.
std::string LogoBitmap(int rows) {
  std::string bytes(kLogoHead, '\0');
  bytes.replace(0, 2, "BM");
  bytes[10] = static_cast<char>(kLogoHead);
  bytes[18] = static_cast<char>(448 & 0xFF);
  bytes[19] = static_cast<char>(448 >> 8);
  bytes[22] = static_cast<char>(rows);
  bytes[28] = 1;
  for (int row = 1; row <= rows; ++row) bytes.append(kLogoRow, static_cast<char>(row));
  return bytes;
}

std::string ReadDrive(ScriptLine& line) {
  std::string drive(line.Word());
  if (drive.size() != 2 || drive[1] != ':') line.Refuse("a drive, such as D:");
  return drive;
}

DeedKind ReadEither(ScriptLine& line, std::string_view one, DeedKind kindOfOne, std::string_view other,
                    DeedKind kindOfOther) {
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

/// Deeds on a file that is there. False when `word` is none of them.
bool ReadFileDeed(std::string_view word, ScriptLine& line, Deed& deed) {
  constexpr std::array<std::pair<std::string_view, FileHold>, 3> kHolds{
      {{"hold", FileHold::kReading}, {"lock", FileHold::kWriting}, {"release", FileHold::kNone}}};
  const auto hold =
      std::find_if(kHolds.begin(), kHolds.end(), [&](const auto& h) { return h.first == word; });
  if (hold != kHolds.end()) {
    deed.kind = DeedKind::kHold;
    deed.hold = hold->second;
  } else if (word == "folder") {
    deed.kind = DeedKind::kMakeFolder;
  } else if (word == "remove") {
    deed.kind = DeedKind::kDelete;
  } else if (word == "read-only") {
    deed.kind = DeedKind::kReadOnly;
  } else {
    return false;
  }
  deed.path = ReadPath(line);
  return true;
}

/// A file that comes. False when `word` says something else.
bool ReadNewFile(std::string_view word, ScriptLine& line, Deed& deed) {
  const std::string programFolder = kRehearsalFolder;
  if (word == "logo") {
    const int rows = line.Number(1, 255, "the number of the logo's rows, 1 to 255, and its path");
    deed.content = LogoBitmap(rows);
    deed.path = ReadPath(line);
  } else if (word == "file" || word == "ticket") {
    ReadDatedPath(line, word == "file" ? programFolder : programFolder + "\\data", deed);
  } else {
    return false;
  }
  deed.kind = DeedKind::kPut;
  return true;
}

/// Anything that may also be so from the start. False when `word` says something else.
bool ReadDeed(std::string_view word, ScriptLine& line, Deed& deed) {
  if (ReadNewFile(word, line, deed) || ReadFileDeed(word, line, deed)) return true;
  if (word == "drive") {
    deed.path = ReadDrive(line);
    deed.kind = ReadEither(line, "away", DeedKind::kDriveAway, "back", DeedKind::kDriveBack);
  } else if (word == "disk") {
    deed.path = ReadDrive(line);
    deed.kind = ReadEither(line, "full", DeedKind::kDiskFull, "free", DeedKind::kDiskFree);
  } else if (word == "clock") {
    if (!line.Skip("refused")) line.Refuse("\"refused\"");
    deed.kind = DeedKind::kRefuseClock;
  } else {
    return false;
  }
  line.End();
  return true;
}

Deed ReadDeedInTime(ScriptLine& line) {
  Deed deed;
  deed.at = ReadTime(line);
  const std::string_view word = line.Word();
  if (ReadDeed(word, line, deed)) return deed;
  if (word == "menu") {
    deed.kind = DeedKind::kMenu;
    deed.item = ReadMenuItem(line);
    return deed;
  }
  if (word == "quit") {
    deed.kind = DeedKind::kQuit;
  } else if (word == "session" && line.Skip("ends")) {
    deed.kind = DeedKind::kSessionEnds;
  } else {
    line.Refuse(word == "session" ? "\"ends\"" : std::string(kDeedsInTime));
  }
  line.End();
  return deed;
}

ScenarioSetting ReadSetting(ScriptLine& line) {
  const std::string expected = "[Section] Key = value";
  const std::string_view rest = line.Rest();
  const std::size_t close = rest.find(']');
  const std::size_t equals = close == std::string_view::npos ? close : rest.find('=', close);
  if (!rest.starts_with('[') || equals == std::string_view::npos) line.Refuse(expected);
  return {std::string(rest.substr(1, close - 1)),
          std::string(Trim(rest.substr(close + 1, equals - close - 1))),
          std::string(Trim(rest.substr(equals + 1)))};
}

bool IsEventKind(const std::string& word) {
  return std::find(std::begin(kEventKinds), std::end(kEventKinds), word) != std::end(kEventKinds);
}

ScenarioAnswer ReadAnswer(ScriptLine& line) {
  ScenarioAnswer answer;
  if (line.Rest() == "nothing") return {"close", ScenarioAnswer::kNever};
  if (line.Skip("after")) answer.reaction = ReadTime(line);
  answer.text = line.Text("a button, an option, \"close\", \"nothing\", or \"menu\" and an item");
  return answer;
}

/// The last word of `text`, which goes from it.
std::string_view TakeLastWord(std::string_view& text) {
  const std::size_t blank = text.find_last_of(" \t") + 1;  // npos + 1 is 0.
  const std::string_view word = text.substr(blank);
  text = Trim(text.substr(0, blank));
  return word;
}

Expectation ReadSentCommand(ScriptLine& line) {
  const std::string form = "the beginning of a command and how often, such as 1036 2 times";
  std::string rest = line.Text(form);
  std::string_view command = rest;
  const std::string_view unit = TakeLastWord(command);
  const std::string_view count = TakeLastWord(command);
  if ((unit != "times" && unit != "time") || command.empty()) line.Refuse(form);
  Expectation expected;
  expected.kind = Expectation::Kind::kSent;
  expected.times = static_cast<std::size_t>(line.NumberIn(count, 0, ScriptLine::kMost, form));
  expected.text = command;
  return expected;
}

Expectation ReadExpectation(ScriptLine& line) {
  Expectation expected;
  expected.none = line.Skip("no");
  if (!expected.none && line.Skip("sent")) return ReadSentCommand(line);
  if (line.Skip("event")) {
    expected.event = line.Word();
    expected.text = line.Rest();
    if (!IsEventKind(expected.event)) line.Refuse(std::string(kEventExpected));
  } else if (line.Skip("paper")) {
    expected.kind = Expectation::Kind::kPaper;
    expected.text = line.Text("a text on the paper");
  } else if (line.Skip("file")) {
    expected.kind = Expectation::Kind::kFile;
    expected.text = ReadPath(line);
  } else {
    line.Refuse("\"event\", \"paper\", \"file\" or \"sent\"");
  }
  return expected;
}

LocalTime ReadStart(ScriptLine& line) {
  const auto start = DateIn(line.Rest());
  if (!start) line.Refuse(kDateExpected);
  return *start;
}

/// The bytes of a line of content: the characters in Windows-1252, "<7F>" for the byte 7F.
std::string ContentBytes(const ScriptLine& line, std::string_view text) {
  std::string bytes;
  while (!text.empty()) {
    unsigned byte = 0;
    if (text.size() >= 4 && text[0] == '<' && text[3] == '>' &&
        std::from_chars(text.data() + 1, text.data() + 3, byte, 16).ptr == text.data() + 3) {
      bytes += static_cast<char>(byte);
      text.remove_prefix(4);
      continue;
    }
    const std::string character = FirstCharacters(text, 1);
    for (byte = 0; byte < 256 && FromWindows1252(std::string(1, static_cast<char>(byte))) != character;)
      ++byte;
    if (byte == 256) line.Refuse("characters of Windows-1252, the register knows no others");
    bytes += static_cast<char>(byte);
    text.remove_prefix(character.size());
  }
  return bytes;
}

/// Reads a scenario line by line.
class ScenarioReader {
 public:
  explicit ScenarioReader(const std::string& name) : name_(name) {}

  Scenario Read(std::string_view text) {
    for (std::size_t number = 1; !text.empty(); ++number) {
      const auto end = text.find('\n');
      ReadLine(number, text.substr(0, end));
      device_ += '\n';
      text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
    }
    scenario_.device = ParseFaultScript(name_, device_);
    return std::move(scenario_);
  }

 private:
  void ReadLine(std::size_t number, std::string_view text) {
    ScriptLine line(name_, number, text);
    if (line.Next() == '|') return ReadContent(line, text);
    if (line.AtEnd() || line.Next() == '#') return;
    fileOpen_ = false;
    const std::string_view word = line.Word();
    if (word == "at")
      Add(ReadDeedInTime(line));
    else if (Deed deed; ReadDeed(word, line, deed))
      Add(std::move(deed));
    else
      ReadOther(word, line);
  }

  void ReadContent(const ScriptLine& line, std::string_view text) {
    if (!fileOpen_) line.Refuse("\"file\" or \"ticket\" before its lines");
    text.remove_prefix(text.find('|') + 1);
    if (text.starts_with(' ')) text.remove_prefix(1);
    if (text.ends_with('\r')) text.remove_suffix(1);
    scenario_.deeds.back().content += ContentBytes(line, text) + std::string(kLineBreak);
  }

  void Add(Deed deed) {
    fileOpen_ = deed.kind == DeedKind::kPut && deed.content.empty();
    scenario_.deeds.push_back(std::move(deed));
  }

  void ReadOther(std::string_view word, ScriptLine& line) {
    if (word == "register") return ReadRegister(line);
    if (word == "setting") return scenario_.settings.push_back(ReadSetting(line));
    if (word == "answer") return scenario_.answers.push_back(ReadAnswer(line));
    if (word == "expect") return scenario_.expectations.push_back(ReadExpectation(line));
    if (word == "start") {
      scenario_.start = ReadStart(line);
      return;
    }
    if (word == "settings") {
      if (!line.Skip("none")) line.Refuse("\"none\"");
      scenario_.settingsFile = false;
    } else if (word == "second") {
      if (!line.Skip("instance")) line.Refuse("\"instance\"");
      scenario_.secondInstance = true;
    } else if (word == "limit") {
      scenario_.limit = ReadTime(line);
    } else {
      line.Refuse(std::string(kFirstWords));
    }
    line.End();
  }

  /// Its line of the simulator's script keeps its number.
  void ReadRegister(ScriptLine& line) {
    if (line.AtEnd() || line.Skip("paper"))
      line.Refuse("a line of the simulator's script, without \"paper\"");
    device_ += line.Rest();
  }

  const std::string& name_;
  Scenario scenario_;
  std::string device_;
  bool fileOpen_ = false;  ///< Lines that follow are those of the last file.
};

}  // namespace

Scenario ParseScenario(const std::string& name, std::string_view text) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  return ScenarioReader(name).Read(text);
}

}  // namespace orvenza
