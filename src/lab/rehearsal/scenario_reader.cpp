#include "lab/rehearsal/scenario_reader.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <set>
#include <utility>

#include "app/trace/transcript_text.h"
#include "core/arguments.h"
#include "core/text.h"
#include "lab/rehearsal/scenario_events.h"
#include "lab/settings/known_settings.h"
#include "platform/system_error.h"
#include "simulator/script_line.h"

namespace orvenza {
namespace {

constexpr std::string_view kEventKinds[] = {
    "start", "tick",     "sent",    "reply",   "port",   "absent", "dialog", "answer",  "menu",
    "world", "log",      "error",   "file",    "folder", "taken",  "split",  "written", "copied",
    "moved", "archived", "aborted", "deleted", "paper",  "icon",   "clock",  "end",     "broken"};
constexpr std::string_view kEventExpected =
    "an event of the transcript and a part of its text, such as sent 1036";

constexpr const char* kEitherSettings = "either \"settings none\" or \"setting\" lines";

/// Refuses settings that the connector never reads: the scenario would test the default.
void CheckSetting(const ScriptLine& line, const ScenarioSetting& setting) {
  static const KnownSettings known;
  if (!known.HasSection(setting.section)) {
    line.Refuse("a section of the settings file, not [" + setting.section + "]" +
                Hint(setting.section, known.Sections()));
  }
  if (known.HasKey(setting.section, setting.key)) return;
  const std::string place = known.SectionOf(setting.key);
  line.Refuse(
      "a key of [" + setting.section + "], not \"" + setting.key + "\"" +
      (place.empty() ? Hint(setting.key, known.Keys(setting.section)) : "; it belongs in [" + place + "]"));
}

ScenarioSetting ReadSetting(ScriptLine& line) {
  const std::string expected = "[Section] Key = value";
  const std::string_view rest = line.Rest();
  const std::size_t close = rest.find(']');
  const std::size_t equals = close == std::string_view::npos ? close : rest.find('=', close);
  if (!rest.starts_with('[') || equals == std::string_view::npos) line.Refuse(expected);
  const ScenarioSetting setting{std::string(rest.substr(1, close - 1)),
                                std::string(Trim(rest.substr(close + 1, equals - close - 1))),
                                std::string(Trim(rest.substr(equals + 1)))};
  if (setting.key.empty()) line.Refuse(expected);
  CheckSetting(line, setting);
  return setting;
}

bool IsEventKind(const std::string& word) {
  return std::find(std::begin(kEventKinds), std::end(kEventKinds), word) != std::end(kEventKinds);
}

ScenarioAnswer ReadAnswer(ScriptLine& line) {
  ScenarioAnswer answer;
  if (line.Rest() == "nothing") return {"close", ScenarioAnswer::kNever};
  if (line.Skip("after")) answer.reaction = ReadTime(line);
  if (line.Rest() == "nothing") line.Refuse("\"answer nothing\" without a time");
  answer.text = line.Text("a button, an option, \"close\", \"nothing\", or \"menu\" and an item");
  return answer;
}

/// Removes and returns the last word of `text`.
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

/// A path, or a path, "with" and a part of the file's content.
void ReadExpectedFile(ScriptLine& line, Expectation& expected) {
  constexpr std::string_view kWith = " with ";
  expected.kind = Expectation::Kind::kFile;
  expected.text = ReadPath(line);
  const std::size_t with = expected.text.find(kWith);
  if (with == std::string::npos) return;
  expected.content = expected.text.substr(with + kWith.size());
  expected.text.resize(with);
}

Expectation ReadExpectation(ScriptLine& line) {
  Expectation expected;
  expected.none = line.Skip("no");
  if (!expected.none && line.Skip("sent")) return ReadSentCommand(line);
  if (line.Skip("event")) {
    expected.event = line.Word();
    if (!IsEventKind(expected.event)) line.Refuse(std::string(kEventExpected));
    if (!line.AtEnd()) expected.text = line.Text(std::string(kEventExpected));
  } else if (line.Skip("paper")) {
    expected.kind = Expectation::Kind::kPaper;
    expected.text = line.Text("a text on the paper");
  } else if (line.Skip("file")) {
    ReadExpectedFile(line, expected);
  } else if (expected.none) {
    line.Refuse("\"event\", \"paper\" or \"file\"; of commands, \"expect sent\" and \"0 times\"");
  } else {
    line.Refuse("\"event\", \"paper\", \"file\" or \"sent\"");
  }
  return expected;
}

/// Number of hexadecimal digits at the start of `text`.
std::size_t HexDigits(std::string_view text) {
  return std::min(text.find_first_not_of("0123456789ABCDEFabcdef"), text.size());
}

/// The bytes of a line of content: characters in Windows-1252, "<7F>" for the byte 7F.
std::string ContentBytes(const ScriptLine& line, std::string_view text) {
  std::string bytes;
  while (!text.empty()) {
    unsigned byte = 0;
    if (const std::size_t digits = HexDigits(text.substr(1)); text[0] == '<' && digits > 0) {
      if (digits != 2 || text.substr(3, 1) != ">") {
        line.Refuse("\">\" behind \"<\" and two hexadecimal digits; \"<\" itself is <3C>");
      }
      std::from_chars(text.data() + 1, text.data() + 3, byte, 16);
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

/// Removes and returns the first line of `text`.
std::string_view TakeLine(std::string_view& text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(std::min(line.size() + 1, text.size()));
  return line;
}

/// Parses a scenario line by line.
class ScenarioReader {
 public:
  ScenarioReader(const std::string& name, const SourceReader& readSource)
      : name_(name), readSource_(readSource) {}

  Scenario Read(std::string_view text) {
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF"))
      throw ScriptError(name_, 1, "UTF-8 text, not UTF-16");
    for (std::size_t number = 1; !text.empty(); ++number) {
      mistakes_.Try([&] { ReadLine(number, TakeLine(text)); });
      device_ += '\n';
    }
    mistakes_.Try([&] { scenario_.device = ParseFaultScript(name_, device_); });
    mistakes_.ThrowIfAny(name_);
    return std::move(scenario_);
  }

 private:
  /// What "|" lines belong to.
  enum class Head { kNone, kFile, kFileWithSource, kRefused };

  void ReadLine(std::size_t number, std::string_view text) {
    ScriptLine line(name_, number, text);
    // Bytes in another encoding would be read as other characters, which would never match.
    if (ToUtf8(text) != text) line.Refuse("UTF-8 text");
    if (line.Next() == '|') return ReadContent(line, text);
    if (line.AtEnd() || line.Next() == '#') return;
    const Head before = std::exchange(head_, Head::kRefused);
    ReadWords(line, before == Head::kFile);
    if (head_ == Head::kRefused) head_ = Head::kNone;
  }

  void ReadWords(ScriptLine& line, bool behindFile) {
    const std::string_view word = line.Word();
    if (word == "at")
      Add(line, ReadEventInTime(line));
    else if (ScenarioEvent event; ReadEvent(word, line, event))
      Add(line, std::move(event));
    else
      ReadOther(word, line, behindFile);
  }

  void ReadContent(const ScriptLine& line, std::string_view text) {
    if (head_ == Head::kNone) line.Refuse("\"file\" or \"ticket\" before its lines");
    if (head_ == Head::kFileWithSource) line.Refuse("no lines behind \"from\", which names a whole file");
    text.remove_prefix(text.find('|') + 1);
    if (text.starts_with(' ')) text.remove_prefix(1);
    if (text.ends_with('\r')) text.remove_suffix(1);
    const std::string bytes = ContentBytes(line, text);
    if (head_ == Head::kFile) scenario_.events.back().content.append(bytes).append(kLineBreak);
  }

  void Add(const ScriptLine& line, ScenarioEvent event) {
    if (event.kind == EventKind::kPut && event.at.count() == 0)
      WantOnce(line, ShownPath(event.path, kRehearsalFolder), filesSaid_);
    if (event.kind != EventKind::kPut || !event.content.empty()) {
      head_ = Head::kNone;
    } else if (event.source.empty()) {
      head_ = Head::kFile;
    } else {
      event.content = ContentOf(line, event.source);
      head_ = Head::kFileWithSource;
    }
    scenario_.events.push_back(std::move(event));
  }

  std::string ContentOf(const ScriptLine& line, const std::string& source) const {
    if (!readSource_) line.Refuse("a file with its lines; no other file can be read here");
    try {
      return readSource_(source);
    } catch (const SystemError& failure) {
      line.Refuse("a file that can be read: " + failure.Description());
    }
  }

  void ReadOther(std::string_view word, ScriptLine& line, bool behindFile) {
    if (word == "register") return ReadRegister(line);
    if (word == "setting") return AddSetting(line);
    if (word == "answer") return scenario_.answers.push_back(ReadAnswer(line));
    if (word == "power") return scenario_.powerCuts.push_back(ReadPowerCut(line));
    if (word == "expect") return scenario_.expectations.push_back(ReadExpectation(line));
    if (word == "start") {
      WantOnce(line, word, wordsSaid_);
      scenario_.start = ReadDate(line, line.Rest());
      return;
    }
    if (word == "settings") {
      if (!line.Skip("none")) line.Refuse("\"none\"");
      if (!scenario_.settings.empty()) line.Refuse(kEitherSettings);
      scenario_.settingsFile = false;
    } else if (word == "second") {
      if (!line.Skip("instance")) line.Refuse("\"instance\"");
      scenario_.secondInstance = true;
    } else if (word == "until") {
      if (!line.Skip("printed")) line.Refuse("\"printed\"");
      scenario_.untilPrinted = true;
    } else if (word == "limit") {
      WantOnce(line, word, wordsSaid_);
      scenario_.limit = ReadTime(line);
      if (scenario_.limit.count() == 0) line.Refuse("a time longer than 0");
    } else {
      RefuseFirstWord(word, line, behindFile);
    }
    line.End();
  }

  [[noreturn]] static void RefuseFirstWord(std::string_view word, const ScriptLine& line, bool behindFile) {
    std::vector<std::string> words = EventWords();
    words.insert(words.end(), {"at", "start", "settings", "setting", "register", "answer", "second", "until",
                               "limit", "power", "expect"});
    if (behindFile && ClosestTo(word, words).empty()) line.Refuse("\"|\" before each line of a file");
    RefuseWord(line, word, words);
  }

  void AddSetting(ScriptLine& line) {
    ScenarioSetting setting = ReadSetting(line);
    if (!scenario_.settingsFile) line.Refuse(kEitherSettings);
    WantOnce(line, "[" + setting.section + "] " + setting.key, wordsSaid_);
    scenario_.settings.push_back(std::move(setting));
  }

  /// Refuses repetitions, of which only the last would have an effect.
  static void WantOnce(const ScriptLine& line, std::string_view word, std::set<std::string>& said) {
    if (!said.insert(ToUpperAscii(word)).second) line.Refuse("\"" + std::string(word) + "\" only once");
  }

  /// The line keeps its number in the simulator's script.
  void ReadRegister(ScriptLine& line) {
    if (line.AtEnd() || line.Skip("paper") || line.Skip("pace"))
      line.Refuse("a line of the simulator's script, without \"paper\" and \"pace\"");
    device_ += line.Rest();
  }

  const std::string& name_;
  const SourceReader& readSource_;
  ScriptMistakes mistakes_;
  Scenario scenario_;
  std::string device_;
  std::set<std::string> wordsSaid_;
  std::set<std::string> filesSaid_;
  Head head_ = Head::kNone;
};

}  // namespace

Scenario ParseScenario(const std::string& name, std::string_view text, const SourceReader& readSource) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  return ScenarioReader(name, readSource).Read(text);
}

}  // namespace orvenza
