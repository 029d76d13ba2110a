#include <utility>

#include "simulator/commands.h"
#include "simulator/paper_layout.h"
#include "simulator/register_replies.h"
#include "simulator/simulated_register.h"

// The simulated register's receipts: selling, discounts, payment, void.

namespace orvenza {

std::string_view SimulatedRegister::Void() {
  // Once payment has begun, a receipt cannot be voided, only paid completely.
  if (receipt_ && receipt_->Paying()) return refusal::kOutOfSequence;
  Print(Spread("ANNULLO", receipt_ ? FormatCents(-receipt_->Total()) : ""));
  if (receipt_) {
    EndReceipt(true);
  } else {
    EndDocument("DOCUMENTO ANNULLATO");
  }
  return {};
}

std::string_view SimulatedRegister::Sell(const RegisterCommand& command, const CommandData& data) {
  const bool opens = !receipt_;
  if (opens) receipt_.emplace();
  const std::int64_t amount = AmountOf(command, data, *receipt_);
  auto refused = EntryRefused();
  if (refused.empty()) refused = ChangeSums(*receipt_, command.effect, amount);
  if (!refused.empty()) {
    if (opens) receipt_.reset();
    return refused;
  }
  if (opens) PrintHead();
  PrintItem(data, amount);
  return {};
}

std::string_view SimulatedRegister::TakeBack(const RegisterCommand& command, const CommandData& data) {
  if (const auto refused = EntryRefused(); !refused.empty()) return refused;
  const std::int64_t amount = AmountOf(command, data, *receipt_);
  if (const auto refused = ChangeSums(*receipt_, command.effect, amount); !refused.empty()) return refused;
  Print(std::string(command.title));
  PrintItem(data, -amount);
  return {};
}

std::string_view SimulatedRegister::ChangePrice(const RegisterCommand& command, const CommandData& data) {
  if (const auto refused = EntryRefused(); !refused.empty()) return refused;
  const std::int64_t subtotal = receipt_->Total();
  const std::int64_t amount = AmountOf(command, data, *receipt_);
  if (const auto refused = ChangeSums(*receipt_, command.effect, amount); !refused.empty()) return refused;
  if (command.effect == CommandEffect::kChangeTotal) Print(Spread("SUBTOTALE", FormatCents(subtotal)));
  PrintEntry(Spread(std::string(command.title) + data.text, FormatCents(amount)));
  return {};
}

std::string_view SimulatedRegister::Subtotal(const RegisterCommand& command) {
  if (const auto refused = EntryRefused(); !refused.empty()) return refused;
  ChangeSums(*receipt_, command.effect, 0);
  PrintEntry(Spread(command.title, FormatCents(receipt_->Total())));
  return {};
}

std::string_view SimulatedRegister::Pay(const RegisterCommand& command, const CommandData& data) {
  const bool first = !receipt_->Paying();
  const std::int64_t amount = AmountOf(command, data, *receipt_);
  if (const auto refused = ChangeSums(*receipt_, command.effect, amount); !refused.empty()) return refused;
  if (first) Print(Spread("TOTALE COMPLESSIVO", FormatCents(receipt_->Total())));
  Print(Spread(std::string(command.title) + data.text, FormatCents(amount)));
  if (!receipt_->Paid()) {
    Print(Spread("DA PAGARE", FormatCents(receipt_->Due())));
    return {};
  }
  if (receipt_->Change() > 0) Print(Spread("RESTO", FormatCents(receipt_->Change())));
  EndReceipt(false);
  return {};
}

std::string_view SimulatedRegister::PrintText(const CommandData& data) {
  if (receipt_ && ReceiptFull()) return refusal::kFull;
  PrintEntry(data.text);
  return {};
}

bool SimulatedRegister::ReceiptFull() const { return receipt_->Entries() >= profile_.receiptCapacity; }

std::string_view SimulatedRegister::EntryRefused() const {
  if (receipt_->Paying()) return refusal::kOutOfSequence;
  return ReceiptFull() ? refusal::kFull : std::string_view();
}

void SimulatedRegister::PrintItem(const CommandData& item, std::int64_t amount) {
  if (item.quantity != 1000) {
    Print("  " + FormatQuantity(item.quantity) + " x " + FormatCents(item.amount));
  }
  PrintEntry(Spread(item.text, FormatCents(amount)));
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
