#include "ui/windows/windows_operator.h"

#include <utility>

#include "ui/windows/choice_form.h"
#include "ui/windows/last_used_window.h"
#include "ui/windows/names.h"
#include "ui/windows/port_form.h"
#include "ui/windows/utilities_form.h"

namespace orvenza {
namespace {

/// Lists a message dialog while it waits.
class [[nodiscard]] WaitingMark {
 public:
  WaitingMark(std::vector<Form*>& waiting, Form& form) : waiting_(waiting) { waiting_.push_back(&form); }
  ~WaitingMark() { waiting_.pop_back(); }
  WaitingMark(const WaitingMark&) = delete;
  WaitingMark& operator=(const WaitingMark&) = delete;

 private:
  std::vector<Form*>& waiting_;
};

}  // namespace

WindowsOperator::WindowsOperator(EventLoop& loop, WindowsEventPump& pump, std::string programFolder,
                                 const std::string& caption, SoundPlayer play)
    : programFolder_(std::move(programFolder)),
      play_(std::move(play)),
      desk_{loop, pump},
      orvMain_(caption,
               {.chosen = [this](MenuItem item) { desk_.pump.Post([this, item] { RunMenuItem(item); }); },
                .end = [this] { desk_.loop.RequestEnd({.unload = true}); },
                .menuClosed = [this] { LeaveMainForm(); }}),
      sessionGuard_(orvMain_.Handle()),
      consoleGuard_(orvMain_.Handle()) {}

std::optional<int> WindowsOperator::ShowMessage(const MessageContent& content) {
  MessageForm form(desk_, content, programFolder_, play_);
  const WaitingMark mark(messages_, form);
  const int pressed = form.NextPress();
  if (pressed == 0) return std::nullopt;
  return pressed - control_id::kCommand0;
}

void WindowsOperator::CloseMessage() {
  for (auto form = messages_.rbegin(); form != messages_.rend(); ++form) (*form)->Close();
}

std::optional<int> WindowsOperator::ShowChoice(const ChoiceContent& content) {
  ChoiceForm form(desk_, content);
  if (form.NextPress() == 0) return std::nullopt;
  return form.Selected();
}

std::optional<std::array<int, 5>> WindowsOperator::ShowPortSettings(const PortContent& content) {
  PortForm form(desk_, content);
  if (form.NextPress() == 0) return std::nullopt;
  return form.Selected();
}

void WindowsOperator::ShowUtilities(const UtilitiesContent& content,
                                    const std::function<bool(int)>& pressed) {
  UtilitiesForm form(desk_, content);
  while (const int button = form.NextPress()) {
    if (pressed(button - control_id::kCommand)) return;
  }
}

void WindowsOperator::AddMenuItem(std::string caption, std::function<void()> chosen) {
  orvMain_.AddMenuItem(std::move(caption), [this, chosen = std::move(chosen)] {
    desk_.pump.Post([this, chosen] {
      chosen();
      if (!desk_.forms.empty()) SetForegroundWindow(desk_.forms.back()->Handle());
    });
  });
}

/// The hidden form took the foreground for its menu. Gives it to the innermost waiting dialog, which could
/// not receive keys otherwise, or else to the program that the operator was using.
void WindowsOperator::LeaveMainForm() const {
  if (GetForegroundWindow() != orvMain_.Handle()) return;
  const HWND next = desk_.forms.empty() ? LastUsedWindow() : desk_.forms.back()->Handle();
  if (next != nullptr) SetForegroundWindow(next);
}

void WindowsOperator::RunMenuItem(MenuItem item) {
  try {
    if (menuHandler_) menuHandler_(item);
  } catch (const ProgramEnd& end) {
    // The pump may be running inside a pause that must not be cut short; the next wait without a limit
    // throws.
    desk_.loop.RequestEnd(end);
  }
  LeaveMainForm();
}

}  // namespace orvenza
