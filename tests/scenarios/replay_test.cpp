// Plays every scenario with the trace switched on, turns the trace into a scenario, plays that, and compares.
// Both runs must have the same trace, to the byte, and the same paper, with masked texts.

#include "replay_test.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "lab/rehearsal/rehearsal.h"
#include "lab/rehearsal/scenario_reader.h"
#include "lab/replay/replay.h"
#include "tickets/text_mask.h"

namespace orvenza::test {
namespace {

using Lines = std::vector<std::string>;

constexpr const char* kTrace = "T:\\trace\\trace.txt";
constexpr const char* kTraceOn = "\nfolder T:\\trace\nsetting [Host] Trace = T:\\trace\\trace.txt\n";

const std::string kNoTrace = "no trace";
const std::string kOthersFiles = "what others do to Evidence.ini is not in the trace";

/// Why the replay of a scenario differs, or why there is none.
const std::map<std::string, std::string> kDifferent{
    {"start_first_run", kNoTrace + ": the shop has no settings yet that could ask for one"},
    {"start_first_run_dialog_closed", kNoTrace + ": the shop has no settings yet that could ask for one"},
    {"start_second_instance", kNoTrace + ": the first instance writes it"},
    {"start_settings_locked", kNoTrace + ": the settings cannot be read"},
    {"start_settings_locked_for_a_moment", kNoTrace + ": the settings can be read only later"},
    {"logo_given_up",
     "only two of the logo's three rows are in the trace, and the rows are told from the end"},
    {"logo_row_out_of_sequence", "only one of the logo's three rows is in the trace"},
    {"doubt_evidence_damaged", kOthersFiles},
    {"doubt_evidence_removed", kOthersFiles},
    {"doubt_evidence_removed_with_several_receipts", kOthersFiles},
    {"doubt_switched_off", "an Evidence.ini that lies there at the start is not in the trace"},
    {"doubt_status_reply_too_late",
     "a reply that is lost with its port is not in the trace, and takes no time in the replay"},
    {"register_cable_pulled_at_the_payment",
     "a reply that is lost with the cable is not in the trace, and takes no time in the replay"},
    {"outcome_disk_full", "a full disk is known only from what failed on it"},
    {"outcome_drive_away", "a drive that is away is known only from what failed on it"},
    {"outcome_name_used_again", "outcomes that lie there at the start are not in the trace"},
    {"ticket_accents", "an accent reaches the register as a blank, but its mask as a letter"},
};

/// The same trace, but another paper: the trace cannot tell whether a command was carried out whose reply a
/// power cut prevented.
const std::set<std::string> kOtherPaper{"doubt_power_cut_at_a_closure", "doubt_power_cut_in_a_receipt"};

std::string TraceOf(const RehearsalOutcome& outcome) {
  const auto found = outcome.files.find(kTrace);
  return found == outcome.files.end() ? std::string() : found->second;
}

Lines MaskedPaper(const RehearsalOutcome& outcome) {
  Lines lines;
  for (const std::string& line : outcome.paper) lines.push_back(MaskAll(line));
  return lines;
}

class ReplayTest : public ::testing::Test {
 public:
  ReplayTest(std::string name, std::string scenario) : name_(std::move(name)), text_(std::move(scenario)) {}

 private:
  void TestBody() override {
    const auto different = kDifferent.find(name_);
    if (different != kDifferent.end() && different->second.starts_with(kNoTrace)) return ExpectNoTrace();
    const RehearsalOutcome first = Rehearse(ParseScenario(name_, text_ + kTraceOn));
    ASSERT_NE(TraceOf(first), "");
    const std::string replay = ReplayScenario(ReadTrace(TraceOf(first)), "trace.txt");
    const RehearsalOutcome second = Rehearse(ParseScenario("replay", replay + kTraceOn));
    if (different != kDifferent.end()) {
      EXPECT_NE(TraceOf(first), TraceOf(second)) << "no longer true: " << different->second;
      return;
    }
    EXPECT_EQ(second.problems, Lines{}) << replay;
    EXPECT_EQ(TraceOf(first), TraceOf(second)) << replay;
    EXPECT_EQ(MaskedPaper(first) == MaskedPaper(second), !kOtherPaper.contains(name_)) << replay;
  }

  void ExpectNoTrace() const {
    const bool hasSettings = text_.find("settings none") == std::string::npos;
    const RehearsalOutcome outcome = Rehearse(ParseScenario(name_, text_ + (hasSettings ? kTraceOn : "")));
    EXPECT_EQ(TraceOf(outcome), "");
  }

  std::string name_;
  std::string text_;
};

}  // namespace

void RegisterReplayTest(const char* name, const std::string& scenario) {
  ::testing::RegisterTest("Replay", name, nullptr, nullptr, __FILE__, __LINE__,
                          [name, scenario]() -> ::testing::Test* { return new ReplayTest(name, scenario); });
}

}  // namespace orvenza::test
