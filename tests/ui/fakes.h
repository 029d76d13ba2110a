#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/event_loop.h"
#include "platform/clock.h"
#include "platform/event_pump.h"
#include "platform/profile_file.h"
#include "platform/system_error.h"
#include "ui/operator.h"

namespace orvenza::test {

/// Answers dialogs from queues and records their content. An empty queue closes the dialog.
class FakeOperator : public Operator {
 public:
  std::deque<std::optional<int>> messageAnswers;
  std::deque<std::optional<int>> choiceAnswers;
  std::optional<std::array<int, 5>> portAnswer;
  std::deque<int> utilityButtons;
  std::function<void()> whileShown;  ///< Runs while the port or the utilities dialog is open.

  std::vector<MessageContent> messages;
  std::vector<ChoiceContent> choices;
  std::vector<PortContent> ports;
  std::vector<UtilitiesContent> utilities;
  bool utilitiesClosedByButton = false;

  std::optional<int> ShowMessage(const MessageContent& content) override {
    messages.push_back(content);
    return Next(messageAnswers, std::optional<int>());
  }
  void CloseMessage() override {}
  std::optional<int> ShowChoice(const ChoiceContent& content) override {
    choices.push_back(content);
    return Next(choiceAnswers, std::optional<int>());
  }
  std::optional<std::array<int, 5>> ShowPortSettings(const PortContent& content) override {
    ports.push_back(content);
    if (whileShown) whileShown();
    return portAnswer;
  }
  void ShowUtilities(const UtilitiesContent& content, const std::function<bool(int)>& pressed) override {
    utilities.push_back(content);
    if (whileShown) whileShown();
    while (!utilityButtons.empty() && !utilitiesClosedByButton) {
      utilitiesClosedByButton = pressed(Next(utilityButtons, 0));
    }
  }

 private:
  template <typename T>
  static T Next(std::deque<T>& queue, T fallback) {
    if (queue.empty()) return fallback;
    T value = queue.front();
    queue.pop_front();
    return value;
  }
};

/// A clock that stands still until it is set.
class FakeClock : public Clock {
 public:
  std::chrono::nanoseconds uptime{0};

  LocalTime Now() const override { return {}; }
  double SecondsSinceMidnight() const override { return 0; }
  std::chrono::nanoseconds Uptime() const override { return uptime; }
  void SetTimeOfDay(int, int, int) override {}
  std::string Stamp(const LocalTime&) const override { return "01/02/26 10:30"; }
};

/// Delivers one queued event at a time; a wait without one advances the clock by its limit.
class FakePump : public EventPump {
 public:
  explicit FakePump(FakeClock& clock) : clock_(clock) {}

  std::deque<std::function<void()>> events;   ///< Arrive during waits.
  std::deque<std::function<void()>> arrived;  ///< Arrived before the next Dispatch.

  void Dispatch() override {
    if (!arrived.empty()) RunFirst(arrived);
  }
  void WaitForEvent(std::chrono::nanoseconds limit) override {
    if (!events.empty()) return RunFirst(events);
    clock_.uptime += limit;
    if (clock_.uptime > std::chrono::hours(1)) throw std::logic_error("waits for ever");
  }

 private:
  static void RunFirst(std::deque<std::function<void()>>& queue) {
    const auto event = queue.front();
    queue.pop_front();
    event();
  }

  FakeClock& clock_;
};

/// A settings file that records what is written to it and can fail.
class FakeProfile : public ProfileFile {
 public:
  std::vector<std::string> written;  ///< "path|section|key=value".
  bool writesFail = false;
  int attempts = 0;

  std::unique_ptr<ProfileContent> Load(const std::string&) const override { return nullptr; }
  void Write(const std::string& path, const std::string& section, const std::string& key,
             const std::string& value) override {
    ++attempts;
    if (writesFail) throw SystemError(error_number::kPermissionDenied);
    written.push_back(path + "|" + section + "|" + key + "=" + value);
  }
};

}  // namespace orvenza::test
