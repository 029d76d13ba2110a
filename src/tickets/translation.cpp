#include "tickets/translation.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "core/catalogue.h"
#include "core/text.h"
#include "device/logo_check.h"
#include "platform/folders.h"
#include "tickets/command_text.h"
#include "tickets/field_format.h"
#include "tickets/item_line.h"
#include "tickets/model_rules.h"

namespace orvenza {
namespace {

/// The message for a logo record that names no valid bitmap.
/// Longest part of a wrong file name that the error log shows.
constexpr std::size_t kShownNameLimit = 260;

/// A logo number beyond this is sent as this.
constexpr double kLargestLogo = 999'999'999;

/// What translation depends on besides the record.
struct Surroundings {
  const RegisterIdentity& identity;
  const AppSettings& settings;
  const Files& files;
  Logs& logs;
};

using Record = const NotedFields&;
using With = const Surroundings&;

std::string NumberOr01(Record f, std::size_t field) { return f.FormatOr(field, FmtNum2Max20, "01"); }
std::string AmountOrZero(Record f, std::size_t field) { return f.FormatOr(field, FmtAmount9, "000000000"); }

/// Invalid: the field that decides between alternatives is none of `accepted`.
std::string NoSuchChoice(Record f, std::size_t field, std::string_view accepted) {
  return f.Refuse(FieldNote::Kind::kNoSuchChoice, field, accepted);
}

std::string Number(std::string_view code, Record f) { return Join({code, f.Format(1, FmtNum2Max20)}); }

std::string NumberAndAmount(std::string_view code, Record f) {
  return Join({code, f.Format(1, FmtNum2Max20), f.Format(2, FmtAmount9)});
}

/// Type 1 with F8 = "-1": one of four commands in place of an item line.
std::string Type1WithoutItem(Record f) {
  const std::string_view kind = Chosen(f[1], "1");
  if (kind == "1" && f[6] == "1") {
    return Join({"1069", f.Format(2, FmtNum2Max20), f.Text(5, 16), f.Format(4, FmtAmount9)});
  }
  if (kind == "1") return Join({"1021", f.Format(2, FmtNum2Max20), f.Format(4, FmtAmount9)});
  if (kind == "2") return Join({"1022", f.Format(2, FmtNum2Max20), f.Format(4, FmtNum4Min1)});
  if (kind == "3") return Join({"1023", f.Format(2, FmtNum2Max20), f.Format(4, FmtNum4Min1)});
  return NoSuchChoice(f, 1, "1, 2, 3");
}

std::string Type1(Record f, With with) {
  return f[8] == "-1" ? Type1WithoutItem(f) : ItemCommand(kItemType1, f, with.settings.SingleQuantity);
}

std::string Payment(Record f, With) {
  if (f[4].empty()) return NumberAndAmount("1036", f);
  return Join({"1073", f.Format(1, FmtNum2Max20), f.FormatOr(3, FmtDigit0to5, "0"), f.Text(4, 16),
               f.Format(2, FmtAmount9)});
}

std::string Type5(Record f, With) {
  if (LeadingNumber(f[1]) == 0) {
    return Join({"1045", f.Format(2, FmtNum2Max20), f.Replace(1, FmtNum2Upto10, "00"), AmountOrZero(f, 5)});
  }
  if (f[4] != "1")
    return Join({"1045", f.Format(2, FmtNum2Max20), f.Format(1, FmtNum2Upto10), AmountOrZero(f, 5)});
  return Join(
      {"1072", f.Format(2, FmtNum2Max20), f.Format(1, FmtNum2Upto10), f.Text(3, 16), AmountOrZero(f, 5)});
}

std::string Type6(Record f, With) {
  const std::string_view kind = Chosen(f[1], "2");
  if (kind == "2") return Join({"1025", f.Format(2, FmtNum2Max20), f.Format(3, FmtNum4Min1)});
  if (kind == "3") return Join({"1026", f.Format(2, FmtNum2Max20), f.Format(3, FmtNum4Min1)});
  return NoSuchChoice(f, 1, "2, 3");
}

std::string Type7(Record f, With) {
  if (Chosen(f[1], "1") != "1") return NoSuchChoice(f, 1, "1");
  if (f[5] != "1") return Join({"1024", f.Format(2, FmtNum2Max20), f.Format(3, FmtAmount9)});
  return Join({"1070", f.Format(2, FmtNum2Max20), f.Text(4, 16), f.Format(3, FmtAmount9)});
}

std::string Type8(Record f, With) {
  const std::string_view kind = Chosen(f[2], "-1");
  if (kind == "-1") return Number("1055", f);
  if (kind == "0") return Number("1056", f);
  return NoSuchChoice(f, 2, "-1, 0");
}

std::string Type14(Record f, With) {
  if (f.Read(5) == "0")
    return Join({"1046", f.Format(2, FmtNum2Max20), f.Format(3, FmtNum2Range10), f.Format(1, FmtAmount9)});
  return Join({"1071", f.Format(2, FmtNum2Max20), f.Format(3, FmtNum2Range10), f.Text(4, 16),
               f.Format(1, FmtAmount9)});
}

std::string Type17(Record f, With with) {
  const ModelRules model = RulesFor(with.identity);
  return Join({model.code17, NumberOr01(f, 4), f.Format(2, NumberWithin(30)), f.Text(3, model.width17)});
}

std::string Type23(Record f, With) { return Join({"1062", NumberOr01(f, 2), "0", f.Text(1, 32), "00"}); }

std::string Type24(Record f, With with) {
  const ModelRules model = RulesFor(with.identity);
  return Join({model.code24, NumberOr01(f, 2), f.Text(1, model.width24)});
}

std::string Type25(Record f, With) {
  return Join({"1067", NumberOr01(f, 4), f.Format(2, NumberWithin(5)), f.Text(3, 27)});
}

std::string Type28(Record f, With) { return Join({"1058", f.Format(1, FmtNum2Max20), f.Text(2, 27)}); }

std::string Type30(Record f, With with) {
  const std::string digit = f.Format(2, FmtDigit0to5);
  const std::string_view sent =
      LeadingNumber(digit) > 3 ? f.Replace(2, FmtDigit0to3, "3") : std::string_view(digit);
  return Join({"1064", f.Format(1, FmtNum2Max20), sent, f.Text(3, RulesFor(with.identity).width30)});
}

/// One alternative of type 32 and the form of its F3; null where F3 is not sent.
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

std::string Type32(Record f, With) {
  const std::string_view choice = Chosen(f[2], kLongCommands[0].choice);
  for (const LongCommand& command : kLongCommands) {
    if (choice != command.choice) continue;
    if (command.form == nullptr) return Join({command.code, f.Format(1, FmtNum2Max20), "*"});
    return Join({command.code, f.Format(1, FmtNum2Max20), f.Format(3, *command.form), "*"});
  }
  return NoSuchChoice(f, 2, "1 to 12");
}

std::string Logo(Record f, With with) {
  const LogoRequest logo = LogoRequestOf(f.Record());
  f.Read(1, FieldNote::Kind::kLogoNumber);
  const auto rows = LogoRows(with.files, logo.path);
  if (!rows) {
    with.logs.WrErr(LoadMessage(MessageId::kInvalidBitmap) + " ( " + ShownLine(f[2], kShownNameLimit) + " )");
    return f.Refuse(FieldNote::Kind::kNoLogo, 2);
  }
  f.Read(2, *rows > 0 ? FieldNote::Kind::kRead : FieldNote::Kind::kEmptyLogo);
  return std::string(kLogoMarker);
}

std::string NumberOr01AndAmount(std::string_view code, Record f) {
  return Join({code, NumberOr01(f, 3), f.Format(2, FmtAmount9)});
}

std::string Types38And39(std::string_view code, Record f) {
  return Join(
      {code, f.Format(1, FmtNum2Max20), f.Format(2, FmtDigit0to9), f.Text(3, 16), f.Format(4, FmtNum4Min1)});
}

std::string Type42(Record f, With) {
  return Join({"1083", f.Format(1, FmtNum2Max20), f.Format(2, FmtNum5Range9999)});
}

std::string Type43(Record f, With) {
  return Join({"1084", f.Format(1, FmtNum2Max20), f.Format(2, FmtDigit0to3), f.Format(3, FmtNum4Range200),
               f.Format(4, FmtNum4Range9999), f.Format(5, FmtNum2Range40), f.Text(6, 40)});
}

/// One record type. The type's text is compared exactly: "01" is not type 1.
struct RecordType {
  std::string_view type;
  std::string (*translate)(Record f, With with);
};

constexpr RecordType kRecordTypes[] = {
    {"0", [](Record f, With) { return Number("1051", f); }},
    {"1", Type1},
    {"2", Payment},
    {"3", [](Record f, With with) { return ItemCommand(kItemType3, f, with.settings.SingleQuantity); }},
    {"4", [](Record f, With) { return Number("1028", f); }},
    {"5", Type5},
    {"6", Type6},
    {"7", Type7},
    {"8", Type8},
    {"9", [](Record f, With with) { return ItemCommand(kItemType9, f, with.settings.SingleQuantity); }},
    {"14", Type14},
    {"15", [](Record f, With) { return NumberAndAmount("1044", f); }},
    {"17", Type17},
    {"20", [](Record f, With) { return Number("1050", f); }},
    {"21", [](Record, With) { return std::string("300101*"); }},
    {"22", [](Record, With) { return std::string("300201*"); }},
    {"23", Type23},
    {"24", Type24},
    {"25", Type25},
    {"26", [](Record, With) { return std::string("104701"); }},
    {"27", [](Record f, With) { return NumberAndAmount("1048", f); }},
    {"28", Type28},
    {"29", [](Record f, With) { return Number("1063", f); }},
    {"30", Type30},
    {"31", [](Record f, With) { return Number("1065", f); }},
    {"32", Type32},
    {"33", Logo},
    {"34", [](Record f, With) { return NumberOr01AndAmount(f.Read(1) == "0" ? "1031" : "1032", f); }},
    {"35", [](Record f, With) { return NumberOr01AndAmount(f.Read(1) == "0" ? "1039" : "1040", f); }},
    {"36", [](Record f, With) { return NumberAndAmount("1075", f); }},
    {"37", [](Record f, With) { return Number("1076", f); }},
    {"38", [](Record f, With) { return Types38And39("1077", f); }},
    {"39", [](Record f, With) { return Types38And39("1078", f); }},
    {"40", [](Record f, With) { return Number("1049", f); }},
    {"41", [](Record f, With) { return Number("1148", f); }},
    {"42", Type42},
    {"43", Type43},
};

}  // namespace

bool IsLongRunning(std::string_view translation) {
  return translation.ends_with(kLongRunningMark) &&
         (translation.starts_with("20") || translation.starts_with("3001") ||
          translation.starts_with("3002"));
}

LogoRequest LogoRequestOf(const RecordFields& fields) {
  // The register refuses a number of many digits whatever it is.
  const double rounded = std::round(LeadingNumber(fields[1]));
  const int number = static_cast<int>(std::clamp(rounded, -kLargestLogo, kLargestLogo));
  const std::string digits = std::to_string(std::abs(number));
  return {(number < 0 ? "-" : "") + std::string(digits.size() < 2 ? 1 : 0, '0') + digits,
          SettingsPath(std::string(fields[2]))};
}

RecordTranslator::RecordTranslator(const RegisterIdentity& identity, const AppSettings& settings,
                                   const Files& files, Logs& logs)
    : identity_(identity), settings_(settings), files_(files), logs_(logs) {}

std::string RecordTranslator::TranslateRecord(const RecordFields& fields, TranslationNotes* notes) const {
  const NotedFields noted(fields, notes);
  const std::string_view type = Chosen(fields[0], kRecordTypes[0].type);
  for (const RecordType& row : kRecordTypes) {
    if (row.type == type) return row.translate(noted, {identity_, settings_, files_, logs_});
  }
  return noted.Refuse(FieldNote::Kind::kUnknownType, 0);
}

}  // namespace orvenza
