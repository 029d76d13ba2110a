#pragma once

#include <gtest/gtest.h>

#include <chrono>

#include "simulator/virtual_clock.h"

namespace orvenza::test {

/// Thrown when a test waits in vain. Not a std::exception on purpose: no trap may hold it up.
struct WaitsInVain {};

/// The virtual clock of a test, which fails a test that would wait for ever.
class TestClock : public VirtualClock {
 public:
  using VirtualClock::VirtualClock;

  /// Counts every wait too, since each ends with a delivery.
  void Dispatch() override {
    if (++deliveries_ > kMostDeliveries) {
      const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(Uptime()).count();
      ADD_FAILURE() << "What the test waits for has not come in " << kMostDeliveries << " waits and "
                    << seconds << " s of virtual time.";
      throw WaitsInVain{};
    }
    VirtualClock::Dispatch();
  }

 private:
  /// A run that would go on for ever comes to its end within a minute.
  static constexpr int kMostDeliveries = 500'000;

  int deliveries_ = 0;
};

}  // namespace orvenza::test
