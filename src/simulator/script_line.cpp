#include "simulator/script_line.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace orvenza {
namespace {

std::string_view TrimLine(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\r");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

std::string Message(const std::string& file, const std::vector<ScriptMistake>& mistakes) {
  std::string text;
  for (const auto& [line, expected] : mistakes) {
    text += (text.empty() ? "" : "\n") + file + ":" + std::to_string(line) + ": expected " + expected;
  }
  return text;
}

}  // namespace

ScriptError::ScriptError(std::string fileName, std::vector<ScriptMistake> inOrder)
    : std::runtime_error(Message(fileName, inOrder)),
      file(std::move(fileName)),
      mistakes(std::move(inOrder)) {}

ScriptError::ScriptError(std::string fileName, std::size_t line, std::string expected)
    : ScriptError(std::move(fileName), {{line, std::move(expected)}}) {}

void ScriptMistakes::ThrowIfAny(const std::string& file) {
  if (all_.empty()) return;
  std::stable_sort(all_.begin(), all_.end(), [](const auto& a, const auto& b) { return a.line < b.line; });
  throw ScriptError(file, std::move(all_));
}

ScriptLine::ScriptLine(const std::string& file, std::size_t number, std::string_view text)
    : file_(file), number_(number), rest_(TrimLine(text)) {}

void ScriptLine::Refuse(std::string expected) const {
  throw ScriptError(file_, number_, std::move(expected));
}

std::string_view ScriptLine::Word() {
  const auto word = rest_.substr(0, rest_.find_first_of(" \t"));
  rest_ = TrimLine(rest_.substr(word.size()));
  return word;
}

bool ScriptLine::Skip(std::string_view word) {
  ScriptLine ahead = *this;
  if (ahead.Word() != word) return false;
  rest_ = ahead.rest_;
  return true;
}

int ScriptLine::Number(int least, int most, const std::string& expected) {
  return NumberIn(Word(), least, most, expected);
}

int ScriptLine::NumberIn(std::string_view word, int least, int most, const std::string& expected) const {
  int number = 0;
  const char* const end = word.data() + word.size();
  const auto [stop, error] = std::from_chars(word.data(), end, number);
  if (error != std::errc() || stop != end || number < least || number > most) Refuse(expected);
  return number;
}

std::string ScriptLine::Text(const std::string& expected) {
  if (AtEnd()) Refuse(expected);
  auto text = std::exchange(rest_, {});
  if (text.front() != '"') return std::string(text);
  if (text.size() < 2 || text.back() != '"') Refuse("a closing double quote");
  return std::string(text.substr(1, text.size() - 2));
}

void ScriptLine::End() const {
  if (!AtEnd()) Refuse("the end of the line");
}

}  // namespace orvenza
