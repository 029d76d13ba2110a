#include "ui/utilities_dialog.h"

#include "core/catalogue.h"
#include "core/text.h"
#include "ui/open_mark.h"

namespace orvenza {
namespace {

/// The label of this dialog's failures in the error log.
constexpr const char* kLabel = "Orv_Uti - ";

}  // namespace

void UtilitiesDialog::Show() {
  if (open_) return;
  const OpenMark mark(open_);
  const UtilitiesContent content{LoadMessage(MessageId::kUtilities),
                                 {LoadMessage(MessageId::kExitButton), LoadMessage(MessageId::kClosureButton),
                                  LoadMessage(MessageId::kClosureWithReportButton)}};
  person_.ShowUtilities(content, [this](int button) { return OnButton(button); });
}

/// Returns whether the dialog closes.
bool UtilitiesDialog::OnButton(int button) { return button == 1 || RequestClosure(button - 2); }

/// Returns whether the closure has been requested.
bool UtilitiesDialog::RequestClosure(int kind) {
  const std::string question = LoadMessage(MessageId::kConfirmClosure);
  if (!Confirmed(question)) return false;
  if (TicketsWaiting() &&
      !Confirmed(LoadMessage(MessageId::kTicketsWaiting).append(kLineBreak).append(question)))
    return false;
  return tickets_.WriteClosureRequest(kind);
}

bool UtilitiesDialog::Confirmed(const std::string& question) {
  const MessageStyle style{MessageIcon::kInformation, MessageButtons::kYesNo, DefaultButton::kSecond};
  return messages_.ShowOperatorMessage(question, style, LoadMessage(MessageId::kClosureRequest)) ==
         MessageResult::kYes;
}

/// If counting fails, the operator is warned as well: closing the fiscal day too early cannot be undone.
bool UtilitiesDialog::TicketsWaiting() {
  return logs_.Attempt(kLabel, [&] { return tickets_.CountWaitingTickets(); }).value_or(1) > 0;
}

}  // namespace orvenza
