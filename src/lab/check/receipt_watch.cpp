#include "lab/check/receipt_watch.h"

#include "simulator/command_fields.h"
#include "simulator/commands.h"
#include "simulator/paper_layout.h"
#include "tickets/record_types.h"

namespace orvenza {
namespace {

/// Names of the commands that are accepted only in some states.
std::string_view NameOf(CommandEffect effect) {
  switch (effect) {
    case CommandEffect::kSell: return "an item is sold";
    case CommandEffect::kTakeBack: return "an item is taken back";
    case CommandEffect::kChangeItem:
    case CommandEffect::kChangeTotal: return "a discount or surcharge";
    case CommandEffect::kSubtotal: return "a subtotal";
    case CommandEffect::kPay: return "a payment";
    case CommandEffect::kVoid: return "a total void";
    case CommandEffect::kOpenDocument: return "a document begins";
    case CommandEffect::kPrintInDocument: return "a line of a document";
    case CommandEffect::kCloseDocument: return "a document ends";
    case CommandEffect::kCashIn:
    case CommandEffect::kCashOut: return "a cash movement";
    case CommandEffect::kReport: return "a report";
    case CommandEffect::kFiscalClosure: return "a fiscal closure";
    default: return "a command";
  }
}

}  // namespace

void ReceiptWatch::Follow(const std::string& text, TicketFindings& findings) {
  const RegisterCommand* const command = FindRegisterCommand(std::string_view(text).substr(0, 4));
  if (command == nullptr || FindRefused(*command, findings)) return;
  switch (command->effect) {
    case CommandEffect::kSell: BeginSale(findings); break;
    case CommandEffect::kVoid: Void(); return;
    case CommandEffect::kOpenDocument:
      FindPrinted("a document begins", findings);
      documentOpen_ = true;
      return;
    case CommandEffect::kCloseDocument:
      Forget();
      anyPrinted_ = true;
      return;
    case CommandEffect::kCashIn:
    case CommandEffect::kCashOut:
      FindPrinted("cash is moved", findings);
      anyPrinted_ = true;
      return;
    default: break;
  }
  if (receipt_ && ChangesSums(command->effect)) FollowSums(*command, text);
}

void ReceiptWatch::FollowSums(const RegisterCommand& command, const std::string& text) {
  CommandFields fields(text);
  const std::int64_t amount = AmountOf(command, command.read(fields), *receipt_);
  const std::string_view refused = ChangeSums(*receipt_, command.effect, amount);
  // The register itself reports what it refuses. From here on the sums are unknown.
  if (!fields.Complete() || !refused.empty()) sumKnown_ = allKnown_ = false;
  if (receipt_->Paid()) EndReceipt();
}

void ReceiptWatch::Miss(std::string_view type) {
  allKnown_ = false;
  if (!receipt_ && !documentOpen_) return;
  sumKnown_ = false;
  if (type.empty() || HasRole(type, &RecordRoles::endsReceipt)) endKnown_ = false;
}

void ReceiptWatch::End(std::string_view where, TicketFindings& findings) {
  if (!endKnown_) return;
  if (documentOpen_) {
    findings.push_back(
        {false, "receipt-open", TicketFinding::kWholeLine,
         std::string(where) + ", but the document that type 29 opened is not closed by type 31"});
  } else if (receipt_ && receipt_->Paying()) {
    FindUnpaid(where, findings);
  } else if (receipt_) {
    findings.push_back(
        {false, "receipt-open", TicketFinding::kWholeLine,
         std::string(where) + ", but its receipt is not closed by a payment (type 2, 5, 14 or 15)"});
  }
}

void ReceiptWatch::BeginSale(TicketFindings& findings) {
  if (receipt_ && receipt_->Paying()) {
    FindUnpaid("another begins here", findings);
    Forget();
  }
  if (receipt_) return;
  FindPrinted("a receipt begins", findings);
  receipt_.emplace();
}

void ReceiptWatch::FindPrinted(std::string_view what, TicketFindings& findings) const {
  if (!anyPrinted_) return;
  findings.push_back(
      {false, "second-receipt", TicketFinding::kWholeLine,
       std::string(what) +
           " here, but \"File Parser\" does not split the file before it: if one of the file's lines fails, "
           "what is complete may be printed again"});
}

bool ReceiptWatch::FindRefused(const RegisterCommand& command, TicketFindings& findings) const {
  const CommandPlace place = command.place;
  if (IsTaken(place, receipt_.has_value(), documentOpen_)) return false;
  // A void at the beginning may be for a receipt that another ticket left open.
  if (!allKnown_ || (command.effect == CommandEffect::kVoid && !anyEnded_)) return true;
  const bool open = place == CommandPlace::kInNeither || place == CommandPlace::kOutsideDocument;
  findings.push_back({false, open ? "still-open" : "no-receipt", TicketFinding::kWholeLine,
                      std::string(NameOf(command.effect)) + ", but " + std::string(WhyNot(place)) +
                          ": the simulated register refuses it"});
  return true;
}

std::string_view ReceiptWatch::WhyNot(CommandPlace place) const {
  if (place == CommandPlace::kInDocument) return "no document is open";
  if (place == CommandPlace::kInEither) return "neither a receipt nor a document is open";
  if (place != CommandPlace::kInReceipt) return documentOpen_ ? "a document is open" : "a receipt is open";
  if (documentOpen_) return "a document is open, which is no receipt";
  return lastReceipt_.empty() ? "nothing was sold before it in its ticket" : lastReceipt_;
}

void ReceiptWatch::Void() {
  // Once payment has begun, a receipt cannot be voided.
  if (receipt_ && receipt_->Paying()) return;
  if (receipt_) lastReceipt_ = "the receipt before it is voided";
  Forget();
}

void ReceiptWatch::EndReceipt() {
  Forget();
  anyPrinted_ = true;
  lastReceipt_ = "the receipt before it is complete";
}

void ReceiptWatch::Forget() {
  receipt_.reset();
  documentOpen_ = false;
  anyEnded_ = true;
  sumKnown_ = true;
  endKnown_ = true;
}

void ReceiptWatch::FindUnpaid(std::string_view where, TicketFindings& findings) const {
  if (!sumKnown_) return;
  const std::int64_t due = receipt_->Due();
  findings.push_back({false, "not-paid", TicketFinding::kWholeLine,
                      std::string(where) + ", but the payments do not cover the receipt: " +
                          FormatCents(due) + " of " + FormatCents(receipt_->Total()) + " is still due"});
}

}  // namespace orvenza
