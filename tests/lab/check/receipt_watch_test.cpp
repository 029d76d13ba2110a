#include "lab/check/receipt_watch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "lab/check/ticket_check.h"
#include "simulator/simulated_register.h"
#include "simulator/virtual_clock.h"
#include "support/memory_files.h"

namespace orvenza::test {
namespace {

using Lines = std::vector<std::string_view>;

struct Found {
  std::size_t line;
  TicketFinding finding;
};

/// The findings in a file of these lines.
std::vector<Found> CheckLines(TicketCheck& check, const Lines& lines) {
  std::vector<Found> found;
  TicketFindings findings;
  std::size_t number = 0;
  const auto take = [&] {
    for (const TicketFinding& finding : findings) found.push_back({number, finding});
    findings.clear();
  };
  check.BeginFile();
  for (const std::string_view line : lines) {
    ++number;
    check.Check(line, findings);
    take();
  }
  check.EndFile(findings);
  take();
  return found;
}

/// Whether a finding predicts that the register refuses its line.
bool IsRefusal(const Found& found) {
  return found.finding.code == "no-receipt" || found.finding.code == "still-open";
}

/// "code@line" for each, separated by blanks.
std::string Codes(const std::vector<Found>& all) {
  std::string codes;
  for (const auto& [line, finding] : all) {
    codes += (codes.empty() ? "" : " ") + std::string(finding.code) + "@" + std::to_string(line);
  }
  return codes;
}

/// A check with ";" as separator.
struct Bench {
  explicit Bench(bool fileParser = false) : check(Rules(fileParser), files, clock) {}

  static CheckRules Rules(bool fileParser) {
    CheckRules rules;
    rules.settings.SeparatorChar = ';';
    rules.settings.FileParser = fileParser;
    return rules;
  }

  MemoryFiles files;
  VirtualClock clock;
  TicketCheck check;
};

std::string FindingsOf(const Lines& lines, bool fileParser = false) {
  Bench bench(fileParser);
  return Codes(CheckLines(bench.check, lines));
}

constexpr std::string_view kItem10 = "1;Pane;1,0;1000;1;;;1;;";
constexpr std::string_view kPay10 = "2;1;1000;";

TEST(ReceiptWatch, FindsNothingInReceiptsThatArePaid) {
  const Lines kReceipts[] = {
      {},
      {kItem10, kPay10},
      {kItem10, "2;1;0;"},                    // pays the amount due
      {kItem10, "2;1;2000;"},                 // with change
      {kItem10, "2;1;400;", "5;2;1;;;600;"},  // with two means
      {kItem10, kItem10, "15;1;2000;"},
      {kItem10, "14;1000;1;3;;0;"},
      {"1;Pane;0,5;1000;1;;;1;;", "2;1;500;"},      // half a piece
      {kItem10, "1;1;1;;100;;;;-1;", "2;1;900;"},   // a discount on the item
      {kItem10, "1;2;1;;1000;;;;-1;", "2;1;900;"},  // the same in percent
      {kItem10, "6;3;1;1000;", "2;1;1100;"},        // a surcharge on the total
      {kItem10, "7;1;1;100;", "2;1;900;"},
      {kItem10, kItem10, "9;Pane;1000;1;;1;;;1,0;", kPay10},  // one returned
      {kItem10, "4;1;"},                                      // voided
      {"23;Benvenuti;1;", "21;"},                             // no receipt
      {"29;1;", "30;1;1;Testo;", "31;1;"},                    // a document
      {"29;1;", "4;1;"},                                      // one that is voided
      {kItem10, kPay10, "23;Arrivederci;1;", "21;"},          // after which nothing is sold
      {kItem10, "30;1;1;Testo;", kPay10},                     // a document's line in a receipt
      {"34;0;700;1;", "21;", "32;1;1;"},                      // the end of a day
  };
  for (const Lines& lines : kReceipts) EXPECT_EQ(FindingsOf(lines), "") << lines.size();
}

TEST(ReceiptWatch, MissesTheEndOfAReceipt) {
  EXPECT_EQ(FindingsOf({kItem10}), "receipt-open@1");
  EXPECT_EQ(FindingsOf({kItem10, "23;Grazie;1;", ""}), "receipt-open@3");
  EXPECT_EQ(FindingsOf({"29;1;", "30;1;1;Testo;"}), "receipt-open@2");
  EXPECT_EQ(FindingsOf({kItem10, kPay10, kItem10}, true), "receipt-open@3");
}

TEST(ReceiptWatch, MissesMoney) {
  EXPECT_EQ(FindingsOf({kItem10, "2;1;999;"}), "not-paid@2");
  EXPECT_EQ(FindingsOf({kItem10, "2;1;400;", "5;2;1;;;599;"}), "not-paid@3");
  EXPECT_EQ(FindingsOf({kItem10, "2;1;400;", "4;1;"}), "not-paid@3") << "too late to be given up";
  EXPECT_EQ(FindingsOf({kItem10, "2;1;999;", kItem10, kPay10}, true), "not-paid@3");
}

TEST(ReceiptWatch, SaysWhatIsMissing) {
  ReceiptWatch watch;
  TicketFindings findings;
  const std::string zone(40, ' ');
  watch.Follow("100301" + zone + "Pane            0001000100000150001", findings);
  watch.Follow("103601000001000", findings);
  watch.End("the file ends", findings);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].text,
            "the file ends, but the payments do not cover the receipt: 5,00 of 15,00 is still due");
  EXPECT_FALSE(findings[0].isError);
}

