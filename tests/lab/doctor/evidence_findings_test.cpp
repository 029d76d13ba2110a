#include "lab/doctor/evidence_findings.h"

#include "lab/shell/shop_bench.h"
#include "tickets/evidence.h"

namespace orvenza::test {
namespace {

constexpr const char* kText = "1;PANE;1,000;150;1;;;1;;\r\n2;1;0;\r\n";

/// A ticket, 0042.txt, was left in the in-process folder by a shop that asks in doubt.
class EvidenceFindings : public ShopBench {
 protected:
  EvidenceFindings() { disk.Put(At("data\\inproces\\0042.txt"), kText, kYesterday); }

  void Remember(Standing::State state, const std::string& text = kText) {
    EvidenceRecord record;
    record.standing = Standing{state, {}, state == Standing::State::kUnderWay ? 2U : 0U};
    record.ticket = {"0042.txt", "20261115080000", {}, FingerprintOf(text)};
    disk.Put(At("Evidence.ini"), EvidenceText(record));
  }

  /// What is said behind the leftover ticket itself.
  std::string SaidOfEvidence() {
    const std::string said = Said();
    EXPECT_TRUE(said.starts_with(kLeftover)) << said;
    return said.substr(std::min(kLeftover.size(), said.size()));
  }

  const std::string kLeftover =
      "warning inprocess.leftover: 1 ticket in C:\\Orvenza\\data\\inproces\\, the oldest 1 day old: left "
      "over "
      "from an interrupted run; the next start goes on behind what is complete on paper.\n";
  const std::string kAsked =
      "warning inprocess.in-doubt: The next start will ask about 0042.txt: printing was interrupted, and "
      "only "
      "the paper shows whether it was finished.\n";
};

TEST_F(EvidenceFindings, NameTheTicketThatTheNextStartAsksAbout) {
  Remember(Standing::State::kUnderWay);
  EXPECT_EQ(SaidOfEvidence(), kAsked);
  EXPECT_EQ(Remedy("inprocess.in-doubt"),
            "Look for the receipt on the paper before the start, and let the operator know.");
}

TEST_F(EvidenceFindings, SayNothingOfATicketThatGoesOnUnasked) {
  Remember(Standing::State::kBegun);
  EXPECT_EQ(SaidOfEvidence(), "");
  Remember(Standing::State::kGivenUp);
  EXPECT_EQ(SaidOfEvidence(), "");
}

TEST_F(EvidenceFindings, KnowThatAnotherTextOfTheSameNameIsAskedAbout) {
  Remember(Standing::State::kBegun, "2;1;0;\r\n");
  EXPECT_EQ(SaidOfEvidence(), kAsked);
}

TEST_F(EvidenceFindings, KnowThatAFileWhoseStateIsUnknownIsAskedAbout) {
  EvidenceRecord record;
  record.unknown = {"0042.txt"};
  disk.Put(At("Evidence.ini"), EvidenceText(record));
  EXPECT_EQ(SaidOfEvidence(), kAsked);
}

TEST_F(EvidenceFindings, KnowThatWithoutEvidenceEveryLeftoverIsAskedAbout) {
  EXPECT_EQ(SaidOfEvidence(), kAsked);
}

TEST_F(EvidenceFindings, WarnOfDamagedEvidence) {
  Remember(Standing::State::kBegun);
  disk.Put(At("Evidence.ini"), disk.Content(At("Evidence.ini"))->substr(1));
  EXPECT_EQ(SaidOfEvidence(),
            "warning inprocess.evidence: Evidence.ini is damaged. The next start does not know how far "
            "interrupted tickets have come.\n" +
                kAsked);
  disk.Hold(At("Evidence.ini"), FileHold::kWriting);
  EXPECT_EQ(SaidOfEvidence().find("warning inprocess.evidence: Evidence.ini cannot be read: "), 0U);
}

TEST_F(EvidenceFindings, LeaveOutTicketsThatAreNotTouchedAgain) {
  RememberedFiles remembered;
  remembered.settled["0042.txt"] = {true, FingerprintOf(kText)};
  disk.Put(At("Remembered.ini"), RememberedFilesText(remembered));
  EXPECT_EQ(Said().find("inprocess."), std::string::npos) << Said();
}

TEST_F(EvidenceFindings, SayNothingWhereNobodyIsAskedOrAConnectorRuns) {
  Remember(Standing::State::kUnderWay);
  machine.served = true;
  EXPECT_EQ(Said().find("in-doubt"), std::string::npos) << Said();
  machine.served = false;
  Edit("AskInDoubt=1", "AskInDoubt=0");
  EXPECT_EQ(Said().find("in-doubt"), std::string::npos) << Said();
}

}  // namespace
}  // namespace orvenza::test
