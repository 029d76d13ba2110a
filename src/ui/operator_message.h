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

/// The answer to a message. kNone: closed without a button, if that implies no answer.
enum class MessageResult { kNone, kOk, kCancel, kAbort, kRetry, kIgnore, kYes, kNo, kConfigure };

/// Builds the content of the message dialog. An empty message becomes "Miss Messagge !!!". A message of fewer
/// than 60 characters is centred below an empty line. The caption is the executable's name and the title, if
/// any.
[[nodiscard]] MessageContent BuildMessage(const std::string& message, MessageStyle style,
                                          const std::string& title, const std::string& executableName);

/// The result of pressing the button `pressed`, from 1, of `buttons`. Empty means closed without a button:
/// kOk for "Ok" alone, kCancel for "Ok" and "Annulla", otherwise kNone.
[[nodiscard]] MessageResult ResultOf(MessageButtons buttons, std::optional<int> pressed);

/// Every warning and question to the operator goes through this class.
class OperatorMessages {
 public:
  /// `executableName` without extension.
  OperatorMessages(Operator& person, std::string executableName);

  /// Shows the message and waits for the answer. Throws ProgramEnd if the program ends meanwhile.
  MessageResult ShowOperatorMessage(const std::string& message, MessageStyle style, const std::string& title);

 private:
  Operator& person_;
  std::string executableName_;
};

}  // namespace orvenza
