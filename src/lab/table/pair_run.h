#pragma once

#include <string>
#include <vector>

#include "lab/rehearsal/scenario.h"
#include "lab/table/dice.h"
#include "lab/table/fault_case.h"
#include "lab/table/pair_scenario.h"

namespace orvenza {

/// How the operator of a random pair answers.
enum class PairOperator {
  kAny,     ///< At random.
  kHonest,  ///< As the paper shows, wherever a receipt is in doubt; everything else at random.
};

/// The outcome of one random pair.
struct PairEnd {
  bool judged = false;  ///< False: an answer was taken by a dialog that came in between.
  Verdict verdict = Verdict::kFine;
  bool allowed = true;   ///< Nothing happened that nobody chose.
  std::string scenario;  ///< Plays it again, with the answers that were given.
};

/// Plays the scenario `text` of a pair.
PairEnd PlayPair(const PairTicket& ticket, const std::string& text, PairOperator who, Dice& dice);

}  // namespace orvenza