TEST(ReceiptWatch, FindsASecondReceiptUnlessTheFileIsSplit) {
  const Lines two = {kItem10, kPay10, "23;Ciao;1;", kItem10, kPay10};
  EXPECT_EQ(FindingsOf(two), "second-receipt@4");
  EXPECT_EQ(FindingsOf(two, true), "");
  EXPECT_EQ(FindingsOf({"29;1;", "31;1;", kItem10, kPay10}), "second-receipt@3");
}

TEST(ReceiptWatch, FindsWhateverBeginsBehindSomethingPrinted) {
  EXPECT_EQ(FindingsOf({kItem10, kPay10, "29;1;", "31;1;"}), "second-receipt@3");
  EXPECT_EQ(FindingsOf({"29;1;", "31;1;", "29;1;", "31;1;"}), "second-receipt@3");
  EXPECT_EQ(FindingsOf({kItem10, kPay10, "34;0;700;1;"}), "second-receipt@3");
  EXPECT_EQ(FindingsOf({kItem10, kPay10, "35;1;700;1;"}), "second-receipt@3");
  EXPECT_EQ(FindingsOf({"34;0;700;1;", kItem10, kPay10}), "second-receipt@2");
  EXPECT_EQ(FindingsOf({kItem10, kPay10, "34;0;700;1;", "29;1;", "31;1;"}, true), "second-receipt@4");
}

TEST(ReceiptWatch, CountsNothingVoidedAsPrinted) {
  EXPECT_EQ(FindingsOf({kItem10, "4;1;", kItem10, kPay10}), "");
  EXPECT_EQ(FindingsOf({"29;1;", "4;1;", kItem10, kPay10}), "");
  EXPECT_EQ(FindingsOf({kItem10, "4;1;", kItem10, kPay10, kItem10, kPay10}), "second-receipt@5");
}

TEST(ReceiptWatch, MissesADocument) {
  EXPECT_EQ(FindingsOf({"30;1;1;Testo;"}), "no-receipt@1");
  EXPECT_EQ(FindingsOf({"31;1;"}), "no-receipt@1");
  EXPECT_EQ(FindingsOf({kItem10, "31;1;", kPay10}), "no-receipt@2");
  EXPECT_EQ(FindingsOf({"29;1;", kPay10, "20;1;", "31;1;"}), "no-receipt@2 no-receipt@3");
}

