#include "lab/table/pairs_report.h"

#include "lab/table/play_pairs.h"
#include "lab/table/table_progress.h"
#include "lab/table/table_wording.h"

namespace orvenza {
namespace {

constexpr int kSomethingForbidden = 1;

}  // namespace

int ReportPairs(std::size_t count, std::uint64_t seed, LabSurroundings& lab) {
  TableProgress progress(lab.console, lab.clock);
  const PairsPlayed played =
      PlayPairs(count, seed, [&](std::size_t done, std::size_t all) { progress.Tell(done, all); });
  progress.End();
  std::ostream& out = lab.console.out;
  out << "| End | Pairs |\n|---|---|\n";
  for (const Verdict verdict : AllVerdicts()) {
    const auto found = played.ends.find(verdict);
    out << "| " << NameOf(verdict) << " | " << (found == played.ends.end() ? 0 : found->second) << " |\n";
  }
  out << "| not judged | " << played.notJudged << " |\n| all | " << count << " |\n\n"
      << "Ends that nobody chose: " << played.forbidden << "\n";
  for (const PairEnd& end : played.violations) {
    out << "\n# " << NameOf(end.verdict) << "\n" << end.scenario;
  }
  return played.forbidden == 0 ? 0 : kSomethingForbidden;
}

}  // namespace orvenza
