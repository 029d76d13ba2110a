#include "simulator/command_layouts.h"

#include "simulator/command_fields.h"
#include "simulator/paper_layout.h"
#include "simulator/receipt.h"

namespace orvenza {

ItemLine ReadItem(CommandFields& fields) {
  ItemLine item;
  fields.OperatorDigits();
  fields.Text(40);
  item.description = fields.Text(16);
  item.quantity = fields.DigitsBetween(7, 1, 9'999'999);
  fields.Literal("1");
  item.price = fields.Digits(9);
  fields.DigitsBetween(2, 1, 40);
  const std::string end = fields.Remaining(4);
  if (!end.empty()) item.description.resize(16, ' ');
  item.description += end;
  return item;
}

bool QuantityFits(std::string_view code, std::int64_t quantity) {
  if (code == "1003" || code == "1009" || code == "1015") return quantity == 1000;
  if (code == "1004" || code == "1010" || code == "1016") return quantity % 1000 == 0;
  return true;
}

PriceChange ReadPriceChange(CommandFields& fields, std::int64_t base) {
  const auto code = fields.Code();
  fields.OperatorDigits();
  if (code == "1069" || code == "1070") {
    const std::string name = fields.Text(16);
    return {name, -fields.Digits(9)};
  }
  if (code == "1021" || code == "1024") return {"SCONTO", -fields.Digits(9)};
  const std::int64_t rate = fields.DigitsBetween(4, 1, 9999);
  const std::string percent = " " + FormatCents(rate) + "%";
  if (code == "1023" || code == "1026") return {"MAGGIORAZIONE" + percent, PercentOf(base, rate)};
  return {"SCONTO" + percent, -PercentOf(base, rate)};
}

std::string ReadPaymentName(CommandFields& fields) {
  const auto code = fields.Code();
  fields.OperatorDigits();
  if (code == "1036") return "CONTANTI";
  if (code == "1044") return "ASSEGNI";
  if (code == "1073") {
    fields.DigitsBetween(1, 0, 5);
    return fields.Text(16);
  }
  const std::int64_t kind = fields.DigitsBetween(2, 0, 10);
  if (code == "1071" || code == "1072") return fields.Text(16);
  return (code == "1046" ? "BUONO " : "CREDITO ") + std::to_string(kind);
}

std::string ReadText(CommandFields& fields) {
  const auto code = fields.Code();
  fields.OperatorDigits();
  if (code == "1066") return fields.Text(16);
  if (code == "1062") {
    fields.Literal("0");
    const std::string text = fields.Text(32);
    fields.Literal("00");
    return text;
  }
  if (code == "1084") {
    fields.DigitsBetween(1, 0, 3);
    fields.DigitsBetween(4, 0, 200);
    fields.DigitsBetween(4, 1, 9999);
    fields.DigitsBetween(2, 1, 40);
    return fields.Text(40);
  }
  return fields.Text(27);
}

void ReadSetting(CommandFields& fields) {
  const auto code = fields.Code();
  if (code == "1047") {
    fields.Literal("01");
    return;
  }
  fields.OperatorDigits();
  if (code == "1048" || code == "1075") fields.Digits(9);
  if (code == "1083") fields.DigitsBetween(5, 1, 9999);
  if (code == "1077" || code == "1078") {
    fields.Digits(1);
    fields.Text(16);
    fields.DigitsBetween(4, 1, 9999);
  }
}

}  // namespace orvenza
