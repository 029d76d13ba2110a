#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "tickets/noted_fields.h"

namespace orvenza {

/// A record type that prints an item with description, quantity and price: its three codes and the numbers of
/// its fields.
struct ItemRecord {
  std::string_view codeOne;       ///< Quantity of exactly one.
  std::string_view codeWhole;     ///< Other integer quantities.
  std::string_view codeDecimals;  ///< Quantities with decimals.
  bool singleQuantityApplies;     ///< Whether the setting "Single Quantity" sends a quantity of one with the
                                  ///< code for integers.
  std::size_t number;             ///< The two digits after the code.
  std::size_t description;
  std::size_t quantity;
  std::size_t amount;
  std::size_t itemClass;
};

inline constexpr ItemRecord kItemType1{"1003", "1004", "1005", true, 7, 1, 2, 3, 4};
/// Unlike types 1 and 9, a quantity of one deliberately keeps its code whatever the setting.
inline constexpr ItemRecord kItemType3{"1015", "1016", "1017", false, 6, 1, 8, 2, 3};
inline constexpr ItemRecord kItemType9{"1009", "1010", "1011", true, 5, 1, 8, 2, 3};

/// The command of an item line; "" when a value is rejected.
std::string ItemCommand(const ItemRecord& item, const NotedFields& f, bool singleQuantity);

}  // namespace orvenza
