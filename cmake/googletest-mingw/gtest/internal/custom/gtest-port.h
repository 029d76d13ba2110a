#pragma once

// GoogleTest's own place for what a port must bring along. The compiler's variant with the threads of Windows
// has no std::mutex, from which GoogleTest would make this class; it is used by GoogleTest's own tests only.

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
