#pragma once

#include <gtest/gtest.h>

#include <chrono>

#include "simulator/virtual_clock.h"

namespace orvenza::test {

/// Thrown when a test waits in vain. Deliberately not a std::exception: no trap may stop it.
struct WaitsInVain {};

/// A virtual clock that fails a test that would wait forever.
class TestClock : public VirtualClock {
 public:
  using VirtualClock::VirtualClock;

  /// Also counts every wait, since each ends with a delivery.
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
  /// Ends an endless run within a minute.
  static constexpr int kMostDeliveries = 500'000;

  int deliveries_ = 0;
};

}  // namespace orvenza::test
