#include "lab/check/receipt_watch.h"

#include <algorithm>
#include <iterator>

#include "simulator/command_fields.h"
#include "simulator/command_layouts.h"
#include "simulator/paper_layout.h"
#include "tickets/record.h"
#include "tickets/translation.h"

namespace orvenza {
/// A command's effect on receipts and documents.
enum class ReceiptWatch::Effect {
  kNone,
  kSell,
  kTakeBack,
  kChangeItem,
  kChangeTotal,
  kSubtotal,
  kPay,
  kVoid,
  kOpenDocument,
  kPrintInDocument,
  kCloseDocument,
  kMoveCash,
  kReport,
  kFiscalClosure
};

/// The state in which the register accepts a command.
enum class ReceiptWatch::Place {
  kAnywhere,
  kInReceipt,
  kInDocument,
  kInEither,
  kInNeither,
  kOutsideDocument,
};

struct ReceiptWatch::Demand {
  std::string_view name;
  Place place;
};

ReceiptWatch::Effect ReceiptWatch::EffectOf(std::string_view code) {
  struct Row {
    std::string_view code;
    Effect effect;
  };
  // In ascending order of the codes.
  static constexpr Row kRows[] = {
      {"1003", Effect::kSell},          {"1004", Effect::kSell},          {"1005", Effect::kSell},
      {"1009", Effect::kTakeBack},      {"1010", Effect::kTakeBack},      {"1011", Effect::kTakeBack},
      {"1015", Effect::kTakeBack},      {"1016", Effect::kTakeBack},      {"1017", Effect::kTakeBack},
      {"1021", Effect::kChangeItem},    {"1022", Effect::kChangeItem},    {"1023", Effect::kChangeItem},
      {"1024", Effect::kChangeTotal},   {"1025", Effect::kChangeTotal},   {"1026", Effect::kChangeTotal},
      {"1028", Effect::kVoid},          {"1031", Effect::kMoveCash},      {"1032", Effect::kMoveCash},
      {"1036", Effect::kPay},           {"1039", Effect::kMoveCash},      {"1040", Effect::kMoveCash},
      {"1044", Effect::kPay},           {"1045", Effect::kPay},           {"1046", Effect::kPay},
      {"1050", Effect::kSubtotal},      {"1063", Effect::kOpenDocument},  {"1064", Effect::kPrintInDocument},
      {"1065", Effect::kCloseDocument}, {"1069", Effect::kChangeItem},    {"1070", Effect::kChangeTotal},
      {"1071", Effect::kPay},           {"1072", Effect::kPay},           {"1073", Effect::kPay},
      {"3001", Effect::kFiscalClosure}, {"3002", Effect::kFiscalClosure},
  };
  if (code.starts_with("20")) return Effect::kReport;
  const auto row = std::lower_bound(std::begin(kRows), std::end(kRows), code,
                                    [](const Row& r, std::string_view wanted) { return r.code < wanted; });
  return row != std::end(kRows) && row->code == code ? row->effect : Effect::kNone;
}

ReceiptWatch::Demand ReceiptWatch::DemandOf(Effect effect) {
  switch (effect) {
    case Effect::kNone: return {{}, Place::kAnywhere};
    case Effect::kSell: return {"an item is sold", Place::kOutsideDocument};
    case Effect::kTakeBack: return {"an item is taken back", Place::kInReceipt};
    case Effect::kChangeItem:
    case Effect::kChangeTotal: return {"a discount or surcharge", Place::kInReceipt};
    case Effect::kSubtotal: return {"a subtotal", Place::kInReceipt};
    case Effect::kPay: return {"a payment", Place::kInReceipt};
    case Effect::kVoid: return {"a total void", Place::kInEither};
    case Effect::kOpenDocument: return {"a document begins", Place::kInNeither};
    case Effect::kPrintInDocument: return {"a line of a document", Place::kInEither};
    case Effect::kCloseDocument: return {"a document ends", Place::kInDocument};
    case Effect::kMoveCash: return {"a cash movement", Place::kInNeither};
    case Effect::kReport: return {"a report", Place::kInNeither};
    case Effect::kFiscalClosure: return {"a fiscal closure", Place::kInNeither};
  }
  return {{}, Place::kAnywhere};
}

void ReceiptWatch::Follow(const std::string& command, TicketFindings& findings) {
  if (command == kLogoMarker) return;
  CommandFields fields(command);
  const Effect effect = EffectOf(fields.Code());
  if (FindRefused(effect, findings)) return;
  switch (effect) {
    case Effect::kSell: BeginSale(findings); break;
    case Effect::kVoid: Void(); return;
    case Effect::kOpenDocument:
      FindPrinted("a document begins", findings);
      documentOpen_ = true;
      return;
    case Effect::kCloseDocument:
      Forget();
      anyPrinted_ = true;
      return;
    case Effect::kMoveCash:
      FindPrinted("cash is moved", findings);
      anyPrinted_ = true;
      return;
    default: break;
  }
  if (receipt_) FollowSums(effect, fields);
}

void ReceiptWatch::FollowSums(Effect effect, CommandFields& fields) {
  std::string_view refused;
  if (effect == Effect::kSell || effect == Effect::kTakeBack) {
    const ItemLine item = ReadItem(fields);
    const std::int64_t amount = PriceOf(item.price, item.quantity);
    refused = effect == Effect::kSell ? receipt_->Sell(amount) : receipt_->TakeBack(amount);
  } else if (effect == Effect::kChangeItem) {
    refused = receipt_->ChangeItem(ReadPriceChange(fields, receipt_->LastItem()).amount);
  } else if (effect == Effect::kChangeTotal) {
    refused = receipt_->ChangeTotal(ReadPriceChange(fields, receipt_->Total()).amount);
  } else if (effect == Effect::kPay) {
    ReadPaymentName(fields);
    const std::int64_t given = fields.Digits(9);
    refused = receipt_->Pay(given == 0 ? receipt_->Due() : given);
  } else {
    if (effect == Effect::kSubtotal) receipt_->EndItem();
    return;
  }
  // The register itself reports what it refuses. From here on the sums are unknown.
  if (!fields.Complete() || !refused.empty()) sumKnown_ = allKnown_ = false;
  if (receipt_->Paid()) EndReceipt();
}

void ReceiptWatch::Miss(std::string_view type) {
  allKnown_ = false;
  if (!receipt_ && !documentOpen_) return;
  sumKnown_ = false;
  if (type.empty() || IsClosingType(type) || type == "14" || type == "31") endKnown_ = false;
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

bool ReceiptWatch::FindRefused(Effect effect, TicketFindings& findings) const {
  const auto [name, place] = DemandOf(effect);
  if (Fits(place)) return false;
  // A void at the beginning may be for a receipt that another ticket left open.
  if (!allKnown_ || (effect == Effect::kVoid && !anyEnded_)) return true;
  const bool open = place == Place::kInNeither || place == Place::kOutsideDocument;
  findings.push_back(
      {false, open ? "still-open" : "no-receipt", TicketFinding::kWholeLine,
       std::string(name) + ", but " + std::string(WhyNot(place)) + ": the simulated register refuses it"});
  return true;
}

bool ReceiptWatch::Fits(Place place) const {
  switch (place) {
    case Place::kAnywhere: return true;
    case Place::kInReceipt: return receipt_.has_value();
    case Place::kInDocument: return documentOpen_;
    case Place::kInEither: return receipt_ || documentOpen_;
    case Place::kInNeither: return !receipt_ && !documentOpen_;
    case Place::kOutsideDocument: return !documentOpen_;
  }
  return true;
}

std::string_view ReceiptWatch::WhyNot(Place place) const {
  if (place == Place::kInDocument) return "no document is open";
  if (place == Place::kInEither) return "neither a receipt nor a document is open";
  if (place != Place::kInReceipt) return documentOpen_ ? "a document is open" : "a receipt is open";
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
                      std::string(where) + ", but the payments do not cover the receipt: of " +
                          FormatCents(receipt_->Total()) + " still " + FormatCents(due) + " is due"});
}

}  // namespace orvenza
