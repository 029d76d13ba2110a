#pragma once

#include <chrono>
#include <cstdint>

namespace orvenza {

/// Time since an arbitrary start, by the system's performance counter. Never goes back, whatever happens to
/// the PC clock. Takes the place of std::chrono::steady_clock, which is the PC clock in some builds of GCC
/// for Windows.
std::chrono::nanoseconds SteadyTime();

/// What `ticks` of a counter last that counts `frequency` a second (at most 9 GHz). Rounded down.
constexpr std::chrono::nanoseconds DurationOfTicks(std::int64_t ticks, std::int64_t frequency) {
  constexpr std::int64_t kNanoseconds = 1'000'000'000;
  // The seconds apart from the rest: their product would overflow after a quarter of an hour at 10 MHz.
  return std::chrono::nanoseconds(ticks / frequency * kNanoseconds +
                                  ticks % frequency * kNanoseconds / frequency);
}

}  // namespace orvenza
