#include "device/doubt_policy.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace orvenza::test {
namespace {

using enum Verdict;
using Use = CommandUse;

/// The verdicts on a reply, by use: line, closure, other, correction.
using Verdicts = std::array<Verdict, kCommandUses>;

struct Row {
  const char* reply;
  Verdicts contract;
  Verdicts inDoubt;
};

const Row kRows[] = {
    {"", {kAsk, kDone, kAsk, kDone}, {kAsk, kAsk, kAsk, kRepeat}},
    {"ERR08", {kAsk, kDone, kAsk, kRepeat}, {kAsk, kAsk, kAsk, kRepeat}},
    {"ERR11", {kVoid, kDone, kVoid, kRepeat}, {kAsk, kAsk, kAsk, kRepeat}},
    {"ERR01", {kAsk, kDone, kAsk, kRepeat}, {kAsk, kAsk, kAsk, kRepeat}},
    {"ERR02", {kAsk, kDone, kAsk, kRepeat}, {kAsk, kAsk, kAsk, kRepeat}},
    {"ERR-1", {kAsk, kDone, kAsk, kRepeat}, {kAsk, kAsk, kAsk, kRepeat}},
    {"ERR-3", {kAsk, kDone, kAsk, kRepeat}, {kAsk, kAsk, kAsk, kRepeat}},
    {"ERR-2", {kDone, kDone, kAsk, kRepeat}, {kAsk, kAsk, kAsk, kRepeat}},
    {"ERR-2 and more", {kDone, kDone, kAsk, kRepeat}, {kAsk, kAsk, kAsk, kRepeat}},
    {"ERR**", {kAsk, kDone, kAsk, kRepeat}, {kAsk, kAsk, kAsk, kRepeat}},
    {"200100", {kDone, kDone, kDone, kDone}, {kAsk, kAsk, kAsk, kRepeat}},
    {"3217", {kDone, kDone, kDone, kDone}, {kDone, kDone, kDone, kDone}},
};

Verdicts VerdictsOf(const DoubtPolicy& policy, const char* text) {
  const Reply reply(text, "3217");
  return {policy.Of(Use::kLine, reply), policy.Of(Use::kClosure, reply), policy.Of(Use::kOther, reply),
          policy.Of(Use::kCorrection, reply)};
}

TEST(DoubtPolicy, TheContractDecidesByItself) {
  for (const Row& row : kRows) EXPECT_EQ(VerdictsOf(kContractPolicy, row.reply), row.contract) << row.reply;
}

TEST(DoubtPolicy, InDoubtOnlyTheCommandsOwnCodeCounts) {
  for (const Row& row : kRows) EXPECT_EQ(VerdictsOf(kAskInDoubtPolicy, row.reply), row.inDoubt) << row.reply;
}

TEST(DoubtPolicy, TheSettingsChooseIt) {
  AppSettings settings;
  EXPECT_EQ(&PolicyOf(settings), &kContractPolicy);
  settings.AskInDoubt = true;
  EXPECT_EQ(&PolicyOf(settings), &kAskInDoubtPolicy);
}

}  // namespace
}  // namespace orvenza::test