TEST(ReceiptWatch, FindsWhatAnOpenReceiptOrDocumentForbids) {
  for (const char* line : {"29;1;", "34;0;700;1;", "35;1;700;1;", "32;1;1;", "21;", "22;"}) {
    EXPECT_EQ(FindingsOf({kItem10, line, kPay10}), "still-open@2") << line;
    EXPECT_EQ(FindingsOf({"29;1;", line, "31;1;"}), "still-open@2") << line;
  }
  EXPECT_EQ(FindingsOf({"29;1;", kItem10, "31;1;"}), "still-open@2");
  EXPECT_EQ(FindingsOf({kItem10, "29;1;", "30;1;1;Testo;", "31;1;", kPay10}), "still-open@2 no-receipt@4");
  EXPECT_EQ(FindingsOf({kItem10, "2;1;400;", "34;0;700;1;", "2;1;600;"}), "still-open@3");
  EXPECT_EQ(FindingsOf({kItem10, "14;x;1;3;;0;", "34;0;700;1;"}), "not-digits@2") << "it may be paid";
}

/// The numbers of the lines that the simulated register refuses because of their position.
std::vector<std::size_t> RefusedByRegister(TicketCheck& check, const Lines& lines) {
  const VirtualClock clock;
  PaperRoll paper;
  SimulatedRegister device(clock, paper);
  std::vector<std::size_t> refused;
  TicketFindings ignored;
  check.BeginFile();
  for (std::size_t i = 0; i < lines.size(); ++i) {
    std::string command = check.Check(lines[i], ignored);
    if (command.ends_with('*')) command.pop_back();
    const std::string reply = device.Execute(command);
    if (reply == "ERR11" || reply == "ERR17") refused.push_back(i + 1);
  }
  return refused;
}

/// The numbers of the lines for which the check predicts that.
std::vector<std::size_t> RefusedByCheck(TicketCheck& check, const Lines& lines) {
  std::vector<std::size_t> refused;
  for (const Found& found : CheckLines(check, lines)) {
    if (IsRefusal(found)) refused.push_back(found.line);
  }
  return refused;
}

TEST(ReceiptWatch, RefusesWhatTheSimulatedRegisterRefuses) {
  const std::string_view kLines[] = {kItem10,         "2;1;0;", "20;1;",       "4;1;", "29;1;",
                                     "30;1;1;Testo;", "31;1;",  "34;0;700;1;", "21;"};
  Bench bench;
  // Every order of four of them, after a receipt, as a void then needs a receipt of its own.
  for (const std::string_view a : kLines) {
    for (const std::string_view b : kLines) {
      for (const std::string_view c : kLines) {
        for (const std::string_view d : kLines) {
          const Lines lines = {kItem10, kPay10, a, b, c, d};
          ASSERT_EQ(RefusedByCheck(bench.check, lines), RefusedByRegister(bench.check, lines))
              << a << ' ' << b << ' ' << c << ' ' << d;
        }
      }
    }
  }
}

TEST(ReceiptWatch, FindsAnUnfinishedReceiptThatFileParserCutsInTwo) {
  EXPECT_EQ(FindingsOf({kItem10, "2;1;500;", "23;Grazie;1;", "2;1;500;"}, true), "not-paid@3 no-receipt@4");
  EXPECT_EQ(FindingsOf({kItem10, "2;1;500;", "23;Grazie;1;", "2;1;500;"}), "");
  EXPECT_EQ(FindingsOf({"29;1;", "4;x;", "23;Testo;1;"}, true), "not-digits@2");
  EXPECT_EQ(FindingsOf({kItem10, "2;1;500;", "2;1;500;"}, true), "") << "closing lines stay together";
  EXPECT_EQ(FindingsOf({kItem10, "2;1;500;", "", "14;500;1;3;;0;"}, true), "");
}

TEST(ReceiptWatch, FindsASecondReceiptThatFileParserDoesNotSplit) {
  const std::string_view paidBy14 = "14;1000;1;3;;0;";
  EXPECT_EQ(FindingsOf({kItem10, paidBy14, kItem10, paidBy14}, true), "second-receipt@3");
  EXPECT_EQ(FindingsOf({"29;1;", "31;1;", kItem10, kPay10}, true), "second-receipt@3");
}

