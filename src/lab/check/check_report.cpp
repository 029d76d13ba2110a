#include "lab/check/check_report.h"

#include <utility>

#include "lab/shell/json.h"
#include "lab/shell/wording.h"

namespace orvenza {
namespace {

constexpr std::size_t kNumberWidth = 5;
constexpr const char* kPlain = "\x1b[0m";
constexpr const char* kBold = "\x1b[1m";
constexpr const char* kRed = "\x1b[31m";
constexpr const char* kYellow = "\x1b[33m";
constexpr const char* kFaint = "\x1b[2m";
constexpr std::string_view kShownBlank = "\xC2\xB7";  // a middle dot

constexpr const char* kError = "error:";
constexpr const char* kWarning = "warning:";

std::string PlaceText(const std::string& file, std::uint64_t line, const TicketFinding& finding) {
  std::string text = file + ":" + std::to_string(line) + ":";
  if (finding.field != TicketFinding::kWholeLine) text += std::to_string(finding.field) + ":";
  return text + " ";
}

std::string TextAndCode(const TicketFinding& finding) {
  return " " + finding.text + " [" + std::string(finding.code) + "]";
}

std::string ReasonText(const std::string& reason) {
  return " " + ShownBytes(reason) + " [" + std::string(kUnreadableCode) + "]";
}

class TextReport : public CheckReport {
 public:
  TextReport(std::ostream& out, bool colours, bool quiet) : out_(out), colours_(colours), quiet_(quiet) {}

  void BeginFile(const std::string& name) override {
    name_ = ShownBytes(name);
    if (!quiet_) out_ << Coloured(kBold, name_) << '\n';
  }

  void AddCommand(std::uint64_t line, const std::string& command) override {
    if (quiet_) return;
    row_.clear();
    const std::string number = std::to_string(line);
    row_.append(kNumberWidth - std::min(kNumberWidth, number.size()), ' ');
    if (colours_) row_ += kFaint;
    row_ += number;
    if (colours_) row_ += kPlain;
    row_ += "  ";
    for (const char c : command) {
      if (c == ' ') {
        row_ += kShownBlank;
      } else {
        row_ += c == 127 ? '?' : c;
      }
    }
    row_ += '\n';
    out_ << row_;
  }

  void AddFinding(std::uint64_t line, const TicketFinding& finding) override {
    out_ << PlaceText(name_, line, finding)
         << (finding.isError ? Coloured(kRed, kError) : Coloured(kYellow, kWarning)) << TextAndCode(finding)
         << '\n';
  }

  void AddUnreadable(const std::string& reason) override {
    out_ << name_ << ": " << Coloured(kRed, kError) << ReasonText(reason) << '\n';
  }

  void End(const CheckTotals& totals) override {
    const bool clean = totals.errors == 0 && totals.unreadable == 0;
    out_ << Coloured(clean ? kBold : kRed, TotalsText(totals)) << '\n';
  }

 private:
  std::string Coloured(const char* colour, const std::string& text) const {
    return colours_ ? colour + text + kPlain : text;
  }

  std::ostream& out_;
  bool colours_;
  bool quiet_;
  std::string name_;
  std::string row_;
};

class JsonReport : public CheckReport {
 public:
  JsonReport(std::ostream& out, const CheckRules& rules) : json_(out) {
    json_.BeginObject();
    json_.NumberMember("schema", 1);
    json_.NumberMember("separator", rules.settings.SeparatorChar);
    json_.FlagMember("singleQuantity", rules.settings.SingleQuantity);
    json_.FlagMember("fileParser", rules.settings.FileParser);
    json_.Member("model", rules.identity.DeviceModel);
    json_.Member("release", rules.identity.DeviceRelease);
    json_.Key("results");
    json_.BeginArray();
  }

  void BeginFile(const std::string& name) override { name_ = name; }

  void AddCommand(std::uint64_t line, const std::string& command) override {
    Begin(line);
    json_.Member("command", command);
    json_.EndObject();
  }

  void AddFinding(std::uint64_t line, const TicketFinding& finding) override {
    Begin(line);
    if (finding.field != TicketFinding::kWholeLine) json_.NumberMember("field", finding.field);
    AddWords(finding.isError, finding.code, finding.text);
  }

  void AddUnreadable(const std::string& reason) override {
    json_.BeginObject();
    json_.Member("file", name_);
    AddWords(true, kUnreadableCode, reason);
  }

  void End(const CheckTotals& totals) override {
    json_.EndArray();
    json_.Key("totals");
    json_.BeginObject();
    json_.NumberMember("files", static_cast<std::int64_t>(totals.files));
    json_.NumberMember("unreadable", static_cast<std::int64_t>(totals.unreadable));
    json_.NumberMember("lines", static_cast<std::int64_t>(totals.lines));
    json_.NumberMember("errors", static_cast<std::int64_t>(totals.errors));
    json_.NumberMember("warnings", static_cast<std::int64_t>(totals.warnings));
    json_.EndObject();
    json_.EndObject();
  }

 private:
  void Begin(std::uint64_t line) {
    json_.BeginObject();
    json_.Member("file", name_);
    json_.NumberMember("line", static_cast<std::int64_t>(line));
  }

  void AddWords(bool isError, std::string_view code, const std::string& text) {
    json_.Member("severity", isError ? "error" : "warning");
    json_.Member("code", code);
    json_.Member("text", text);
    json_.EndObject();
  }

  JsonWriter json_;
  std::string name_;
};

}  // namespace

std::unique_ptr<CheckReport> MakeTextReport(std::ostream& out, bool colours, bool quiet) {
  return std::make_unique<TextReport>(out, colours, quiet);
}

std::unique_ptr<CheckReport> MakeJsonReport(std::ostream& out, const CheckRules& rules) {
  return std::make_unique<JsonReport>(out, rules);
}

std::string FindingText(const std::string& file, std::uint64_t line, const TicketFinding& finding) {
  return PlaceText(file, line, finding) + (finding.isError ? kError : kWarning) + TextAndCode(finding);
}

std::string UnreadableText(const std::string& file, const std::string& reason) {
  return file + ": " + kError + ReasonText(reason);
}

std::string TotalsText(const CheckTotals& totals) {
  std::string text = totals.files == 1 ? "" : CountOf(totals.files, "file") + ", ";
  text += CountOf(totals.lines, "line") + ", " + CountOf(totals.errors, "error") + ", " +
          CountOf(totals.warnings, "warning");
  if (totals.unreadable > 0) text += "; " + CountOf(totals.unreadable, "file") + " could not be read";
  return text;
}

}  // namespace orvenza
