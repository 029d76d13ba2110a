#include "lab/check/check_report.h"
#include "lab/shell/wording.h"

namespace orvenza {
namespace {

/// `text` in the form that workflow commands take: as their message, or as the value of a property.
std::string Escaped(std::string_view text, bool isProperty) {
  std::string escaped;
  for (const char c : text) {
    switch (c) {
      case '%': escaped += "%25"; break;
      case '\r': escaped += "%0D"; break;
      case '\n': escaped += "%0A"; break;
      case ':': escaped += isProperty ? "%3A" : ":"; break;
      case ',': escaped += isProperty ? "%2C" : ","; break;
      default: escaped += c;
    }
  }
  return escaped;
}

class GithubReport : public CheckReport {
 public:
  explicit GithubReport(std::ostream& out) : out_(out) {}

  void BeginFile(const std::string& name) override { name_ = ShownBytes(name); }

  void AddCommand(std::uint64_t, const std::string&) override {}

  void AddFinding(std::uint64_t line, const TicketFinding& finding) override {
    std::string place = ",line=" + std::to_string(line);
    if (finding.column > 0) place += ",col=" + std::to_string(finding.column);
    if (finding.endColumn > finding.column) place += ",endColumn=" + std::to_string(finding.endColumn);
    Write(finding.isError, place, finding.code, finding.text);
  }

  void AddUnreadable(const std::string& reason) override {
    Write(true, {}, kUnreadableCode, ShownBytes(reason));
  }

  void End(const CheckTotals& totals) override { out_ << TotalsText(totals) << '\n'; }

 private:
  void Write(bool isError, const std::string& place, std::string_view code, const std::string& text) {
    out_ << (isError ? "::error file=" : "::warning file=") << Escaped(name_, true) << place
         << ",title=" << Escaped(code, true) << "::" << Escaped(text, false) << '\n';
  }

  std::ostream& out_;
  std::string name_;
};

}  // namespace

std::unique_ptr<CheckReport> MakeGithubReport(std::ostream& out) {
  return std::make_unique<GithubReport>(out);
}

}  // namespace orvenza
