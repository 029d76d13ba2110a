#pragma once

#include <chrono>

#include "platform/event_pump.h"
#include "simulator/virtual_clock.h"

namespace orvenza::test {

/// Window messages are real, time is not: the stand-in's replies arrive as soon as the program waits.
class TestPump : public EventPump {
 public:
  TestPump(EventPump& messages, VirtualClock& clock) : messages_(messages), clock_(clock) {}

  void Dispatch() override {
    messages_.Dispatch();
    clock_.Dispatch();
  }
  void WaitForEvent(std::chrono::nanoseconds limit) override {
    messages_.Dispatch();
    clock_.WaitForEvent(limit);
  }

 private:
  EventPump& messages_;
  VirtualClock& clock_;
};

}  // namespace orvenza::test
