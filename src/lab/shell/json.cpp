#include "lab/shell/json.h"

#include <string>

#include "core/text.h"

namespace orvenza {
namespace {

void AppendEscaped(std::string& out, char c) {
  constexpr const char* kDigits = "0123456789abcdef";
  switch (c) {
    case '"': out += "\\\""; break;
    case '\\': out += "\\\\"; break;
    case '\n': out += "\\n"; break;
    case '\r': out += "\\r"; break;
    case '\t': out += "\\t"; break;
    default: {
      const auto code = static_cast<unsigned char>(c);
      out += "\\u00";
      out += kDigits[code >> 4];
      out += kDigits[code & 15];
    }
  }
}

bool MustEscape(char c) { return static_cast<unsigned char>(c) < ' ' || c == 127 || c == '"' || c == '\\'; }

}  // namespace

void JsonWriter::Key(std::string_view key) {
  BeginValue();
  WriteQuoted(key);
  out_ << ": ";
  afterKey_ = true;
}

void JsonWriter::Text(std::string_view text) {
  BeginValue();
  WriteQuoted(text);
}

void JsonWriter::Number(std::int64_t number) {
  BeginValue();
  out_ << std::to_string(number);  // stream output would depend on the locale
}

void JsonWriter::Flag(bool flag) {
  BeginValue();
  out_ << (flag ? "true" : "false");
}

void JsonWriter::Member(std::string_view key, std::string_view text) {
  Key(key);
  Text(text);
}

void JsonWriter::NumberMember(std::string_view key, std::int64_t number) {
  Key(key);
  Number(number);
}

void JsonWriter::FlagMember(std::string_view key, bool flag) {
  Key(key);
  Flag(flag);
}

void JsonWriter::Open(char bracket) {
  BeginValue();
  out_ << bracket;
  filled_.push_back(false);
}

void JsonWriter::Close(char bracket) {
  const bool breaks = filled_.back() && filled_.size() <= brokenLevels_;
  filled_.pop_back();
  if (breaks) BreakLine();
  out_ << bracket;
  if (filled_.empty()) out_ << '\n';
}

void JsonWriter::BeginValue() {
  if (afterKey_ || filled_.empty()) {
    afterKey_ = false;
    return;
  }
  if (filled_.back()) out_ << ',';
  if (filled_.size() <= brokenLevels_) {
    BreakLine();
  } else if (filled_.back()) {
    out_ << ' ';
  }
  filled_.back() = true;
}

void JsonWriter::BreakLine() { out_ << '\n' << std::string(2 * filled_.size(), ' '); }

void JsonWriter::WriteQuoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : ToUtf8(text)) {
    if (MustEscape(c)) {
      AppendEscaped(quoted, c);
    } else {
      quoted += c;
    }
  }
  out_ << quoted << '"';
}

}  // namespace orvenza
