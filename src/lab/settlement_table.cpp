#include "lab/settlement_table.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>
#include <utility>

#include "lab/settlement_rows.h"
#include "lab/settlement_verdict.h"

namespace orvenza {
namespace {

using Texts = std::vector<std::string>;

constexpr std::array<std::pair<Verdict, const char*>, 8> kVerdicts{{
    {Verdict::kFine, "fine"},
    {Verdict::kInDoubt, "printed, but given up"},
    {Verdict::kTwiceByChoice, "printed twice by choice"},
    {Verdict::kLostByChoice, "lost by choice"},
    {Verdict::kAsksOn, "asks on"},
    {Verdict::kTwice, "**printed twice**"},
    {Verdict::kLost, "**lost**"},
    {Verdict::kHang, "**hangs**"},
}};

/// The lines that mark the table's place in a document.
constexpr const char* kBegin = "<!-- The table begins. orvenza-lab table writes it. -->";
constexpr const char* kEnd = "<!-- The table ends. -->";

/// Times that an answer is written out.
constexpr std::size_t kWrittenOut = 3;

std::string NameOf(Verdict verdict) {
  return std::find_if(kVerdicts.begin(), kVerdicts.end(), [&](const auto& v) { return v.first == verdict; })
      ->second;
}

std::string NameOf(Answer answer) {
  switch (answer) {
    case Answer::kPrinted: return "Stampato";
    case Answer::kReprint: return "Ristampare";
    case Answer::kGiveUp: return "Abortire";
    case Answer::kNoChoice: return "closed";
    case Answer::kCloseReceipt: return "Sì";
    case Answer::kLeaveReceipt: return "No";
    case Answer::kEndProgram: return "Esci";
    case Answer::kTryPort:
    case Answer::kLeavePort:
    case Answer::kStay: break;
  }
  return {};
}

std::string NameOf(FileEnd file) {
  switch (file) {
    case FileEnd::kHistoric: return "historic";
    case FileEnd::kAbort: return "abort";
    case FileEnd::kWaiting: return "waiting";
    case FileEnd::kGone: break;
  }
  return "gone";
}

std::string Joined(const Texts& texts, std::string_view separator) {
  std::string joined;
  for (const std::string& text : texts) joined.append(joined.empty() ? "" : separator).append(text);
  return joined;
}

std::string PaperText(const SettlementOutcome& outcome) {
  const CustomerPaper& paper = outcome.paper;
  const bool often = outcome.verdict == Verdict::kAsksOn && paper.voided > 0;
  Texts parts;
  const auto add = [&](int count, const std::string& what) {
    if (count > 0) parts.push_back(std::to_string(count) + " " + what);
  };
  add(paper.whole, "whole");
  add(paper.other, "in part");
  add(paper.mixed, "with an earlier ticket's lines");
  add(paper.earlier, "of the earlier ticket");
  if (often) parts.push_back("voided ones, one after the other");
  if (!often) add(paper.voided, "voided");
  if (paper.open) parts.push_back("1 left open");
  return parts.empty() ? "nothing" : Joined(parts, ", ");
}

std::string AnswerText(const std::vector<Answer>& answers) {
  Texts texts;
  for (std::size_t i = 0, end = 0; i < answers.size(); i = end) {
    while (end < answers.size() && answers[end] == answers[i]) ++end;
    const bool many = end - i > kWrittenOut;
    const std::string name = NameOf(answers[i]);
    texts.insert(texts.end(), many ? 1 : end - i, many ? name + " again and again" : name);
  }
  return texts.empty() ? "none" : Joined(texts, " → ");
}

bool IsCode(const std::string& name) { return name.starts_with("ERR") && name.size() == 5; }

/// Names of faults, three or more error codes that follow each other as a range.
std::string FaultList(const Texts& names) {
  Texts texts;
  for (std::size_t i = 0; i < names.size();) {
    std::size_t last = i;
    const auto isNext = [&](const std::string& name) {
      return IsCode(names[last]) && IsCode(name) &&
             std::stoi(name.substr(3)) == std::stoi(names[last].substr(3)) + 1;
    };
    while (last + 1 < names.size() && isNext(names[last + 1])) ++last;
    if (last < i + 2) last = i;
    texts.push_back(last == i ? names[i] : names[i] + " to " + names[last].substr(3));
    i = last + 1;
  }
  return Joined(texts, ", ");
}

std::string FaultText(const SettlementRow& row) {
  const auto isIn = [](const Texts& names) {
    return [&names](const std::string& name) {
      return std::find(names.begin(), names.end(), name) != names.end();
    };
  };
  Texts always;
  std::copy_if(row.once.begin(), row.once.end(), std::back_inserter(always), isIn(row.eachTime));
  Texts once = row.once;
  Texts eachTime = row.eachTime;
  std::erase_if(once, isIn(always));
  std::erase_if(eachTime, isIn(always));
  Texts texts;
  if (!always.empty()) texts.push_back("once or each time: " + FaultList(always));
  if (!once.empty()) texts.push_back(FaultList(once));
  if (!eachTime.empty()) texts.push_back("each time: " + FaultList(eachTime));
  return Joined(texts, "; ");
}

/// The place of each line of the error log in the list of all.
class Legend {
 public:
  explicit Legend(const std::vector<Settlement>& settlements) {
    for (const Settlement& settlement : settlements) {
      for (const SettlementEnd& end : settlement.ends)
        lines_.insert(lines_.end(), end.log.begin(), end.log.end());
      std::sort(lines_.begin(), lines_.end());
      lines_.erase(std::unique(lines_.begin(), lines_.end()), lines_.end());
    }
  }

