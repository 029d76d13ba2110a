// The document shows what the connector does: its table is generated again and compared.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "lab/table/failure_table.h"
#include "lab/table/play_cases.h"
#include "lab/table/table_rows.h"
#include "lab/table/table_wording.h"
#include "lab/table/ticket_outcome.h"
#include "lab/table/verdict.h"

namespace orvenza::test {
namespace {

[[maybe_unused]] std::string Document() {
  std::ifstream file(ORVENZA_FAILURE_TABLE, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  std::string content = text.str();
  std::erase(content, '\r');  // Checkouts may have added them.
  return content;
}

std::string NameOf(const FaultCase& faultCase) {
  return faultCase.step.name + ", " + faultCase.fault.name + (faultCase.fault.eachTime ? " each time" : "");
}

#ifdef ORVENZA_THINNED_TABLE
/// A slow build plays fewer cases and cannot compare.
PlayedCases PlayAll(WayOfWorking way) {
  constexpr std::size_t kStride = 4;
  if (way == WayOfWorking::kContract) {
    return {PlayCases(TicketSteps(), TableExtent::kThinned, TableHour::kDay, way),
            PlayCases(TicketSteps(), TableExtent::kThinned, TableHour::kMidnight, way)};
  }
  std::vector<TicketStep> some;
  for (std::size_t i = 0; i < TicketSteps().size(); i += kStride) some.push_back(TicketSteps()[i]);
  return {PlayCases(some, TableExtent::kThinned, TableHour::kDay, way), {}};
}
#else
/// As in the command.
PlayedCases PlayAll(WayOfWorking way) {
  const TableExtent extent = way == WayOfWorking::kAskInDoubt ? TableExtent::kThinned : TableExtent::kWhole;
  return {PlayCases(TicketSteps(), extent, TableHour::kDay, way),
          PlayCases(TicketSteps(), extent, TableHour::kMidnight, way)};
}
#endif

/// Closing a message counts as its "No" or "Riprova", so it must lead to the same end. When the program is
/// ended, it matters at which dialog.
void ExpectOneEndForEachSeriesOfAnswers(const FaultCase& faultCase) {
  std::map<std::vector<Answer>, int> ends;
  for (const TicketEnd& end : faultCase.ends) {
    if (std::count(end.answers.begin(), end.answers.end(), Answer::kEndProgram) == 0) ++ends[end.answers];
  }
  for (const auto& [answers, count] : ends) EXPECT_EQ(count, 1) << NameOf(faultCase);
}

/// Adds the rules that explain the forbidden ends to `used`.
void ExpectRule(const FaultCase& faultCase, std::set<std::string>& used) {
  for (const TicketEnd& end : faultCase.ends) {
    if (!IsForbidden(end.verdict)) continue;
    EXPECT_NE(end.reason, "") << NameOf(faultCase);
    used.insert(end.reason);
  }
}

/// Where the operator is asked, nothing ends as nobody chose.
void ExpectNothingForbidden(const FaultCase& faultCase) {
  for (const TicketEnd& end : faultCase.ends) {
    EXPECT_FALSE(IsForbidden(end.verdict)) << NameOf(faultCase) << ", " << AnswerText(end.answers);
  }
}

void ExpectTrueClaims(const FaultCase& faultCase) {
  for (std::size_t i = 0; i < faultCase.ends.size(); ++i) {
    const TicketEnd& end = faultCase.ends[i];
    EXPECT_TRUE(IsTrue(faultCase.claims.at(i), end.paper))
        << NameOf(faultCase) << ", " << AnswerText(end.answers) << ": " << NameOf(faultCase.claims[i]);
  }
}

TEST(FailureTableDocument, SaysHowThingsEnd) {
  const PlayedCases contract = PlayAll(WayOfWorking::kContract);
  const PlayedCases asking = PlayAll(WayOfWorking::kAskInDoubt);
#ifndef ORVENZA_THINNED_TABLE
  const std::string document = Document();
  const auto placed = PlaceTable(document, FailureTable(contract, asking));
  ASSERT_TRUE(placed);
  EXPECT_TRUE(*placed == document)
      << "Things end otherwise than the document says. If that is meant: orvenza-lab table --output "
      << ORVENZA_FAILURE_TABLE << ", and read the difference.";
#endif
  std::set<std::string> used;
  for (const auto* cases : {&contract.byDay, &contract.atMidnight}) {
    for (const FaultCase& faultCase : *cases) {
      ExpectRule(faultCase, used);
      ExpectOneEndForEachSeriesOfAnswers(faultCase);
    }
  }
  for (const auto* cases : {&asking.byDay, &asking.atMidnight}) {
    for (const FaultCase& faultCase : *cases) ExpectNothingForbidden(faultCase);
  }
  for (const auto* cases : {&contract.byDay, &contract.atMidnight, &asking.byDay, &asking.atMidnight}) {
    for (const FaultCase& faultCase : *cases) ExpectTrueClaims(faultCase);
  }
  for (const Rule& rule : Rules()) EXPECT_EQ(used.count(rule.reason), 1u) << rule.reason;
}

}  // namespace
}  // namespace orvenza::test
