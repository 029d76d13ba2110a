#include "ui/operator_message.h"

#include <array>
#include <optional>
#include <utility>

#include "core/catalogue.h"
#include "core/own_texts.h"
#include "core/text.h"

namespace orvenza {
namespace {

constexpr int kButtonSetField = 15;
constexpr int kIconField = 112;

/// Messages shorter than this are centred below an empty line.
constexpr std::size_t kShortMessage = 60;

struct Button {
  std::optional<MessageId> caption;  ///< Nothing for no button.
  int result = message_result::kNone;
};

struct ButtonSet {
  std::array<Button, 3> buttons;
  int closed;  ///< Result when no button was pressed.
};

constexpr Button kOk{MessageId::kOk, message_result::kOk};
constexpr Button kCancel{MessageId::kCancel, message_result::kCancel};
constexpr Button kAbort{MessageId::kAbort, message_result::kAbort};
constexpr Button kRetry{MessageId::kRetry, message_result::kRetry};
constexpr Button kIgnore{MessageId::kIgnore, message_result::kIgnore};
constexpr Button kYes{MessageId::kYes, message_result::kYes};
constexpr Button kNo{MessageId::kNo, message_result::kNo};
constexpr Button kConfigure{MessageId::kConfigure, message_result::kConfigure};

/// In the order of the button set's number.
constexpr ButtonSet kButtonSets[] = {
    {{kOk}, message_result::kOk},
    {{kOk, kCancel}, message_result::kCancel},
    {{kAbort, kRetry, kIgnore}, message_result::kNone},
    {{kYes, kNo, kCancel}, message_result::kNone},
    {{kYes, kNo}, message_result::kNone},
    {{kRetry, kCancel}, message_result::kNone},
    {{kRetry, kCancel, kConfigure}, message_result::kNone},
};

const ButtonSet& ButtonSetOf(int style) {
  const auto number = static_cast<std::size_t>(style & kButtonSetField);
  return number < std::size(kButtonSets) ? kButtonSets[number] : kButtonSets[0];
}

MessageIcon IconOf(int style) {
  switch (style & kIconField) {
    case message_style::kStop: return MessageIcon::kStop;
    case message_style::kQuestion: return MessageIcon::kQuestion;
    case message_style::kExclamation: return MessageIcon::kExclamation;
    case message_style::kInformation: return MessageIcon::kInformation;
    default: return MessageIcon::kNone;
  }
}

}  // namespace

MessageContent BuildMessage(const std::string& message, int style, const std::string& title,
                            const std::string& executableName) {
  MessageContent content;
  content.caption = title.empty() ? executableName : executableName + " - " + title;
  content.text = message.empty() ? own_text::kMissingText : message;
  if (CountCharacters(content.text) < kShortMessage) {
    content.text.insert(0, kLineBreak);
    content.centred = true;
  }
  content.icon = IconOf(style);
  for (const Button& button : ButtonSetOf(style).buttons) {
    if (button.caption) content.buttons.push_back(LoadMessage(*button.caption));
  }
  return content;
}

int MessageResult(int style, int pressedButton) {
  const ButtonSet& set = ButtonSetOf(style);
  if (pressedButton < 1 || pressedButton > static_cast<int>(set.buttons.size())) return set.closed;
  const Button& button = set.buttons[static_cast<std::size_t>(pressedButton - 1)];
  return button.caption ? button.result : set.closed;
}

OperatorMessages::OperatorMessages(Operator& person, std::string executableName)
    : person_(person), executableName_(std::move(executableName)) {}

int OperatorMessages::ShowOperatorMessage(const std::string& message, int style, const std::string& title) {
  return MessageResult(style, person_.ShowMessage(BuildMessage(message, style, title, executableName_)));
}

}  // namespace orvenza