  /// The letters of lines, those that only some cases have in brackets.
  std::string Letters(const SettlementWays& ways) const {
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
  std::string LetterOf(const std::string& line) const {
    const auto place = std::lower_bound(lines_.begin(), lines_.end(), line) - lines_.begin();
    return std::string(1, static_cast<char>('a' + place));
  }

  Texts lines_;
};

std::string RuleOf(const std::string& reason) {
  const auto& all = Prescriptions();
  const auto found =
      std::find_if(all.begin(), all.end(), [&](const Prescription& p) { return p.reason == reason; });
  return found == all.end() ? ", no rule" : ", rule " + std::to_string(found - all.begin() + 1);
}

/// "any" where everything that can be answered leads to the one outcome.
std::string AnswersText(const SettlementWays& ways, bool onlyOutcome) {
  if (onlyOutcome && ways.answers.size() > 1) return "any";
  Texts answers;
  for (const std::vector<Answer>& list : ways.answers) answers.push_back(AnswerText(list));
  return Joined(answers, "; ");
}

std::string RowText(const std::string& faults, const std::string& answers, const SettlementOutcome& outcome,
                    const SettlementWays& ways, const Legend& legend) {
  const std::string rule = IsForbidden(outcome.verdict) ? RuleOf(outcome.reason) : "";
  return "| " + faults + " | " + answers + " | " + PaperText(outcome) + " | " + NameOf(outcome.file) + " | " +
         NameOf(outcome.verdict) + rule + " | " + legend.Letters(ways) + " |\n";
}

std::string SectionText(const SettlementSection& section, const Legend& legend) {
  std::string title = Joined(section.steps, "; ");
  title[0] = static_cast<char>(title[0] - 'a' + 'A');
  std::string text = "### " + title +
                     "\n\n| What goes wrong | Answers | The customer gets | File | End | Log |\n"
                     "|---|---|---|---|---|---|\n";
  for (const SettlementRow& row : section.rows) {
    std::string faults = FaultText(row);
    for (const auto& [outcome, ways] : row.outcomes) {
      text += RowText(std::exchange(faults, {}), AnswersText(ways, row.outcomes.size() == 1), outcome, ways,
                      legend);
    }
  }
  return text + "\n";
}

std::string Figures(const std::vector<Settlement>& settlements) {
  std::string text = "| End | Ways |\n|---|---|\n";
  std::size_t all = 0;
  for (const auto& [verdict, name] : kVerdicts) {
    std::size_t count = 0;
    for (const Settlement& settlement : settlements) {
      count += static_cast<std::size_t>(
          std::count_if(settlement.ends.begin(), settlement.ends.end(),
                        [v = verdict](const SettlementEnd& end) { return end.verdict == v; }));
    }
    text += "| " + std::string(name) + " | " + std::to_string(count) + " |\n";
    all += count;
  }
  return text + "| all | " + std::to_string(all) + " |\n\n";
}

std::string Rules() {
  std::string text;
  for (std::size_t i = 0; i < Prescriptions().size(); ++i) {
    text += std::to_string(i + 1) + ". " + Prescriptions()[i].reason + "\n";
  }
  return text + "\n";
}

}  // namespace

std::string SettlementTable(const std::vector<Settlement>& settlements) {
  const Legend legend(settlements);
  std::string text = Figures(settlements) + "Rules:\n\n" + Rules() + legend.Text();
  for (const SettlementSection& section : SectionsOf(settlements)) text += SectionText(section, legend);
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
