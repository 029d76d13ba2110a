#include "tickets/outcome.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "core/text.h"
#include "platform/ini_text.h"

namespace orvenza {
namespace {

constexpr const char* kSection = "Outcome";
constexpr const char* kSchema = "1";
constexpr const char* kStarted = "started";
constexpr const char* kDone = "done";
constexpr std::size_t kLongestValue = 1000;

constexpr std::array kReceiptWords{std::pair{ReceiptState::kYes, "yes"}, std::pair{ReceiptState::kNo, "no"},
                                   std::pair{ReceiptState::kDoubtful, "doubtful"},
                                   std::pair{ReceiptState::kNone, "none"}};

constexpr std::array kReasonWords{std::pair{OutcomeReason::kNothing, ""},
                                  std::pair{OutcomeReason::kPrinted, "printed"},
                                  std::pair{OutcomeReason::kDivided, "divided"},
                                  std::pair{OutcomeReason::kOperatorPrinted, "operator-printed"},
                                  std::pair{OutcomeReason::kOperatorGaveUp, "operator-gave-up"},
                                  std::pair{OutcomeReason::kPrintedAgain, "printed-again"},
                                  std::pair{OutcomeReason::kRefused, "refused"},
                                  std::pair{OutcomeReason::kInvalidLine, "invalid-line"},
                                  std::pair{OutcomeReason::kNoAnswer, "no-answer"},
                                  std::pair{OutcomeReason::kPaperOut, "paper-out"},
                                  std::pair{OutcomeReason::kStatusUnknown, "status-unknown"},
                                  std::pair{OutcomeReason::kClosedAutomatically, "closed-automatically"},
                                  std::pair{OutcomeReason::kInterrupted, "interrupted"},
                                  std::pair{OutcomeReason::kFailed, "failed"},
                                  std::pair{OutcomeReason::kSplit, "split"}};

template <typename Words, typename Value>
std::string WordOf(const Words& words, Value value) {
  const auto found =
      std::find_if(words.begin(), words.end(), [&](const auto& word) { return word.first == value; });
  return found->second;
}

template <typename Value, std::size_t count>
std::optional<Value> ValueOf(const std::array<std::pair<Value, const char*>, count>& words,
                             std::string_view text) {
  for (const auto& word : words) {
    if (text == word.second) return word.first;
  }
  return std::nullopt;
}

bool IsControl(char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7f'; }
bool IsTrimmed(char c) { return c == ' ' || c == '"' || c == '\''; }

/// A value that every reader of INI files gives back unchanged.
std::string Escaped(const std::string& value) {
  constexpr const char* kDigits = "0123456789ABCDEF";
  const std::string text = FirstCharacters(ToUtf8(value), kLongestValue);
  std::string escaped;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    const bool atAnEnd = at == 0 || at + 1 == text.size();
    if (!IsControl(c) && c != '<' && !(atAnEnd && IsTrimmed(c))) {
      escaped += c;
      continue;
    }
    const auto byte = static_cast<unsigned char>(c);
    escaped.append({'<', kDigits[byte >> 4], kDigits[byte & 15], '>'});
  }
  return escaped;
}

std::string Unescaped(std::string_view escaped) {
  constexpr std::size_t kLength = 4;
  std::string text;
  while (!escaped.empty()) {
    unsigned byte = 0;
    const bool isNumber =
        escaped.size() >= kLength && escaped[0] == '<' && escaped[3] == '>' &&
        std::from_chars(escaped.data() + 1, escaped.data() + 3, byte, 16).ptr == escaped.data() + 3;
    text += isNumber ? static_cast<char>(byte) : escaped[0];
    escaped.remove_prefix(isNumber ? kLength : 1);
  }
  return text;
}

/// Empty if `text` is no number.
template <typename Number>
std::optional<Number> NumberIn(const std::string& text) {
  Number number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

std::string NumberOrNothing(std::size_t number) { return number == 0 ? "" : std::to_string(number); }

/// The values of one file.
class Values {
 public:
  explicit Values(std::string_view text) : content_(text) {}
  std::string Text(const char* key) const {
    return Unescaped(content_.Value(kSection, key).value_or(std::string()));
  }
  std::size_t Count(const char* key) const { return NumberIn<std::size_t>(Text(key)).value_or(0); }

 private:
  IniText content_;
};

}  // namespace

std::string WordOf(OutcomeReason reason) { return WordOf(kReasonWords, reason); }

std::string OutcomeText(const Outcome& outcome) {
  std::string text = "[" + std::string(kSection) + "]" + std::string(kLineBreak);
  const auto add = [&](const char* key, const std::string& value) {
    text.append(key).append("=").append(Escaped(value)).append(kLineBreak);
  };
  add("Schema", kSchema);
  add("Ticket", outcome.ticket);
  add("State", outcome.done ? kDone : kStarted);
  add("Receipt", WordOf(kReceiptWords, outcome.receipt));
  add("Reason", WordOf(outcome.reason));
  add("Filed", outcome.filed);
  add("Started", outcome.started);
  add("Ended", outcome.ended);
  add("Attempts", std::to_string(outcome.attempts));
  add("Line", NumberOrNothing(outcome.line));
  add("Text", outcome.lineText);
  add("Command", outcome.command);
  add("Reply", outcome.reply);
  add("Answers", outcome.answers);
  add("Source", outcome.source);
  add("Part", NumberOrNothing(outcome.part));
  add("Parts", NumberOrNothing(outcome.parts));
  add("Size", std::to_string(outcome.text.size));
  add("Digest", std::to_string(outcome.text.digest));
  return text;
}

std::optional<Outcome> ParseOutcome(std::string_view text) {
  const Values values(text);
  const std::string state = values.Text("State");
  const auto receipt = ValueOf(kReceiptWords, values.Text("Receipt"));
  const auto reason = ValueOf(kReasonWords, values.Text("Reason"));
  const auto size = NumberIn<std::uint64_t>(values.Text("Size"));
  const auto digest = NumberIn<std::uint64_t>(values.Text("Digest"));
  if (values.Text("Schema") != kSchema || (state != kStarted && state != kDone)) return std::nullopt;
  if (!receipt || !reason || !size || !digest) return std::nullopt;
  return Outcome{.ticket = values.Text("Ticket"),
                 .text = {*size, *digest},
                 .done = state == kDone,
                 .receipt = *receipt,
                 .reason = *reason,
                 .filed = values.Text("Filed"),
                 .started = values.Text("Started"),
                 .ended = values.Text("Ended"),
                 .attempts = values.Count("Attempts"),
                 .line = values.Count("Line"),
                 .lineText = values.Text("Text"),
                 .command = values.Text("Command"),
                 .reply = values.Text("Reply"),
                 .answers = values.Text("Answers"),
                 .source = values.Text("Source"),
                 .part = values.Count("Part"),
                 .parts = values.Count("Parts")};
}

}  // namespace orvenza
