#include <algorithm>
#include <utility>

#include "simulator/commands.h"
#include "simulator/paper_layout.h"
#include "simulator/register_replies.h"
#include "simulator/simulated_register.h"

// The simulated register's receipts: selling, discounts, payment, void.

namespace orvenza {
namespace {

/// Lengths of an item's two texts, of which the second is printed.
constexpr std::size_t kOtherText = 40;
constexpr std::size_t kItemText = 16;

}  // namespace

std::string_view SimulatedRegister::Void() {
  // Once payment has begun, a receipt cannot be voided, only paid completely.
  if (state_.receipt && state_.receipt->Paying()) return refusal::kOutOfSequence;
  Print(Spread("ANNULLO", state_.receipt ? FormatCents(-state_.receipt->Total()) : ""));
  if (state_.receipt) {
    EndReceipt(true);
  } else {
    EndDocument("DOCUMENTO ANNULLATO");
  }
  if (voidObserver_) voidObserver_(slipLines_);
  return {};
}

void SimulatedRegister::KeyInItem() {
  if (ReceiptOpen()) return;
  std::string text(kKeyedInItem);
  text.resize(kItemText, ' ');
  Execute("100301" + std::string(kOtherText, ' ') + text + "0001000" + "1" + "000000100" + "01");
}

void SimulatedRegister::PayWhatWasKeyedIn() {
  const auto isKeyedIn = [](const std::string& line) { return line.starts_with(kKeyedInItem); };
  if (!state_.receipt ||
      std::none_of(state_.receipt->Lines().begin(), state_.receipt->Lines().end(), isKeyedIn))
    return;
  Execute("103601000000000");
}

std::string_view SimulatedRegister::Sell(const RegisterCommand& command, const CommandData& data) {
  const bool opens = !state_.receipt;
  if (opens) state_.receipt.emplace();
  const std::int64_t amount = AmountOf(command, data, *state_.receipt);
  auto refused = EntryRefused();
  if (refused.empty()) refused = ChangeSums(*state_.receipt, command.effect, amount);
  if (!refused.empty()) {
    if (opens) state_.receipt.reset();
    return refused;
  }
  if (opens) PrintHead();
  PrintItem(data, amount);
  return {};
}

std::string_view SimulatedRegister::TakeBack(const RegisterCommand& command, const CommandData& data) {
  if (const auto refused = EntryRefused(); !refused.empty()) return refused;
  const std::int64_t amount = AmountOf(command, data, *state_.receipt);
  if (const auto refused = ChangeSums(*state_.receipt, command.effect, amount); !refused.empty())
    return refused;
  Print(std::string(command.title));
  PrintItem(data, -amount);
  return {};
}

std::string_view SimulatedRegister::ChangePrice(const RegisterCommand& command, const CommandData& data) {
  if (const auto refused = EntryRefused(); !refused.empty()) return refused;
  const std::int64_t subtotal = state_.receipt->Total();
  const std::int64_t amount = AmountOf(command, data, *state_.receipt);
  if (const auto refused = ChangeSums(*state_.receipt, command.effect, amount); !refused.empty())
    return refused;
  if (command.effect == CommandEffect::kChangeTotal) Print(Spread("SUBTOTALE", FormatCents(subtotal)));
  PrintEntry(Spread(std::string(command.title) + data.text, FormatCents(amount)));
  return {};
}

std::string_view SimulatedRegister::Subtotal(const RegisterCommand& command) {
  if (const auto refused = EntryRefused(); !refused.empty()) return refused;
  ChangeSums(*state_.receipt, command.effect, 0);
  PrintEntry(Spread(command.title, FormatCents(state_.receipt->Total())));
  return {};
}

std::string_view SimulatedRegister::Pay(const RegisterCommand& command, const CommandData& data) {
  const bool first = !state_.receipt->Paying();
  const std::int64_t amount = AmountOf(command, data, *state_.receipt);
  if (const auto refused = ChangeSums(*state_.receipt, command.effect, amount); !refused.empty())
    return refused;
  if (first) Print(Spread("TOTALE COMPLESSIVO", FormatCents(state_.receipt->Total())));
  Print(Spread(std::string(command.title) + data.text, FormatCents(amount)));
  if (!state_.receipt->Paid()) {
    Print(Spread("DA PAGARE", FormatCents(state_.receipt->Due())));
    return {};
  }
  if (state_.receipt->Change() > 0) Print(Spread("RESTO", FormatCents(state_.receipt->Change())));
  EndReceipt(false);
  return {};
}

std::string_view SimulatedRegister::PrintText(const CommandData& data) {
  if (state_.receipt && ReceiptFull()) return refusal::kFull;
  PrintEntry(data.text);
  return {};
}

bool SimulatedRegister::ReceiptFull() const { return state_.receipt->Entries() >= profile_.receiptCapacity; }

std::string_view SimulatedRegister::EntryRefused() const {
  if (state_.receipt->Paying()) return refusal::kOutOfSequence;
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
  printed.total = state_.receipt->Total();
  if (!voided) {
    printed.number = ++state_.dailyReceipts;
    state_.dailyTotal += printed.total;
    for (const auto& [order, line] : state_.foot) Print(line);
  }
  state_.foot.clear();
  PrintEnd(voided ? "SCONTRINO ANNULLATO" : "SCONTRINO N. " + std::to_string(printed.number));
  printed.lines = state_.receipt->Lines();
  state_.receipt.reset();
  // Half of them are dropped at once, so that not every receipt moves all the others.
  if (receipts_.size() >= 2 * kReceiptsKept)
    receipts_.erase(receipts_.begin(), receipts_.begin() + kReceiptsKept);
  receipts_.push_back(std::move(printed));
}

}  // namespace orvenza
