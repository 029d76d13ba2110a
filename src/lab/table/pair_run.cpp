#include "lab/table/pair_run.h"

#include <algorithm>
#include <chrono>
#include <string_view>
#include <utility>

#include "lab/rehearsal/rehearsal.h"
#include "lab/rehearsal/scenario_reader.h"
#include "lab/table/case_run.h"
#include "lab/table/ticket_outcome.h"
#include "lab/table/verdict.h"

namespace orvenza {
namespace {

using std::chrono::milliseconds;

constexpr std::size_t kReactions[] = {0, 0, 300, 3'000, 20'000, 120'000};

/// The operator of one pair, who also keeps what was answered and printed.
class PairPerson {
 public:
  PairPerson(const PairTicket& ticket, PairOperator who, Dice& dice)
      : ticket_(ticket), who_(who), dice_(dice) {}

  ScriptedOperator::PlannedAnswer Decide(const ShownDialog& dialog) {
    if (asked_ == kPatience) return {""};
    ++asked_;
    const CaseReply reply = Choose(dialog, RepliesTo(dialog));
    decided_ = &dialog;
    const milliseconds reaction(kReactions[dice_.Below(std::size(kReactions))]);
    lines_ += "answer after " + std::to_string(reaction.count()) + "ms " + reply.text + "\n";
    return {reply.text, reaction};
  }

  /// An answer was taken. Another dialog than the one it was meant for may have come in between.
  void Take(const ShownDialog& dialog, std::string_view answer) {
    if (answer.empty()) return;
    mistaken_ = mistaken_ || decided_ != &dialog;
    for (const CaseReply& reply : RepliesTo(dialog)) {
      if (reply.text != answer || !reply.meaning) continue;
      answers_.push_back(*reply.meaning);
      return;
    }
  }

  void See(const std::string& line) { paper_.push_back(line); }

  const std::vector<Answer>& Answers() const { return answers_; }
  /// The answers as lines of a scenario.
  const std::string& Lines() const { return lines_; }
  bool LostPatience() const { return asked_ == kPatience; }
  /// Whether what was said is what was meant.
  bool WasUnderstood() const { return !mistaken_ || who_ == PairOperator::kAny; }

 private:
  CaseReply Choose(const ShownDialog& dialog, std::vector<CaseReply> replies) {
    if (dice_.Chance(5)) return {kMenuExit, {}};
    if (who_ == PairOperator::kHonest && !dialog.options.empty() && !dice_.Chance(5)) {
      const bool printed = Compare(paper_, ticket_.expected, kEarlierItem).whole > 0;
      return {dialog.options[printed ? 0 : 1], printed ? Answer::kPrinted : Answer::kReprint};
    }
    // An honest operator gives nothing up.
    if (who_ == PairOperator::kHonest && !dialog.options.empty()) return replies.back();
    return dice_.OneOf(replies);
  }

  const PairTicket& ticket_;
  PairOperator who_;
  Dice& dice_;
  std::size_t asked_ = 0;
  const ShownDialog* decided_ = nullptr;  ///< The dialog that the latest answer is meant for.
  bool mistaken_ = false;
  std::vector<Answer> answers_;
  std::vector<std::string> paper_;
  std::string lines_;
};

bool IsAllowed(Verdict verdict, PairOperator who, const std::vector<Answer>& answers) {
  if (who == PairOperator::kAny) return !IsForbidden(verdict);
  const bool closed = std::find(answers.begin(), answers.end(), Answer::kCloseReceipt) != answers.end();
  return verdict == Verdict::kFine || verdict == Verdict::kAsksOn ||
         (closed && verdict == Verdict::kTwiceByChoice);
}

}  // namespace

PairEnd PlayPair(const PairTicket& ticket, const std::string& text, PairOperator who, Dice& dice) {
  PairPerson person(ticket, who, dice);
  Scenario scenario = ParseScenario("pair", text);
  scenario.transcript = false;
  scenario.judgement = [&](const ShownDialog& dialog) { return person.Decide(dialog); };
  scenario.onDialog = [&](const ShownDialog& dialog, std::string_view answer) {
    person.Take(dialog, answer);
  };
  scenario.onPaper = [&](const std::string& line) { person.See(line); };
  const RehearsalOutcome outcome = Rehearse(scenario);
  PairEnd played;
  played.scenario = text + person.Lines();
  const bool hangs = !outcome.ended && !person.LostPatience();
  played.judged = person.WasUnderstood() &&
                  (!hangs || outcome.problems.front().starts_with("the connector has not ended"));
  if (!played.judged) return played;
  TicketEnd end;
  end.answers = person.Answers();
  end.paper = Compare(outcome.paper, ticket.expected, kEarlierItem);
  end.file = FileEndOf(ticket.content, outcome);
  constexpr WayOfWorking kWay = WayOfWorking::kAskInDoubt;
  played.verdict = hangs ? Verdict::kHang : !outcome.ended ? AskedOn(end, kWay) : VerdictOf(end, kWay);
  played.allowed = IsAllowed(played.verdict, who, end.answers);
  return played;
}

}  // namespace orvenza
