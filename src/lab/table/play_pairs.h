#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <vector>

#include "lab/table/pair_run.h"

namespace orvenza {

/// The outcome of many random pairs.
struct PairsPlayed {
  std::size_t notJudged = 0;
  std::map<Verdict, std::size_t> ends;  ///< How many pairs ended how.
  std::size_t forbidden = 0;            ///< Pairs in which something happened that nobody chose,
  std::vector<PairEnd> violations;      ///< and the first of them.
};

/// Plays `count` random pairs of faults with AskInDoubt=1: at any ticket of the table's steps, by day or at
/// 23:59:50, with random answers after random times, every second time those of an honest operator. The same
/// seed gives the same pairs. `progress`, which may be null, is called after each.
PairsPlayed PlayPairs(std::size_t count, std::uint64_t seed,
                      const std::function<void(std::size_t done, std::size_t all)>& progress = {});

}  // namespace orvenza
