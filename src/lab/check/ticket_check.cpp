#include "lab/check/ticket_check.h"

#include <algorithm>
#include <cctype>
#include <utility>
#include <vector>

#include "core/text.h"
#include "lab/shell/wording.h"
#include "tickets/record_types.h"

namespace orvenza {
namespace {

std::string CharacterName(char c) {
  const std::string code = "character " + std::to_string(c);
  return c > 32 && c < 127 ? code + " '" + c + "'" : code;
}

bool MayBeSeparator(char c) { return c == 127 || std::ispunct(static_cast<unsigned char>(c)) != 0; }

}  // namespace

TicketCheck::TicketCheck(CheckRules rules, const FileReader& files, Clock& clock)
    : rules_(std::move(rules)),
      silence_(noFiles_, clock, rules_.settings, {}),
      translator_(rules_.identity, rules_.settings, files, silence_),
      boundary_(rules_.settings.SeparatorChar),
      meant_(boundary_) {}

void TicketCheck::BeginFile() {
  boundary_ = meant_ = TicketBoundary(rules_.settings.SeparatorChar);
  lines_ = 0;
  holdsRecord_ = false;
  watch_ = ReceiptWatch();
}

void TicketCheck::Skip(std::string_view beginning, TicketFindings& findings) {
  ++lines_;
  holdsRecord_ = true;
  fields_ = RecordFields();
  FollowParser(beginning, findings);
  watch_.Miss({});
}

const std::string& TicketCheck::Check(std::string_view line, TicketFindings& findings) {
  command_.clear();
  beganTicket_ = false;
  ++lines_;
  SplitRecord(line, rules_.settings.SeparatorChar, fields_);
  if (fields_.IsEmpty()) return command_;
  holdsRecord_ = true;
  FollowParser(line, findings);
  if (fields_.Count() == 0) {
    FindNoFields(line, findings);
    watch_.Miss({});
    return command_;
  }
  notes_.clear();
  command_ = translator_.TranslateRecord(fields_, &notes_);
  FindInValues(line, fields_, notes_, findings);
  FindInUnusedFields(fields_, notes_, findings);
  if (IsUnknownType()) {
    const std::string meant = TypeMeant();
    findings.back().text += meant.empty() ? "; the types are " + KnownTypes() : "; write '" + meant + "'";
  }
  FindBehindFields(fields_, rules_.settings.SeparatorChar, findings);
  if (!findings.empty()) SetColumns(line, fields_, findings);
  if (command_.empty()) {
    watch_.Miss(IsUnknownType() ? std::string_view() : fields_[0]);
  } else {
    watch_.Follow(command_, findings);
  }
  return command_;
}

void TicketCheck::FollowParser(std::string_view line, TicketFindings& findings) {
  if (!rules_.settings.FileParser) return;
  beganTicket_ = boundary_.Begins(line);
  FindHiddenType(line, beganTicket_, findings);
  if (!beganTicket_) return;
  watch_.End("\"File Parser\" splits the file before this line", findings);
  watch_ = ReceiptWatch();
}

void TicketCheck::FindHiddenType(std::string_view line, bool begins, TicketFindings& findings) {
  const bool hidden = fields_.Count() > 0 && boundary_.TypeOf(line) != fields_[0];
  const bool meantToBegin = meant_.Begins(hidden ? line.substr(fields_.Start(0)) : line);
  if (begins && !meantToBegin) {
    findings.push_back({false, "hidden-type", 0,
                        "what stands before the type hides it from \"File Parser\", which splits the file "
                        "before this line as if it did not close the receipt"});
  } else if (meantToBegin && !begins) {
    findings.push_back({false, "hidden-type", TicketFinding::kWholeLine,
                        "\"File Parser\" does not split the file before this line: what stands before the "
                        "type in line " +
                            std::to_string(lastHidden_) + " hides that it closes the receipt"});
  }
  if (begins != meantToBegin) meant_ = boundary_;
  if (hidden && HasRole(fields_[0], &RecordRoles::closesTicket)) lastHidden_ = lines_;
}

void TicketCheck::FindNoFields(std::string_view line, TicketFindings& findings) const {
  const std::string_view text = Trim(fields_.Rest());
  if (text.empty()) {
    findings.push_back(
        {true, "no-separator", TicketFinding::kWholeLine,
         QuotedBytes(Trim(line)) + " contains no ASCII character, so only blanks are left of it"});
    return;
  }
  std::string said = "the separator, " + CharacterName(rules_.settings.SeparatorChar) +
                     ", does not occur in " + QuotedBytes(text);
  // Even with a different separator, a line begins with its record type.
  const std::size_t end = text.find_first_not_of("0123456789");
  if (end != 0 && end != std::string_view::npos && MayBeSeparator(text[end])) {
    said += "; did you mean " + CharacterName(text[end]) + "?";
  }
  findings.push_back({true, "no-separator", TicketFinding::kWholeLine, std::move(said)});
}

bool TicketCheck::IsUnknownType() const {
  return !notes_.empty() && notes_.back().kind == FieldNote::Kind::kUnknownType;
}

std::string TicketCheck::TypeMeant() const {
  std::string_view type = Trim(fields_[0]);
  type = type.substr(0, type.find_first_of(".,"));
  type = type.substr(std::min(type.find_first_not_of('0'), type.size()));
  return FindRecordType(type) != nullptr ? std::string(type) : std::string();
}

std::string TicketCheck::KnownTypes() {
  std::vector<int> numbers;
  for (const RecordType& row : RecordTypes()) numbers.push_back(LeadingInteger(row.type));
  return NumberRanges(numbers);
}

}  // namespace orvenza
