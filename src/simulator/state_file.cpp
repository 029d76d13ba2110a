#include "simulator/state_file.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cstddef>
#include <limits>
#include <map>
#include <optional>
#include <span>
#include <utility>

#include "simulator/script_line.h"

namespace orvenza {
namespace {

constexpr std::string_view kFirstLine = "Orvenza simulated register 1";
constexpr std::string_view kLastLine = "end";
constexpr std::array<std::string_view, 2> kNoYes{"no", "yes"};
constexpr std::array<std::string_view, 3> kPapers{"none", "journal", "receipt"};

// Whatever a file says, the sums of the register must not overflow.
constexpr std::int64_t kMostCounted = 1'000'000'000;
constexpr std::int64_t kLargestSum = 1'000'000'000'000'000;
constexpr std::int64_t kLongestTime = 100LL * 366 * 24 * 3600;
constexpr std::int64_t kLargestSize = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kFootLines = 30;

constexpr std::string_view kHexDigits = "0123456789ABCDEF";

/// One line of text: control characters and "\" as "\" and two hexadecimal digits.
std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= ' ' && byte != 127 && c != '\\') {
      escaped += c;
      continue;
    }
    escaped += '\\';
    escaped += kHexDigits[byte / 16];
    escaped += kHexDigits[byte % 16];
  }
  return escaped;
}

/// Reads what Escaped wrote; empty if that is something else.
std::optional<std::string> Unescaped(std::string_view escaped) {
  std::string text;
  for (std::size_t i = 0; i < escaped.size(); ++i) {
    if (escaped[i] != '\\') {
      text += escaped[i];
      continue;
    }
    if (escaped.size() - i < 3) return {};
    const std::size_t high = kHexDigits.find(escaped[++i]);
    const std::size_t low = kHexDigits.find(escaped[++i]);
    if (high == std::string_view::npos || low == std::string_view::npos) return {};
    text += static_cast<char>(high * 16 + low);
  }
  return text;
}

class Writer {
 public:
  void Fixed(std::string_view line) { text_ += std::string(line) + "\n"; }

  template <typename Number>
  void Count(std::string_view key, const Number& number, std::int64_t, std::int64_t) {
    Line(key, std::to_string(number));
  }

  void Choice(std::string_view key, std::size_t& chosen, std::span<const std::string_view> names) {
    Line(key, names[chosen]);
  }

  void Lines(std::string_view key, const std::vector<std::string>& lines) {
    for (const std::string& line : lines) Line(key, "|" + Escaped(line));
  }

  void NumberedLines(std::string_view key, const std::map<std::int64_t, std::string>& lines, std::int64_t) {
    for (const auto& [number, line] : lines) Line(key, std::to_string(number) + " |" + Escaped(line));
  }

  std::string Text() && { return std::move(text_); }

 private:
  void Line(std::string_view key, std::string_view value) {
    text_.append(key).append(" ").append(value).append("\n");
  }

  std::string text_;
};

/// Throws ScriptError unless the next line is the one asked for.
class Reader {
 public:
  Reader(const std::string& name, std::string_view text) : name_(name), rest_(text) {}

  void Fixed(std::string_view line) {
    if (Next() != line) Refuse(line);
    Pass();
  }

  template <typename Number>
  void Count(std::string_view key, Number& number, std::int64_t least, std::int64_t most) {
    number = static_cast<Number>(NumberIn(key, Value(key), least, most));
    Pass();
  }

  void Choice(std::string_view key, std::size_t& chosen, std::span<const std::string_view> names) {
    const std::string_view value = Value(key);
    for (chosen = 0; chosen < names.size() && names[chosen] != value;) ++chosen;
    if (chosen == names.size()) Refuse(key);
    Pass();
  }

  void Lines(std::string_view key, std::vector<std::string>& lines) {
    for (; Has(key); Pass()) lines.push_back(TextIn(key, Value(key)));
  }

  void NumberedLines(std::string_view key, std::map<std::int64_t, std::string>& lines, std::int64_t most) {
    for (; Has(key); Pass()) {
      const std::string_view value = Value(key);
      const std::string_view number = value.substr(0, value.find(' '));
      if (number.size() == value.size()) Refuse(key);
      lines[NumberIn(key, number, 1, most)] = TextIn(key, value.substr(number.size() + 1));
    }
  }

  void End() const {
    if (!rest_.empty()) Refuse("nothing more");
  }

 private:
  [[noreturn]] void Refuse(std::string_view expected) const {
    throw ScriptError(name_, number_, "\"" + std::string(expected) + "\"");
  }

