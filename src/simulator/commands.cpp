#include "simulator/commands.h"

#include <algorithm>
#include <iterator>

#include "device/logo_check.h"
#include "simulator/command_fields.h"
#include "simulator/paper_layout.h"
#include "simulator/receipt.h"

namespace orvenza {
namespace {

CommandData OperatorOnly(CommandFields& fields) {
  fields.OperatorDigits();
  return {};
}

template <std::size_t kDigits>
CommandData OperatorAndDigits(CommandFields& fields) {
  fields.OperatorDigits();
  fields.Digits(kDigits);
  return {};
}

CommandData Only01(CommandFields& fields) {
  fields.Literal("01");
  return {};
}

CommandData Item(CommandFields& fields) {
  CommandData item;
  fields.OperatorDigits();
  fields.Text(40);
  item.text = fields.Text(16);
  item.quantity = fields.DigitsBetween(7, 1, 9'999'999);
  fields.Literal("1");
  item.amount = fields.Digits(9);
  fields.DigitsBetween(2, 1, 40);
  const std::string end = fields.Remaining(4);
  if (!end.empty()) item.text.resize(16, ' ');
  item.text += end;
  return item;
}

CommandData OneItem(CommandFields& fields) {
  CommandData item = Item(fields);
  fields.Require(item.quantity == 1000);
  return item;
}

CommandData WholeItems(CommandFields& fields) {
  CommandData item = Item(fields);
  fields.Require(item.quantity % 1000 == 0);
  return item;
}

CommandData Amount(CommandFields& fields) {
  fields.OperatorDigits();
  return {.amount = fields.Digits(9)};
}

CommandData TextAndAmount(CommandFields& fields) {
  fields.OperatorDigits();
  return {.text = fields.Text(16), .amount = fields.Digits(9)};
}

CommandData Discount(CommandFields& fields) { return {.amount = -Amount(fields).amount}; }

CommandData NamedDiscount(CommandFields& fields) {
  CommandData discount = TextAndAmount(fields);
  discount.amount = -discount.amount;
  return discount;
}

CommandData SurchargeRate(CommandFields& fields) {
  fields.OperatorDigits();
  const std::int64_t rate = fields.DigitsBetween(4, 1, 9999);
  return {.text = " " + FormatCents(rate) + "%", .rate = rate};
}

CommandData DiscountRate(CommandFields& fields) {
  CommandData discount = SurchargeRate(fields);
  discount.rate = -discount.rate;
  return discount;
}

CommandData KindAndAmount(CommandFields& fields) {
  fields.OperatorDigits();
  const std::int64_t kind = fields.DigitsBetween(2, 0, 10);
  return {.text = std::to_string(kind), .amount = fields.Digits(9)};
}

CommandData KindTextAndAmount(CommandFields& fields) {
  fields.OperatorDigits();
  fields.DigitsBetween(2, 0, 10);
  return {.text = fields.Text(16), .amount = fields.Digits(9)};
}

CommandData DigitTextAndAmount(CommandFields& fields) {
  fields.OperatorDigits();
  fields.DigitsBetween(1, 0, 5);
  return {.text = fields.Text(16), .amount = fields.Digits(9)};
}

template <std::size_t kWidth>
CommandData Text(CommandFields& fields) {
  fields.OperatorDigits();
  return {.text = fields.Text(kWidth)};
}

CommandData FramedText(CommandFields& fields) {
  fields.OperatorDigits();
  fields.Literal("0");
  const std::string text = fields.Text(32);
  fields.Literal("00");
  return {.text = text};
}

CommandData NumberedText(CommandFields& fields) {
  fields.OperatorDigits();
  fields.DigitsBetween(1, 0, 3);
  fields.DigitsBetween(4, 0, 200);
  fields.DigitsBetween(4, 1, 9999);
  fields.DigitsBetween(2, 1, 40);
  return {.text = fields.Text(40)};
}

CommandData DocumentLine(CommandFields& fields) {
  fields.OperatorDigits();
  fields.DigitsBetween(1, 0, 3);
  return {.text = fields.Remaining(37)};
}

CommandData CourtesyLine(CommandFields& fields) {
  fields.OperatorDigits();
  const std::int64_t line = fields.DigitsBetween(2, 1, 5);
  return {.text = fields.Remaining(27), .number = line};
}

/// The lines of 1068 and 1082 come after those of 1067.
template <std::size_t kWidth>
CommandData FootLine(CommandFields& fields) {
  fields.OperatorDigits();
  const std::int64_t line = fields.DigitsBetween(2, 1, 30);
  return {.text = fields.Remaining(kWidth), .number = 100 + line};
}

CommandData NamedSetting(CommandFields& fields) {
  fields.OperatorDigits();
  fields.Digits(1);
  fields.Text(16);
  fields.DigitsBetween(4, 1, 9999);
  return {};
}

CommandData NumberSetting(CommandFields& fields) {
  fields.OperatorDigits();
  fields.DigitsBetween(5, 1, 9999);
  return {};
}

CommandData LogoRow(CommandFields& fields) {
  fields.Digits(2);
  fields.DigitsBetween(3, 1, kLogoMostRows);
  constexpr std::size_t kPixelDigits = 2 * kLogoRowBytes;
  const std::string pixels = fields.Text(kPixelDigits);
  fields.Require(pixels.size() == kPixelDigits &&
                 pixels.find_first_not_of("0123456789ABCDEF") == std::string::npos);
  return {};
}

using Effect = CommandEffect;
using Place = CommandPlace;

// In ascending order of the codes.
constexpr RegisterCommand kCommands[] = {
    {"1003", Effect::kSell, Place::kOutsideDocument, OneItem},
    {"1004", Effect::kSell, Place::kOutsideDocument, WholeItems},
    {"1005", Effect::kSell, Place::kOutsideDocument, Item},
    {"1009", Effect::kTakeBack, Place::kInReceipt, OneItem, "RESO"},
    {"1010", Effect::kTakeBack, Place::kInReceipt, WholeItems, "RESO"},
    {"1011", Effect::kTakeBack, Place::kInReceipt, Item, "RESO"},
    {"1015", Effect::kTakeBack, Place::kInReceipt, OneItem, "STORNO"},
    {"1016", Effect::kTakeBack, Place::kInReceipt, WholeItems, "STORNO"},
    {"1017", Effect::kTakeBack, Place::kInReceipt, Item, "STORNO"},
    {"1021", Effect::kChangeItem, Place::kInReceipt, Discount, "SCONTO"},
    {"1022", Effect::kChangeItem, Place::kInReceipt, DiscountRate, "SCONTO"},
    {"1023", Effect::kChangeItem, Place::kInReceipt, SurchargeRate, "MAGGIORAZIONE"},
    {"1024", Effect::kChangeTotal, Place::kInReceipt, Discount, "SCONTO"},
    {"1025", Effect::kChangeTotal, Place::kInReceipt, DiscountRate, "SCONTO"},
    {"1026", Effect::kChangeTotal, Place::kInReceipt, SurchargeRate, "MAGGIORAZIONE"},
    {"1028", Effect::kVoid, Place::kInEither, OperatorOnly},
    {"1031", Effect::kCashIn, Place::kInNeither, Amount, "CASSA CONTANTI"},
    {"1032", Effect::kCashOut, Place::kInNeither, Amount, "CASSA CONTANTI"},
    {"1036", Effect::kPay, Place::kInReceipt, Amount, "CONTANTI"},
    {"1039", Effect::kCashIn, Place::kInNeither, Amount, "CASSA ASSEGNI"},
    {"1040", Effect::kCashOut, Place::kInNeither, Amount, "CASSA ASSEGNI"},
    {"1044", Effect::kPay, Place::kInReceipt, Amount, "ASSEGNI"},
    {"1045", Effect::kPay, Place::kInReceipt, KindAndAmount, "CREDITO "},
    {"1046", Effect::kPay, Place::kInReceipt, KindAndAmount, "BUONO "},
    {"1047", Effect::kSetting, Place::kAnywhere, Only01},
    {"1048", Effect::kSetting, Place::kAnywhere, OperatorAndDigits<9>},
    {"1049", Effect::kSetting, Place::kAnywhere, OperatorOnly},
    {"1050", Effect::kSubtotal, Place::kInReceipt, OperatorOnly, "SUBTOTALE"},
    {"1051", Effect::kSetting, Place::kAnywhere, OperatorOnly},
    {"1055", Effect::kSetting, Place::kAnywhere, OperatorOnly},
    {"1056", Effect::kSetting, Place::kAnywhere, OperatorOnly},
    {"1058", Effect::kPrintText, Place::kAnywhere, Text<27>},
    {"1062", Effect::kPrintText, Place::kAnywhere, FramedText},
    {"1063", Effect::kOpenDocument, Place::kInNeither, OperatorOnly},
    {"1064", Effect::kPrintInDocument, Place::kInEither, DocumentLine},
    {"1065", Effect::kCloseDocument, Place::kInDocument, OperatorOnly},
    {"1066", Effect::kPrintText, Place::kAnywhere, Text<16>},
    {"1067", Effect::kSetFootLine, Place::kAnywhere, CourtesyLine},
    {"1068", Effect::kSetFootLine, Place::kAnywhere, FootLine<27>},
    {"1069", Effect::kChangeItem, Place::kInReceipt, NamedDiscount},
    {"1070", Effect::kChangeTotal, Place::kInReceipt, NamedDiscount},
    {"1071", Effect::kPay, Place::kInReceipt, KindTextAndAmount},
    {"1072", Effect::kPay, Place::kInReceipt, KindTextAndAmount},
    {"1073", Effect::kPay, Place::kInReceipt, DigitTextAndAmount},
    {"1075", Effect::kSetting, Place::kAnywhere, OperatorAndDigits<9>},
    {"1076", Effect::kSetting, Place::kAnywhere, OperatorOnly},
    {"1077", Effect::kSetting, Place::kAnywhere, NamedSetting},
    {"1078", Effect::kSetting, Place::kAnywhere, NamedSetting},
    {"1081", Effect::kPrintText, Place::kAnywhere, Text<27>},
    {"1082", Effect::kSetFootLine, Place::kAnywhere, FootLine<37>},
    {"1083", Effect::kSetting, Place::kAnywhere, NumberSetting},
    {"1084", Effect::kPrintText, Place::kAnywhere, NumberedText},
    {"1148", Effect::kSetting, Place::kAnywhere, OperatorOnly},
    {"1149", Effect::kRestart, Place::kAnywhere, OperatorOnly},
    {"1999", Effect::kIdentity, Place::kAnywhere, OperatorOnly},
    {"2001", Effect::kReport, Place::kInNeither, OperatorOnly},
    {"2002", Effect::kReport, Place::kInNeither, OperatorAndDigits<2>},
    {"2003", Effect::kReport, Place::kInNeither, OperatorAndDigits<2>},
    {"2004", Effect::kReport, Place::kInNeither, OperatorAndDigits<4>},
    {"2005", Effect::kReport, Place::kInNeither, OperatorOnly},
    {"2006", Effect::kReport, Place::kInNeither, OperatorAndDigits<2>},
    {"2007", Effect::kReport, Place::kInNeither, OperatorOnly},
    {"2008", Effect::kReport, Place::kInNeither, OperatorAndDigits<2>},
    {"2009", Effect::kReport, Place::kInNeither, OperatorAndDigits<2>},
    {"2010", Effect::kReport, Place::kInNeither, OperatorAndDigits<4>},
    {"2011", Effect::kReport, Place::kInNeither, OperatorOnly},
    {"2012", Effect::kReport, Place::kInNeither, OperatorAndDigits<2>},
    {"3001", Effect::kFiscalClosure, Place::kInNeither, Only01},
    {"3002", Effect::kFiscalClosure, Place::kInNeither, Only01, "RAPPORTO FINANZIARIO"},
    {"3217", Effect::kStatus, Place::kAnywhere, OperatorOnly},
    {"4052", Effect::kLogoRow, Place::kAnywhere, LogoRow},
    {"4201", Effect::kTimeOfDay, Place::kAnywhere, OperatorOnly},
};

static_assert(std::is_sorted(std::begin(kCommands), std::end(kCommands),
                             [](const RegisterCommand& a, const RegisterCommand& b) {
                               return a.code < b.code;
                             }));

/// A discount or surcharge; a percentage refers to `base`.
std::int64_t ChangeOf(const CommandData& data, std::int64_t base) {
  if (data.rate == 0) return data.amount;
  return data.rate < 0 ? -PercentOf(base, -data.rate) : PercentOf(base, data.rate);
}

}  // namespace

const RegisterCommand* FindRegisterCommand(std::string_view code) {
  const auto* const found = std::lower_bound(
      std::begin(kCommands), std::end(kCommands), code,
      [](const RegisterCommand& command, std::string_view wanted) { return command.code < wanted; });
  return found != std::end(kCommands) && found->code == code ? found : nullptr;
}

bool IsTaken(CommandPlace place, bool receiptOpen, bool documentOpen) {
  switch (place) {
    case Place::kAnywhere: return true;
    case Place::kInReceipt: return receiptOpen;
    case Place::kInDocument: return documentOpen;
    case Place::kInEither: return receiptOpen || documentOpen;
    case Place::kInNeither: return !receiptOpen && !documentOpen;
    case Place::kOutsideDocument: return !documentOpen;
  }
  return true;
}

bool ChangesSums(CommandEffect effect) {
  return effect == Effect::kSell || effect == Effect::kTakeBack || effect == Effect::kChangeItem ||
         effect == Effect::kChangeTotal || effect == Effect::kSubtotal || effect == Effect::kPay;
}

std::int64_t AmountOf(const RegisterCommand& command, const CommandData& data, const Receipt& receipt) {
  switch (command.effect) {
    case Effect::kSell:
    case Effect::kTakeBack: return PriceOf(data.amount, data.quantity);
    case Effect::kChangeItem: return ChangeOf(data, receipt.LastItem());
    case Effect::kChangeTotal: return ChangeOf(data, receipt.Total());
    case Effect::kPay: return data.amount == 0 ? receipt.Due() : data.amount;
    default: return 0;
  }
}

std::string_view ChangeSums(Receipt& receipt, CommandEffect effect, std::int64_t amount) {
  switch (effect) {
    case Effect::kSell: return receipt.Sell(amount);
    case Effect::kTakeBack: return receipt.TakeBack(amount);
    case Effect::kChangeItem: return receipt.ChangeItem(amount);
    case Effect::kChangeTotal: return receipt.ChangeTotal(amount);
    case Effect::kSubtotal: receipt.EndItem(); return {};
    case Effect::kPay: return receipt.Pay(amount);
    default: return {};
  }
}

}  // namespace orvenza
