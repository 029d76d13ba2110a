#pragma once

#include <optional>
#include <string>

#include "ui/operator.h"

namespace orvenza {

enum class MessageButtons {
  kOk,
  kOkCancel,
  kAbortRetryIgnore,
  kYesNoCancel,
  kYesNo,
  kRetryCancel,
  kRetryCancelConfigure,
};

/// Deliberately without effect: the focus is always on the first button.
enum class DefaultButton { kFirst, kSecond, kThird };

struct MessageStyle {
  MessageIcon icon = MessageIcon::kNone;
  MessageButtons buttons = MessageButtons::kOk;
  DefaultButton defaultButton = DefaultButton::kFirst;
};

/// How a message was answered. kNone: closed without a button, where that says nothing about the answer.
enum class MessageResult { kNone, kOk, kCancel, kAbort, kRetry, kIgnore, kYes, kNo, kConfigure };

/// What the message dialog shows for these: an empty message becomes "Miss Messagge !!!", one shorter than 60
/// characters is centred below an empty line, and the title (none when empty) follows the executable's name.
[[nodiscard]] MessageContent BuildMessage(const std::string& message, MessageStyle style,
                                          const std::string& title, const std::string& executableName);

/// What it means that the button `pressed`, from 1, of `buttons` was pressed, or none of them: then kOk for
/// "Ok" alone, kCancel for "Ok" and "Annulla", else kNone.
[[nodiscard]] MessageResult ResultOf(MessageButtons buttons, std::optional<int> pressed);

/// Every warning and question to the operator goes through this class.
class OperatorMessages {
 public:
  /// `executableName` without extension.
  OperatorMessages(Operator& person, std::string executableName);

  /// Shows the message and waits for the answer. Throws ProgramEnd when the program is ended meanwhile.
  MessageResult ShowOperatorMessage(const std::string& message, MessageStyle style, const std::string& title);

 private:
  Operator& person_;
  std::string executableName_;
};

}  // namespace orvenza
