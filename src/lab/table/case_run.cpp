#include "lab/table/case_run.h"

#include <algorithm>
#include <utility>

#include "core/catalogue.h"
#include "core/own_texts.h"
#include "lab/rehearsal/rehearsal.h"

namespace orvenza {
namespace {

constexpr const char* kClose = "close";
/// Number of dialogs from which the operator may end the program.
constexpr std::size_t kMenuDialogs = 6;

}  // namespace

std::vector<CaseReply> RepliesTo(const ShownDialog& dialog) {
  const auto& buttons = dialog.buttons;
  if (!dialog.options.empty()) {
    return {{dialog.options[2], Answer::kGiveUp},
            {dialog.options[1], Answer::kReprint},
            {dialog.options[0], Answer::kPrinted},
            {kClose, Answer::kNoChoice}};
  }
  if (buttons.size() == 1) return {{buttons[0], {}}};
  if (buttons.size() == 3) {
    return {{buttons[0], Answer::kTryPort},
            {buttons[1], Answer::kLeavePort},
            {buttons[2], Answer::kTryPort},
            {kClose, Answer::kTryPort}};
  }
  if (dialog.caption.find(LoadMessage(MessageId::kEndRequest)) != std::string::npos) {
    return {{buttons[1], Answer::kStay}, {buttons[0], Answer::kEndProgram}};
  }
  if (dialog.text.find(own_text::kForeignReceipt) != std::string::npos) {
    return {{buttons[1], Answer::kVoidForeign},
            {buttons[0], Answer::kKeepForeign},
            {kClose, Answer::kKeepForeign}};
  }
  return {{buttons[0], Answer::kCloseReceipt},
          {buttons[1], Answer::kLeaveReceipt},
          {kClose, Answer::kLeaveReceipt}};
}

CaseRun::CaseRun(const Scenario& scenario, std::vector<CaseReply> plan, std::size_t depth)
    : plan_(std::move(plan)), depth_(depth) {
  Scenario judged = scenario;
  judged.judgement = [this](const ShownDialog& dialog) { return Decide(dialog); };
  outcome_ = Rehearse(judged);
}

bool CaseRun::GaveUp() const { return asked_.size() == kPatience && !outcome_.ended; }

std::string CaseRun::Decide(const ShownDialog& dialog) {
  if (asked_.size() == kPatience) return {};
  std::vector<CaseReply> replies = RepliesTo(dialog);
  const bool leaving = !asked_.empty() && asked_.back().reply.text == kMenuExit;
  if (leaving) replies = {replies.back()};
  AskedDialog asked{replies.front(), {}};
  if (asked_.size() < plan_.size()) {
    asked.reply = plan_[asked_.size()];
  } else if (choices_ < depth_) {
    asked.others.assign(replies.begin() + 1, replies.end());
    const bool mayLeave = !leaving && !left_ && asked_.size() < kMenuDialogs;
    if (mayLeave) asked.others.push_back({kMenuExit, {}});
  }
  if (replies.size() > 1) ++choices_;
  left_ = left_ || asked.reply.text == kMenuExit;
  asked_.push_back(std::move(asked));
  return asked_.back().reply.text;
}

}  // namespace orvenza
