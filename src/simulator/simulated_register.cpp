#include "simulator/simulated_register.h"

#include <cstdio>
#include <utility>

#include "simulator/calendar.h"
#include "simulator/command_fields.h"
#include "simulator/commands.h"
#include "simulator/paper_layout.h"
#include "simulator/register_replies.h"

namespace orvenza {
namespace {

/// Whether the command needs paper.
bool Prints(CommandEffect effect) {
  switch (effect) {
    case CommandEffect::kSetting:
    case CommandEffect::kSetFootLine:
    case CommandEffect::kRestart:
    case CommandEffect::kIdentity:
    case CommandEffect::kStatus:
    case CommandEffect::kTimeOfDay:
    case CommandEffect::kLogoRow: return false;
    default: return true;
  }
}

}  // namespace

SimulatedRegister::SimulatedRegister(const Clock& clock, PaperRoll& paper, RegisterProfile profile,
                                     std::optional<RegisterState> remembered)
    : clock_(clock),
      paper_(paper),
      profile_(std::move(profile)),
      clockStart_(Later(clock.Now(), remembered ? remembered->clockAhead : profile_.clockAhead)),
      clockStartUptime_(clock.Uptime()),
      state_(remembered ? std::move(*remembered) : RegisterState{.clockAhead = profile_.clockAhead}),
      slipLines_(state_.linesHeld.size()) {}

std::string SimulatedRegister::Execute(const std::string& text) {
  std::string reply = Answer(text);
  if (keeper_) {
    RememberClock();
    keeper_(state_);
  }
  return reply;
}

std::string SimulatedRegister::Answer(const std::string& text) {
  const RegisterCommand* const command = FindRegisterCommand(std::string_view(text).substr(0, 4));
  if (command == nullptr) return Refusal(refusal::kUnknown);
  const bool prints = Prints(command->effect);
  if (prints && !keyOn_) return Refusal(refusal::kNotNow);
  if (prints && state_.paperOut && state_.commandHeld) return Refusal(PaperCode());
  CommandFields fields(text);
  const CommandData data = command->read(fields);
  if (!fields.Complete()) return Refusal(refusal::kMalformed);
  if (!IsTaken(command->place, state_.receipt.has_value(), state_.documentOpen)) {
    return Refusal(command->place == CommandPlace::kInNeither ? refusal::kNotNow : refusal::kOutOfSequence);
  }
  std::string reply = CarryOut(*command, data);
  if (!prints || !state_.paperOut || reply.starts_with("ERR")) return reply;
  state_.commandHeld = true;
  return Refusal(PaperCode());
}

std::string SimulatedRegister::CarryOut(const RegisterCommand& command, const CommandData& data) {
  std::string_view refused;
  switch (command.effect) {
    case CommandEffect::kSetting: break;
    case CommandEffect::kSell: refused = Sell(command, data); break;
    case CommandEffect::kTakeBack: refused = TakeBack(command, data); break;
    case CommandEffect::kChangeItem:
    case CommandEffect::kChangeTotal: refused = ChangePrice(command, data); break;
    case CommandEffect::kSubtotal: refused = Subtotal(command); break;
    case CommandEffect::kPay: refused = Pay(command, data); break;
    case CommandEffect::kVoid: refused = Void(); break;
    case CommandEffect::kPrintText:
    case CommandEffect::kPrintInDocument: refused = PrintText(data); break;
    case CommandEffect::kSetFootLine: state_.foot[data.number] = data.text; break;
    case CommandEffect::kOpenDocument: OpenDocument(); break;
    case CommandEffect::kCloseDocument: EndDocument("FINE DOCUMENTO"); break;
    case CommandEffect::kCashIn:
    case CommandEffect::kCashOut: refused = MoveCash(command, data); break;
    case CommandEffect::kReport: Report(command); break;
    case CommandEffect::kFiscalClosure: FiscalClosure(command); break;
    case CommandEffect::kRestart: refused = Restart(); break;
    case CommandEffect::kIdentity: return Done(command.code) + profile_.model + profile_.release;
    case CommandEffect::kStatus: return Status(command);
    case CommandEffect::kTimeOfDay: return TimeOfDay(command);
    case CommandEffect::kLogoRow: ++state_.logoRows; break;
  }
  return refused.empty() ? Done(command.code) : Refusal(refused);
}

std::string SimulatedRegister::Status(const RegisterCommand& command) const {
  if (state_.paperOut) return Refusal(PaperCode());
  return ReceiptOpen() ? Refusal(refusal::kNotNow) : Done(command.code);
}

std::string SimulatedRegister::TimeOfDay(const RegisterCommand& command) const {
  const LocalTime now = Now();
  char text[80];
  std::snprintf(text, sizeof text, "%02d%02d%02d%02d%02d", now.day, now.month, now.year % 100, now.hour,
                now.minute);
  return std::string(command.code) + text;
}

/// While papers are missing, `paperOut` is one of them.
void SimulatedRegister::SetPaper(Paper paper, bool in) {
  if (in) {
    missing_.erase(paper);
  } else {
    missing_.insert(paper);
  }
  if (missing_.empty()) {
    if (state_.paperOut == paper && !state_.commandHeld) GoOnWithNewPaper();
  } else if (!state_.paperOut || PaperIn(*state_.paperOut)) {
    state_.paperOut = *missing_.begin();
  }
}

std::string_view SimulatedRegister::Restart() {
  if (!missing_.empty()) return PaperCode();
  GoOnWithNewPaper();
  return {};
}

void SimulatedRegister::GoOnWithNewPaper() {
  if (!state_.paperOut) return;
  state_.paperOut.reset();
  state_.commandHeld = false;
  state_.linesPrinted = 0;
  const std::size_t slipLines = slipLines_;  // They were counted when they were held back.
  for (const auto& line : std::exchange(state_.linesHeld, {})) PutOnPaper(line);
  slipLines_ = slipLines;
}

void SimulatedRegister::OpenDocument() {
  state_.documentOpen = true;
  PrintHead();
  Print(Centred("DOCUMENTO NON FISCALE"));
}

std::string_view SimulatedRegister::MoveCash(const RegisterCommand& command, const CommandData& data) {
  if (data.amount > Receipt::kLargestAmount) return refusal::kTooLarge;
  Print(Centred(command.title));
  Print(
      Spread(command.effect == CommandEffect::kCashIn ? "VERSAMENTO" : "PRELIEVO", FormatCents(data.amount)));
  PrintEnd("");
  return {};
}

void SimulatedRegister::Report(const RegisterCommand& command) {
  PrintDay("RAPPORTO " + std::string(command.code));
  PrintEnd("");
}

void SimulatedRegister::FiscalClosure(const RegisterCommand& command) {
  if (!command.title.empty()) PrintDay(std::string(command.title));
  ++state_.fiscalClosures;
  PrintDay("CHIUSURA FISCALE N. " + std::to_string(state_.fiscalClosures));
  PrintEnd("");
  state_.dailyTotal = 0;
  state_.dailyReceipts = 0;
}

/// Only a PC clock that was set changes the difference. Both clocks show whole seconds, so the difference
/// seen may be a second off; that would add up over many starts.
void SimulatedRegister::RememberClock() {
  const std::chrono::seconds ahead = TimeBetween(clock_.Now(), Now());
  if (std::chrono::abs(ahead - state_.clockAhead) > std::chrono::seconds(1)) state_.clockAhead = ahead;
}

LocalTime SimulatedRegister::Now() const {
  return Later(clockStart_, std::chrono::floor<std::chrono::seconds>(clock_.Uptime() - clockStartUptime_));
}

std::string_view SimulatedRegister::PaperCode() const {
  return *state_.paperOut == Paper::kJournal ? refusal::kJournalPaper : refusal::kReceiptPaper;
}

void SimulatedRegister::PutOnPaper(const std::string& line) {
  ++slipLines_;
  if (state_.paperOut) {
    state_.linesHeld.push_back(line);
    return;
  }
  paper_.Print(line);
  ++state_.linesPrinted;
  // A later start may have put in a shorter roll.
  if (profile_.rollLines > 0 && state_.linesPrinted >= profile_.rollLines) state_.paperOut = Paper::kReceipt;
}

void SimulatedRegister::Print(const std::string& line) {
  if (state_.receipt) state_.receipt->AddLine(line);
  PutOnPaper(line);
}

void SimulatedRegister::PrintEntry(const std::string& line) {
  if (state_.receipt) state_.receipt->CountEntry();
  Print(line);
}

void SimulatedRegister::PrintHead() {
  slipLines_ = 0;
  Print(Centred("NEGOZIO DI PROVA"));
  Print(Centred("REGISTRATORE SIMULATO"));
  Print(Spread("", "EURO"));
}

void SimulatedRegister::PrintEnd(std::string_view title) {
  const LocalTime now = Now();
  char text[80];
  std::snprintf(text, sizeof text, "%02d/%02d/%04d %02d:%02d", now.day, now.month, now.year, now.hour,
                now.minute);
  Print(Spread(text, title));
  Print(Divider());
}

void SimulatedRegister::PrintDay(const std::string& title) {
  Print(Centred(title));
  Print(Spread("SCONTRINI", std::to_string(state_.dailyReceipts)));
  Print(Spread("TOTALE DEL GIORNO", FormatCents(state_.dailyTotal)));
}

void SimulatedRegister::EndDocument(std::string_view title) {
  PrintEnd(title);
  state_.documentOpen = false;
}

}  // namespace orvenza
