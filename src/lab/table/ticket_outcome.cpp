#include "lab/table/ticket_outcome.h"

#include "core/settings.h"
#include "lab/table/case_run.h"
#include "platform/ini_text.h"

namespace orvenza {
namespace {

const std::string kTickets = std::string(kRehearsalFolder) + "\\data\\";

}  // namespace

std::vector<Slip> SlipsExpected(const Scenario& scenario) {
  Scenario quiet = scenario;
  quiet.device.faults.clear();
  quiet.powerCuts.clear();
  std::erase_if(quiet.settings, [](const ScenarioSetting& s) {
    return s.key == setting::kAskInDoubt || s.key == setting::kOutcomes;
  });
  std::erase_if(quiet.events, [](const ScenarioEvent& event) { return event.path.starts_with(kTickets); });
  quiet.events.push_back(scenario.events.back());
  return SlipsOn(CaseRun(quiet, {}, 0).Outcome().paper);
}

Claim ClaimOf(const std::string& name, const RehearsalOutcome& outcome) {
  const auto found = outcome.files.find(std::string(kOutcomes) + "\\" + name + ".ini");
  if (found == outcome.files.end()) return Claim::kOpen;
  const IniText content(found->second);
  const auto is = [&](const char* key, const char* value) { return content.Value("Outcome", key) == value; };
  if (!is("State", "done")) return Claim::kOpen;
  if (is("Receipt", "yes")) return Claim::kYes;
  if (is("Receipt", "no")) return Claim::kNo;
  return is("Receipt", "none") ? Claim::kNone : Claim::kDoubtful;
}

bool IsTrue(Claim claim, const CustomerPaper& paper) {
  if (claim == Claim::kYes) return paper.whole == 1 && paper.other == 0 && paper.mixed == 0;
  return claim != Claim::kNo || paper.whole == 0;
}

FileEnd FileEndOf(const std::string& content, const RehearsalOutcome& outcome) {
  for (const auto& [path, text] : outcome.files) {
    if (text != content) continue;
    if (path.starts_with(kTickets + "abort\\")) return FileEnd::kAbort;
    return path.starts_with(kTickets) ? FileEnd::kWaiting : FileEnd::kHistoric;
  }
  return FileEnd::kGone;
}

}  // namespace orvenza