TEST(ReceiptWatch, FindsAClosingTypeThatFileParserDoesNotSee) {
  EXPECT_EQ(FindingsOf({kItem10, " 2;1;1000;", kItem10, kPay10}, true), "hidden-type@3 second-receipt@3");
  EXPECT_EQ(FindingsOf({"\xEF\xBB\xBF"
                        "4;1;",
                        "23;Grazie;1;"},
                       true),
            "hidden-type@2");
  EXPECT_EQ(FindingsOf({kItem10, " 2;1;400;", "\t2;1;600;", "", kItem10, kPay10}, true),
            "hidden-type@5 second-receipt@5");
}

TEST(ReceiptWatch, FindsAClosingTypeThatFileParserTakesForABeginning) {
  const std::string_view paidBy14 = " 14;600;1;3;;0;";
  EXPECT_EQ(FindingsOf({kItem10, "2;1;400;", paidBy14}, true), "hidden-type@3 not-paid@3 no-receipt@3");
  EXPECT_EQ(FindingsOf({kItem10, "2;1;400;", " 2;1;600;"}, true), "hidden-type@3 not-paid@3 no-receipt@3");
  EXPECT_EQ(FindingsOf({kItem10, kPay10, " 4;1;", "23;Grazie;1;"}, true), "hidden-type@3")
      << "told once for one blank";
}

TEST(ReceiptWatch, KeepsQuietAboutAHiddenTypeThatSplitsNothing) {
  EXPECT_EQ(FindingsOf({kItem10, " 2;1;1000;"}, true), "");
  EXPECT_EQ(FindingsOf({kItem10, " 2;1;0;", "  ", "2;1;1000;"}, true), "no-receipt@4");
  EXPECT_EQ(FindingsOf({kItem10, " 2;1;400;", "2;1;600;", kItem10, kPay10}, true), "");
  EXPECT_EQ(FindingsOf({kItem10, " 14;1000;1;3;;0;", "23;Grazie;1;"}, true), "") << "14 alone closes nothing";
  EXPECT_EQ(FindingsOf({kItem10, " 2;1;1000;", kItem10, kPay10}), "second-receipt@3")
      << "nothing looks for it";
  EXPECT_EQ(FindingsOf({" 1;Pane;1,0;1000;1;;;1;;", kPay10}, true), "");
}

TEST(ReceiptWatch, SeesTheTypeOfALineThatIsNotLookedAt) {
  Bench bench(true);
  TicketFindings findings;
  bench.check.BeginFile();
  for (const std::string_view line : {kItem10, std::string_view("  2;1;400;")})
    bench.check.Check(line, findings);
  bench.check.Skip("14;600", findings);
  EXPECT_TRUE(findings.empty()) << "it goes with the closing line";
  bench.check.Skip("23;Ciao", findings);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].code, "hidden-type");
}

TEST(ReceiptWatch, SaysWhichLineHidesItsType) {
  Bench bench(true);
  const auto found = CheckLines(bench.check, {kItem10, "", " 2;1;400;", " 14;600;1;3;;0;", kItem10, kPay10});
  ASSERT_EQ(Codes(found), "hidden-type@5 second-receipt@5");
  EXPECT_EQ(found[0].finding.text,
            "\"File Parser\" does not split the file before this line: what stands before the type in line 3 "
            "hides that it closes the receipt");
}

TEST(ReceiptWatch, MissesAReceiptThatALineNeeds) {
  const Lines kWithout[] = {
      {kPay10, "23;Grazie;1;"},  // a payment alone
      {"20;1;"},
      {"5;2;1;;;700;"},
      {"3;Mele;199;3;;;1;;0,750;"},
      {"9;Pane;1000;1;;1;;;1,0;"},
      {"1;1;1;;100;;;;-1;"},
      {"6;3;1;1000;"},
      {"7;1;1;100;"},
  };
  for (const Lines& lines : kWithout) EXPECT_EQ(FindingsOf(lines), "no-receipt@1") << lines[0];
  EXPECT_EQ(FindingsOf({kItem10, "14;1000;1;1;x;1;", "14;1000;1;1;x;1;", "2;1;0;"}),
            "no-receipt@3 no-receipt@4");
  EXPECT_EQ(FindingsOf({kItem10, kPay10, "4;1;"}), "no-receipt@3");
  EXPECT_EQ(FindingsOf({kItem10, kPay10, "7;1;1;100;sconto;1;"}), "no-receipt@3");
}

