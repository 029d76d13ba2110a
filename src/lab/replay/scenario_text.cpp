#include "lab/replay/scenario_text.h"

#include <set>
#include <string_view>
#include <utility>

#include "lab/rehearsal/scenario_reader.h"
#include "simulator/script_line.h"

namespace orvenza {
namespace {

using namespace std::chrono;

/// The largest number of a scenario's time.
constexpr milliseconds::rep kMostMilliseconds = 1'000'000'000;

/// Whether the reader of scenarios takes these lines: a trace may hold names that a scenario cannot.
bool IsUnderstood(const std::string& lines) {
  try {
    static_cast<void>(ParseScenario({}, lines));
    return true;
  } catch (const ScriptError&) {
    return false;
  }
}

std::string AsComment(std::string_view lines) {
  std::string text = "# A scenario cannot repeat the next lines.\n";
  while (!lines.empty()) {
    const std::size_t end = lines.find('\n') + 1;  // Every line ends in one.
    text.append("# ").append(lines.substr(0, end));
    lines.remove_prefix(end);
  }
  return text;
}

}  // namespace

std::string TimeWords(milliseconds time) {
  if (time >= 1h && time % 1h == 0ms) return std::to_string(time / 1h) + "h";
  if (time >= 1min && time % 1min == 0ms) return std::to_string(time / 1min) + "min";
  if (time >= 1s && time % 1s == 0ms) return std::to_string(time / 1s) + "s";
  if (time.count() <= kMostMilliseconds) return std::to_string(time.count()) + "ms";
  return std::to_string(time / 1s) + "s";
}

void ScenarioText::Replace(const std::string& line, const std::string& by) {
  for (Line& file : files_) {
    if (file.text == line) file.text = by;
  }
}

void ScenarioText::AddEvent(milliseconds at, const std::string& line) {
  events_.push_back({"at " + TimeWords(at) + " " + line, {}});
}

void ScenarioText::AddFileAt(milliseconds at, const std::string& head, ContentPointer content) {
  events_.push_back({"at " + TimeWords(at) + " " + head, std::move(content)});
}

std::string ScenarioText::WithContent(const Line& line) {
  const bool unknown = line.content && !line.content->known;
  std::string text = (unknown ? "# The content of the next file is not known.\n" : "") + line.text + "\n";
  if (!line.content) return text;
  for (const std::string& content : line.content->lines) text += "  | " + content + "\n";
  return text;
}

std::string ScenarioText::Text() const {
  std::string text;
  for (const std::string& line : comments_) text += "# " + line + "\n";
  std::set<std::string> once;
  const auto add = [&](const std::string& lines, const std::string& name) {
    const bool isNew = name.empty() || once.insert(name).second;
    text += isNew && IsUnderstood(lines) ? lines : AsComment(lines);
  };
  for (const std::string& line : settings_) add(line + "\n", line.substr(0, line.find('=')));
  for (const Line& line : files_)
    add(WithContent(line), line.content ? line.text.substr(0, line.text.find(" of ")) : "");
  for (const Line& line : events_) add(WithContent(line), {});
  for (const std::string& line : answers_) add(line + "\n", {});
  return text;
}

}  // namespace orvenza
