#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace orvenza {

class CommandFields;

// How the data of each command is laid out. What does not fit is seen in CommandFields::Complete afterwards.

/// The data of an item command.
struct ItemLine {
  std::string description;
  std::int64_t quantity = 0;  ///< Thousandths.
  std::int64_t price = 0;     ///< Cents for one.
};

ItemLine ReadItem(CommandFields& fields);

/// Whether an item command may carry this quantity: of each three codes the first is for a quantity of one,
/// the second for whole ones.
bool QuantityFits(std::string_view code, std::int64_t quantity);

/// A discount (negative) or surcharge.
struct PriceChange {
  std::string name;  ///< As printed.
  std::int64_t amount = 0;
};

/// The data of a discount or surcharge, a percentage being one of `base`.
PriceChange ReadPriceChange(CommandFields& fields, std::int64_t base);

/// The data of a payment up to its amount. Returns what the payment is called on paper.
std::string ReadPaymentName(CommandFields& fields);

/// The data of a command that prints a text.
std::string ReadText(CommandFields& fields);

/// The data of a command that has no effect on the simulated register.
void ReadSetting(CommandFields& fields);

}  // namespace orvenza
