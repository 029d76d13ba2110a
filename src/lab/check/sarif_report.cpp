#include <algorithm>

#include "core/text.h"
#include "core/version.h"
#include "lab/check/check_report.h"
#include "lab/check/finding_codes.h"
#include "lab/shell/json.h"

namespace orvenza {
namespace {

/// Levels down to the results, of which each has a line.
constexpr std::size_t kBrokenLevels = 4;

const char* LevelOf(bool isError) { return isError ? "error" : "warning"; }

bool StaysInUri(char c) {
  const auto in = [c](char first, char last) { return c >= first && c <= last; };
  return in('a', 'z') || in('A', 'Z') || in('0', '9') ||
         std::string_view("-._~/").find(c) != std::string_view::npos;
}

/// A path as a URI: relative, or with "file:" if it begins with a drive or at the root.
std::string UriOf(const std::string& path) {
  constexpr const char* kDigits = "0123456789ABCDEF";
  const std::string utf8 = ToUtf8(path);
  const bool hasDrive = utf8.size() > 2 && utf8[1] == ':' && (utf8[2] == '\\' || utf8[2] == '/');
  std::string uri;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const char c = utf8[i] == '\\' ? '/' : utf8[i];
    if (StaysInUri(c) || (hasDrive && i == 1)) {
      uri += c;
    } else {
      const auto code = static_cast<unsigned char>(c);
      uri += '%';
      uri += kDigits[code >> 4];
      uri += kDigits[code & 15];
    }
  }
  if (hasDrive) return "file:///" + uri;
  if (uri.starts_with("//")) return "file:" + uri;
  return uri.starts_with('/') ? "file://" + uri : uri;
}

class SarifReport : public CheckReport {
 public:
  explicit SarifReport(std::ostream& out) : json_(out, kBrokenLevels) {
    json_.BeginObject();
    json_.Member("$schema", "https://json.schemastore.org/sarif-2.1.0.json");
    json_.Member("version", "2.1.0");
    json_.Key("runs");
    json_.BeginArray();
    json_.BeginObject();
    WriteTool();
    json_.Member("columnKind", "unicodeCodePoints");
    json_.Key("results");
    json_.BeginArray();
  }

  void BeginFile(const std::string& name) override { uri_ = UriOf(name); }

  void AddCommand(std::uint64_t, const std::string&) override {}

  void AddFinding(std::uint64_t line, const TicketFinding& finding) override {
    BeginResult(finding.isError, finding.code, finding.text);
    json_.Key("region");
    json_.BeginObject();
    json_.NumberMember("startLine", static_cast<std::int64_t>(line));
    if (finding.column > 0) {
      json_.NumberMember("startColumn", static_cast<std::int64_t>(finding.column));
      json_.NumberMember("endColumn", static_cast<std::int64_t>(finding.endColumn));
    }
    json_.EndObject();
    EndResult();
  }

  void AddUnreadable(const std::string& reason) override {
    BeginResult(true, kUnreadableCode, reason);
    EndResult();
  }

  void End(const CheckTotals& totals) override {
    json_.EndArray();
    json_.Key("invocations");
    json_.BeginArray();
    json_.BeginObject();
    json_.FlagMember("executionSuccessful", totals.unreadable == 0);
    json_.EndObject();
    json_.EndArray();
    json_.EndObject();
    json_.EndArray();
    json_.EndObject();
  }

 private:
  void WriteTool() {
    json_.Key("tool");
    json_.BeginObject();
    json_.Key("driver");
    json_.BeginObject();
    json_.Member("name", "orvenza-lab check");
    json_.Member("version", kVersionText);
    json_.Key("rules");
    json_.BeginArray();
    for (const FindingCode& code : FindingCodes()) WriteRule(code);
    json_.EndArray();
    json_.EndObject();
    json_.EndObject();
  }

  void WriteRule(const FindingCode& code) {
    json_.BeginObject();
    json_.Member("id", code.code);
    WriteText("shortDescription", code.meaning);
    json_.Key("defaultConfiguration");
    json_.BeginObject();
    json_.Member("level", LevelOf(code.isError));
    json_.EndObject();
    json_.EndObject();
  }

  void WriteText(const char* key, std::string_view text) {
    json_.Key(key);
    json_.BeginObject();
    json_.Member("text", text);
    json_.EndObject();
  }

  /// Up to the place in the file.
  void BeginResult(bool isError, std::string_view code, const std::string& text) {
    json_.BeginObject();
    json_.Member("ruleId", code);
    json_.NumberMember("ruleIndex", static_cast<std::int64_t>(PlaceOfCode(code)));
    json_.Member("level", LevelOf(isError));
    WriteText("message", text);
    json_.Key("locations");
    json_.BeginArray();
    json_.BeginObject();
    json_.Key("physicalLocation");
    json_.BeginObject();
    json_.Key("artifactLocation");
    json_.BeginObject();
    json_.Member("uri", uri_);
    json_.EndObject();
  }

  void EndResult() {
    json_.EndObject();
    json_.EndObject();
    json_.EndArray();
    json_.EndObject();
  }

  JsonWriter json_;
  std::string uri_;
};

}  // namespace

std::unique_ptr<CheckReport> MakeSarifReport(std::ostream& out) { return std::make_unique<SarifReport>(out); }

}  // namespace orvenza
