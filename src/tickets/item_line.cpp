#include "tickets/item_line.h"

#include "core/text.h"
#include "tickets/command_text.h"

namespace orvenza {
namespace {

constexpr std::string_view kBlankZone = "                                        ";
static_assert(kBlankZone.size() == 40);

std::string_view CodeFor(const ItemRecord& item, std::string_view quantity, bool singleQuantity) {
  if (quantity == "0001000") {
    return singleQuantity && item.singleQuantityApplies ? item.codeWhole : item.codeOne;
  }
  return Right(quantity, 3) == "000" ? item.codeWhole : item.codeDecimals;
}

}  // namespace

std::string ItemCommand(const ItemRecord& item, const NotedFields& f, bool singleQuantity) {
  const std::string quantity = f.Format(item.quantity, FmtQuantity);
  // Deliberate: the description is split around the other values, with its characters 17 to 20 at the end.
  return Join({CodeFor(item, quantity, singleQuantity), f.Format(item.number, FmtNum2Max20), kBlankZone,
               f.Text(item.description, 16, 20), quantity, "1", f.Format(item.amount, FmtAmount9),
               f.Format(item.itemClass, FmtNum2Range40)},
              Middle(f[item.description], 17, 4));
}

}  // namespace orvenza
