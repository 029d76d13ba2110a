#include "tickets/item_line.h"

#include "core/text.h"
#include "tickets/command_text.h"
#include "tickets/field_format.h"

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

std::string ItemLine(const ItemRecord& item, const RecordFields& fields, bool singleQuantity) {
  const std::string_view description = fields[item.description];
  const std::string quantity = FmtQuantity(fields[item.quantity]);
  // Deliberate: the description is split around the other values, its characters 17 to 20 come last.
  return Join({CodeFor(item, quantity, singleQuantity), FmtNum2Max20(fields[item.number]), kBlankZone,
               FmtText(description, 16), quantity, "1", FmtAmount9(fields[item.amount]),
               FmtNum2Range40(fields[item.itemClass])},
              Middle(description, 17, 4));
}

}  // namespace orvenza
