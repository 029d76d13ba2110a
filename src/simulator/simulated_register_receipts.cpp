#include <utility>

#include "simulator/command_fields.h"
#include "simulator/command_layouts.h"
#include "simulator/paper_layout.h"
#include "simulator/register_replies.h"
#include "simulator/simulated_register.h"

// The simulated register's receipts: selling, discounts, payment, void.

namespace orvenza {

std::string SimulatedRegister::Void(CommandFields& fields) {
  fields.OperatorDigits();
  if (!fields.Complete()) return Refusal(refusal::kMalformed);
  // Once payment has begun, a receipt cannot be voided, only paid completely.
  if (!ReceiptOpen() || (receipt_ && receipt_->Paying())) return Refusal(refusal::kOutOfSequence);
  Print(Spread("ANNULLO", receipt_ ? FormatCents(-receipt_->Total()) : ""));
  if (receipt_) {
    EndReceipt(true);
  } else {
    EndDocument("DOCUMENTO ANNULLATO");
  }
  return Done(fields);
}

std::string SimulatedRegister::Sell(CommandFields& fields) {
  const ItemLine item = ReadItem(fields);
  if (!fields.Complete() || !QuantityFits(fields.Code(), item.quantity)) return Refusal(refusal::kMalformed);
  if (documentOpen_) return Refusal(refusal::kOutOfSequence);
  const bool opens = !receipt_;
  if (opens) receipt_.emplace();
  const std::int64_t amount = PriceOf(item.price, item.quantity);
  auto refused = EntryRefused();
  if (refused.empty()) refused = receipt_->Sell(amount);
  if (!refused.empty()) {
    if (opens) receipt_.reset();
    return Refusal(refused);
  }
  if (opens) PrintHead();
  PrintItem(item, amount);
  return Done(fields);
}

std::string SimulatedRegister::TakeBack(CommandFields& fields) {
  const ItemLine item = ReadItem(fields);
  if (!fields.Complete() || !QuantityFits(fields.Code(), item.quantity)) return Refusal(refusal::kMalformed);
  if (const auto refused = EntryRefused(); !refused.empty()) return Refusal(refused);
  const std::int64_t amount = PriceOf(item.price, item.quantity);
  if (const auto refused = receipt_->TakeBack(amount); !refused.empty()) return Refusal(refused);
  Print(fields.Code() < "1015" ? "RESO" : "STORNO");
  PrintItem(item, -amount);
  return Done(fields);
}

std::string SimulatedRegister::ChangeItem(CommandFields& fields) {
  const PriceChange change = ReadPriceChange(fields, receipt_ ? receipt_->LastItem() : 0);
  if (!fields.Complete()) return Refusal(refusal::kMalformed);
  if (const auto refused = EntryRefused(); !refused.empty()) return Refusal(refused);
  if (const auto refused = receipt_->ChangeItem(change.amount); !refused.empty()) return Refusal(refused);
  PrintEntry(Spread(change.name, FormatCents(change.amount)));
  return Done(fields);
}

std::string SimulatedRegister::ChangeTotal(CommandFields& fields) {
  const PriceChange change = ReadPriceChange(fields, receipt_ ? receipt_->Total() : 0);
  if (!fields.Complete()) return Refusal(refusal::kMalformed);
  if (const auto refused = EntryRefused(); !refused.empty()) return Refusal(refused);
  const std::int64_t subtotal = receipt_->Total();
  if (const auto refused = receipt_->ChangeTotal(change.amount); !refused.empty()) return Refusal(refused);
  Print(Spread("SUBTOTALE", FormatCents(subtotal)));
  PrintEntry(Spread(change.name, FormatCents(change.amount)));
  return Done(fields);
}

std::string SimulatedRegister::Subtotal(CommandFields& fields) {
  fields.OperatorDigits();
  if (!fields.Complete()) return Refusal(refusal::kMalformed);
  if (const auto refused = EntryRefused(); !refused.empty()) return Refusal(refused);
  receipt_->EndItem();
  PrintEntry(Spread("SUBTOTALE", FormatCents(receipt_->Total())));
  return Done(fields);
}

std::string SimulatedRegister::Pay(CommandFields& fields) {
  const std::string name = ReadPaymentName(fields);
  const std::int64_t given = fields.Digits(9);
  if (!fields.Complete()) return Refusal(refusal::kMalformed);
  if (!receipt_) return Refusal(refusal::kOutOfSequence);
  const bool first = !receipt_->Paying();
  const std::int64_t amount = given == 0 ? receipt_->Due() : given;
  if (const auto refused = receipt_->Pay(amount); !refused.empty()) return Refusal(refused);
  if (first) Print(Spread("TOTALE COMPLESSIVO", FormatCents(receipt_->Total())));
  Print(Spread(name, FormatCents(amount)));
  if (!receipt_->Paid()) {
    Print(Spread("DA PAGARE", FormatCents(receipt_->Due())));
    return Done(fields);
  }
  if (receipt_->Change() > 0) Print(Spread("RESTO", FormatCents(receipt_->Change())));
  EndReceipt(false);
  return Done(fields);
}

std::string SimulatedRegister::PrintText(CommandFields& fields) {
  const std::string text = ReadText(fields);
  if (!fields.Complete()) return Refusal(refusal::kMalformed);
  if (receipt_ && ReceiptFull()) return Refusal(refusal::kFull);
  PrintEntry(text);
  return Done(fields);
}

std::string SimulatedRegister::SetFootLine(CommandFields& fields) {
  const bool courtesy = fields.Code() == "1067";
  fields.OperatorDigits();
  const std::int64_t line = fields.DigitsBetween(2, 1, courtesy ? 5 : 30);
  const std::string text = fields.Remaining(fields.Code() == "1082" ? 37 : 27);
  if (!fields.Complete()) return Refusal(refusal::kMalformed);
  foot_[courtesy ? line : line + 100] = text;
  return Done(fields);
}

bool SimulatedRegister::ReceiptFull() const { return receipt_->Entries() >= profile_.receiptCapacity; }

std::string_view SimulatedRegister::EntryRefused() const {
  if (!receipt_ || receipt_->Paying()) return refusal::kOutOfSequence;
  return ReceiptFull() ? refusal::kFull : std::string_view();
}

void SimulatedRegister::PrintItem(const ItemLine& item, std::int64_t amount) {
  if (item.quantity != 1000) {
    Print("  " + FormatQuantity(item.quantity) + " x " + FormatCents(item.price));
  }
  PrintEntry(Spread(item.description, FormatCents(amount)));
}

void SimulatedRegister::EndReceipt(bool voided) {
  PrintedReceipt printed;
  printed.voided = voided;
  printed.total = receipt_->Total();
  if (!voided) {
    printed.number = ++dailyReceipts_;
    dailyTotal_ += printed.total;
    for (const auto& [order, line] : foot_) Print(line);
  }
  foot_.clear();
  PrintEnd(voided ? "SCONTRINO ANNULLATO" : "SCONTRINO N. " + std::to_string(printed.number));
  printed.lines = receipt_->Lines();
  receipt_.reset();
  // Half of them are dropped at once, so that not every receipt moves all the others.
  if (receipts_.size() >= 2 * kReceiptsKept)
    receipts_.erase(receipts_.begin(), receipts_.begin() + kReceiptsKept);
  receipts_.push_back(std::move(printed));
}

}  // namespace orvenza
