#include "lab/table/failure_table.h"

#include <gtest/gtest.h>

#include "lab/table/table_rows.h"

namespace orvenza::test {
namespace {

using Log = std::vector<std::string>;

StepFault Fault(const std::string& name, bool eachTime = false) { return {name, {}, eachTime, {}, {}}; }

TicketEnd End(std::vector<Answer> answers, CustomerPaper paper, Verdict verdict, Log log = {}) {
  return {std::move(answers), paper, FileEnd::kHistoric, verdict, {}, std::move(log)};
}

const CustomerPaper kOnce{1, 0, 0, 0, 0, false};
const CustomerPaper kTwo{2, 0, 0, 0, 0, false};
const TicketEnd kGood = End({}, kOnce, Verdict::kFine);

FaultCase At(const std::string& step, StepFault fault, std::vector<TicketEnd> ends) {
  return {{step, {}, {}, 1}, std::move(fault), std::move(ends)};
}

/// The table's rows, without those before the first section.
std::string Sections(const std::vector<FaultCase>& cases) {
  const std::string table = FailureTable({cases});
  return table.substr(table.find("### "));
}

const std::string kHead =
    "\n\n| What goes wrong | Answers | The customer gets | File | End | Log |\n|---|---|---|---|---|---|\n";

TEST(FailureTable, JoinsFaultsThatEndAlike) {
  EXPECT_EQ(
      Sections({At("item", Fault("lost"), {kGood}), At("item", Fault("ERR03"), {kGood}),
                At("item", Fault("ERR04"), {kGood}), At("item", Fault("ERR05"), {kGood}),
                At("item", Fault("ERR08"), {kGood}), At("item", Fault("ERR09"), {kGood})}),
      "### Item" + kHead + "| lost, ERR03 to 05, ERR08, ERR09 | none | 1 whole | historic | fine |  |\n");
}

TEST(FailureTable, SaysWhetherAFaultStrikesOnceOrEachTime) {
  EXPECT_EQ(Sections({At("item", Fault("a"), {kGood}), At("item", Fault("b"), {kGood}),
                      At("item", Fault("a", true), {kGood}), At("item", Fault("c", true), {kGood})}),
            "### Item" + kHead +
                "| once or each time: a; b; each time: c | none | 1 whole | historic | fine |  |\n");
}

TEST(FailureTable, JoinsStepsAtWhichEverythingEndsAlike) {
  const TicketEnd lost = End({Answer::kPrinted}, {}, Verdict::kLostByChoice);
  EXPECT_EQ(Sections({At("text", Fault("a"), {kGood}), At("item", Fault("a"), {lost}),
                      At("total", Fault("a"), {kGood})}),
            "### Text; total" + kHead + "| a | none | 1 whole | historic | fine |  |\n\n### Item" + kHead +
                "| a | Stampato | nothing | historic | lost by choice |  |\n");
}

TEST(FailureTable, ShowsWhatEndsOtherwiseAtMidnight) {
  const TicketEnd hangs = End({}, {}, Verdict::kHang);
  const std::vector<FaultCase> byDay{At("item", Fault("a"), {kGood}), At("item", Fault("b"), {kGood})};
  const std::vector<FaultCase> atMidnight{At("item", Fault("a"), {kGood}), At("item", Fault("b"), {hangs})};
  const std::string table = FailureTable({byDay, atMidnight});
  EXPECT_TRUE(
      table.starts_with("| End | Ways by day | Ways at 23:59:50 |\n|---|---|---|\n| fine | 2 | 1 |\n"));
  EXPECT_NE(table.find("| all | 2 | 2 |\n"), std::string::npos);
  EXPECT_EQ(table.substr(table.find("### ")),
            "### Item" + kHead + "| a, b | none | 1 whole | historic | fine |  |\n\n### At 23:59:50: item" +
                kHead + "| b | none | nothing | historic | **hangs**, no rule |  |\n");
}

TEST(FailureTable, ShowsOfTheOtherWayOnlyWhatEndsOtherwise) {
  const TicketEnd asked = End({Answer::kReprint}, kOnce, Verdict::kFine, {"B"});
  const TicketEnd lost = End({}, {}, Verdict::kLost, {"C"});
  const std::vector<FaultCase> contract{At("item", Fault("a"), {kGood}), At("item", Fault("b"), {lost})};
  const std::vector<FaultCase> asking{At("item", Fault("a"), {kGood}), At("item", Fault("b"), {asked})};
  const std::string table = FailureTable({contract, contract}, {asking, asking});
  EXPECT_TRUE(table.starts_with(
      "| End | Contract by day | Contract at 23:59:50 | AskInDoubt by day | AskInDoubt at 23:59:50 |\n"
      "|---|---|---|---|---|\n| fine | 1 | 1 | 2 | 2 |\n"));
  EXPECT_NE(table.find("| a | C |\n| b | B |\n"), std::string::npos);
  EXPECT_EQ(table.substr(table.find("### ")),
            "### Item" + kHead +
                "| a | none | 1 whole | historic | fine |  |\n"
                "| b | none | nothing | historic | **lost**, no rule | a |\n\n### AskInDoubt: item" +
                kHead + "| b | Ristampare | 1 whole | historic | fine | b |\n");
}

TEST(FailureTable, TakesALineForEachEnd) {
  EXPECT_EQ(Sections({At("item", Fault("a"),
                         {End({Answer::kReprint}, kTwo, Verdict::kTwiceByChoice, {"A", "C"}),
                          End({Answer::kPrinted}, kOnce, Verdict::kFine, {"A"}),
                          End({Answer::kNoChoice, Answer::kPrinted}, kOnce, Verdict::kFine, {"A", "B"})})}),
            "### Item" + kHead +
                "| a | Stampato; closed → Stampato | 1 whole | historic | fine | a (b) |\n"
                "|  | Ristampare | 2 whole | historic | printed twice by choice | a c |\n");
}

TEST(FailureTable, HasLettersFor26Lines) {
  Log lines;
  for (char c = 'A'; c <= 'Z'; ++c) lines.emplace_back(1U, c);
  const auto table = [&] {
    return FailureTable({{At("item", Fault("a"), {End({}, kOnce, Verdict::kFine, lines)})}});
  };
  EXPECT_NE(table().find("\n| z | Z |\n"), std::string::npos);
  lines.emplace_back("a");
  EXPECT_THROW(table(), std::logic_error);
}

TEST(FailureTable, SaysAnyWhereTheAnswerDoesNotMatter) {
  EXPECT_EQ(Sections({At("item", Fault("a"), {kGood, End({Answer::kEndProgram}, kOnce, Verdict::kFine)})}),
            "### Item" + kHead + "| a | any | 1 whole | historic | fine |  |\n");
}

TEST(FailureTable, WritesTheSameAnswerOutThreeTimes) {
  const TicketEnd three = End(std::vector(3, Answer::kLeaveReceipt), kTwo, Verdict::kTwice);
  const TicketEnd many = End(std::vector(9, Answer::kCloseReceipt), {0, 1, 1, 1, 9, true}, Verdict::kAsksOn);
  EXPECT_EQ(Sections({At("item", Fault("a"), {many, three})}),
            "### Item" + kHead +
                "| a | Sì again and again | 1 in part, 1 with an earlier ticket's lines, 1 of the earlier "
                "ticket, voided ones, one after the other, 1 left open | historic | asks on |  |\n"
                "|  | No → No → No | 2 whole | historic | **printed twice**, no rule |  |\n");
}

TEST(FailureTable, DoesNotCountSlipsInPartWhereItAsksOn) {
  const auto asking = [](int inPart, Answer answer) {
    return End(std::vector(9, answer), {0, inPart, 0, 0, 0, true}, Verdict::kAsksOn);
  };
  const TicketEnd one = asking(1, Answer::kEndProgram);
  const TicketEnd many = asking(14, Answer::kLeaveReceipt);
  const TicketEnd more = asking(15, Answer::kCloseReceipt);
  EXPECT_EQ(
      Sections({At("item", Fault("a"), {one, many, more})}),
      "### Item" + kHead +
          "| a | Esci again and again | 1 in part, 1 left open | historic | asks on |  |\n"
          "|  | Sì again and again; No again and again | some in part, one after the other, 1 left open | "
          "historic | asks on |  |\n");
}

TEST(FailureTable, BeginsWithTheNumberOfEachEnd) {
  const std::string table = FailureTable({{At("item", Fault("a"), {kGood, kGood})}});
  EXPECT_TRUE(table.starts_with("| End | Ways |\n|---|---|\n| fine | 2 |\n| printed, but given up | 0 |\n"));
  EXPECT_NE(table.find("| all | 2 |\n\nRules of the contract:\n\n1. "), std::string::npos);
}

TEST(TableRows, LeaveOutWhatIsSaidAboutThePort) {
  const TicketEnd end =
      End({Answer::kTryPort, Answer::kLeavePort, Answer::kStay, Answer::kReprint}, kOnce, Verdict::kFine);
  const auto sections = SectionsOf({At("item", Fault("a"), {end})});
  ASSERT_EQ(sections.size(), 1u);
  EXPECT_EQ(sections[0].rows[0].outcomes.begin()->second.answers,
            (std::vector<std::vector<Answer>>{{Answer::kReprint}}));
}

constexpr const char* kBegin = "<!-- The table begins. orvenza-lab table writes it. -->\n";
constexpr const char* kEnd = "<!-- The table ends. -->\n";

TEST(FailureTable, TakesThePlaceOfAnOlderOne) {
  const std::string before = std::string("text\n") + kBegin;
  const std::string after = std::string(kEnd) + "more\n";
  EXPECT_EQ(PlaceTable(before + "old\n" + after, "new\n"), before + "new\n" + after);
  EXPECT_EQ(PlaceTable("", "new\n"), std::string(kBegin) + "new\n" + kEnd);
  EXPECT_EQ(PlaceTable("text\n", "new\n"), std::nullopt);
  EXPECT_EQ(PlaceTable(std::string(kEnd) + kBegin, "new\n"), std::nullopt);
}

}  // namespace
}  // namespace orvenza::test