TEST(ReceiptWatch, DoesNotMissAReceiptThatMayBeThere) {
  EXPECT_EQ(FindingsOf({"4;1;"}), "") << "it may end what another file began";
  EXPECT_EQ(FindingsOf({"1;Pane;x;1000;1;;;1;;", kPay10}), "not-digits@1");
  EXPECT_EQ(FindingsOf({kItem10, "1;Pane;x;1000;1;;;1;;", kPay10, kPay10}), "not-digits@2");
  EXPECT_EQ(FindingsOf({kItem10, "9;Pane;5000;1;;1;;;1,0;", kPay10, kPay10}), "");
}

TEST(ReceiptWatch, SaysWhatNeedsAReceipt) {
  ReceiptWatch watch;
  TicketFindings findings;
  watch.Follow("103601000001000", findings);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].text,
            "a payment, but nothing was sold before it in its ticket: the simulated register refuses it");
}

TEST(ReceiptWatch, SaysWhyALineIsRefused) {
  const struct {
    Lines lines;
    const char* said;
  } kRefused[] = {
      {{kItem10, kPay10, kPay10}, "a payment, but the receipt before it is complete"},
      {{kItem10, "4;1;", kPay10}, "a payment, but the receipt before it is voided"},
      {{"29;1;", "31;1;", kPay10}, "a payment, but nothing was sold before it in its ticket"},
      {{"29;1;", kPay10}, "a payment, but a document is open, which is no receipt"},
      {{"29;1;", kItem10}, "an item is sold, but a document is open"},
      {{kItem10, "34;0;700;1;"}, "a cash movement, but a receipt is open"},
      {{kItem10, "31;1;"}, "a document ends, but no document is open"},
      {{"30;1;1;Testo;"}, "a line of a document, but neither a receipt nor a document is open"},
  };
  for (const auto& [lines, said] : kRefused) {
    Bench bench;
    const auto found = CheckLines(bench.check, lines);
    const auto refusal = std::find_if(found.begin(), found.end(), IsRefusal);
    ASSERT_NE(refusal, found.end()) << said;
    EXPECT_EQ(refusal->finding.text, std::string(said) + ": the simulated register refuses it");
  }
}

TEST(ReceiptWatch, KnowsNoSumsBehindAnInvalidLine) {
  EXPECT_EQ(FindingsOf({kItem10, "1;Pane;1;1000;1;;;1;;", "2;1;2000;"}), "quantity-short@2");
  EXPECT_EQ(FindingsOf({kItem10, "1;Pane;1;1000;1;;;1;;", "2;1;500;"}), "quantity-short@2");
  EXPECT_EQ(FindingsOf({kItem10, "2;1;x;"}), "not-digits@2");
  EXPECT_EQ(FindingsOf({kItem10, "14;x;1;3;;0;"}), "not-digits@2");
  EXPECT_EQ(FindingsOf({"29;1;", "31;x;"}), "not-digits@2");
  EXPECT_EQ(FindingsOf({kItem10, "2"}), "no-separator@2");
  EXPECT_EQ(FindingsOf({kItem10, "02;1;1000;"}), "unknown-type@2");
  EXPECT_EQ(FindingsOf({kItem10, "23;;1;"}), "empty@2 receipt-open@2");
}

TEST(ReceiptWatch, LeavesToTheRegisterWhatItRefuses) {
  // More was returned than sold: only the register knows the amount due.
  EXPECT_EQ(FindingsOf({kItem10, "9;Pane;5000;1;;1;;;1,0;", "2;1;10;"}), "");
  // So is a discount on an item after its subtotal.
  EXPECT_EQ(FindingsOf({kItem10, "20;1;", "1;1;1;;100;;;;-1;", "2;1;800;"}), "");
}

}  // namespace
}  // namespace orvenza::test
