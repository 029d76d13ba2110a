#include "tickets/receipt_proof.h"

#include <gtest/gtest.h>

#include <string>

namespace orvenza {
namespace {

using enum OutcomeReason;
using enum ReceiptState;

constexpr DocumentProgress kNothingYet;

SentCommand Item(std::size_t line = 1) { return {line, "100301", false, "1;PANE;"}; }
SentCommand Payment(std::size_t line = 2) { return {line, "103601", true, "2;1;500;"}; }
Reply Answer(const SentCommand& command, const std::string& text) {
  return {text, std::string_view(command.command).substr(0, 4)};
}

/// A ticket of one item and a payment. Each test tells what happens to it.
class ReceiptProofTest : public testing::Test {
 protected:
  void Exchange(const SentCommand& command, const std::string& reply,
                const DocumentProgress& progress = kNothingYet) {
    proof.Sending(command);
    proof.Replied(command, Answer(command, reply), progress);
  }
  void Begin(bool certain = true, const DocumentProgress& progress = kNothingYet) {
    proof.Begun(progress, certain);
  }
  void PrintWell() {
    Exchange(Item(), "100300");
    Exchange(Payment(), "103600", {0, 2});
  }
  void ExpectEnd(PrintEnd end, ReceiptState receipt, OutcomeReason reason) const {
    EXPECT_EQ(proof.AtEnd(end), receipt);
    EXPECT_EQ(proof.ReasonAtEnd(end), reason);
  }

