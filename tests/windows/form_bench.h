#pragma once

#include <windows.h>
// After <windows.h>.
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

/// The operator's windows in this very process, with nobody behind them who would give a meaning to the
/// answers.
class FormBench : public testing::Test {
 protected:
  /// The next form is given to `answer` once it is in front and has the focus. What it does there closes the
  /// form. A form that does not come, or does not go, fails the test by an exception.
  void WhenShown(std::function<void(HWND)> answer);

  /// Delivers events until `condition` holds, for an answer that takes several looks. Throws after a while.
  void Await(const char* what, const std::function<bool()>& condition);

  WindowsClock clock;
  WindowsEventPump pump;
  EventLoop loop{clock, pump};
  TempFolder folder;
  std::vector<std::pair<std::string, UINT>> sounds;  ///< Path and flags of each that the operator would hear.
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

/// The bench with all dialogs as the program shows them.
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

  /// Shows a question, given to `answer`.
  void ShowMessage(const std::string& text, const std::function<void(HWND)>& answer);

  /// Shows every dialog but messages, each given to `answer`.
  void ShowAll(const std::function<void(HWND)>& answer);

  OperatorMessages messages{person, "Orvenza"};
};

/// Tells a form of this process that its screen has `dpi` pixels an inch now.
void ChangeDpi(HWND form, int dpi);

/// Whether a form that is laid out for `dpi` pixels an inch fits the screen, all its parts lie in it, and all
/// its texts are shown in full.
testing::AssertionResult ShowsEverything(HWND form, int dpi);

}  // namespace orvenza::test
