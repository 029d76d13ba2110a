#include "lab/doctor/diagnosis.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "core/version.h"
#include "lab/doctor/folder_findings.h"
#include "lab/doctor/link_findings.h"
#include "lab/doctor/outcome_findings.h"
#include "lab/doctor/program_findings.h"
#include "lab/doctor/settings_findings.h"
#include "lab/doctor/ticket_findings.h"
#include "lab/shell/json.h"
#include "lab/shell/wording.h"

namespace orvenza {
namespace {

/// Changes when the meaning of a member changes, not when one is added.
constexpr int kJsonSchema = 1;
constexpr std::size_t kCodeColumn = 9;
constexpr std::size_t kTextColumn = 31;
constexpr std::size_t kTextWidth = 69;

struct Grade {
  Severity severity;
  const char* name;
  const char* colour;
};

constexpr Grade kGrades[] = {
    {Severity::kError, "error", "\x1b[31m"},
    {Severity::kWarning, "warning", "\x1b[33m"},
    {Severity::kNote, "note", "\x1b[36m"},
    {Severity::kOk, "ok", "\x1b[32m"},
};

const Grade& GradeOf(Severity severity) {
  switch (severity) {
    case Severity::kError: return kGrades[0];
    case Severity::kWarning: return kGrades[1];
    case Severity::kNote: return kGrades[2];
    case Severity::kOk: break;
  }
  return kGrades[3];
}

std::size_t CountOf(const Findings& findings, Severity severity) {
  return static_cast<std::size_t>(std::count_if(findings.begin(), findings.end(),
                                                [&](const Finding& f) { return f.severity == severity; }));
}

std::string Blanks(std::size_t count) { return std::string(count, ' '); }

/// `text` wrapped to the column width.
std::vector<std::string> Wrapped(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t end = text.size();
    if (end - at > kTextWidth) {
      end = text.rfind(' ', at + kTextWidth);
      if (end == std::string::npos || end <= at) end = std::min(text.find(' ', at + 1), text.size());
    }
    lines.push_back(text.substr(at, end - at));
    at = end + 1;
  }
  return lines;
}

void WriteFinding(std::ostream& out, const Finding& finding, bool colours) {
  const Grade& grade = GradeOf(finding.severity);
  const std::string name = grade.name;
  out << (colours ? grade.colour : "") << name << (colours ? "\x1b[0m" : "")
      << Blanks(kCodeColumn - name.size()) << finding.code
      << Blanks(std::max(kTextColumn - kCodeColumn, finding.code.size() + 1) - finding.code.size());
  const std::vector<std::string> fact = Wrapped(ShownBytes(finding.fact));
  for (std::size_t i = 0; i < fact.size(); ++i) out << (i == 0 ? "" : Blanks(kTextColumn)) << fact[i] << "\n";
  const std::vector<std::string> remedy = Wrapped(ShownBytes(finding.remedy));
  for (std::size_t i = 0; i < remedy.size(); ++i) {
    out << Blanks(kTextColumn - 3) << (i == 0 ? "-> " : "   ") << remedy[i] << "\n";
  }
}

void WriteSummary(std::ostream& out, const Findings& findings) {
  out << "\n";
  for (const Grade& grade : kGrades) {
    const std::size_t count = CountOf(findings, grade.severity);
    if (grade.severity == Severity::kOk) {
      out << count << " in order.";
    } else {
      out << orvenza::CountOf(count, grade.name) << ", ";
    }
  }
  const char* const verdicts[] = {" Ready.", " Ready, but see the warnings.", " Not ready."};
  out << verdicts[StatusOf(findings)] << "\n";
}

}  // namespace

Installation LookAt(const LabSurroundings& lab, const ProgramPaths& paths) {
  return {lab.files,
          lab.folders,
          lab.machine,
          lab.clock,
          paths,
          lab.clock.Now(),
          lab.machine.IsServed(paths.AppPath),
          ReviewSettings(lab.files, lab.clock, paths)};
}

Findings Diagnose(const Installation& shop) {
  Findings all = FindInSettings(shop.review, shop.paths.ExecutableName + ".ini");
  for (const auto& find : {FindInProgram, FindInFolders, FindInTickets, FindInOutcomes, FindInLink}) {
    Findings some = find(shop);
    std::move(some.begin(), some.end(), std::back_inserter(all));
  }
  return all;
}

int StatusOf(const Findings& findings) {
  if (CountOf(findings, Severity::kError) > 0) return 2;
  return CountOf(findings, Severity::kWarning) > 0 ? 1 : 0;
}

void WriteDiagnosis(std::ostream& out, const Installation& shop, const Findings& findings, bool colours) {
  out << "Orvenza in " << ShownBytes(shop.paths.AppPath) << ", " << MinuteText(shop.now) << "\n\n";
  for (const Finding& finding : findings) WriteFinding(out, finding, colours);
  WriteSummary(out, findings);
}

void WriteDiagnosisAsJson(std::ostream& out, const Installation& shop, const Findings& findings) {
  JsonWriter json(out);
  json.BeginObject();
  json.NumberMember("schema", kJsonSchema);
  json.Member("version", kVersionText);
  json.Member("folder", shop.paths.AppPath);
  json.Member("time", IsoText(shop.now));
  json.NumberMember("status", StatusOf(findings));
  for (const Grade& grade : kGrades) {
    json.NumberMember(grade.name, static_cast<std::int64_t>(CountOf(findings, grade.severity)));
  }
  json.Key("findings");
  json.BeginArray();
  for (const Finding& finding : findings) {
    json.BeginObject();
    json.Member("severity", GradeOf(finding.severity).name);
    json.Member("code", finding.code);
    json.Member("fact", finding.fact);
    json.Member("remedy", finding.remedy);
    json.EndObject();
  }
  json.EndArray();
  json.EndObject();
}

}  // namespace orvenza
