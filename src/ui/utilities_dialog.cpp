#include "ui/utilities_dialog.h"

#include <algorithm>

#include "core/catalogue.h"
#include "core/text.h"
#include "platform/name_mask.h"
#include "platform/system_error.h"
#include "ui/open_mark.h"

namespace orvenza {
namespace {

/// The label of this dialog's failures in the error log.
constexpr const char* kLabel = "Orv_Uti - ";

constexpr int kWithFinancialReport = 1;

/// All fields of the record except its type are empty.
constexpr std::size_t kSeparators = 9;

/// Sorts after the name of any ordinary ticket.
std::string RequestName(const std::string& mask) {
  std::string blanked = mask;
  std::replace(blanked.begin(), blanked.end(), '*', ' ');
  std::string name = std::string(16, 'z').append(Trim(blanked));
  const bool canBeNamed = name.find('?') == std::string::npos;
  if (mask.empty() || (canBeNamed && MatchesMask(name, mask))) return name;
  // A mask without "*", or with other text before it, would never match that name.
  name = mask;
  std::replace(name.begin(), name.end(), '?', 'z');
  if (const std::size_t star = name.find('*'); star != std::string::npos) {
    std::erase(name.replace(star, 1, 16, 'z'), '*');
  }
  return name;
}

}  // namespace

UtilitiesDialog::UtilitiesDialog(Operator& person, OperatorMessages& messages, Files& files, Logs& logs,
                                 const AppSettings& settings, WaitingTickets& tickets)
    : person_(person),
      messages_(messages),
      files_(files),
      logs_(logs),
      settings_(settings),
      tickets_(tickets) {}

void UtilitiesDialog::Show() {
  if (open_) return;
  const OpenMark mark(open_);
  const UtilitiesContent content{LoadMessage(MessageId::kUtilities),
                                 {LoadMessage(MessageId::kExitButton), LoadMessage(MessageId::kClosureButton),
                                  LoadMessage(MessageId::kClosureWithReportButton)}};
  person_.ShowUtilities(content, [this](int button) { return OnButton(button); });
}

bool UtilitiesDialog::WriteClosureRequest(int kind) {
  const std::string name = RequestName(settings_.TicketMask);
  const bool written = logs_.Attempt(kLabel, [&] {
    const std::string path = settings_.TicketFolder + name;
    // If all tickets have the same name, a waiting one must not be replaced.
    if (name == settings_.TicketMask && files_.Exists(path)) {
      throw SystemError(error_number::kFileExists, path);
    }
    std::string line = kind == kWithFinancialReport ? "22" : "21";
    line.append(kSeparators, settings_.SeparatorChar).append(kLineBreak);
    files_.Write(path, line);
  });
  // The closure must not precede the tickets of the day, even if the clock was set back.
  if (written) logs_.Attempt(kLabel, [&] { tickets_.PutLast(name); });
  return written;
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
  return WriteClosureRequest(kind);
}

bool UtilitiesDialog::Confirmed(const std::string& question) {
  const MessageStyle style{MessageIcon::kInformation, MessageButtons::kYesNo, DefaultButton::kSecond};
  return messages_.ShowOperatorMessage(question, style, LoadMessage(MessageId::kClosureRequest)) ==
         MessageResult::kYes;
}

/// If counting fails, the operator is warned as well: closing the fiscal day too early cannot be undone.
bool UtilitiesDialog::TicketsWaiting() {
  std::size_t count = 1;
  logs_.Attempt(kLabel, [&] { count = tickets_.CountWaitingTickets(); });
  return count > 0;
}

}  // namespace orvenza
