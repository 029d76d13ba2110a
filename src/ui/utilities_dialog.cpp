#include "ui/utilities_dialog.h"

#include <algorithm>
#include <utility>

#include "core/catalogue.h"
#include "core/text.h"
#include "platform/name_mask.h"
#include "ui/open_mark.h"

namespace orvenza {
namespace {

/// The label of this dialog's failures in the error log.
constexpr const char* kLabel = "Orv_Uti - ";

constexpr int kWithFinancialReport = 1;

/// All fields of a ticket record but its type are empty.
constexpr std::size_t kSeparators = 9;

/// Sorts after the name of any ordinary ticket.
std::string RequestName(const std::string& mask) {
  std::string blanked = mask;
  std::replace(blanked.begin(), blanked.end(), '*', ' ');
  std::string name = std::string(16, 'z').append(Trim(blanked));
  if (MatchesMask(name, mask)) return name;
  // A mask with a text before its "*" would never find that name.
  const std::size_t star = mask.find('*');
  return star == std::string::npos ? name : std::string(mask).replace(star, 1, 16, 'z');
}

}  // namespace

UtilitiesDialog::UtilitiesDialog(Operator& person, OperatorMessages& messages, Files& files,
                                 Journals& journals, const AppSettings& settings,
                                 std::function<std::size_t()> countWaitingTickets)
    : person_(person),
      messages_(messages),
      files_(files),
      journals_(journals),
      settings_(settings),
      countWaitingTickets_(std::move(countWaitingTickets)) {}

void UtilitiesDialog::Show() {
  if (open_) return;
  const OpenMark mark(open_);
  const UtilitiesContent content{LoadMessage(161), {LoadMessage(162), LoadMessage(163), LoadMessage(167)}};
  person_.ShowUtilities(content, [this](int button) { return OnButton(button); });
}

bool UtilitiesDialog::WriteClosureRequest(int kind) {
  return journals_.Attempt(kLabel, [&] {
    std::string line = kind == kWithFinancialReport ? "22" : "21";
    line.append(kSeparators, settings_.SeparatorChar).append(kLineBreak);
    files_.Write(settings_.TicketFolder + RequestName(settings_.TicketMask), line);
  });
}

/// Returns whether the dialog closes.
bool UtilitiesDialog::OnButton(int button) { return button == 1 || RequestClosure(button - 2); }

/// Returns whether the closure has been requested.
bool UtilitiesDialog::RequestClosure(int kind) {
  const std::string question = LoadMessage(165);
  if (!Confirmed(question)) return false;
  if (TicketsWaiting() && !Confirmed(LoadMessage(166).append(kLineBreak).append(question))) return false;
  return WriteClosureRequest(kind);
}

bool UtilitiesDialog::Confirmed(const std::string& question) {
  using namespace message_style;
  const int style = kYesNo + kInformation + kSecondDefault;
  return messages_.ShowOperatorMessage(question, style, LoadMessage(164)) == message_result::kYes;
}

/// A count that fails warns as well: closing the fiscal day too early cannot be undone.
bool UtilitiesDialog::TicketsWaiting() {
  std::size_t count = 1;
  journals_.Attempt(kLabel, [&] { count = countWaitingTickets_(); });
  return count > 0;
}

}  // namespace orvenza
