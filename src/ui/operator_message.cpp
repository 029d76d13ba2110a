#include "ui/operator_message.h"

#include <utility>
#include <vector>

#include "core/catalogue.h"
#include "core/own_texts.h"
#include "core/text.h"

namespace orvenza {
namespace {

/// Messages shorter than this are centred below an empty line.
constexpr std::size_t kShortMessage = 60;

struct Button {
  MessageId caption;
  MessageResult result;
};

struct ButtonSet {
  std::vector<Button> buttons;
  MessageResult closed;  ///< Result when no button was pressed.
};

constexpr Button kOk{MessageId::kOk, MessageResult::kOk};
constexpr Button kCancel{MessageId::kCancel, MessageResult::kCancel};
constexpr Button kAbort{MessageId::kAbort, MessageResult::kAbort};
constexpr Button kRetry{MessageId::kRetry, MessageResult::kRetry};
constexpr Button kIgnore{MessageId::kIgnore, MessageResult::kIgnore};
constexpr Button kYes{MessageId::kYes, MessageResult::kYes};
constexpr Button kNo{MessageId::kNo, MessageResult::kNo};
constexpr Button kConfigure{MessageId::kConfigure, MessageResult::kConfigure};

ButtonSet SetOf(MessageButtons buttons) {
  switch (buttons) {
    case MessageButtons::kOk: break;
    case MessageButtons::kOkCancel: return {{kOk, kCancel}, MessageResult::kCancel};
    case MessageButtons::kAbortRetryIgnore: return {{kAbort, kRetry, kIgnore}, MessageResult::kNone};
    case MessageButtons::kYesNoCancel: return {{kYes, kNo, kCancel}, MessageResult::kNone};
    case MessageButtons::kYesNo: return {{kYes, kNo}, MessageResult::kNone};
    case MessageButtons::kRetryCancel: return {{kRetry, kCancel}, MessageResult::kNone};
    case MessageButtons::kRetryCancelConfigure: return {{kRetry, kCancel, kConfigure}, MessageResult::kNone};
  }
  return {{kOk}, MessageResult::kOk};
}

}  // namespace

MessageContent BuildMessage(const std::string& message, MessageStyle style, const std::string& title,
                            const std::string& executableName) {
  MessageContent content;
  content.caption = title.empty() ? executableName : executableName + " - " + title;
  content.text = message.empty() ? own_text::kMissingText : message;
  if (CountCharacters(content.text) < kShortMessage) {
    content.text.insert(0, kLineBreak);
    content.centred = true;
  }
  content.icon = style.icon;
  for (const Button& button : SetOf(style.buttons).buttons) {
    content.buttons.push_back(LoadMessage(button.caption));
  }
  return content;
}

MessageResult ResultOf(MessageButtons buttons, std::optional<int> pressed) {
  const ButtonSet set = SetOf(buttons);
  const auto index = static_cast<std::size_t>(pressed.value_or(0) - 1);
  return index < set.buttons.size() ? set.buttons[index].result : set.closed;
}

OperatorMessages::OperatorMessages(Operator& person, std::string executableName)
    : person_(person), executableName_(std::move(executableName)) {}

MessageResult OperatorMessages::ShowOperatorMessage(const std::string& message, MessageStyle style,
                                                    const std::string& title) {
  return ResultOf(style.buttons, person_.ShowMessage(BuildMessage(message, style, title, executableName_)));
}

}  // namespace orvenza
