#include "lab/receipt_watch.h"

#include <gtest/gtest.h>

#include "lab/ticket_check.h"
#include "simulator/virtual_clock.h"
#include "support/memory_files.h"

namespace orvenza::test {
namespace {

using Lines = std::vector<std::string_view>;

/// "code@line" of each finding about a file of these lines, separated by ";".
std::string FindingsOf(const Lines& lines, bool fileParser = false) {
  CheckRules rules;
  rules.settings.SeparatorChar = ';';
  rules.settings.FileParser = fileParser;
  const MemoryFiles files;
  VirtualClock clock;
  TicketCheck check(rules, files, clock);
  std::string said;
  std::size_t number = 0;
  const auto note = [&](const TicketFindings& findings) {
    for (const TicketFinding& finding : findings) {
      said += (said.empty() ? "" : " ") + std::string(finding.code) + "@" + std::to_string(number);
    }
  };
  for (const std::string_view line : lines) {
    TicketFindings findings;
    ++number;
    check.Check(line, findings);
    note(findings);
  }
  TicketFindings findings;
  check.EndFile(findings);
  note(findings);
  return said;
}

constexpr std::string_view kItem10 = "1;Pane;1,0;1000;1;;;1;;";
constexpr std::string_view kPay10 = "2;1;1000;";

TEST(ReceiptWatch, FindsNothingInReceiptsThatArePaid) {
  const Lines kReceipts[] = {
      {},
      {kItem10, kPay10},
      {kItem10, "2;1;0;"},                    // pays what is due
      {kItem10, "2;1;2000;"},                 // with change
      {kItem10, "2;1;400;", "5;2;1;;;600;"},  // with two means
      {kItem10, kItem10, "15;1;2000;"},
      {kItem10, "14;1000;1;3;;0;"},
      {"1;Pane;0,5;1000;1;;;1;;", "2;1;500;"},      // half of it
      {kItem10, "1;1;1;;100;;;;-1;", "2;1;900;"},   // a discount on the item
      {kItem10, "1;2;1;;1000;;;;-1;", "2;1;900;"},  // the same in percent
      {kItem10, "6;3;1;1000;", "2;1;1100;"},        // a surcharge on the whole
      {kItem10, "7;1;1;100;", "2;1;900;"},
      {kItem10, kItem10, "9;Pane;1000;1;;1;;;1,0;", kPay10},  // one taken back
      {kItem10, "4;1;"},                                      // given up
      {"23;Benvenuti;1;", "21;"},                             // no receipt at all
      {"29;1;", "30;1;1;Testo;", "31;1;"},                    // a document
      {"29;1;", "4;1;"},                                      // one given up
      {kItem10, kPay10, "23;Arrivederci;1;", "20;1;"},        // nothing sold after it
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
            "the file ends, but the payments do not cover the receipt: of 15,00 still 5,00 is due");
  EXPECT_FALSE(findings[0].isError);
}

TEST(ReceiptWatch, FindsASecondReceiptUnlessTheFileIsSplit) {
  const Lines two = {kItem10, kPay10, "23;Ciao;1;", kItem10, kPay10};
  EXPECT_EQ(FindingsOf(two), "second-receipt@4");
  EXPECT_EQ(FindingsOf(two, true), "");
  EXPECT_EQ(FindingsOf({kItem10, "4;1;", kItem10, kPay10}), "second-receipt@3");
  EXPECT_EQ(FindingsOf({"29;1;", "31;1;", kItem10, kPay10}), "second-receipt@3");
}

TEST(ReceiptWatch, FindsAnUnfinishedReceiptThatFileParserCutsInTwo) {
  EXPECT_EQ(FindingsOf({kItem10, "2;1;500;", "23;Grazie;1;", "2;1;500;"}, true), "not-paid@3 no-receipt@4");
  EXPECT_EQ(FindingsOf({kItem10, "2;1;500;", "23;Grazie;1;", "2;1;500;"}), "");
  EXPECT_EQ(FindingsOf({"29;1;", "2;1;500;", "30;1;1;Testo;"}, true), "receipt-open@3");
  EXPECT_EQ(FindingsOf({kItem10, "2;1;500;", "2;1;500;"}, true), "") << "closing lines stay together";
  EXPECT_EQ(FindingsOf({kItem10, "2;1;500;", "", "14;500;1;3;;0;"}, true), "");
}

TEST(ReceiptWatch, FindsASecondReceiptThatFileParserDoesNotSplit) {
  const std::string_view paidBy14 = "14;1000;1;3;;0;";
  EXPECT_EQ(FindingsOf({kItem10, paidBy14, kItem10, paidBy14}, true), "second-receipt@3");
  EXPECT_EQ(FindingsOf({"29;1;", "31;1;", kItem10, kPay10}, true), "second-receipt@3");
}

TEST(ReceiptWatch, FindsAClosingTypeThatFileParserDoesNotSee) {
  EXPECT_EQ(FindingsOf({kItem10, " 2;1;1000;", kItem10, kPay10}, true), "hidden-type@2 second-receipt@3");
  EXPECT_EQ(FindingsOf({"\xEF\xBB\xBF"
                        "4;1;"},
                       true),
            "hidden-type@1");
  EXPECT_EQ(FindingsOf({kItem10, " 2;1;1000;"}), "") << "nothing looks for it when off";
  EXPECT_EQ(FindingsOf({" 1;Pane;1,0;1000;1;;;1;;", kPay10}, true), "");
}

TEST(ReceiptWatch, MissesAReceiptThatALineNeeds) {
  const Lines kWithout[] = {
      {kPay10, "20;1;"},  // a payment alone
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
  EXPECT_EQ(FindingsOf({"29;1;", kPay10, "31;1;"}), "");
}

TEST(ReceiptWatch, SaysWhatNeedsAReceipt) {
  ReceiptWatch watch;
  TicketFindings findings;
  watch.Follow("103601000001000", findings);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].text, "a payment, but nothing was sold before it in its ticket");
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
  // Taken back more than was sold: what is due then is the register's to say.
  EXPECT_EQ(FindingsOf({kItem10, "9;Pane;5000;1;;1;;;1,0;", "2;1;10;"}), "");
  // So is a discount on an item behind its subtotal.
  EXPECT_EQ(FindingsOf({kItem10, "20;1;", "1;1;1;;100;;;;-1;", "2;1;800;"}), "");
}

}  // namespace
}  // namespace orvenza::test
