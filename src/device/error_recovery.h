#pragma once

#include <string>

#include "core/logs.h"
#include "device/cash_dialogues.h"
#include "device/error_texts.h"
#include "ui/operator.h"

namespace orvenza {

/// What follows from an error reply, by the operator's answer.
enum class Decision {
  kNothing,  ///< Not an error, or the receipt was voided at once.
  kGoOn,     ///< Paper-out restart sent, or the form closed without a choice.
  kPrinted,  ///< The receipt is printed: finish the file.
  kReprint,  ///< Void and print the receipt again.
  kAbort,    ///< Give the receipt up.
};

/// Whether the operator may choose between printed, reprint and abort.
enum class Choices { kNone, kOffered };

/// Resolves an error reply with the operator.
class ErrorRecovery {
 public:
  /// `caption` is the dialog's title.
  ErrorRecovery(const ErrorTexts& texts, CashDialogues& cash, Operator& person, Logs& logs,
                std::string caption);

  /// The last choice: 0 or 1 none, 2 to 4 the options in order.
  int OperatorChoice = 0;

  /// Writes an error, or silence, to the error log, shows the form that it needs and returns what the
  /// operator decides. `commandLine` is the ticket line that was being sent.
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
