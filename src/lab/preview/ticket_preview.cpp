#include "lab/preview/ticket_preview.h"

#include <utility>

#include "core/catalogue.h"
#include "core/text.h"
#include "simulator/register_replies.h"
#include "tickets/logo_request.h"
#include "tickets/translation.h"

namespace orvenza {
namespace {

std::string LogoText(const LogoRequest& logo) {
  return "[logo " + logo.number + ": " + logo.path.substr(logo.path.rfind('\\') + 1) + "]";
}

/// "ERR11 (Sequenza Errata)".
std::string ErrorText(const std::string& code) {
  // The message begins with the code, too: "11-".
  return "ERR" + code + " (" + LoadMessage(EcrErrorMessage(LeadingInteger(code))).substr(3) + ")";
}

}  // namespace

TicketPreview::TicketPreview(const TicketCheck& check, std::string split, CheckReport& findings)
    : check_(check), split_(std::move(split)), findings_(findings) {
  roll_.SetSink([this](const std::string& line) { slips_.Print(line); });
  register_.emplace(clock_, roll_);
}

void TicketPreview::BeginFile(const std::string& name) {
  EndFile();
  sheets_.push_back({name, {}});
  findings_.BeginFile(name);
}

void TicketPreview::AddCommand(std::uint64_t line, const std::string& command) {
  BeginLine(line);
  if (command == kLogoMarker) {
    return slips_.Add(PaperRow::Kind::kLogo, LogoText(LogoRequestOf(check_.Fields())));
  }
  const std::string sent = IsLongRunning(command) ? command.substr(0, command.size() - 1) : command;
  std::string code = ErrorOf(sent);
  if (code == refusal::kFull && !split_.empty()) {
    Remark("the receipt is too long: it is divided here");
    ErrorOf(split_);
    code = ErrorOf(sent);
  }
  if (code.empty()) return;
  ++refused_;
  errors_ = ErrorText(code);
  findings_.AddFinding(
      line, {true, "refused", TicketFinding::kWholeLine, "the simulated register answers " + errors_});
}

void TicketPreview::AddFinding(std::uint64_t line, const TicketFinding& finding) {
  BeginLine(line);
  if (finding.isError) errors_ += (errors_.empty() ? "" : "; ") + finding.text;
  findings_.AddFinding(line, finding);
}

void TicketPreview::AddUnreadable(const std::string& reason) {
  EndLine();
  Remark("the file cannot be read: " + reason);
  findings_.AddUnreadable(reason);
}

void TicketPreview::End(const CheckTotals&) { EndFile(); }

void TicketPreview::BeginLine(std::uint64_t line) {
  if (line == line_) return;
  EndLine();
  line_ = line;
  if (check_.BeganTicket()) EndTicket();
}

void TicketPreview::EndLine() {
  if (errors_.empty()) return;
  Remark("line " + std::to_string(line_) + " refused: " + std::exchange(errors_, {}));
}

void TicketPreview::EndTicket() {
  if (!register_->ReceiptOpen()) return;
  RegisterState state = register_->State();
  Remark(state.documentOpen ? "document left open" : "receipt left open");
  state.receipt.reset();
  state.documentOpen = false;
  state.foot.clear();
  register_.emplace(clock_, roll_, RegisterProfile(), std::move(state));
  // A slip that hangs in the register ends here.
  for (PaperSlip& slip : slips_.Take()) sheets_.back().slips.push_back(std::move(slip));
}

void TicketPreview::EndFile() {
  EndLine();
  if (sheets_.empty()) return;
  EndTicket();
  for (PaperSlip& slip : slips_.Take()) sheets_.back().slips.push_back(std::move(slip));
}

void TicketPreview::Remark(const std::string& text) { slips_.Add(PaperRow::Kind::kRemark, ">>> " + text); }

/// Carries out a command. Returns its error code; "" if it was carried out.
std::string TicketPreview::ErrorOf(const std::string& command) {
  const std::string reply = register_->Execute(command);
  slips_.EndCommand();
  return reply.starts_with("ERR") ? reply.substr(3, 2) : std::string();
}

}  // namespace orvenza
