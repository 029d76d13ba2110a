#pragma once

// GoogleTest's own place for a port's definitions. The compiler's variant with Windows threads lacks
// std::mutex, which GoogleTest needs for this class; only GoogleTest's own tests use it.

#include <atomic>

#define GTEST_HAS_NOTIFICATION_ 1

namespace testing::internal {

class Notification {
 public:
  void Notify() { notified_ = true; }
  void WaitForNotification() {
    while (!notified_) {
    }
  }

 private:
  std::atomic<bool> notified_{false};
};

}  // namespace testing::internal
