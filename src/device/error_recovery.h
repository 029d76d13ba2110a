#pragma once

#include <string>

#include "core/logs.h"
#include "device/cash_dialogues.h"
#include "device/error_texts.h"
#include "ui/operator.h"

namespace orvenza {

/// What follows from an error reply, by the operator's answer.
namespace recovery {
inline constexpr int kNothing = 0;  ///< Not an error, or the receipt was voided at once.
inline constexpr int kGoOn = 1;     ///< Paper-out restart sent, or the form closed without a choice.
inline constexpr int kPrinted = 2;  ///< The receipt is printed: finish the file.
inline constexpr int kReprint = 3;  ///< Void and print the receipt again.
inline constexpr int kAbort = 4;    ///< Give the receipt up.
}  // namespace recovery

/// The dialogue that settles an error reply with the operator.
class ErrorRecovery {
 public:
  /// `caption` is the title of the form.
  ErrorRecovery(const ErrorTexts& texts, CashDialogues& cash, Operator& person, Logs& logs,
                std::string caption);

  /// The choice last made: 0 or 1 none, 2 to 4 the options in their order.
  int OperatorChoice = 0;

  /// Classifies `reply`, writes it to the error log, shows the form that it needs and returns one of the
  /// results above. `commandLine` is the ticket line that was being sent; `offerChoices` whether the operator
  /// may choose between printed, reprint and abort. An empty `reply` becomes "ERR.."; it is emptied when a
  /// choice settled it.
  int DecodeDeviceError(std::string& reply, const std::string& commandLine, bool offerChoices);

 private:
  int SettlePaperOut(bool journalPaper);
  void LogSequenceError();
  ChoiceContent DescribeError(std::string_view reply, const std::string& commandLine);
  std::string TableText(std::string_view code);
  void AddChoices(ChoiceContent& form) const;
  int Ask(const ChoiceContent& form);

  const ErrorTexts& texts_;
  CashDialogues& cash_;
  Operator& person_;
  Logs& logs_;
  std::string caption_;
};

}  // namespace orvenza