  /// The next line; empty at the end, and for a line that is cut off.
  std::string_view Next() const {
    const std::size_t end = rest_.find('\n');
    return end == std::string_view::npos ? std::string_view() : rest_.substr(0, end);
  }

  bool Has(std::string_view key) const { return Next().starts_with(std::string(key) + " "); }

  std::string_view Value(std::string_view key) const {
    if (!Has(key)) Refuse(key);
    return Next().substr(key.size() + 1);
  }

  void Pass() {
    rest_.remove_prefix(Next().size() + 1);
    ++number_;
  }

  std::int64_t NumberIn(std::string_view key, std::string_view digits, std::int64_t least,
                        std::int64_t most) const {
    std::int64_t number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number);
    if (error != std::errc() || stop != end || number < least || number > most) Refuse(key);
    return number;
  }

  std::string TextIn(std::string_view key, std::string_view value) const {
    const auto text = value.starts_with('|') ? Unescaped(value.substr(1)) : std::nullopt;
    if (!text) Refuse(key);
    return *text;
  }

  const std::string& name_;
  std::string_view rest_;
  std::size_t number_ = 1;
};

template <typename Form>
void Flag(Form& form, std::string_view key, bool& flag) {
  std::size_t chosen = flag ? 1 : 0;
  form.Choice(key, chosen, kNoYes);
  flag = chosen == 1;
}

template <typename Form>
void PaperLine(Form& form, std::optional<Paper>& paper) {
  std::size_t chosen = paper ? static_cast<std::size_t>(*paper) : 0;
  form.Choice("paper-out", chosen, kPapers);
  paper = chosen == 0 ? std::nullopt : std::optional(static_cast<Paper>(chosen));
}

template <typename Form>
void ReceiptLines(Form& form, std::optional<Receipt>& receipt) {
  bool open = receipt.has_value();
  Flag(form, "receipt-open", open);
  if (!open) return;
  ReceiptContent state = receipt ? receipt->State() : ReceiptContent{};
  auto& [total, lastItem, paid, itemOpen, paying, entries, lines] = state;
  form.Count("receipt-total", total, 0, Receipt::kLargestAmount);
  form.Count("receipt-last-item", lastItem, 0, Receipt::kLargestAmount);
  form.Count("receipt-paid", paid, 0, Receipt::kLargestAmount);
  Flag(form, "receipt-item-open", itemOpen);
  Flag(form, "receipt-paying", paying);
  form.Count("receipt-entries", entries, 0, kMostCounted);
  form.Lines("receipt-line", lines);
  receipt.emplace(std::move(state));
}

/// Goes through the lines of the file, to write or to read them. The names stand for all members of the
/// structures, so a member that has no line does not compile.
template <typename Form>
void EachLine(Form& form, StateFile& file) {
  auto& [state, printed, paperSize] = file;
  auto& [receipt, documentOpen, foot, paperOut, commandHeld, linesHeld, linesPrinted, dailyTotal,
         dailyReceipts, fiscalClosures, logoRows, clockAhead] = state;
  form.Fixed(kFirstLine);
  form.Count("daily-total", dailyTotal, 0, kLargestSum);
  form.Count("daily-receipts", dailyReceipts, 0, kMostCounted);
  form.Count("fiscal-closures", fiscalClosures, 0, kMostCounted);
  form.Count("logo-rows", logoRows, 0, kMostCounted);
  std::int64_t ahead = clockAhead.count();
  form.Count("clock-ahead", ahead, -kLongestTime, kLongestTime);
  clockAhead = std::chrono::seconds(ahead);
  form.Count("lines-printed", linesPrinted, 0, kMostCounted);
  PaperLine(form, paperOut);
  Flag(form, "command-held", commandHeld);
  form.Lines("line-held", linesHeld);
  Flag(form, "document-open", documentOpen);
  form.NumberedLines("foot-line", foot, kFootLines);
  ReceiptLines(form, receipt);
  form.Count("paper-size", paperSize, 0, kLargestSize);
  form.Lines("printed", printed);
  form.Fixed(kLastLine);
}

}  // namespace

std::string StateFileText(StateFile file) {
  Writer writer;
  EachLine(writer, file);
  return std::move(writer).Text();
}

StateFile ParseStateFile(const std::string& name, std::string_view text) {
  StateFile file;
  Reader reader(name, text);
  EachLine(reader, file);
  reader.End();
  return file;
}

}  // namespace orvenza
