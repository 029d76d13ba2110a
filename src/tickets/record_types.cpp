#include "tickets/record_types.h"

#include <algorithm>
#include <iterator>

#include "core/catalogue.h"
#include "core/logs.h"
#include "core/settings.h"
#include "core/text.h"
#include "device/logo_check.h"
#include "tickets/command_text.h"
#include "tickets/field_format.h"
#include "tickets/item_line.h"
#include "tickets/logo_request.h"
#include "tickets/model_rules.h"

namespace orvenza {
namespace {

/// Longest part of a wrong file name that the error log shows.
constexpr std::size_t kShownNameLimit = 260;

std::string NumberOr01(const NotedFields& f, std::size_t field) {
  return f.FormatOr(field, FmtNum2Max20, "01");
}
std::string AmountOrZero(const NotedFields& f, std::size_t field) {
  return f.FormatOr(field, FmtAmount9, "000000000");
}

/// Invalid: the field that selects an alternative is not one of `accepted`.
std::string NoSuchChoice(const NotedFields& f, std::size_t field, std::string_view accepted) {
  return f.Refuse(FieldNote::Kind::kNoSuchChoice, field, accepted);
}

std::string Number(std::string_view code, const NotedFields& f) {
  return Join({code, f.Format(1, FmtNum2Max20)});
}

std::string NumberAndAmount(std::string_view code, const NotedFields& f) {
  return Join({code, f.Format(1, FmtNum2Max20), f.Format(2, FmtAmount9)});
}

/// Type 1 with F8 = "-1": one of four commands instead of an item line.
std::string Type1WithoutItem(const NotedFields& f) {
  const std::string_view kind = f.Choice(1, "1");
  const bool named = f.Is(6, "1");
  if (kind == "1" && named) {
    return Join({"1069", f.Format(2, FmtNum2Max20), f.Text(5, 16), f.Format(4, FmtAmount9)});
  }
  if (kind == "1") return Join({"1021", f.Format(2, FmtNum2Max20), f.Format(4, FmtAmount9)});
  if (kind == "2") return Join({"1022", f.Format(2, FmtNum2Max20), f.Format(4, FmtNum4Min1)});
  if (kind == "3") return Join({"1023", f.Format(2, FmtNum2Max20), f.Format(4, FmtNum4Min1)});
  return NoSuchChoice(f, 1, "1, 2, 3");
}

std::string Type1(const NotedFields& f, const TranslationContext& context) {
  return f.Is(8, "-1") ? Type1WithoutItem(f) : ItemCommand(kItemType1, f, context.settings.SingleQuantity);
}

std::string Type3(const NotedFields& f, const TranslationContext& context) {
  return ItemCommand(kItemType3, f, context.settings.SingleQuantity);
}

std::string Type9(const NotedFields& f, const TranslationContext& context) {
  return ItemCommand(kItemType9, f, context.settings.SingleQuantity);
}

std::string Type2(const NotedFields& f, const TranslationContext&) {
  if (f[4].empty()) return NumberAndAmount("1036", f);
  return Join({"1073", f.Format(1, FmtNum2Max20), f.FormatOr(3, FmtDigit0to5, "0"), f.Text(4, 16),
               f.Format(2, FmtAmount9)});
}

std::string Type5(const NotedFields& f, const TranslationContext&) {
  const bool named = f.Is(4, "1");
  if (LeadingNumber(f[1]) == 0) {
    return Join({"1045", f.Format(2, FmtNum2Max20), f.Replace(1, FmtNum2Upto10, "00"), AmountOrZero(f, 5)});
  }
  if (!named)
    return Join({"1045", f.Format(2, FmtNum2Max20), f.Format(1, FmtNum2Upto10), AmountOrZero(f, 5)});
  return Join(
      {"1072", f.Format(2, FmtNum2Max20), f.Format(1, FmtNum2Upto10), f.Text(3, 16), AmountOrZero(f, 5)});
}

std::string Type6(const NotedFields& f, const TranslationContext&) {
  const std::string_view kind = f.Choice(1, "2");
  if (kind == "2") return Join({"1025", f.Format(2, FmtNum2Max20), f.Format(3, FmtNum4Min1)});
  if (kind == "3") return Join({"1026", f.Format(2, FmtNum2Max20), f.Format(3, FmtNum4Min1)});
  return NoSuchChoice(f, 1, "2, 3");
}

std::string Type7(const NotedFields& f, const TranslationContext&) {
  const bool named = f.Is(5, "1");
  if (f.Choice(1, "1") != "1") return NoSuchChoice(f, 1, "1");
  if (!named) return Join({"1024", f.Format(2, FmtNum2Max20), f.Format(3, FmtAmount9)});
  return Join({"1070", f.Format(2, FmtNum2Max20), f.Text(4, 16), f.Format(3, FmtAmount9)});
}

std::string Type8(const NotedFields& f, const TranslationContext&) {
  const std::string_view kind = f.Choice(2, "-1");
  if (kind == "-1") return Number("1055", f);
  if (kind == "0") return Number("1056", f);
  return NoSuchChoice(f, 2, "-1, 0");
}

std::string Type14(const NotedFields& f, const TranslationContext&) {
  if (f.Read(5) == "0")
    return Join({"1046", f.Format(2, FmtNum2Max20), f.Format(3, FmtNum2Range10), f.Format(1, FmtAmount9)});
  return Join({"1071", f.Format(2, FmtNum2Max20), f.Format(3, FmtNum2Range10), f.Text(4, 16),
               f.Format(1, FmtAmount9)});
}

std::string Type17(const NotedFields& f, const TranslationContext& context) {
  const ModelRules model = RulesFor(context.identity);
  return Join({model.code17, NumberOr01(f, 4), f.Format(2, NumberWithin(30)), f.Text(3, model.width17)});
}

std::string Type23(const NotedFields& f, const TranslationContext&) {
  return Join({"1062", NumberOr01(f, 2), "0", f.Text(1, 32), "00"});
}

std::string Type24(const NotedFields& f, const TranslationContext& context) {
  const ModelRules model = RulesFor(context.identity);
  return Join({model.code24, NumberOr01(f, 2), f.Text(1, model.width24)});
}

std::string Type25(const NotedFields& f, const TranslationContext&) {
  return Join({"1067", NumberOr01(f, 4), f.Format(2, NumberWithin(5)), f.Text(3, 27)});
}

std::string Type28(const NotedFields& f, const TranslationContext&) {
  return Join({"1058", f.Format(1, FmtNum2Max20), f.Text(2, 27)});
}

std::string Type30(const NotedFields& f, const TranslationContext& context) {
  const std::string digit = f.Format(2, FmtDigit0to5);
  const std::string_view sent =
      LeadingNumber(digit) > 3 ? f.Replace(2, FmtDigit0to3, "3") : std::string_view(digit);
  return Join({"1064", f.Format(1, FmtNum2Max20), sent, f.Text(3, RulesFor(context.identity).width30)});
}

/// One alternative of type 32 and the form of its F3; null if F3 is not sent.
struct LongCommand {
  std::string_view choice;
  std::string_view code;
  const ValueForm* form;
};

constexpr LongCommand kLongCommands[] = {
    {"1", "2001", nullptr},          {"5", "2005", nullptr},       {"7", "2007", nullptr},
    {"11", "2011", nullptr},         {"2", "2002", &FmtNum2Max10}, {"8", "2008", &FmtNum2Max10},
    {"3", "2003", &FmtNum2Max40},    {"9", "2009", &FmtNum2Max40}, {"4", "2004", &FmtNum4Max1260},
    {"10", "2010", &FmtNum4Max1260}, {"6", "2006", &FmtNum2Max20}, {"12", "2012", &FmtNum2Max20},
};

std::string Type32(const NotedFields& f, const TranslationContext&) {
  const std::string_view choice = f.Choice(2, kLongCommands[0].choice);
  for (const LongCommand& command : kLongCommands) {
    if (choice != command.choice) continue;
    if (command.form == nullptr) return Join({command.code, f.Format(1, FmtNum2Max20), "*"});
    return Join({command.code, f.Format(1, FmtNum2Max20), f.Format(3, *command.form), "*"});
  }
  return NoSuchChoice(f, 2, "1 to 12");
}

std::string Type33(const NotedFields& f, const TranslationContext& context) {
  const LogoRequest logo = LogoRequestOf(f.Record());
  f.Read(1, FieldNote::Kind::kLogoNumber);
  if (context.files == nullptr) {
    f.Read(2, FieldNote::Kind::kLogo);
    return std::string(kLogoMarker);
  }
  const auto rows = LogoRows(*context.files, logo.path);
  if (!rows) {
    context.logs->WrErr(LoadMessage(MessageId::kInvalidBitmap) + " ( " + ShownLine(f[2], kShownNameLimit) +
                        " )");
    return f.Refuse(FieldNote::Kind::kNoLogo, 2);
  }
  f.Read(2, *rows > 0 ? FieldNote::Kind::kLogo : FieldNote::Kind::kEmptyLogo);
  return std::string(kLogoMarker);
}

std::string NumberOr01AndAmount(std::string_view code, const NotedFields& f) {
  return Join({code, NumberOr01(f, 3), f.Format(2, FmtAmount9)});
}

std::string Type34(const NotedFields& f, const TranslationContext&) {
  return NumberOr01AndAmount(f.Read(1) == "0" ? "1031" : "1032", f);
}

std::string Type35(const NotedFields& f, const TranslationContext&) {
  return NumberOr01AndAmount(f.Read(1) == "0" ? "1039" : "1040", f);
}

std::string Types38And39(std::string_view code, const NotedFields& f) {
  return Join(
      {code, f.Format(1, FmtNum2Max20), f.Format(2, FmtDigit0to9), f.Text(3, 16), f.Format(4, FmtNum4Min1)});
}

std::string Type42(const NotedFields& f, const TranslationContext&) {
  return Join({"1083", f.Format(1, FmtNum2Max20), f.Format(2, FmtNum5Range9999)});
}

std::string Type43(const NotedFields& f, const TranslationContext&) {
  return Join({"1084", f.Format(1, FmtNum2Max20), f.Format(2, FmtDigit0to3), f.Format(3, FmtNum4Range200),
               f.Format(4, FmtNum4Range9999), f.Format(5, FmtNum2Range40), f.Text(6, 40)});
}

constexpr RecordRoles kOpening{.opens = true};
constexpr RecordRoles kPayment{.closesTicket = true, .endsReceipt = true, .completes = true};
constexpr RecordRoles kFurtherPayment{.followsClosing = true, .endsReceipt = true, .completes = true};
constexpr RecordRoles kVoid{.closesTicket = true, .endsReceipt = true};
constexpr RecordRoles kDocumentEnd{.endsReceipt = true, .completes = true};
constexpr RecordRoles kCashMovement{.completes = true, .standsAlone = true};
constexpr RecordRoles kReport{.reports = true, .standsAlone = true};
constexpr RecordRoles kAlone{.standsAlone = true};

// In ascending order of their numbers.
constexpr RecordType kRecordTypes[] = {
    {"0", [](const auto& f, const auto&) { return Number("1051", f); }},
    {"1", Type1, kOpening},
    {"2", Type2, kPayment},
    {"3", Type3, kOpening},
    {"4", [](const auto& f, const auto&) { return Number("1028", f); }, kVoid},
    {"5", Type5, kPayment},
    {"6", Type6},
    {"7", Type7},
    {"8", Type8},
    {"9", Type9, kOpening},
    {"14", Type14, kFurtherPayment},
    {"15", [](const auto& f, const auto&) { return NumberAndAmount("1044", f); }, kPayment},
    {"17", Type17},
    {"20", [](const auto& f, const auto&) { return Number("1050", f); }},
    {"21", [](const auto&, const auto&) { return std::string("300101*"); }, kReport},
    {"22", [](const auto&, const auto&) { return std::string("300201*"); }, kReport},
    {"23", Type23},
    {"24", Type24},
    {"25", Type25},
    {"26", [](const auto&, const auto&) { return std::string("104701"); }, kAlone},
    {"27", [](const auto& f, const auto&) { return NumberAndAmount("1048", f); }},
    {"28", Type28},
    {"29", [](const auto& f, const auto&) { return Number("1063", f); }, kOpening},
    {"30", Type30},
    {"31", [](const auto& f, const auto&) { return Number("1065", f); }, kDocumentEnd},
    {"32", Type32, kReport},
    {"33", Type33, kAlone},
    {"34", Type34, kCashMovement},
    {"35", Type35, kCashMovement},
    {"36", [](const auto& f, const auto&) { return NumberAndAmount("1075", f); }},
    {"37", [](const auto& f, const auto&) { return Number("1076", f); }},
    {"38", [](const auto& f, const auto&) { return Types38And39("1077", f); }},
    {"39", [](const auto& f, const auto&) { return Types38And39("1078", f); }},
    {"40", [](const auto& f, const auto&) { return Number("1049", f); }},
    {"41", [](const auto& f, const auto&) { return Number("1148", f); }},
    {"42", Type42},
    {"43", Type43},
};

}  // namespace

std::span<const RecordType> RecordTypes() { return kRecordTypes; }

const RecordType* FindRecordType(std::string_view type) {
  const auto* const found = std::find_if(std::begin(kRecordTypes), std::end(kRecordTypes),
                                         [type](const RecordType& row) { return row.type == type; });
  return found == std::end(kRecordTypes) ? nullptr : found;
}

bool HasRole(std::string_view type, bool RecordRoles::*role) {
  // The role is checked first: few types have one, and this runs for every line of a large file.
  return std::any_of(std::begin(kRecordTypes), std::end(kRecordTypes),
                     [&](const RecordType& row) { return row.roles.*role && row.type == type; });
}

bool MayComplete(std::string_view type) {
  return HasRole(type, &RecordRoles::completes) || HasRole(type, &RecordRoles::reports);
}

}  // namespace orvenza
