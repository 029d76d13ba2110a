#include "tickets/evidence.h"

#include <gtest/gtest.h>

#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "core/logs.h"
#include "core/settings.h"
#include "platform/system_error.h"
#include "support/faulty_files.h"
#include "support/memory_files.h"
#include "support/test_clock.h"

namespace orvenza::test {
namespace {

using Lines = std::vector<std::string>;
using Names = std::set<std::string>;
using State = Standing::State;

const std::string kPath = "C:\\shop\\Evidence.ini";
const std::string kWork = "C:\\shop\\data\\inproces\\";

EvidenceRecord UnderWay() {
  return {.standing = Standing{State::kUnderWay, {2, 4}, 7},
          .ticket = {"0042.txt", "20261116090000", {}, {123, 18446744073709551615U}},
          .command = "103601000000500",
          .receiptOpen = true,
          .unknown = {"0043.txt", "caff\xC3\xA8 = 1;2  [x].txt"}};
}

auto FieldsOf(const EvidenceRecord& record) {
  return std::make_tuple(record.standing, record.ticket.name, record.ticket.stamp, record.ticket.text,
                         record.command, record.receiptOpen, record.unknown);
}

/// The record that the text of `record` is read as.
auto ReadBack(const EvidenceRecord& record) {
  return FieldsOf(ParseEvidence(EvidenceText(record)).value_or(EvidenceRecord{}));
}

TEST(EvidenceText, SaysWhatIsReadFromIt) {
  EXPECT_EQ(EvidenceText(UnderWay()).substr(0, EvidenceText(UnderWay()).find("Check=")),
            "; How far the ticket that was printed last had come. Written by Orvenza.\r\n"
            "[Evidence]\r\nSchema=1\r\nState=under-way\r\nTicket=0042.txt\r\nStamp=20261116090000\r\n"
            "Size=123\r\nDigest=18446744073709551615\r\nComplete=2\r\nPaid=4\r\nLine=7\r\n"
            "Command=103601000000500\r\nReceiptOpen=1\r\nUnknown=2\r\nUnknown1=0043.txt\r\n"
            "Unknown2=caff\xC3\xA8 = 1;2  [x].txt\r\n");
  EXPECT_EQ(ReadBack(UnderWay()), FieldsOf(UnderWay()));
}

TEST(EvidenceText, KeepsEachState) {
  for (const auto& standing : {std::optional<Standing>(), std::optional(Standing{State::kBegun, {3, 0}, 0}),
                               std::optional(Standing{State::kUnderWay, {0, 0}, 1}),
                               std::optional(Standing{State::kGivenUp, {0, 2}, 3})}) {
    EvidenceRecord record = UnderWay();
    record.standing = standing;
    EXPECT_EQ(ReadBack(record), FieldsOf(record));
  }
  EvidenceRecord closed = UnderWay();
  closed.receiptOpen = false;
  closed.command.clear();
  closed.unknown.clear();
  EXPECT_EQ(ReadBack(closed), FieldsOf(closed));
}

TEST(EvidenceText, IsNothingWhenCutAnywhere) {
  const std::string text = EvidenceText(UnderWay());
  for (std::size_t length = 0; length < text.size(); ++length)
    EXPECT_FALSE(ParseEvidence(text.substr(0, length))) << length;
  EXPECT_FALSE(ParseEvidence(text + "\r\n"));
  EXPECT_FALSE(ParseEvidence(text + text));
}

TEST(EvidenceText, IsNothingWhenAByteWasChanged) {
  const std::string text = EvidenceText(UnderWay());
  for (std::size_t i = 0; i < text.size(); ++i) {
    for (const int flip : {0x01, 0x20, 0x80, 0xFF}) {
      std::string damaged = text;
      damaged[i] = static_cast<char>(damaged[i] ^ flip);
      EXPECT_FALSE(ParseEvidence(damaged)) << i << " " << flip;
    }
  }
}

/// `content` with the check line that vouches for it.
std::string Vouched(const std::string& content) {
  return content + "Check=" + std::to_string(FingerprintOf(content).digest) + "\r\n";
}

TEST(EvidenceText, IsNothingWhenItIsOfAnotherKind) {
  const std::string text = EvidenceText(UnderWay());
  const std::string content = text.substr(0, text.find("Check="));
  ASSERT_TRUE(ParseEvidence(Vouched(content)));
  const auto without = [&](const std::string& line) {
    std::string changed = content;
    changed.erase(changed.find(line), line.size());
    return Vouched(changed);
  };
  for (const char* line :
       {"Schema=1\r\n", "State=under-way\r\n", "Size=123\r\n", "\r\nDigest=184", "Complete=2\r\n",
        "Paid=4\r\n", "Line=7\r\n", "ReceiptOpen=1\r\n", "\r\nUnknown=2"})
    EXPECT_FALSE(ParseEvidence(without(line))) << line;
  EXPECT_FALSE(ParseEvidence(Vouched("")));
}

class EvidenceTest : public ::testing::Test {
 protected:
  EvidenceTest() {
    settings.LogPath = "C:\\shop\\Log.txt";
    settings.ErrPath = "C:\\shop\\Err.txt";
  }

