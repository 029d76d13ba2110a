#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace orvenza {

class CommandFields;

// The data layout of each command. CommandFields::Complete reports a mismatch afterwards.

/// The data of an item command.
struct ItemLine {
  std::string description;
  std::int64_t quantity = 0;  ///< In thousandths.
  std::int64_t price = 0;     ///< In cents, for one piece.
};

ItemLine ReadItem(CommandFields& fields);

/// Whether an item command may have this quantity. In each group of three codes the first is for a quantity
/// of one, the second for integers.
bool QuantityFits(std::string_view code, std::int64_t quantity);

/// A discount (negative) or surcharge.
struct PriceChange {
  std::string name;  ///< As printed.
  std::int64_t amount = 0;
};

/// The data of a discount or surcharge; a percentage refers to `base`.
PriceChange ReadPriceChange(CommandFields& fields, std::int64_t base);

/// The data of a payment before its amount. Returns the payment's name on paper.
std::string ReadPaymentName(CommandFields& fields);

/// The data of a command that prints a text.
std::string ReadText(CommandFields& fields);

/// The data of a command without effect on the simulated register.
void ReadSetting(CommandFields& fields);

}  // namespace orvenza
