#include "lab/receipt_watch.h"

#include <algorithm>
#include <iterator>

#include "simulator/command_fields.h"
#include "simulator/command_layouts.h"
#include "simulator/paper_layout.h"
#include "tickets/record.h"
#include "tickets/translation.h"

namespace orvenza {
namespace {

/// What a command does to the sums of a receipt.
enum class Effect {
  kNone,
  kSell,
  kTakeBack,
  kChangeItem,
  kChangeTotal,
  kSubtotal,
  kPay,
  kVoid,
  kOpenDocument,
  kCloseDocument
};

struct Row {
  std::string_view code;
  Effect effect;
};

// In ascending order of their codes.
constexpr Row kRows[] = {
    {"1003", Effect::kSell},         {"1004", Effect::kSell},          {"1005", Effect::kSell},
    {"1009", Effect::kTakeBack},     {"1010", Effect::kTakeBack},      {"1011", Effect::kTakeBack},
    {"1015", Effect::kTakeBack},     {"1016", Effect::kTakeBack},      {"1017", Effect::kTakeBack},
    {"1021", Effect::kChangeItem},   {"1022", Effect::kChangeItem},    {"1023", Effect::kChangeItem},
    {"1024", Effect::kChangeTotal},  {"1025", Effect::kChangeTotal},   {"1026", Effect::kChangeTotal},
    {"1028", Effect::kVoid},         {"1036", Effect::kPay},           {"1044", Effect::kPay},
    {"1045", Effect::kPay},          {"1046", Effect::kPay},           {"1050", Effect::kSubtotal},
    {"1063", Effect::kOpenDocument}, {"1065", Effect::kCloseDocument}, {"1069", Effect::kChangeItem},
    {"1070", Effect::kChangeTotal},  {"1071", Effect::kPay},           {"1072", Effect::kPay},
    {"1073", Effect::kPay},
};

Effect EffectOf(std::string_view code) {
  const auto row = std::lower_bound(std::begin(kRows), std::end(kRows), code,
                                    [](const Row& r, std::string_view wanted) { return r.code < wanted; });
  return row != std::end(kRows) && row->code == code ? row->effect : Effect::kNone;
}

/// What of an effect needs a receipt to act on; "" for the others.
std::string_view NameOf(Effect effect) {
  switch (effect) {
    case Effect::kTakeBack: return "an item is taken back";
    case Effect::kChangeItem:
    case Effect::kChangeTotal: return "a discount or surcharge";
    case Effect::kPay: return "a payment";
    case Effect::kVoid: return "a total void";
    default: return {};
  }
}

}  // namespace

void ReceiptWatch::Follow(const std::string& command, TicketFindings& findings) {
  if (command == kLogoMarker) return;
  CommandFields fields(command);
  const Effect effect = EffectOf(fields.Code());
  if (effect == Effect::kSell) BeginSale(findings);
  if (effect == Effect::kOpenDocument) documentOpen_ = true;
  // A void at the beginning may be meant for a receipt that another ticket left open.
  if (effect != Effect::kVoid || anyEnded_) FindNoReceipt(NameOf(effect), findings);
  if (effect == Effect::kVoid) Void();
  if (effect == Effect::kCloseDocument && documentOpen_) EndReceipt();
  if (!receipt_) return;

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
  // What the register refuses is told by the register. From here on the sums say nothing.
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
    EndReceipt();
  }
  if (receipt_) return;
  receipt_.emplace();
  if (!anyEnded_) return;
  findings.push_back(
      {false, "second-receipt", TicketFinding::kWholeLine,
       "a second receipt begins here, but \"File Parser\" does not split the file before it: if one of the "
       "file's lines fails, receipts already printed may be printed again"});
}

void ReceiptWatch::FindNoReceipt(std::string_view what, TicketFindings& findings) const {
  if (what.empty() || receipt_ || documentOpen_ || !allKnown_) return;
  findings.push_back(
      {false, "no-receipt", TicketFinding::kWholeLine,
       std::string(what) + ", but " +
           (anyEnded_ ? "the receipt before it is complete" : "nothing was sold before it in its ticket")});
}

void ReceiptWatch::Void() {
  // A receipt that is being paid cannot be voided any more.
  if (documentOpen_ || (receipt_ && !receipt_->Paying())) EndReceipt();
}

void ReceiptWatch::EndReceipt() {
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
