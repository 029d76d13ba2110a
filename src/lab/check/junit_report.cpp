#include <vector>

#include "lab/check/check_report.h"
#include "lab/page/html_page.h"
#include "lab/shell/wording.h"

namespace orvenza {
namespace {

/// What became of one file.
struct FileResult {
  std::string name;
  std::string errors = {};    // one line each
  std::string warnings = {};  // one line each
  std::uint64_t errorCount = 0;
  std::uint64_t warningCount = 0;
  bool unreadable = false;
};

/// A suite begins with its counts, so the findings are kept until the end.
class JunitReport : public CheckReport {
 public:
  explicit JunitReport(std::ostream& out) : out_(out) {}

  void BeginFile(const std::string& name) override { results_.push_back({ShownBytes(name)}); }

  void AddCommand(std::uint64_t, const std::string&) override {}

  void AddFinding(std::uint64_t line, const TicketFinding& finding) override {
    FileResult& result = results_.back();
    (finding.isError ? result.errors : result.warnings) += FindingText(result.name, line, finding) + "\n";
    ++(finding.isError ? result.errorCount : result.warningCount);
  }

  void AddUnreadable(const std::string& reason) override {
    FileResult& result = results_.back();
    result.errors += UnreadableText(result.name, reason) + "\n";
    ++result.errorCount;
    result.unreadable = true;
  }

  void End(const CheckTotals& totals) override {
    std::size_t failures = 0;
    for (const FileResult& result : results_)
      failures += result.errorCount > 0 && !result.unreadable ? 1U : 0U;
    out_ << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites>\n  <testsuite name=\"orvenza-lab "
            "check\" tests=\""
         << std::to_string(results_.size()) << "\" failures=\"" << std::to_string(failures) << "\" errors=\""
         << std::to_string(totals.unreadable) << "\" skipped=\"0\">\n";
    for (const FileResult& result : results_) Write(result);
    out_ << "  </testsuite>\n</testsuites>\n";
  }

 private:
  void Write(const FileResult& result) {
    out_ << "    <testcase classname=\"orvenza-lab check\" name=\"" << HtmlText(result.name) << "\">\n";
    const std::string kind = result.unreadable ? "error" : "failure";
    if (result.errorCount > 0) {
      out_ << "      <" << kind << " message=\"" << CountOf(result.errorCount, "error") << ", "
           << CountOf(result.warningCount, "warning") << "\" type=\""
           << (result.unreadable ? kUnreadableCode : "invalid") << "\">" << HtmlText(result.errors) << "</"
           << kind << ">\n";
    }
    if (!result.warnings.empty())
      out_ << "      <system-out>" << HtmlText(result.warnings) << "</system-out>\n";
    out_ << "    </testcase>\n";
  }

  std::ostream& out_;
  std::vector<FileResult> results_;
};

}  // namespace

std::unique_ptr<CheckReport> MakeJunitReport(std::ostream& out) { return std::make_unique<JunitReport>(out); }

}  // namespace orvenza