  /// What the next start reads, with these files in the in-process folder.
  Standing Next(const TicketFacts& ticket, std::optional<Names> leftovers = Names{"a.txt"}) {
    Evidence next(files, logs, "C:\\shop");
    next.Recall(std::move(leftovers));
    return next.Of(ticket);
  }
  bool OursNext(std::optional<Names> leftovers = Names{"a.txt"}) {
    Evidence next(files, logs, "C:\\shop");
    next.Recall(std::move(leftovers));
    return next.ReceiptMayBeOurs();
  }
  std::string Errors() { return memory.content["C:\\shop\\Err.txt"]; }

  void Begin(const TicketFacts& ticket) {
    evidence.Taken(ticket);
    evidence.Begun({}, true);
  }

  AppSettings settings;
  TestClock clock;
  MemoryFiles memory;
  FaultyFiles files{memory};
  Logs logs{files, clock, settings, "C:\\shop"};
  Evidence evidence{files, logs, "C:\\shop"};
  const TicketFacts a{"a.txt", "20261116090000", kWork + "a.txt", FingerprintOf("1;a;")};
  const SentCommand item{1, "1003", false, {}, true};
  const SentCommand payment{2, "1036", true, {}, false};
};

TEST_F(EvidenceTest, FollowsATicketFromItsFirstLineToTheArchive) {
  EXPECT_EQ(evidence.Of(a), (Standing{State::kNew, {}, 0}));
  Begin(a);
  EXPECT_EQ(Next(a), (Standing{State::kBegun, {}, 0}));
  evidence.Sending(item);
  evidence.Replied(item, Reply("100300", "1003"), {});
  EXPECT_EQ(Next(a), (Standing{State::kBegun, {}, 0}));
  evidence.Sending(payment);
  EXPECT_EQ(Next(a), (Standing{State::kUnderWay, {}, 2}));
  evidence.Replied(payment, Reply("103600", "1036"), {0, 2});
  EXPECT_EQ(Next(a), (Standing{State::kBegun, {0, 2}, 0}));
  evidence.Ended(PrintEnd::kPrinted);
  EXPECT_EQ(Next(a), (Standing{State::kBegun, {0, 2}, 0}));
  evidence.Filed("C:\\shop\\storico\\1.txt");
  EXPECT_EQ(Next(a), (Standing{State::kNew, {}, 0}));
}

TEST_F(EvidenceTest, ACommandStaysUnderWayUnlessItWasCarriedOutOrRefused) {
  for (const char* text : {"", "ERR-1", "ERR-2", "ERR02", "200100"}) {
    Begin(a);
    evidence.Sending(payment);
    evidence.Replied(payment, Reply(text, "1036"), {});
    EXPECT_EQ(Next(a), (Standing{State::kUnderWay, {}, 2})) << text;
  }
  evidence.Replied(payment, Reply("ERR08", "1036"), {});
  EXPECT_EQ(Next(a), (Standing{State::kBegun, {}, 0}));
}

TEST_F(EvidenceTest, ATicketThatWasGivenUpStaysGivenUpUntilItIsMoved) {
  Begin(a);
  evidence.Ended(PrintEnd::kGivenUp);
  EXPECT_EQ(Next(a).state, State::kGivenUp);
  evidence.Filed("C:\\shop\\data\\abort\\a.txt.abort.txt");
  EXPECT_EQ(Next(a).state, State::kNew);
}

TEST_F(EvidenceTest, AnotherTextTimeOrNameIsNotTheTicket) {
  Begin(a);
  TicketFacts other = a;
  other.text = FingerprintOf("1;b;");
  EXPECT_EQ(Next(other).state, State::kUnknown);
  other = a;
  other.stamp = "20261116090001";
  EXPECT_EQ(Next(other).state, State::kUnknown);
  other = a;
  other.name = "b.txt";
  EXPECT_EQ(Next(other).state, State::kNew);
}

TEST_F(EvidenceTest, ATicketWhoseFileHasGoneIsFiled) {
  Begin(a);
  TicketFacts reused = a;
  reused.text = FingerprintOf("1;b;");
  EXPECT_EQ(Next(reused, Names{}).state, State::kNew);
  EXPECT_EQ(Next(reused, Names{"b.txt"}).state, State::kNew);
  // Nobody knows which files are there.
  EXPECT_EQ(Next(a, std::nullopt).state, State::kBegun);
}

TEST_F(EvidenceTest, WithoutItTheLeftoversAreUnknownUntilTheyArePrintedAnew) {
  TicketFacts b = a;
  b.name = "b.txt";
  TicketFacts later = a;
  later.name = "c.txt";
  for (const std::string damage : {"", "[Evidence]\r\nSchema=1\r\nState=filed\r\nCheck=1\r\n"}) {
    memory.content[kPath] = damage;
    memory.content.erase("C:\\shop\\Err.txt");
    Evidence next(files, logs, "C:\\shop");
    next.Recall(Names{"a.txt", "b.txt"});
    EXPECT_NE(Errors().find("Stato degli scontrini interrotti sconosciuto."), std::string::npos);
    EXPECT_EQ(next.Of(a).state, State::kUnknown);
    EXPECT_EQ(next.Of(b).state, State::kUnknown);
    EXPECT_EQ(next.Of(later).state, State::kNew);
    EXPECT_FALSE(next.ReceiptMayBeOurs());
    next.Taken(a);
    next.Begun({}, true);
    EXPECT_EQ(next.Of(a).state, State::kBegun);
    // A restart in between changes nothing about the other one, unless its file has gone.
    EXPECT_EQ(Next(b, Names{"a.txt", "b.txt"}).state, State::kUnknown);
    EXPECT_EQ(Next(b, Names{"a.txt"}).state, State::kNew);
    next.Taken(b);
    next.Filed("C:\\shop\\storico\\1.txt");
    EXPECT_EQ(next.Of(b).state, State::kNew);
  }
}

TEST_F(EvidenceTest, WithoutItAndWithoutLeftoversNothingIsReported) {
  evidence.Recall(Names{});
  evidence.Recall(std::nullopt);
  EXPECT_EQ(Errors(), "");
}

TEST_F(EvidenceTest, AReceiptIsOursWhileATicketMayHaveLeftItOpen) {
  EXPECT_FALSE(evidence.ReceiptMayBeOurs());
  Begin(a);
  EXPECT_TRUE(OursNext());
  evidence.Sending(item);
  evidence.Filed("C:\\shop\\data\\abort\\a.txt.abort.txt");
  EXPECT_TRUE(OursNext());  // Its last line was an item.
  Begin(a);
  evidence.Sending(item);
  evidence.Sending(payment);
  evidence.Replied(payment, Reply("103600", "1036"), {0, 2});
  evidence.Filed("C:\\shop\\storico\\1.txt");
  EXPECT_FALSE(OursNext());
}

TEST_F(EvidenceTest, AFailureIsLoggedOnceAndTheOutdatedFileRemoved) {
  Begin(a);
  files.FailAlways("Write", "Evidence.ini", error_number::kDiskFull);
  evidence.Sending(payment);
  EXPECT_EQ(memory.content.count(kPath), 0U);
  evidence.Replied(payment, Reply("103600", "1036"), {0, 2});
  const std::string line = "Evidence.ini - 61 - Disk full";
  EXPECT_NE(Errors().find(line), std::string::npos) << Errors();
  EXPECT_EQ(Errors().find(line), Errors().rfind(line));
  EXPECT_EQ(Next(a).state, State::kUnknown);
  files.Heal();
  evidence.Ended(PrintEnd::kGivenUp);
  EXPECT_EQ(Next(a).state, State::kGivenUp);
  files.FailNext("Write", error_number::kDiskFull);
  evidence.Filed({});
  EXPECT_NE(Errors().find(line), Errors().rfind(line));
}

TEST_F(EvidenceTest, AnOutdatedFileThatCannotBeRemovedChangesNothingElse) {
  Begin(a);
  files.FailAlways("Write", "Evidence.ini", error_number::kDeviceError);
  files.FailAlways("Remove", "Evidence.ini", error_number::kDeviceError);
  evidence.Sending(payment);
  EXPECT_EQ(evidence.Of(a).state, State::kUnderWay);
  files.Heal();
  files.FailNext("Exists", error_number::kDeviceError);
  files.FailNext("Write", error_number::kDeviceError);
  evidence.Replied(payment, Reply("103600", "1036"), {0, 2});
  EXPECT_EQ(evidence.Of(a).state, State::kBegun);
}

TEST_F(EvidenceTest, AFileThatCannotBeReadIsLoggedAndCountsAsMissing) {
  Begin(a);
  for (const char* operation : {"Exists", "OpenForReading"}) {
    memory.content.erase("C:\\shop\\Err.txt");
    files.FailNext(operation, error_number::kPermissionDenied);
    EXPECT_EQ(Next(a).state, State::kUnknown) << operation;
    EXPECT_NE(Errors().find("Evidence.ini - 70"), std::string::npos) << operation;
  }
}

TEST_F(EvidenceTest, IsRemovedWhenNobodyKeepsItUpToDate) {
  evidence.Discard();
  Begin(a);
  evidence.Discard();
  EXPECT_EQ(memory.content.count(kPath), 0U);
  EXPECT_EQ(Errors(), "");
  Begin(a);
  files.FailAlways("Remove", "Evidence.ini", error_number::kPermissionDenied);
  evidence.Discard();
  EXPECT_NE(Errors().find("Evidence.ini - 70"), std::string::npos);
}

}  // namespace
}  // namespace orvenza::test
