#include "lab/table/case_grid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace orvenza::test {
namespace {

std::vector<StepFault> Faults(const std::string& command, TableExtent extent) {
  return StepFaults({"step", "", command, 1}, extent);
}

std::size_t Count(const std::vector<StepFault>& faults, const std::string& name) {
  return static_cast<std::size_t>(std::count_if(faults.begin(), faults.end(),
                                                [&](const StepFault& fault) { return fault.name == name; }));
}

TEST(CaseGrid, HasStepsOfDifferentNames) {
  std::set<std::string> names;
  for (const TicketStep& step : TicketSteps()) names.insert(step.name);
  EXPECT_EQ(names.size(), TicketSteps().size());
}

TEST(CaseGrid, StrikesWithEachErrorCodeOnceAndEachTime) {
  const auto faults = Faults("1003", TableExtent::kWhole);
  for (const char* name : {"ERR01", "ERR09", "ERR10", "ERR31", "ERR2323", "command lost", "link error 3"}) {
    EXPECT_EQ(Count(faults, name), 2u) << name;
  }
  EXPECT_EQ(Count(faults, "ERR32"), 0u);
  EXPECT_EQ(Count(faults, "ERR00"), 0u);
}

TEST(CaseGrid, LetsOutagesPass) {
  const auto faults = Faults("1003", TableExtent::kWhole);
  for (const char* name :
       {"reply late", "receipt paper ends", "register off (reply lost)", "port gone (command lost)",
        "program ended (reply lost)", "power cut (reply lost)"}) {
    EXPECT_EQ(Count(faults, name), 1u) << name;
  }
}

TEST(CaseGrid, ThinnedTriesOneOfTheCodesThatAreTreatedAlike) {
  const auto faults = Faults("1003", TableExtent::kThinned);
  EXPECT_EQ(Count(faults, "ERR08"), 2u);
  EXPECT_EQ(Count(faults, "ERR09"), 0u);
  EXPECT_EQ(Count(faults, "ERR11"), 2u);
  EXPECT_LT(faults.size(), Faults("1003", TableExtent::kWhole).size());
}

TEST(CaseGrid, IsLateByMoreThanTheCommandIsWaitedFor) {
  const auto lateness = [](const std::string& command) {
    for (const StepFault& fault : Faults(command, TableExtent::kThinned)) {
      if (fault.name == "reply late") return fault.effects.front();
    }
    return std::string();
  };
  EXPECT_EQ(lateness("1003"), "late 16000");
  EXPECT_EQ(lateness("3001"), "late 52000");
  EXPECT_EQ(lateness("2001"), "late 52000");
}

TEST(CaseGrid, AddsNothingToALineThatIsWrongByItself) {
  const auto faults = Faults("", TableExtent::kWhole);
  ASSERT_EQ(faults.size(), 1u);
  EXPECT_EQ(faults[0].name, "the line itself");
  EXPECT_TRUE(faults[0].effects.empty());
}

}  // namespace
}  // namespace orvenza::test
