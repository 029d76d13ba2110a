#pragma once

#include <functional>
#include <string>

#include "core/logs.h"
#include "device/cash_dialogues.h"
#include "device/doubt_policy.h"
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

/// Whether a form offers the operator's three choices.
enum class Choices { kNone, kOffered };

/// Resolves an error reply with the operator.
class ErrorRecovery {
 public:
  /// `caption` is the dialog's title.
  ErrorRecovery(const ErrorTexts& texts, const AppSettings& settings, CashDialogues& cash, Operator& person,
                Logs& logs, std::string caption);

  /// The last choice: 0 or 1 none, 2 to 4 the options in order.
  int OperatorChoice = 0;

  /// Writes an error, or silence, to the error log, shows the dialog that it needs and returns the operator's
  /// decision. `commandLine` is the ticket line being sent.
  [[nodiscard]] Decision DecodeDeviceError(const Reply& reply, const std::string& commandLine,
                                           Choices choices);

  /// Shows a form about a receipt in doubt, with the three choices, until one was made. The heading and the
  /// text are also written to the error log.
  [[nodiscard]] Decision AskInDoubt(const std::string& heading, const std::string& text);

  /// Called with each decision of a form with choices.
  std::function<void(Decision)> OnDecided;

 private:
  [[nodiscard]] const DoubtPolicy& Policy() const { return PolicyOf(settings_); }
  Decision SettlePaperOut(bool journalPaper);
  void LogSequenceError();
  ChoiceContent DescribeError(const Reply& reply, const std::string& commandLine);
  std::string TableText(std::string_view code);
  void AddChoices(ChoiceContent& form) const;
  Decision Ask(const ChoiceContent& form);
  void Show(const ChoiceContent& form);

  const ErrorTexts& texts_;
  const AppSettings& settings_;
  CashDialogues& cash_;
  Operator& person_;
  Logs& logs_;
  std::string caption_;
};

}  // namespace orvenza
