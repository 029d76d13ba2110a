#include "device/doubt_policy.h"

namespace orvenza {
namespace {

using enum Verdict;

constexpr std::array<Verdict, kReplyClasses> kAskUnlessDone{kAsk, kAsk, kAsk, kAsk, kAsk,
                                                            kAsk, kAsk, kAsk, kDone};

}  // namespace

// clang-format off
const DoubtPolicy kContractPolicy{
    .verdicts = {{
        // silence refused  ERR11    paper    link     link 2   invalid  garbled  done
        {kAsk,     kAsk,    kVoid,   kAsk,    kAsk,    kDone,   kAsk,    kDone,   kDone},   // line
        {kDone,    kDone,   kDone,   kDone,   kDone,   kDone,   kDone,   kDone,   kDone},   // closure
        {kAsk,     kAsk,    kVoid,   kAsk,    kAsk,    kAsk,    kAsk,    kDone,   kDone},   // other
        {kDone,    kRepeat, kRepeat, kRepeat, kRepeat, kRepeat, kRepeat, kDone,   kDone},   // correction
    }},
    .waitsOnAtMidnight = true,
    .goesOnWithoutStatus = true,
    .voidsForeignReceipts = true,
    .closedFormGoesOn = true,
    .preselectsReprint = true,
    .absenceGivesUpClosure = true,
    .nextLineAfterPaperOut = true,
    .printedFinishesFile = true,
    .restartsFromFirstLine = true,
    .endGivesUp = true,
    .failureGivesUp = true,
};

const DoubtPolicy kAskInDoubtPolicy{
    .verdicts = {{
        kAskUnlessDone,                                                                     // line
        kAskUnlessDone,                                                                     // closure
        kAskUnlessDone,                                                                     // other
        {kRepeat,  kRepeat, kRepeat, kRepeat, kRepeat, kRepeat, kRepeat, kRepeat, kDone},   // correction
    }},
    .waitsOnAtMidnight = false,
    .goesOnWithoutStatus = false,
    .voidsForeignReceipts = false,
    .closedFormGoesOn = false,
    .preselectsReprint = false,
    .absenceGivesUpClosure = false,
    .nextLineAfterPaperOut = false,
    .printedFinishesFile = false,
    .restartsFromFirstLine = false,
    .endGivesUp = false,
    .failureGivesUp = false,
};
// clang-format on

ReplyClass ClassOf(const Reply& reply) {
  using Kind = Reply::Kind;
  if (reply.Is(Kind::kSilence)) return ReplyClass::kSilence;
  if (reply.Is(Kind::kDone)) return ReplyClass::kDone;
  if (reply.Is(Kind::kPaperOut)) return ReplyClass::kPaperOut;
  if (reply.Is(Kind::kInvalidLine)) return ReplyClass::kInvalidLine;
  if (reply.Is(Kind::kGarbled)) return ReplyClass::kGarbled;
  if (reply.Is(Kind::kLinkError))
    return reply.IsLinkError2() ? ReplyClass::kLinkError2 : ReplyClass::kLinkError;
  return reply.Code() == "11" ? ReplyClass::kOutOfSequence : ReplyClass::kRefused;
}

Verdict DoubtPolicy::Of(CommandUse use, const Reply& reply) const {
  return verdicts[static_cast<std::size_t>(use)][static_cast<std::size_t>(ClassOf(reply))];
}

}  // namespace orvenza
