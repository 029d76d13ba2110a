#include "lab/check/line_findings.h"

#include <algorithm>

#include "core/text.h"
#include "lab/shell/wording.h"
#include "tickets/logo_request.h"

namespace orvenza {
namespace {

constexpr std::size_t kShownCharacters = 40;
/// The separator of a new installation. It is not printable, but is not replaced by a blank either.
constexpr char kUsualSeparator = 127;
/// The numbers under which a register stores logos.
constexpr int kLowestLogo = 1;
constexpr int kHighestLogo = 99;

/// Whether `digits` is empty or all zeros.
bool IsZero(std::string_view digits) { return WithoutLeadingZeros(digits).empty(); }

std::string Range(const ValueForm& form) {
  return std::to_string(form.lowest) + " to " + std::to_string(form.highest);
}

/// The values that a form accepts, in words.
std::string Accepted(const ValueForm& form) {
  switch (form.kind) {
    case ValueKind::kDigits: {
      const std::string range = "accepted: digits, " + Range(form);
      return form.outside.empty() ? range : range + "; others are sent as " + std::string(form.outside);
    }
    case ValueKind::kAmount: return "accepted: digits, an amount in cents without any separator";
    case ValueKind::kNumber: return "accepted: a number, " + Range(form);
    case ValueKind::kDigit: return "accepted: one digit, " + Range(form);
    case ValueKind::kText: return "accepted: any text; for an empty one write a blank";
    case ValueKind::kQuantity:
      return "accepted: digits with one comma or point before the decimals, such as 1,000 or 0,75";
  }
  return {};
}

/// Why `form` rejects `field`.
TicketFinding Rejected(std::string_view field, const ValueForm& form) {
  const std::string_view text = Trim(field);
  const std::string quoted = QuotedBytes(text);
  if (text.empty()) return {true, "empty", 0, "a value is missing; " + Accepted(form)};
  if (form.kind == ValueKind::kQuantity) {
    if (OnlyDigits(text)) {
      const std::string proposal =
          IsZero(text) ? "" : "; write " + std::string(text) + ",000 for " + std::string(text);
      return {true, "quantity-short", 0,
              quoted + " has neither comma nor point, so it counts thousandths and needs three digits" +
                  proposal};
    }
    if (text.find_first_not_of("0123456789,.") == std::string_view::npos) {
      return {true, "quantity-separators", 0, quoted + " has more than one separator; " + Accepted(form)};
    }
  }
  if (!OnlyDigits(text)) {
    return {true, "not-digits", 0, quoted + " holds other characters than digits; " + Accepted(form)};
  }
  return {true, "out-of-range", 0, quoted + " is out of range; " + Accepted(form)};
}

bool LosesDecimals(std::string_view quantity) {
  const std::size_t point = quantity.find_first_of(",.");
  return point != std::string_view::npos && quantity.size() > point + 4 &&
         quantity.find_first_not_of('0', point + 4) != std::string_view::npos;
}

std::string SentAs(std::string_view text, std::string_view sent) {
  return QuotedBytes(text) + " is sent as " + QuotedBytes(sent);
}

/// What is lost or changed when an accepted value of ValueKind::kDigits is sent as `sent`.
void FindInDigits(std::string_view text, const ValueForm& form, std::string_view sent, int number,
                  TicketFindings& findings) {
  const auto width = static_cast<std::size_t>(form.width);
  if (WithoutLeadingZeros(text).size() > width) {
    const std::string_view last = Right(text, width);
    findings.push_back(
        {false, "digits-lost", number,
         SentAs(text, sent) + ": only the last " + std::to_string(width) + " digits count" +
             (last == sent ? "" : ", and " + QuotedBytes(last) + " is outside " + Range(form))});
  } else if (WithoutLeadingZeros(text) != WithoutLeadingZeros(sent)) {
    findings.push_back({false, "clamped", number, SentAs(text, sent) + ": outside " + Range(form)});
  }
}

/// What is lost or changed when an accepted number is sent; usually nothing.
void FindInNumber(std::string_view field, const ValueForm& form, const std::string& sent, int number,
                  TicketFindings& findings) {
  const std::string_view text = Trim(field);
  const auto warn = [&](std::string_view code, std::string said) {
    findings.push_back({false, code, number, std::move(said)});
  };
  if (sent.size() > static_cast<std::size_t>(form.width)) {
    warn("too-long", SentAs(text, sent) + ", which moves all that follows it in the command; write at most " +
                         std::to_string(form.width) + (form.width == 1 ? " digit" : " digits") +
                         (form.kind == ValueKind::kQuantity ? ", four of them before the decimals" : ""));
  }
  if (form.kind == ValueKind::kQuantity && LosesDecimals(text)) {
    warn("decimals-lost", SentAs(text, sent) + ", in thousandths: only three decimals count");
  }
  if (form.kind == ValueKind::kQuantity && IsZero(sent)) {
    warn("quantity-zero", QuotedBytes(text) + " is a quantity of 0");
  }
  if (form.kind == ValueKind::kDigits) FindInDigits(text, form, sent, number, findings);
}

std::size_t CountBlanked(std::string_view bytes) {
  return static_cast<std::size_t>(std::count_if(bytes.begin(), bytes.end(), [](char c) {
    const auto code = static_cast<unsigned char>(c);
    return code < 32 || code > 127;
  }));
}

/// What a text loses on its way to the paper. `raw` is the field as it is in the file.
void FindInText(std::string_view raw, std::string_view field, const ValueForm& form, int number,
                TicketFindings& findings) {
  const auto width = static_cast<std::size_t>(form.width);
  if (const std::size_t blanked = CountBlanked(raw.substr(0, width)); blanked > 0) {
    findings.push_back({false, "blanked", number,
                        QuotedBytes(raw) + " is printed as " + QuotedBytes(field.substr(0, width)) + ": " +
                            std::to_string(blanked) +
                            (blanked == 1 ? " byte that is not printable ASCII becomes a blank"
                                          : " bytes that are not printable ASCII become blanks")});
  }
  if (raw.substr(0, width).find(kUsualSeparator) != std::string_view::npos) {
    findings.push_back(
        {false, "character-127", number,
         QuotedBytes(raw) +
             " holds the character 127, which is sent as it is and cannot be printed; it is the "
             "separator of a new installation"});
  }
  if (field.size() > width && !Trim(field.substr(width)).empty()) {
    findings.push_back({false, "text-cut", number,
                        "only the first " + std::to_string(width) + " characters of " + QuotedBytes(field) +
                            " are printed: " + QuotedBytes(field.substr(0, width))});
  }
}

void FindInValue(std::string_view line, const RecordFields& fields, const FieldNote& note,
                 TicketFindings& findings) {
  const std::string_view field = fields[note.field];
  const int number = static_cast<int>(note.field);
  if (note.form.kind == ValueKind::kText && !field.empty()) {
    const std::string_view raw = line.substr(fields.Start(note.field), field.size());
    FindInText(raw, field, note.form, number, findings);
    return;
  }
  const std::string sent = note.form(field);
  if (sent.empty()) {
    findings.push_back(Rejected(field, note.form));
    findings.back().field = number;
  } else {
    FindInNumber(field, note.form, sent, number, findings);
  }
}

/// Enough of `bytes` for the shown part, without splitting a UTF-8 character.
std::string_view Beginning(std::string_view bytes) {
  constexpr std::size_t kEnough = 4 * (kShownCharacters + 1);
  if (bytes.size() <= kEnough) return bytes;
  std::size_t end = kEnough;
  while (end > 0 && (static_cast<unsigned char>(bytes[end]) & 0xC0) == 0x80) --end;
  return bytes.substr(0, end);
}

void FindInReplaced(std::string_view field, const FieldNote& note, TicketFindings& findings) {
  const std::string_view text = Trim(field);
  if (text.empty() || (OnlyDigits(text) && LeadingInteger(text) == LeadingInteger(note.text))) return;
  findings.push_back({false, "replaced", static_cast<int>(note.field),
                      SentAs(text, note.text) + "; " + Accepted(note.form)});
}

TicketFinding NoLogo(std::string_view field, int number) {
  if (Trim(field).empty()) {
    return {true, "empty", number, "a value is missing; accepted: the full path of a bitmap file"};
  }
  return {true, "no-logo", number,
          QuotedBytes(field) + " is not, on this PC, a bitmap that the register can store as its logo"};
}

/// No register stores a logo under such a number, but the connector sends it unchanged.
void FindInLogoNumber(const RecordFields& fields, int number, TicketFindings& findings) {
  const std::string sent = LogoRequestOf(fields).number;
  const int value = LeadingInteger(sent);
  if (value >= kLowestLogo && value <= kHighestLogo) return;
  findings.push_back({false, "logo-number", number,
                      SentAs(Trim(fields[1]), sent) + ": outside " + std::to_string(kLowestLogo) + " to " +
                          std::to_string(kHighestLogo)});
}

/// Whether the notes tell which fields the record's command uses.
bool CommandIsChosen(const TranslationNotes& notes) {
  return std::none_of(notes.begin(), notes.end(), [](const FieldNote& note) {
    return note.kind == FieldNote::Kind::kUnknownType || note.kind == FieldNote::Kind::kNoSuchChoice;
  });
}

}  // namespace

std::string QuotedBytes(std::string_view bytes) {
  const std::string shown = ShownBytes(Beginning(bytes));
  std::string cut = FirstCharacters(shown, kShownCharacters);
  if (cut.size() < shown.size()) cut += "...";
  return "'" + cut + "'";
}

void FindInValues(std::string_view line, const RecordFields& fields, const TranslationNotes& notes,
                  TicketFindings& findings) {
  for (const FieldNote& note : notes) {
    const std::string_view field = fields[note.field];
    const int number = static_cast<int>(note.field);
    switch (note.kind) {
      case FieldNote::Kind::kFormatted: FindInValue(line, fields, note, findings); break;
      case FieldNote::Kind::kReplaced: FindInReplaced(field, note, findings); break;
      case FieldNote::Kind::kRead:
      case FieldNote::Kind::kChoice:
      case FieldNote::Kind::kLogo: break;
      case FieldNote::Kind::kUnknownType:
        findings.push_back({true, "unknown-type", number, "there is no record type " + QuotedBytes(field)});
        break;
      case FieldNote::Kind::kNoSuchChoice:
        findings.push_back({true, "no-choice", number,
                            QuotedBytes(field) + " is not a choice; accepted: " + std::string(note.text)});
        break;
      case FieldNote::Kind::kLogoNumber: FindInLogoNumber(fields, number, findings); break;
      case FieldNote::Kind::kNoLogo: findings.push_back(NoLogo(field, number)); break;
      case FieldNote::Kind::kEmptyLogo:
        findings.push_back(
            {false, "logo-empty", number, QuotedBytes(field) + " is a bitmap of height 0: nothing is sent"});
        break;
    }
  }
}

void FindInUnusedFields(const RecordFields& fields, const TranslationNotes& notes, TicketFindings& findings) {
  if (!CommandIsChosen(notes)) return;
  for (std::size_t field = 1; field < fields.Count(); ++field) {
    // A number may select the command, or belong to a field that the type uses elsewhere.
    const bool holdsText = fields[field].find_first_not_of(" 0123456789+-,.") != std::string_view::npos;
    const bool isUsed = std::any_of(notes.begin(), notes.end(), [field](const FieldNote& note) {
      return note.field == field && note.kind != FieldNote::Kind::kChoice;
    });
    if (!holdsText || isUsed) continue;
    findings.push_back({false, "unused-text", static_cast<int>(field),
                        QuotedBytes(fields[field]) + " is lost: the command has no place for this field"});
  }
}

void SetColumns(std::string_view line, const RecordFields& fields, TicketFindings& findings) {
  const bool isUtf8 = ToUtf8(line) == line;
  const auto columnAt = [&](std::size_t at) {
    return 1 + (isUtf8 ? CountCharacters(line.substr(0, at)) : at);
  };
  const std::size_t last = fields.Count();  // the text without a separator behind it
  for (TicketFinding& finding : findings) {
    const auto field = static_cast<std::size_t>(finding.field);
    if (finding.field == TicketFinding::kWholeLine || field > last || last == 0) continue;
    const std::size_t start =
        field < last ? fields.Start(field) : fields.Start(last - 1) + fields[last - 1].size() + 1;
    const std::size_t size = (field < last ? fields[field] : fields.Rest()).size();
    finding.column = columnAt(start);
    finding.endColumn = columnAt(start + size);
  }
}

void FindBehindFields(const RecordFields& fields, char separator, TicketFindings& findings) {
  const std::string_view rest = fields.Rest();
  const bool full = fields.Count() == RecordFields::kMostFields;
  const bool holdsText =
      std::any_of(rest.begin(), rest.end(), [separator](char c) { return c != ' ' && c != separator; });
  // Trailing blanks are trimmed, so with a blank as separator every line must end in other text.
  if (!holdsText || (!full && separator == ' ')) return;
  if (full) {
    findings.push_back({false, "extra-text", TicketFinding::kWholeLine,
                        QuotedBytes(rest) + " stands behind the ninth field and is ignored"});
  } else {
    findings.push_back({false, "lost-text", static_cast<int>(fields.Count()),
                        QuotedBytes(rest) + " has no separator behind it and is lost"});
  }
}

}  // namespace orvenza
