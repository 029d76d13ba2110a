// The document says what the connector does: its table is made anew and compared.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "lab/settlement_rows.h"
#include "lab/settlement_table.h"
#include "lab/settlement_verdict.h"

namespace orvenza::test {
namespace {

std::string Document() {
  std::ifstream file(ORVENZA_FAILURE_SCENARIOS, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  std::string content = text.str();
  std::erase(content, '\r');  // A checkout may have added them.
  return content;
}

std::string NameOf(const Settlement& settlement) {
  return settlement.step.name + ", " + settlement.fault.name +
         (settlement.fault.eachTime ? " each time" : "");
}

/// A slow build tries less, and then cannot compare.
std::vector<Settlement> SettleAllAt(SettlementHour hour) {
#ifdef ORVENZA_THINNED_TABLE
  return SettleAll(SettlementSteps(), SettlementExtent::kThinned, hour);
#else
  return SettleAll(SettlementSteps(), SettlementExtent::kWhole, hour);
#endif
}

/// A message that is closed counts as its "No" or "Riprova", so it must lead to the same end. Where the
/// program was ended it matters at which dialog.
void ExpectOneEndForEachSeriesOfAnswers(const Settlement& settlement) {
  std::map<std::vector<Answer>, int> ends;
  for (const SettlementEnd& end : settlement.ends) {
    if (std::count(end.answers.begin(), end.answers.end(), Answer::kEndProgram) == 0) ++ends[end.answers];
  }
  for (const auto& [answers, count] : ends) EXPECT_EQ(count, 1) << NameOf(settlement);
}

/// Adds the rules that explain the forbidden ends to `used`.
void ExpectPrescribed(const Settlement& settlement, std::set<std::string>& used) {
  for (const SettlementEnd& end : settlement.ends) {
    if (!IsForbidden(end.verdict)) continue;
    EXPECT_NE(end.reason, "") << NameOf(settlement);
    used.insert(end.reason);
  }
}

TEST(SettlementDocument, SaysHowThingsEnd) {
  const std::string document = Document();
  const std::vector<Settlement> byDay = SettleAllAt(SettlementHour::kDay);
  const std::vector<Settlement> atMidnight = SettleAllAt(SettlementHour::kMidnight);
  const auto placed = PlaceTable(document, SettlementTable(byDay, atMidnight));
  ASSERT_TRUE(placed);
#ifndef ORVENZA_THINNED_TABLE
  EXPECT_TRUE(*placed == document)
      << "Things end otherwise than the document says. If that is meant: orvenza-lab table --output "
      << ORVENZA_FAILURE_SCENARIOS << ", and read the difference.";
#endif
  std::set<std::string> used;
  for (const auto* settlements : {&byDay, &atMidnight}) {
    for (const Settlement& settlement : *settlements) {
      ExpectPrescribed(settlement, used);
      ExpectOneEndForEachSeriesOfAnswers(settlement);
    }
  }
  for (const Prescription& rule : Prescriptions()) EXPECT_EQ(used.count(rule.reason), 1u) << rule.reason;
}

}  // namespace
}  // namespace orvenza::test
