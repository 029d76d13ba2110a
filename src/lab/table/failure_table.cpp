#include "lab/table/failure_table.h"

#include <algorithm>
#include <stdexcept>
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
  Legend(const std::vector<FaultCase>& byDay, const std::vector<FaultCase>& atMidnight) {
    for (const auto* cases : {&byDay, &atMidnight}) {
      for (const FaultCase& faultCase : *cases) Add(faultCase);
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
  void Add(const FaultCase& faultCase) {
    for (const TicketEnd& end : faultCase.ends) lines_.insert(lines_.end(), end.log.begin(), end.log.end());
    std::sort(lines_.begin(), lines_.end());
    lines_.erase(std::unique(lines_.begin(), lines_.end()), lines_.end());
  }

  std::string LetterOf(const std::string& line) const {
    const auto place = std::lower_bound(lines_.begin(), lines_.end(), line) - lines_.begin();
    if (place > 'z' - 'a') throw std::logic_error("more lines of the error log than letters");
    return std::string(1, static_cast<char>('a' + place));
  }

  Texts lines_;
};

std::string RuleOf(const std::string& reason) {
  const auto& all = Rules();
  const auto found = std::find_if(all.begin(), all.end(), [&](const Rule& p) { return p.reason == reason; });
  return found == all.end() ? ", no rule" : ", rule " + std::to_string(found - all.begin() + 1);
}

/// "any" if all possible answers lead to the same outcome.
std::string AnswersText(const CaseWays& ways, bool onlyOutcome) {
  if (onlyOutcome && ways.answers.size() > 1) return "any";
  Texts answers;
  for (const std::vector<Answer>& list : ways.answers) answers.push_back(AnswerText(list));
  return Joined(answers, "; ");
}

std::string RowText(const std::string& faults, const std::string& answers, const CaseOutcome& outcome,
                    const CaseWays& ways, const Legend& legend) {
  const std::string rule = IsForbidden(outcome.verdict) ? RuleOf(outcome.reason) : "";
  return "| " + faults + " | " + answers + " | " + PaperText(outcome) + " | " + NameOf(outcome.file) + " | " +
         NameOf(outcome.verdict) + rule + " | " + legend.Letters(ways) + " |\n";
}

std::string SectionText(const TableSection& section, const Legend& legend, const std::string& hour) {
  std::string title = hour + Joined(section.steps, "; ");
  if (hour.empty()) title[0] = static_cast<char>(title[0] - 'a' + 'A');
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

std::size_t CountEnds(const std::vector<FaultCase>& cases, Verdict verdict) {
  std::size_t count = 0;
  for (const FaultCase& faultCase : cases) {
    count +=
        static_cast<std::size_t>(std::count_if(faultCase.ends.begin(), faultCase.ends.end(),
                                               [&](const TicketEnd& end) { return end.verdict == verdict; }));
  }
  return count;
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

/// The cases whose rows differ from those by day, which are in the same order.
std::vector<FaultCase> Others(const std::vector<FaultCase>& byDay, const std::vector<FaultCase>& atMidnight) {
  std::vector<FaultCase> others;
  for (std::size_t i = 0; i < atMidnight.size(); ++i) {
    if (OutcomesOf(atMidnight[i]) != OutcomesOf(byDay.at(i))) others.push_back(atMidnight[i]);
  }
  return others;
}

std::string RuleList() {
  std::string text;
  for (std::size_t i = 0; i < Rules().size(); ++i) {
    text += std::to_string(i + 1) + ". " + Rules()[i].reason + "\n";
  }
  return text + "\n";
}

}  // namespace

std::string FailureTable(const std::vector<FaultCase>& byDay, const std::vector<FaultCase>& atMidnight) {
  const Legend legend(byDay, atMidnight);
  std::string text;
  if (atMidnight.empty()) {
    text = "| End | Ways |\n|---|---|\n" + Figures({&byDay});
  } else {
    text = "| End | Ways by day | Ways at 23:59:50 |\n|---|---|---|\n" + Figures({&byDay, &atMidnight});
  }
  text += "Rules:\n\n" + RuleList() + legend.Text();
  for (const TableSection& section : SectionsOf(byDay)) text += SectionText(section, legend, {});
  for (const TableSection& section : SectionsOf(Others(byDay, atMidnight))) {
    text += SectionText(section, legend, "At 23:59:50: ");
  }
  text.pop_back();
  return text;
}

std::optional<std::string> PlaceTable(const std::string& document, const std::string& table) {
  if (document.empty()) return std::string(kBegin) + "\n" + table + kEnd + "\n";
  const std::size_t begin = document.find(kBegin);
  const std::size_t end = document.find(kEnd);
  if (begin == std::string::npos || end == std::string::npos || end < begin) return {};
  return document.substr(0, begin) + kBegin + "\n" + table + document.substr(end);
}

}  // namespace orvenza
