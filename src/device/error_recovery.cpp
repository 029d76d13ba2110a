#include "device/error_recovery.h"

#include <array>

#include "core/catalogue.h"
#include "core/text.h"
#include "ui/choice_dialog.h"

namespace orvenza {
namespace {

/// Longest part of a ticket line shown in a dialog.
constexpr std::size_t kShownLine = 60;
/// The value of `OperatorChoice` for the first option.
constexpr int kFirstOption = 2;

}  // namespace

ErrorRecovery::ErrorRecovery(const ErrorTexts& texts, const AppSettings& settings, CashDialogues& cash,
                             Operator& person, Logs& logs, std::string caption)
    : texts_(texts),
      settings_(settings),
      cash_(cash),
      person_(person),
      logs_(logs),
      caption_(std::move(caption)) {}

Decision ErrorRecovery::DecodeDeviceError(const Reply& reply, const std::string& commandLine,
                                          Choices choices) {
  const Verdict verdict = Policy().Of(CommandUse::kOther, reply);
  if (verdict == Verdict::kDone) return Decision::kNothing;
  if (reply.Is(Reply::Kind::kPaperOut)) return SettlePaperOut(reply.Code() == "01");
  if (verdict == Verdict::kVoid) {
    LogSequenceError();
    cash_.InvioVOID();
    return Decision::kNothing;
  }
  ChoiceContent form = DescribeError(reply, commandLine);
  if (choices == Choices::kOffered) AddChoices(form);
  return Ask(form);
}

Decision ErrorRecovery::SettlePaperOut(bool journalPaper) {
  logs_.WrErr(texts_.MessageText(journalPaper ? MessageId::kJournalPaperOut : MessageId::kReceiptPaperOut));
  ChoiceContent form;
  form.heading = texts_.MessageText(journalPaper ? MessageId::kJournalPaperOutWarning
                                                 : MessageId::kReceiptPaperOutWarning);
  form.text = texts_.MessageText(MessageId::kReplacePaper);
  const Decision decision = Ask(form);
  cash_.InvioRIAVVIO();
  return decision;
}

void ErrorRecovery::LogSequenceError() {
  logs_.WrErr(std::string(texts_.EcrErrorText(11)));
  logs_.WrErr(texts_.MessageText(MessageId::kVoidingReceipt));
}

ChoiceContent ErrorRecovery::DescribeError(const Reply& reply, const std::string& commandLine) {
  ChoiceContent form;
  form.heading = LoadMessage(MessageId::kEcrErrorWarning);
  if (!reply.IsError() || reply.Is(Reply::Kind::kLinkError) || reply.Code() == "..") {
    form.text = LoadMessage(MessageId::kNoReplyMisspelt);
    logs_.WrErr(std::string(form.text));
  } else if (reply.Is(Reply::Kind::kInvalidLine)) {
    logs_.WrErr(LoadMessage(MessageId::kInvalidLine) + " " + LoggedLine(commandLine));
    form.heading = LoadMessage(MessageId::kInvalidLine) + " " + ShownLine(commandLine, kShownLine);
    form.text = LoadMessage(MessageId::kInvalidReceiptLine);
  } else {
    form.text = TableText(reply.Code());
    logs_.WrErr(LoadMessage(MessageId::kEcrError) + " " + form.text);
  }
  return form;
}

std::string ErrorRecovery::TableText(std::string_view code) {
  // A code outside the table is reported as an error of its own in the log; the operator still decides.
  const auto find = [&] { return texts_.EcrErrorText(LeadingInteger(code)); };
  return logs_.Attempt("DecodeDeviceError - ", find).value_or("");
}

void ErrorRecovery::AddChoices(ChoiceContent& form) const {
  form.frameVisible = true;
  form.options = {LoadMessage(MessageId::kReceiptPrinted), LoadMessage(MessageId::kReprintReceipt),
                  LoadMessage(MessageId::kAbortReceipt)};
  form.selected = Policy().preselectsReprint ? 2 : 0;
}

Decision ErrorRecovery::AskInDoubt(const std::string& heading, const std::string& text) {
  logs_.WrErr(heading + " " + text);
  ChoiceContent form;
  form.heading = heading;
  form.text = text;
  AddChoices(form);
  return Ask(form);
}

Decision ErrorRecovery::Ask(const ChoiceContent& form) {
  do {
    Show(form);
  } while (OperatorChoice < kFirstOption && form.frameVisible && !Policy().closedFormGoesOn);
  if (OperatorChoice < kFirstOption) return Decision::kGoOn;
  const auto option = static_cast<std::size_t>(OperatorChoice - kFirstOption);
  logs_.WrErr(LoadMessage(MessageId::kOperatorAnswer) + " " + form.options.at(option));
  const Decision decision = std::array{Decision::kPrinted, Decision::kReprint, Decision::kAbort}.at(option);
  if (OnDecided) OnDecided(decision);
  return decision;
}

void ErrorRecovery::Show(const ChoiceContent& content) {
  ChoiceContent form = content;
  form.caption = caption_;
  form.button = texts_.MessageText(MessageId::kOkButton);
  OperatorChoice = 0;
  OperatorChoice = ShowChoiceDialog(person_, form);
}

}  // namespace orvenza
