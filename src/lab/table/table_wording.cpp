#include "lab/table/table_wording.h"

#include <algorithm>
#include <iterator>

#include "lab/table/verdict.h"

namespace orvenza {
namespace {

using Texts = std::vector<std::string>;

/// How many repetitions of an answer are written out.
constexpr std::size_t kWrittenOut = 3;

bool IsCode(const std::string& name) { return name.starts_with("ERR") && name.size() == 5; }

/// Names of faults; three or more consecutive error codes become a range.
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

}  // namespace

std::vector<Verdict> AllVerdicts() {
  return {Verdict::kFine,   Verdict::kInDoubt, Verdict::kTwiceByChoice, Verdict::kLostByChoice,
          Verdict::kAsksOn, Verdict::kTwice,   Verdict::kLost,          Verdict::kHang};
}

std::string NameOf(Verdict verdict) {
  switch (verdict) {
    case Verdict::kFine: return "fine";
    case Verdict::kInDoubt: return "printed, but given up";
    case Verdict::kTwiceByChoice: return "printed twice by choice";
    case Verdict::kLostByChoice: return "lost by choice";
    case Verdict::kAsksOn: return "asks on";
    case Verdict::kTwice: return "**printed twice**";
    case Verdict::kLost: return "**lost**";
    case Verdict::kHang: return "**hangs**";
  }
  return {};
}

std::vector<Answer> AllAnswers() {
  return {Answer::kPrinted,     Answer::kReprint,      Answer::kGiveUp,
          Answer::kNoChoice,    Answer::kCloseReceipt, Answer::kLeaveReceipt,
          Answer::kVoidForeign, Answer::kKeepForeign,  Answer::kEndProgram};
}

std::string NameOf(Answer answer) {
  switch (answer) {
    case Answer::kPrinted: return "Stampato";
    case Answer::kReprint: return "Ristampare";
    case Answer::kGiveUp: return "Abortire";
    case Answer::kNoChoice: return "closed";
    case Answer::kCloseReceipt: return "Sì";
    case Answer::kLeaveReceipt: return "No";
    case Answer::kVoidForeign: return "Chiuso: No";
    case Answer::kKeepForeign: return "Chiuso: Sì";
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

std::vector<Claim> AllClaims() {
  return {Claim::kYes, Claim::kNo, Claim::kDoubtful, Claim::kNone, Claim::kOpen};
}

std::string NameOf(Claim claim) {
  switch (claim) {
    case Claim::kYes: return "yes";
    case Claim::kNo: return "no";
    case Claim::kDoubtful: return "doubtful";
    case Claim::kNone: return "none";
    case Claim::kOpen: break;
  }
  return "not done";
}

std::string PaperText(const CaseOutcome& outcome) {
  const CustomerPaper& paper = outcome.paper;
  const bool asksOn = outcome.verdict == Verdict::kAsksOn;
  Texts parts;
  const auto add = [&](int count, const std::string& what) {
    if (count > 0) parts.push_back(std::to_string(count) + " " + what);
  };
  // Their exact number depends only on the operator's patience.
  const auto addSeries = [&](const std::string& what) { parts.push_back(what + ", one after the other"); };
  const bool manyInPart = asksOn && paper.other > 1;
  const bool manyVoided = asksOn && paper.voided > 0;
  add(paper.whole, "whole");
  if (manyInPart) addSeries("some in part");
  if (!manyInPart) add(paper.other, "in part");
  add(paper.mixed, "with an earlier ticket's lines");
  add(paper.earlier, "of the earlier ticket");
  add(paper.keyedIn, "keyed in by hand");
  if (manyVoided) addSeries("voided ones");
  if (!manyVoided) add(paper.voided, "voided");
  add(paper.keyedInVoided, "keyed in by hand and voided");
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

std::string EndText(const CaseOutcome& outcome) {
  if (!IsForbidden(outcome.verdict)) return NameOf(outcome.verdict);
  const auto& all = Rules();
  const auto rule =
      std::find_if(all.begin(), all.end(), [&](const Rule& r) { return r.reason == outcome.reason; });
  return NameOf(outcome.verdict) +
         (rule == all.end() ? ", no rule" : ", rule " + std::to_string(rule - all.begin() + 1));
}

std::string AnswersText(const CaseWays& ways, bool onlyOutcome) {
  if (onlyOutcome && ways.answers.size() > 1) return "any";
  Texts texts;
  for (const std::vector<Answer>& list : ways.answers) texts.push_back(AnswerText(list));
  return Joined(texts, "; ");
}

std::string FaultText(const TableRow& row) {
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

std::string Joined(const Texts& texts, std::string_view separator) {
  std::string joined;
  for (const std::string& text : texts) joined.append(joined.empty() ? "" : separator).append(text);
  return joined;
}

}  // namespace orvenza
