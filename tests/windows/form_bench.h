#pragma once

#include <windows.h>
// Requires <windows.h>.
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "core/catalogue.h"
#include "core/event_loop.h"
#include "platform/windows/windows_clock.h"
#include "platform/windows/windows_event_pump.h"
#include "support/temp_folder.h"
#include "ui/operator_message.h"
#include "ui/windows/windows_operator.h"

namespace orvenza::test {

/// The operator's windows in this process, without a program that acts on the answers.
class FormBench : public testing::Test {
 protected:
  /// Passes the next form to `answer` once it is in front and has the focus; `answer` must close it. If a
  /// form does not open or close, an exception fails the test.
  void WhenShown(std::function<void(HWND)> answer);

  /// Delivers events until `condition` holds, for an answer that needs several steps. Throws after a timeout.
  void Await(const char* what, const std::function<bool()>& condition);

  WindowsClock clock;
  WindowsEventPump pump;
  EventLoop loop{clock, pump};
  TempFolder folder;
  std::vector<std::pair<std::string, UINT>> sounds;  ///< Path and flags of each sound played.
  WindowsOperator person{loop, pump, folder.Path(), "Orvenza", [this](const char* path, UINT flags) {
                           sounds.emplace_back(path, flags);
                           return TRUE;
                         }};

 private:
  void Look(int number);
  void ExpectGone(int number);

  std::function<void(HWND)> answer_;
  int asked_ = 0;
  std::chrono::steady_clock::time_point end_;
};

/// Opens each dialog the way the program does.
class DialogBench : public FormBench {
 protected:
  const ChoiceContent kPaper{"Orvenza",
                             LoadMessage(MessageId::kReceiptPaperOutWarning),
                             LoadMessage(MessageId::kReplacePaper),
                             false,
                             {},
                             0,
                             LoadMessage(MessageId::kOkButton)};
  const ChoiceContent kChoice{
      "Orvenza",
      LoadMessage(MessageId::kEcrErrorWarning),
      LoadMessage(EcrErrorMessage(8)),
      true,
      {LoadMessage(MessageId::kReceiptPrinted), LoadMessage(MessageId::kReprintReceipt),
       LoadMessage(MessageId::kAbortReceipt)},
      2,
      LoadMessage(MessageId::kOkButton)};
  const PortContent kPorts{
      LoadMessage(MessageId::kPortSettings),
      {LoadMessage(MessageId::kPort), LoadMessage(MessageId::kSpeed), LoadMessage(MessageId::kParity),
       LoadMessage(MessageId::kDataBits), LoadMessage(MessageId::kStopBits)},
      {{{"COM1", "COM16"}, {"1200", "57600"}, {"Odd", "Even", "None"}, {"7", "8"}, {"1", "2"}}},
      {1, 1, 2, 1, 0},
      LoadMessage(MessageId::kOkButton)};
  const UtilitiesContent kUtilities{
      LoadMessage(MessageId::kUtilities),
      {LoadMessage(MessageId::kExitButton), LoadMessage(MessageId::kClosureButton),
       LoadMessage(MessageId::kClosureWithReportButton)}};

  /// Shows a question and passes it to `answer`.
  void ShowMessage(const std::string& text, const std::function<void(HWND)>& answer);

  /// Shows every dialog except messages and passes each to `answer`.
  void ShowAll(const std::function<void(HWND)>& answer);

  OperatorMessages messages{person, "Orvenza"};
};

/// Notifies a form of this process that its screen now has `dpi` pixels per inch.
void ChangeDpi(HWND form, int dpi);

/// Whether a window laid out for `dpi` pixels per inch contains all its controls and shows all their texts in
/// full.
testing::AssertionResult ShowsAllControls(HWND form, int dpi);

/// Whether a form laid out for `dpi` pixels per inch fits the screen, contains all its controls and shows all
/// its texts in full.
testing::AssertionResult ShowsEverything(HWND form, int dpi);

}  // namespace orvenza::test
