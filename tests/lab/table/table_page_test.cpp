#include "lab/table/table_page.h"

#include <gtest/gtest.h>

#include "lab/table/case_grid.h"
#include "lab/table/joint_rows.h"
#include "lab/table/table_page_words.h"
#include "lab/table/table_wording.h"
#include "lab/table/verdict.h"

namespace orvenza::test {
namespace {

using Log = std::vector<std::string>;

StepFault Fault(const std::string& name, bool eachTime = false) { return {name, {}, eachTime, {}, {}}; }

TicketEnd End(std::vector<Answer> answers, CustomerPaper paper, Verdict verdict, Log log = {}) {
  return {std::move(answers), paper, FileEnd::kHistoric, verdict, {}, std::move(log)};
}

FaultCase At(const std::string& step, StepFault fault, std::vector<TicketEnd> ends) {
  return {{step, {}, {}, 1}, std::move(fault), std::move(ends)};
}

const CustomerPaper kOnce{1, 0, 0, 0, 0, false};
const TicketEnd kGood = End({}, kOnce, Verdict::kFine);
const TicketEnd kLost = End({Answer::kGiveUp}, {}, Verdict::kLostByChoice);
const TicketEnd kHangs = End({}, {}, Verdict::kHang);

/// The rows of a page, from the first section on.
std::string Sections(const PlayedCases& contract, const PlayedCases& askInDoubt) {
  const std::string page = TablePage(contract, askInDoubt);
  const std::size_t begin = page.find("<section");
  return page.substr(begin, page.find("</main>") - begin);
}

const std::string kColumns =
    "\n<table><thead><tr><th scope=\"col\">Answers</th><th scope=\"col\">The customer gets</th><th "
    "scope=\"col\">File</th><th scope=\"col\">End</th><th scope=\"col\">Way, hour</th><th "
    "scope=\"col\">Error "
    "log</th></tr></thead>\n";

TEST(TablePage, HasARowForEachEndAndSaysWhereItOccurs) {
  const std::vector<FaultCase> usual{At("item", Fault("a"), {kGood}), At("item", Fault("b"), {kGood, kLost})};
  const std::vector<FaultCase> late{At("item", Fault("a"), {kGood}), At("item", Fault("b"), {kHangs})};
  EXPECT_EQ(
      Sections({usual, late}, {usual, usual}),
      "<section data-s=\"0\">\n<h2>Item</h2>" + kColumns +
          "<tbody data-f=\"0\"><tr><th colspan=\"6\" scope=\"rowgroup\">a</th></tr>\n"
          "<tr data-e=\"0\" data-a=\"0\" data-r=\"0 1 2 3\"><td>none</td><td>1 "
          "whole</td><td>historic</td><td class=\"good\">fine</td><td>all</td><td "
          "class=\"log\"></td></tr>\n"
          "</tbody>\n"
          "<tbody data-f=\"1\"><tr><th colspan=\"6\" scope=\"rowgroup\">b</th></tr>\n"
          "<tr data-e=\"0\" data-a=\"0\" data-r=\"0 2 3\"><td>none</td><td>1 "
          "whole</td><td>historic</td><td class=\"good\">fine</td><td>contract by day, "
          "AskInDoubt</td><td class=\"log\"></td></tr>\n"
          "<tr data-e=\"3\" data-a=\"3\" data-r=\"0 2 "
          "3\"><td>Abortire</td><td>nothing</td><td>historic</td><td class=\"warn\">lost by "
          "choice</td><td>contract by day, AskInDoubt</td><td class=\"log\"></td></tr>\n"
          "<tr data-e=\"7\" data-a=\"0\" data-r=\"1\"><td>none</td><td>nothing</td><td>historic</td><td "
          "class=\"bad\">hangs, no rule</td><td>contract at 23:59:50</td><td "
          "class=\"log\"></td></tr>\n"
          "</tbody>\n</table>\n</section>\n");
}

/// The cell of the way and the hour for an end that occurs in some runs only.
std::string WayIn(bool day, bool midnight, bool askDay, bool askMidnight) {
  const auto run = [](bool occurs) {
    return std::vector<FaultCase>{At("item", Fault("a"), {occurs ? kLost : kGood})};
  };
  const std::string rows = Sections({run(day), run(midnight)}, {run(askDay), run(askMidnight)});
  const std::size_t at = rows.find("lost by choice</td><td>") + 23;
  return rows.substr(at, rows.find("</td>", at) - at);
}

TEST(TablePage, NamesWaysAndHours) {
  EXPECT_EQ(WayIn(true, true, true, true), "all");
  EXPECT_EQ(WayIn(true, false, true, false), "by day");
  EXPECT_EQ(WayIn(false, true, false, true), "at 23:59:50");
  EXPECT_EQ(WayIn(true, true, false, false), "contract");
  EXPECT_EQ(WayIn(false, false, false, true), "AskInDoubt at 23:59:50");
  EXPECT_EQ(WayIn(true, false, false, true), "contract by day, AskInDoubt at 23:59:50");
  EXPECT_EQ(WayIn(false, true, true, true), "contract at 23:59:50, AskInDoubt");
}

TEST(TablePage, WritesOutTheLinesOfTheLogOfAllRuns) {
  const auto run = [](Log log) {
    return std::vector<FaultCase>{At("item", Fault("a"), {End({}, kOnce, Verdict::kFine, std::move(log))})};
  };
  const std::string rows =
      Sections({run({"<x>", "y"}), run({"<x>", "y"})}, {run({"<x>"}), run({"z", "<x>"})});
  EXPECT_NE(
      rows.find("<td>all</td><td class=\"log\"><span>&lt;x&gt;</span><span>(y)</span><span>(z)</span></td>"),
      std::string::npos)
      << rows;
}

TEST(TablePage, LinksARuleToItsText) {
  TicketEnd lost = End({}, {}, Verdict::kLost);
  lost.reason = Rules()[1].reason;
  const std::string page = TablePage({{At("item", Fault("a"), {lost})}}, {});
  EXPECT_NE(page.find("<td class=\"bad\">lost, <a href=\"#rule-2\">rule 2</a></td>"), std::string::npos);
  EXPECT_NE(page.find("<li id=\"rule-2\">A ticket found"), std::string::npos);
}

TEST(TablePage, OffersEveryStepFaultEndAndAnswer) {
  const std::string page =
      TablePage({{At("item", Fault("a"), {kGood}), At("text", Fault("b"), {kGood})}}, {});
  EXPECT_NE(page.find("<label for=\"step\">Step</label><select id=\"step\" name=\"step\"><option "
                      "value=\"\">all</option>\n<option>item</option><option>text</option></select>"),
            std::string::npos);
  EXPECT_NE(page.find("<option value=\"\">all</option>\n<option>a</option><option>b</option></select>"),
            std::string::npos);
  EXPECT_NE(
      page.find("<option>asks on</option><option>printed twice</option><option>lost</option><option>hangs"
                "</option></select>"),
      std::string::npos);
  EXPECT_NE(page.find("<option>none</option><option>Stampato</option><option>Ristampare</option>"),
            std::string::npos);
}

TEST(TablePage, HasStyleAndScriptThatAreAlsoXml) {
  const std::string page = TablePage({{At("item", Fault("a"), {kGood})}}, {});
  for (const std::string part : {"style", "script"}) {
    const std::size_t begin = page.find("<" + part + ">") + part.size() + 2;
    const std::string text = page.substr(begin, page.find("</" + part + ">") - begin);
    EXPECT_GT(text.size(), 1000U);
    EXPECT_EQ(text.find_first_of("<&"), std::string::npos) << part;
  }
}

TEST(JointRows, GivesACodeThatWasNotPlayedTheEndsOfTheUsualOne) {
  const std::vector<FaultCase> contract{At("item", Fault("ERR03"), {kGood}),
                                        At("item", Fault(kUsualCode), {kGood}),
                                        At("item", Fault("reply lost"), {kGood})};
  const std::vector<FaultCase> asking{At("item", Fault(kUsualCode), {kLost})};
  const auto sections = JointSections({contract}, {asking});
  ASSERT_EQ(sections.size(), 1u);
  ASSERT_EQ(sections[0].rows.size(), 2u);
  EXPECT_EQ(sections[0].rows[0].faults.once, (Log{"ERR03", kUsualCode}));
  EXPECT_EQ(sections[0].rows[0].outcomes[2].begin()->first.verdict, Verdict::kLostByChoice);
  EXPECT_TRUE(sections[0].rows[1].outcomes[2].empty());
}

TEST(JointRows, JoinsStepsWithTheSameRowsInAllRuns) {
  const std::vector<FaultCase> contract{At("item", Fault("a"), {kGood}), At("text", Fault("a"), {kGood}),
                                        At("total", Fault("a"), {kGood})};
  const std::vector<FaultCase> asking{At("item", Fault("a"), {kGood}), At("text", Fault("a"), {kLost}),
                                      At("total", Fault("a"), {kGood})};
  const auto sections = JointSections({contract}, {asking});
  ASSERT_EQ(sections.size(), 2u);
  EXPECT_EQ(sections[0].steps, (Log{"item", "total"}));
  EXPECT_EQ(sections[1].steps, Log{"text"});
}

TEST(JointRows, CallsAnswersAnyOnlyWhereAllLeadToOneEnd) {
  const TicketEnd other = End({Answer::kPrinted}, {}, Verdict::kLostByChoice);
  const auto sections = JointSections({{At("item", Fault("a"), {kLost, other})}}, {});
  const auto ends = EndsOf(sections.at(0).rows.at(0));
  ASSERT_EQ(ends.size(), 1u);
  EXPECT_TRUE(ends[0].any);
  EXPECT_FALSE(EndsOf(JointSections({{At("item", Fault("a"), {kLost})}}, {}).at(0).rows.at(0)).at(0).any);
}

TEST(TablePageWords, ExplainEveryEnd) {
  for (const Verdict verdict : AllVerdicts())
    EXPECT_TRUE(MeaningOf(verdict).ends_with('.')) << NameOf(verdict);
}

}  // namespace
}  // namespace orvenza::test
