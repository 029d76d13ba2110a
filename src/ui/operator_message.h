#pragma once

#include <string>

#include "ui/operator.h"

namespace orvenza {

/// A message's style: one button set, one icon and one default button, added up.
namespace message_style {
inline constexpr int kOk = 0;
inline constexpr int kOkCancel = 1;
inline constexpr int kAbortRetryIgnore = 2;
inline constexpr int kYesNoCancel = 3;
inline constexpr int kYesNo = 4;
inline constexpr int kRetryCancel = 5;
inline constexpr int kRetryCancelConfigure = 6;  ///< The program's own set.

inline constexpr int kStop = 16;
inline constexpr int kQuestion = 32;
inline constexpr int kExclamation = 48;
inline constexpr int kInformation = 64;

// Accepted and deliberately without effect: the focus is always on the first button.
inline constexpr int kSecondDefault = 256;
inline constexpr int kThirdDefault = 512;
}  // namespace message_style

/// What a message was answered with. Only the sets 2 to 6 leave it at kNone, when closed without a button.
namespace message_result {
inline constexpr int kNone = 0;
inline constexpr int kOk = 1;
inline constexpr int kCancel = 2;
inline constexpr int kAbort = 3;
inline constexpr int kRetry = 4;
inline constexpr int kIgnore = 5;
inline constexpr int kYes = 6;
inline constexpr int kNo = 7;
inline constexpr int kConfigure = 8;
}  // namespace message_result

/// What the message dialog shows for these: an empty message becomes "Miss Messagge !!!", one shorter than 60
/// characters is centred below an empty line, and the title (none when empty) follows the executable's name.
MessageContent BuildMessage(const std::string& message, int style, const std::string& title,
                            const std::string& executableName);

/// The result code of the button `pressedButton` (from 1) in the button set of `style`. Any other number, 0
/// above all, is a dialog closed without a button: 1 for a set with "Ok" alone, 2 for "Ok" and "Annulla",
/// else 0.
int MessageResult(int style, int pressedButton);

/// The one way to warn or ask the operator.
class OperatorMessages {
 public:
  /// `executableName` without extension.
  OperatorMessages(Operator& person, std::string executableName);

  /// Shows the message and waits for the answer, a code of message_result. Throws ProgramEnd when the program
  /// is ended meanwhile.
  int ShowOperatorMessage(const std::string& message, int style, const std::string& title);

 private:
  Operator& person_;
  std::string executableName_;
};

}  // namespace orvenza
