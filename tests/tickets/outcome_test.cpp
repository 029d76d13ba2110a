#include "tickets/outcome.h"

#include <gtest/gtest.h>

#include <string>

namespace orvenza {
namespace {

Outcome Example() {
  return {.ticket = "0042.txt",
          .text = {90, 12345},
          .done = true,
          .receipt = ReceiptState::kDoubtful,
          .reason = OutcomeReason::kPrintedAgain,
          .filed = "C:\\shop\\storico\\1.txt",
          .started = "2026-11-16 09:00:00",
          .ended = "2026-11-16 09:00:10",
          .attempts = 2,
          .line = 3,
          .lineText =
              "2\x7f"
              "1\x7f"
              "500\x7f",
          .command = "103601000000500",
          .reply = "",
          .answers = "print-again",
          .source = "00.txt",
          .part = 42,
          .parts = 0};
}

TEST(OutcomeFileText, IsAnIniFile) {
  EXPECT_EQ(OutcomeText(Example()),
            "[Outcome]\r\nSchema=1\r\nTicket=0042.txt\r\nState=done\r\nReceipt=doubtful\r\n"
            "Reason=printed-again\r\nFiled=C:\\shop\\storico\\1.txt\r\nStarted=2026-11-16 09:00:00\r\n"
            "Ended=2026-11-16 09:00:10\r\nAttempts=2\r\nLine=3\r\nText=2<7F>1<7F>500<7F>\r\n"
            "Command=103601000000500\r\nReply=\r\nAnswers=print-again\r\nSource=00.txt\r\nPart=42\r\n"
            "Parts=\r\nSize=90\r\nDigest=12345\r\n");
}

TEST(OutcomeFileText, IsReadBack) { EXPECT_EQ(ParseOutcome(OutcomeText(Example())), Example()); }

TEST(OutcomeFileText, KeepsWhatWouldBreakAnIniFile) {
  for (const char* const text :
       {"a\r\nReceipt=yes", " blanks ", "\"quoted\"", "'single'", "<7F>", "1;2;3 ; no comment", "[Outcome]",
        "=", "\x1a", "\"", "Caff\xC3\xA8", "100 %"}) {
    Outcome outcome = Example();
    outcome.lineText = outcome.command = outcome.reply = outcome.ticket = text;
    EXPECT_EQ(ParseOutcome(OutcomeText(outcome)), outcome) << text;
  }
}

TEST(OutcomeFileText, ShowsControlCharactersAsNumbers) {
  Outcome outcome = Example();
  outcome.reply = "ERR16\r\n<x> ";
  EXPECT_NE(OutcomeText(outcome).find("\r\nReply=ERR16<0D><0A><3C>x><20>\r\n"), std::string::npos)
      << OutcomeText(outcome);
}

TEST(OutcomeFileText, IsAlwaysUtf8AndNeverLong) {
  Outcome outcome = Example();
  outcome.ticket = "caff\xE8.txt";
  outcome.lineText = std::string(5000, 'x');
  const std::string text = OutcomeText(outcome);
  EXPECT_NE(text.find("Ticket=caff\xC3\xA8.txt\r\n"), std::string::npos);
  EXPECT_NE(text.find("Text=" + std::string(1000, 'x') + "\r\n"), std::string::npos);
}

TEST(OutcomeFileText, IsRefusedUnlessItIsWhole) {
  const std::string text = OutcomeText(Example());
  for (const char* const key :
       {"Schema=1", "State=done", "Receipt=doubtful", "Reason=printed-again", "Size=90", "Digest=12345"}) {
    std::string damaged = text;
    damaged.replace(damaged.find(key), std::string(key).size(), std::string(key) + "x");
    EXPECT_EQ(ParseOutcome(damaged), std::nullopt) << key;
  }
  EXPECT_EQ(ParseOutcome(""), std::nullopt);
}

}  // namespace
}  // namespace orvenza
