#include "lab/table/failure_table.h"

#include <algorithm>
#include <set>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "lab/table/table_rows.h"
#include "lab/table/table_wording.h"
#include "lab/table/verdict.h"

namespace orvenza {
namespace {

using Texts = std::vector<std::string>;

/// The lines that enclose the table in a document.
constexpr const char* kBegin = "<!-- The table begins. orvenza-lab table writes it. -->";
constexpr const char* kEnd = "<!-- The table ends. -->";

/// Numbers the lines of the error log.
class Legend {
 public:
  /// The lines of each of `parts` are in alphabetical order, without those of the parts before.
  explicit Legend(const std::vector<const PlayedCases*>& parts) {
    for (const PlayedCases* part : parts) {
      std::set<std::string> lines;
      for (const auto* cases : {&part->byDay, &part->atMidnight}) {
        for (const FaultCase& faultCase : *cases) Add(faultCase, lines);
      }
      for (const std::string& line : lines_) lines.erase(line);
      lines_.insert(lines_.end(), lines.begin(), lines.end());
    }
  }

  /// The letters of lines, in brackets for those that only some cases have.
  std::string Letters(const CaseWays& ways) const {
    Texts texts;
    for (const std::string& line : ways.logged) texts.push_back(LetterOf(line));
    std::string text = Joined(texts, " ");
    texts.clear();
    for (const std::string& line : ways.sometimes) texts.push_back(LetterOf(line));
    if (!texts.empty()) text += (text.empty() ? "(" : " (") + Joined(texts, " ") + ")";
    return text;
  }

  std::string Text() const {
    std::string text = "| | Line of the error log |\n|---|---|\n";
    for (const std::string& line : lines_) text += "| " + LetterOf(line) + " | " + line + " |\n";
    return text + "\n";
  }

 private:
  static void Add(const FaultCase& faultCase, std::set<std::string>& lines) {
    for (const TicketEnd& end : faultCase.ends) lines.insert(end.log.begin(), end.log.end());
  }

  std::string LetterOf(const std::string& line) const {
    constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz";
    const auto place =
        static_cast<std::size_t>(std::find(lines_.begin(), lines_.end(), line) - lines_.begin());
    if (place >= kLetters.size()) throw std::logic_error("more lines of the error log than letters");
    return std::string(1, kLetters[place]);
  }

