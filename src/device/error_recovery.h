#pragma once

#include <string>

#include "core/logs.h"
#include "device/cash_dialogues.h"
#include "device/error_texts.h"
#include "ui/operator.h"

namespace orvenza {

/// The consequence of an error reply, chosen by the operator.
enum class Decision {
  kNothing,  ///< Not an error, or the receipt was voided at once.
  kGoOn,     ///< Paper-out restart sent, or the dialog closed without a choice.
  kPrinted,  ///< The receipt is printed: finish the file.
  kReprint,  ///< Void and print the receipt again.
  kAbort,    ///< Give up the receipt.
};

/// Resolves an error reply with the operator.
enum class Choices { kNone, kOffered };

/// `caption` is the dialog's title.
class ErrorRecovery {
 public:
  /// `caption` is the dialog's title.
  ErrorRecovery(const ErrorTexts& texts, CashDialogues& cash, Operator& person, Logs& logs,
                std::string caption);

  /// The last choice: 0 or 1 none, 2 to 4 the options in order.
  int OperatorChoice = 0;

  /// Writes an error, or silence, to the error log, shows the dialog that it needs and returns the operator's
  /// decision. `commandLine` is the ticket line being sent.
  [[nodiscard]] Decision DecodeDeviceError(const Reply& reply, const std::string& commandLine,
                                           Choices choices);

 private:
  Decision SettlePaperOut(bool journalPaper);
  void LogSequenceError();
  ChoiceContent DescribeError(const Reply& reply, const std::string& commandLine);
  std::string TableText(std::string_view code);
  void AddChoices(ChoiceContent& form) const;
  Decision Ask(const ChoiceContent& form);

  const ErrorTexts& texts_;
  CashDialogues& cash_;
  Operator& person_;
  Logs& logs_;
  std::string caption_;
};

}  // namespace orvenza