  ReceiptProof proof{true};
};

TEST_F(ReceiptProofTest, IsWholeWhereEveryLineWasAnsweredWithItsOwnCode) {
  Begin();
  EXPECT_EQ(proof.SoFar(), kNo);
  Exchange(Item(), "100300");
  EXPECT_EQ(proof.SoFar(), kNo);
  proof.Sending(Payment());
  EXPECT_EQ(proof.SoFar(), kDoubtful);
  proof.Replied(Payment(), Answer(Payment(), "103600"), {0, 2});
  EXPECT_EQ(proof.SoFar(), kDoubtful);
  ExpectEnd(PrintEnd::kPrinted, kYes, kPrinted);
  EXPECT_FALSE(proof.Trouble());
}

TEST_F(ReceiptProofTest, KnowsTicketsThatCompleteNothing) {
  proof = ReceiptProof(false);
  Begin();
  Exchange(Item(), "100300");
  ExpectEnd(PrintEnd::kPrinted, kNone, kPrinted);
}

TEST_F(ReceiptProofTest, IsDoubtfulIfAReceiptMayHaveBeenOpenBefore) {
  Begin(false);
  PrintWell();
  ExpectEnd(PrintEnd::kPrinted, kDoubtful, kStatusUnknown);
}

struct ReplyCase {
  const char* text;
  OutcomeReason reason;
};

/// A line that completes nothing, and what its reply does to the receipt.
constexpr ReplyCase kPoorReplies[] = {{"", kNoAnswer},       {"ERR16", kRefused},     {"ERR11", kRefused},
                                      {"ERR01", kPaperOut},  {"ERR02", kPaperOut},    {"ERR-1", kNoAnswer},
                                      {"ERR-2", kNoAnswer},  {"ERR-3", kNoAnswer},    {"##", kNoAnswer},
                                      {"100400", kNoAnswer}, {"ERR**", kInvalidLine}, {"ERR2323", kDivided},
                                      {"ERR23", kRefused}};

TEST_F(ReceiptProofTest, IsDoubtfulAfterAPoorlyAnsweredLineOfTheSameAttempt) {
  for (const ReplyCase& poor : kPoorReplies) {
    SCOPED_TRACE(poor.text);
    proof = ReceiptProof(true);
    Begin();
    Exchange(Item(), poor.text);
    Exchange(Payment(), "103600", {0, 2});
    ExpectEnd(PrintEnd::kPrinted, kDoubtful, poor.reason);
    ASSERT_TRUE(proof.Trouble());
    EXPECT_EQ(proof.Trouble()->line, 1U);
    EXPECT_EQ(proof.Trouble()->reply, poor.text);
  }
}

TEST_F(ReceiptProofTest, IsNotThereIfNoCompletingCommandFollowed) {
  for (const ReplyCase& poor : kPoorReplies) {
    SCOPED_TRACE(poor.text);
    proof = ReceiptProof(true);
    Begin();
    Exchange(Item(), poor.text);
    ExpectEnd(PrintEnd::kGivenUp, kNo, poor.reason);
    proof.Decided(Decision::kAbort);
    ExpectEnd(PrintEnd::kGivenUp, kNo, kOperatorGaveUp);
  }
}

TEST_F(ReceiptProofTest, IsWholeIfTheNextAttemptPrintsEverything) {
  for (const ReplyCase& poor : kPoorReplies) {
    SCOPED_TRACE(poor.text);
    proof = ReceiptProof(true);
    Begin();
    Exchange(Item(), poor.text);
    proof.Decided(Decision::kReprint);
    Begin();
    PrintWell();
    ExpectEnd(PrintEnd::kPrinted, kYes, kPrinted);
    EXPECT_EQ(proof.Trouble()->reply, poor.text);
  }
}

TEST_F(ReceiptProofTest, IsNotThereIfTheCompletingCommandWasRefused) {
  for (const char* const refusal : {"ERR16", "ERR11", "ERR**", "ERR2323"}) {
    SCOPED_TRACE(refusal);
    proof = ReceiptProof(true);
    Begin();
    Exchange(Item(), "100300");
    Exchange(Payment(), refusal);
    EXPECT_EQ(proof.AtEnd(PrintEnd::kPrinted), kNo);
    Begin();
    PrintWell();
    ExpectEnd(PrintEnd::kPrinted, kYes, kPrinted);
  }
}

TEST_F(ReceiptProofTest, StaysDoubtfulOnceACompletingCommandMayHaveBeenCarriedOut) {
  for (const char* const reply : {"", "ERR01", "ERR02", "ERR-1", "ERR-2", "ERR-3", "##"}) {
    SCOPED_TRACE(reply);
    proof = ReceiptProof(true);
    Begin();
    Exchange(Item(), "100300");
    Exchange(Payment(), reply);
    EXPECT_EQ(proof.AtEnd(PrintEnd::kGivenUp), kDoubtful);
    EXPECT_EQ(proof.AtEnd(PrintEnd::kPrinted), kDoubtful);
    Begin();
    PrintWell();
    ExpectEnd(PrintEnd::kPrinted, kDoubtful, kPrintedAgain);
  }
}

TEST_F(ReceiptProofTest, StaysDoubtfulIfACompleteReceiptIsPrintedAgain) {
  Begin();
  PrintWell();
  Exchange(Item(3), "");
  Begin();
  PrintWell();
  ExpectEnd(PrintEnd::kPrinted, kDoubtful, kPrintedAgain);
}

TEST_F(ReceiptProofTest, StaysDoubtfulIfTheCompletingCommandIsStillUnderWay) {
  Begin();
  proof.Sending(Payment());
  ExpectEnd(PrintEnd::kGivenUp, kDoubtful, kNoAnswer);
  Begin();
  EXPECT_EQ(proof.SoFar(), kDoubtful);
  PrintWell();
  ExpectEnd(PrintEnd::kPrinted, kDoubtful, kPrintedAgain);
}

TEST_F(ReceiptProofTest, IsWholeIfPrintingWentOnBehindWhatWasComplete) {
  Begin();
  PrintWell();
  Exchange(Item(3), "ERR16", {2, 0});
  Begin(true, {2, 0});
  Exchange(Item(3), "100300", {2, 0});
  Exchange(Payment(4), "103600", {2, 4});
  ExpectEnd(PrintEnd::kPrinted, kYes, kPrinted);
}

TEST_F(ReceiptProofTest, IsDoubtfulIfAPoorLineWasKept) {
  Begin();
  Exchange(Item(), "ERR01");
  Exchange(Payment(), "103600", {0, 2});
  Exchange(Item(3), "");
  Begin(true, {2, 0});
  Exchange(Payment(4), "103600", {2, 4});
  ExpectEnd(PrintEnd::kPrinted, kDoubtful, kPaperOut);
}

TEST_F(ReceiptProofTest, IsDoubtfulIfPrintingWentOnBehindWhatTheOperatorSawPrinted) {
  Begin();
  Exchange(Item(), "100300");
  Exchange(Payment(), "");
  proof.Decided(Decision::kPrinted);
  Begin(true, {2, 0});
  Exchange(Payment(4), "103600", {2, 4});
  ExpectEnd(PrintEnd::kPrinted, kDoubtful, kOperatorPrinted);
}

TEST_F(ReceiptProofTest, DoesNotTakeTheOperatorsWordForIt) {
  Begin();
  Exchange(Item(), "");
  proof.Decided(Decision::kPrinted);
  ExpectEnd(PrintEnd::kPrinted, kNo, kOperatorPrinted);
}

TEST_F(ReceiptProofTest, IsDoubtfulOnceAReceiptWasClosedByAPaymentOfZero) {
  Begin();
  Exchange(Item(), "ERR16");
  proof.ClosedAutomatically();
  EXPECT_EQ(proof.SoFar(), kDoubtful);
  Begin();
  PrintWell();
  ExpectEnd(PrintEnd::kPrinted, kDoubtful, kClosedAutomatically);
}

TEST_F(ReceiptProofTest, IsDoubtfulIfAnEarlierRunMayHaveCompletedIt) {
  proof.MayHaveCompletedEarlier(kNothing);
  EXPECT_EQ(proof.SoFar(), kDoubtful);
  Begin();
  PrintWell();
  ExpectEnd(PrintEnd::kPrinted, kDoubtful, kInterrupted);
  proof = ReceiptProof(true);
  proof.MayHaveCompletedEarlier(kClosedAutomatically);
  ExpectEnd(PrintEnd::kPrinted, kDoubtful, kClosedAutomatically);
}

TEST_F(ReceiptProofTest, IsDoubtfulIfAnEarlierRunHasPrintedSomeOfIt) {
  Begin(true, {2, 0});
  PrintWell();
  ExpectEnd(PrintEnd::kPrinted, kDoubtful, kInterrupted);
}

TEST_F(ReceiptProofTest, NamesALogoRowAndALineThatIsNoCommand) {
  Begin();
  proof.Troubled({1, "405201002", false, "33;1;logo.bmp;"}, Answer({1, "405201002", false, ""}, "ERR11"));
  EXPECT_EQ(proof.Trouble()->command, "405201002");
  EXPECT_EQ(proof.Trouble()->reply, "ERR11");
  Exchange(Payment(), "103600", {0, 2});
  ExpectEnd(PrintEnd::kPrinted, kDoubtful, kRefused);
  Begin();
  proof.Troubled({3, {}, false, "PAGA"}, Reply::InvalidLine());
  EXPECT_EQ(proof.Trouble()->lineText, "PAGA");
  EXPECT_EQ(proof.Trouble()->reply, "");
}

TEST_F(ReceiptProofTest, CallsAReceiptDividedOnlyIfNothingElseWentWrong) {
  Begin();
  Exchange(Item(), "ERR2323");
  Exchange(Item(), "100300", {0, 0});
  Exchange(Payment(), "103600", {0, 2});
  ExpectEnd(PrintEnd::kPrinted, kDoubtful, kDivided);
  Begin();
  Exchange(Item(), "ERR2323");
  Exchange(Item(), "ERR2323");
  EXPECT_EQ(proof.ReasonAtEnd(PrintEnd::kGivenUp), kRefused);
}

TEST_F(ReceiptProofTest, GivesUpWithoutAReasonOnlyIfNothingIsKnown) {
  Begin();
  ExpectEnd(PrintEnd::kGivenUp, kNo, kFailed);
}

}  // namespace
}  // namespace orvenza
