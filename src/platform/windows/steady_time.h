#pragma once

#include <chrono>
#include <cstdint>

namespace orvenza {

/// Time since an arbitrary start, from the system's performance counter. Never goes back, even when the PC
/// clock is set. Replaces std::chrono::steady_clock, which is the PC clock in some GCC builds for Windows.
std::chrono::nanoseconds SteadyTime();

/// Duration of `ticks` of a counter with `frequency` ticks per second (at most 9 GHz), rounded down.
constexpr std::chrono::nanoseconds DurationOfTicks(std::int64_t ticks, std::int64_t frequency) {
  constexpr std::int64_t kNanoseconds = 1'000'000'000;
  // Whole seconds are converted separately: one product would overflow after a quarter of an hour at 10 MHz.
  return std::chrono::nanoseconds(ticks / frequency * kNanoseconds +
                                  ticks % frequency * kNanoseconds / frequency);
}

}  // namespace orvenza
