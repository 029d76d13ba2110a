#include "device/error_recovery.h"

#include "core/catalogue.h"
#include "core/text.h"
#include "device/device_link.h"
#include "ui/choice_dialog.h"

namespace orvenza {
namespace {

/// Longest part of a ticket line that a dialog carries.
constexpr std::size_t kShownLine = 60;

}  // namespace

ErrorRecovery::ErrorRecovery(const ErrorTexts& texts, CashDialogues& cash, Operator& person, Logs& logs,
                             std::string caption)
    : texts_(texts), cash_(cash), person_(person), logs_(logs), caption_(std::move(caption)) {}

int ErrorRecovery::DecodeDeviceError(std::string& reply, const std::string& commandLine, bool offerChoices) {
  if (reply.empty()) reply = "ERR..";
  if (!IsErrorReply(reply)) return recovery::kNothing;
  const std::string_view code = Right(reply, 2);
  if (code == "01" || code == "02") return SettlePaperOut(code == "01");
  if (code == "11") {
    LogSequenceError();
    cash_.InvioVOID();
    return recovery::kNothing;
  }
  ChoiceContent form = DescribeError(reply, commandLine);
  if (offerChoices) AddChoices(form);
  const int result = Ask(form);
  if (result >= recovery::kPrinted) reply.clear();
  return result;
}

int ErrorRecovery::SettlePaperOut(bool journalPaper) {
  logs_.WrErr(texts_.MessageText(journalPaper ? MessageId::kJournalPaperOut : MessageId::kReceiptPaperOut));
  ChoiceContent form;
  form.heading = texts_.MessageText(journalPaper ? MessageId::kJournalPaperOutWarning
                                                 : MessageId::kReceiptPaperOutWarning);
  form.text = texts_.MessageText(MessageId::kReplacePaper);
  const int result = Ask(form);
  cash_.InvioRIAVVIO();
  return result;
}

void ErrorRecovery::LogSequenceError() {
  logs_.WrErr(std::string(texts_.EcrErrorText(11)));
  logs_.WrErr(texts_.MessageText(MessageId::kVoidingReceipt));
}

ChoiceContent ErrorRecovery::DescribeError(std::string_view reply, const std::string& commandLine) {
  const std::string_view code = Right(reply, 2);
  ChoiceContent form;
  form.heading = LoadMessage(MessageId::kEcrErrorWarning);
  if (code == ".." || IsLinkError(reply)) {
    form.text = LoadMessage(MessageId::kNoReplyMisspelt);
    logs_.WrErr(std::string(form.text));
  } else if (code == "**") {
    logs_.WrErr(LoadMessage(MessageId::kInvalidLine) + " " + LoggedLine(commandLine));
    form.heading = LoadMessage(MessageId::kInvalidLine) + " " + ShownLine(commandLine, kShownLine);
    form.text = LoadMessage(MessageId::kInvalidReceiptLine);
  } else {
    form.text = TableText(code);
    logs_.WrErr(LoadMessage(MessageId::kEcrError) + " " + form.text);
  }
  return form;
}

std::string ErrorRecovery::TableText(std::string_view code) {
  // A code outside the table is an error of its own in the log; the operator decides about it all the same.
  std::string text;
  logs_.Attempt("DecodeDeviceError - ", [&] { text = texts_.EcrErrorText(LeadingInteger(code)); });
  return text;
}

void ErrorRecovery::AddChoices(ChoiceContent& form) const {
  form.frameVisible = true;
  form.options = {LoadMessage(MessageId::kReceiptPrinted), LoadMessage(MessageId::kReprintReceipt),
                  LoadMessage(MessageId::kAbortReceipt)};
  form.selected = 2;
}

int ErrorRecovery::Ask(const ChoiceContent& content) {
  ChoiceContent form = content;
  form.caption = caption_;
  form.button = texts_.MessageText(MessageId::kOkButton);
  OperatorChoice = 0;
  OperatorChoice = ShowChoiceDialog(person_, form);
  if (OperatorChoice < recovery::kPrinted) return recovery::kGoOn;
  const auto option = static_cast<std::size_t>(OperatorChoice - recovery::kPrinted);
  logs_.WrErr(LoadMessage(MessageId::kOperatorAnswer) + " " + form.options.at(option));
  return OperatorChoice;
}

}  // namespace orvenza