  Texts lines_;
};

std::string RowText(const std::string& faults, const std::string& answers, const CaseOutcome& outcome,
                    const CaseWays& ways, const Legend& legend) {
  return "| " + faults + " | " + answers + " | " + PaperText(outcome) + " | " + NameOf(outcome.file) + " | " +
         EndText(outcome) + " | " + legend.Letters(ways) + " |\n";
}

std::string SectionText(const TableSection& section, const Legend& legend, const std::string& when) {
  std::string title = when + Joined(section.steps, "; ");
  if (when.empty()) title[0] = static_cast<char>(title[0] - 'a' + 'A');
  std::string text = "### " + title +
                     "\n\n| What goes wrong | Answers | The customer gets | File | End | Log |\n"
                     "|---|---|---|---|---|---|\n";
  for (const TableRow& row : section.rows) {
    std::string faults = FaultText(row);
    for (const auto& [outcome, ways] : row.outcomes) {
      text += RowText(std::exchange(faults, {}), AnswersText(ways, row.outcomes.size() == 1), outcome, ways,
                      legend);
    }
  }
  return text + "\n";
}

/// The number of ways for each verdict, with a column for each of `hours`.
std::string Figures(const std::vector<const std::vector<FaultCase>*>& hours) {
  std::string text;
  std::vector<std::size_t> all(hours.size());
  for (const Verdict verdict : AllVerdicts()) {
    text += "| " + NameOf(verdict);
    for (std::size_t i = 0; i < hours.size(); ++i) {
      const std::size_t count = CountEnds(*hours[i], verdict);
      text += " | " + std::to_string(count);
      all[i] += count;
    }
    text += " |\n";
  }
  text += "| all";
  for (const std::size_t count : all) text += " | " + std::to_string(count);
  return text + " |\n\n";
}

std::size_t CountClaims(const PlayedCases& played, Verdict verdict, Claim claim) {
  std::size_t count = 0;
  for (const auto* cases : {&played.byDay, &played.atMidnight}) {
    for (const FaultCase& faultCase : *cases) {
      for (std::size_t i = 0; i < faultCase.claims.size(); ++i) {
        if (faultCase.ends[i].verdict == verdict && faultCase.claims[i] == claim) ++count;
      }
    }
  }
  return count;
}

/// What the outcomes say in how many ways, for each verdict.
std::string ClaimsText(const PlayedCases& played, const std::string& way) {
  std::string text = "| " + way;
  for (const Claim claim : AllClaims()) text += " | " + NameOf(claim);
  text += " |\n|---|---|---|---|---|---|\n";
  for (const Verdict verdict : AllVerdicts()) {
    text += "| " + NameOf(verdict);
    for (const Claim claim : AllClaims()) text += " | " + std::to_string(CountClaims(played, verdict, claim));
    text += " |\n";
  }
  return text + "\n";
}

bool IsSameCase(const FaultCase& one, const FaultCase& other) {
  return one.step.name == other.step.name && one.fault.name == other.fault.name &&
         one.fault.eachTime == other.fault.eachTime;
}

/// The `cases` whose rows differ from those of `known`, which has all of them in the same order, and more.
std::vector<FaultCase> Others(const std::vector<FaultCase>& known, const std::vector<FaultCase>& cases) {
  std::vector<FaultCase> others;
  std::size_t at = 0;
  for (const FaultCase& faultCase : cases) {
    while (!IsSameCase(known.at(at), faultCase)) ++at;
    if (OutcomesOf(faultCase) != OutcomesOf(known[at])) others.push_back(faultCase);
  }
  return others;
}

std::string SectionTexts(const std::vector<FaultCase>& cases, const Legend& legend, const std::string& when) {
  std::string text;
  for (const TableSection& section : SectionsOf(cases)) text += SectionText(section, legend, when);
  return text;
}

/// The totals of the ways of working that were played.
std::string Totals(const PlayedCases& contract, const PlayedCases& askInDoubt) {
  if (contract.atMidnight.empty()) return "| End | Ways |\n|---|---|\n" + Figures({&contract.byDay});
  if (askInDoubt.byDay.empty()) {
    return "| End | Ways by day | Ways at 23:59:50 |\n|---|---|---|\n" +
           Figures({&contract.byDay, &contract.atMidnight});
  }
  return "| End | Contract by day | Contract at 23:59:50 | AskInDoubt by day | AskInDoubt at 23:59:50 |\n"
         "|---|---|---|---|---|\n" +
         Figures({&contract.byDay, &contract.atMidnight, &askInDoubt.byDay, &askInDoubt.atMidnight});
}

std::string RuleList() {
  std::string text;
  for (std::size_t i = 0; i < Rules().size(); ++i) {
    text += std::to_string(i + 1) + ". " + Rules()[i].reason + "\n";
  }
  return text + "\n";
}

}  // namespace

std::string FailureTable(const PlayedCases& contract, const PlayedCases& askInDoubt) {
  const Legend legend({&contract, &askInDoubt});
  std::string text = Totals(contract, askInDoubt);
  if (!askInDoubt.byDay.empty()) {
    text += "What `Receipt` in the outcome says:\n\n" + ClaimsText(contract, "Contract") +
            ClaimsText(askInDoubt, "AskInDoubt");
  }
  text += "Rules of the contract:\n\n" + RuleList() + legend.Text();
  text += SectionTexts(contract.byDay, legend, {});
  text += SectionTexts(Others(contract.byDay, contract.atMidnight), legend, "At 23:59:50: ");
  text += SectionTexts(Others(contract.byDay, askInDoubt.byDay), legend, "AskInDoubt: ");
  text += SectionTexts(Others(askInDoubt.byDay, askInDoubt.atMidnight), legend, "AskInDoubt at 23:59:50: ");
  text.pop_back();
  return text;
}

std::size_t CountEnds(const std::vector<FaultCase>& cases, Verdict verdict) {
  std::size_t count = 0;
  for (const FaultCase& faultCase : cases) {
    count +=
        static_cast<std::size_t>(std::count_if(faultCase.ends.begin(), faultCase.ends.end(),
                                               [&](const TicketEnd& end) { return end.verdict == verdict; }));
  }
  return count;
}

std::optional<std::string> PlaceTable(const std::string& document, const std::string& table) {
  if (document.empty()) return std::string(kBegin) + "\n" + table + kEnd + "\n";
  const std::size_t begin = document.find(kBegin);
  const std::size_t end = document.find(kEnd);
  if (begin == std::string::npos || end == std::string::npos || end < begin) return {};
  return document.substr(0, begin) + kBegin + "\n" + table + document.substr(end);
}

}  // namespace orvenza
