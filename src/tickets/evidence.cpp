#include "tickets/evidence.h"

#include <array>
#include <charconv>
#include <utility>

#include "core/own_texts.h"
#include "core/settings.h"
#include "core/text.h"
#include "platform/ini_text.h"
#include "platform/system_error.h"

namespace orvenza {
namespace {

constexpr const char* kLabel = "Evidence.ini - ";
constexpr const char* kSection = "Evidence";
constexpr const char* kSchema = "1";
/// The number of unknown files; followed by a number from 1, the name of one.
const std::string kUnknown = "Unknown";
constexpr std::string_view kNote =
    "; How far the ticket that was printed last had come. Written by Orvenza.\r\n";
/// Begins the last line, which holds the digest of everything before it.
constexpr std::string_view kCheck = "Check=";

struct StateName {
  Standing::State state;
  const char* name;
};
constexpr const char* kFiled = "filed";
constexpr std::array kStateNames{StateName{Standing::State::kBegun, "begun"},
                                 StateName{Standing::State::kUnderWay, "under-way"},
                                 StateName{Standing::State::kGivenUp, "given-up"}};

std::string NameOf(const std::optional<Standing>& standing) {
  for (const StateName& state : kStateNames) {
    if (standing && standing->state == state.state) return state.name;
  }
  return kFiled;
}

/// The number that `text` consists of; empty if it is none.
std::optional<std::uint64_t> NumberIn(const std::optional<std::string>& text) {
  std::uint64_t number = 0;
  if (!text || text->empty()) return std::nullopt;
  const auto [end, error] = std::from_chars(text->data(), text->data() + text->size(), number);
  return error == std::errc() && end == text->data() + text->size() ? std::optional(number) : std::nullopt;
}

std::string CheckLine(std::string_view text) {
  return std::string(kCheck) + std::to_string(FingerprintOf(text).digest) + std::string(kLineBreak);
}

/// The part of the text that its last line vouches for; empty if it does not.
std::string_view Checked(std::string_view text) {
  const std::size_t check = text.rfind(kCheck);
  if (check == std::string_view::npos || text.substr(check) != CheckLine(text.substr(0, check))) return {};
  return text.substr(0, check);
}

class Fields {
 public:
  explicit Fields(std::string_view text) : content_(text) {}

  std::string Text(const char* key) { return content_.Value(kSection, key).value_or(""); }
  std::uint64_t Number(const char* key) {
    const auto number = NumberIn(content_.Value(kSection, key));
    complete_ = complete_ && number.has_value();
    return number.value_or(0);
  }
  std::size_t Count(const char* key) { return static_cast<std::size_t>(Number(key)); }
  /// Whether every number was there.
  [[nodiscard]] bool Complete() const { return complete_; }

 private:
  IniText content_;
  bool complete_ = true;
};

std::optional<Standing> StandingIn(Fields& fields) {
  const std::string name = fields.Text("State");
  for (const StateName& state : kStateNames) {
    if (name != state.name) continue;
    return Standing{state.state, {fields.Count("Complete"), fields.Count("Paid")}, fields.Count("Line")};
  }
  return std::nullopt;
}

}  // namespace

std::string EvidencePath(const std::string& programFolder) { return programFolder + "\\" + kEvidenceName; }

std::string EvidenceText(const EvidenceRecord& record) {
  const Standing standing = record.standing.value_or(Standing{});
  std::string text(kNote);
  text.append("[").append(kSection).append("]").append(kLineBreak);
  const auto add = [&](const char* key, const std::string& value) {
    text.append(key).append("=").append(value).append(kLineBreak);
  };
  add("Schema", kSchema);
  add("State", NameOf(record.standing));
  add("Ticket", record.ticket.name);
  add("Stamp", record.ticket.stamp);
  add("Size", std::to_string(record.ticket.text.size));
  add("Digest", std::to_string(record.ticket.text.digest));
  add("Complete", std::to_string(standing.progress.Complete()));
  add("Paid", std::to_string(standing.progress.Paid()));
  add("Line", std::to_string(standing.line));
  add("Command", record.command);
  add("ReceiptOpen", record.receiptOpen ? "1" : "0");
  add(kUnknown.c_str(), std::to_string(record.unknown.size()));
  std::size_t number = 0;
  for (const std::string& name : record.unknown) add((kUnknown + std::to_string(++number)).c_str(), name);
  return text + CheckLine(text);
}

std::optional<EvidenceRecord> ParseEvidence(std::string_view text) {
  Fields fields(Checked(text));
  if (fields.Text("Schema") != kSchema) return std::nullopt;
  EvidenceRecord record;
  record.standing = StandingIn(fields);
  record.ticket = {
      fields.Text("Ticket"), fields.Text("Stamp"), {}, {fields.Number("Size"), fields.Number("Digest")}};
  record.command = fields.Text("Command");
  record.receiptOpen = fields.Number("ReceiptOpen") != 0;
  for (std::size_t number = fields.Count(kUnknown.c_str()); number > 0; --number)
    record.unknown.insert(fields.Text((kUnknown + std::to_string(number)).c_str()));
  const bool named = record.standing.has_value() || fields.Text("State") == kFiled;
  return named && fields.Complete() ? std::optional(record) : std::nullopt;
}

Standing StandingOf(const EvidenceRecord& record, const TicketFacts& ticket) {
  const TicketFacts& known = record.ticket;
  const bool sameName = known.name == ticket.name;
  if (record.standing && sameName && known.stamp == ticket.stamp && known.text == ticket.text)
    return *record.standing;
  const bool unknown = record.unknown.contains(ticket.name) || (record.standing && sameName);
  return {unknown ? Standing::State::kUnknown : Standing::State::kNew, {}, 0};
}

Evidence::Evidence(Files& files, Logs& logs, const std::string& programFolder)
    : files_(files), logs_(logs), path_(EvidencePath(programFolder)) {}

std::optional<TicketFacts> Evidence::Recall(const std::optional<std::set<std::string>>& leftovers) {
  std::optional<EvidenceRecord> found;
  logs_.Attempt(kLabel, [&] {
    if (files_.Exists(path_)) found = ParseEvidence(ReadWhole(files_, path_));
  });
  if (!found) {
    record_.unknown = leftovers.value_or(std::set<std::string>());
    if (!record_.unknown.empty()) logs_.WrErr(own_text::kNoEvidence);
    return std::nullopt;
  }
  record_ = *found;
  if (!leftovers) return std::nullopt;
  std::erase_if(record_.unknown, [&](const std::string& name) { return !leftovers->contains(name); });
  if (!record_.standing || leftovers->contains(record_.ticket.name)) return std::nullopt;
  record_.standing.reset();
  return record_.ticket;
}

void Evidence::Discard() {
  logs_.Attempt(kLabel, [&] {
    if (files_.Exists(path_)) RemoveReadOnlyToo(files_, path_);
  });
}

Standing Evidence::Of(const TicketFacts& ticket) const { return StandingOf(record_, ticket); }

bool Evidence::ReceiptMayBeOurs() const { return record_.standing.has_value() || record_.receiptOpen; }

void Evidence::Taken(const TicketFacts& ticket) { taken_ = ticket; }

void Evidence::Begun(const DocumentProgress& progress, bool) {
  // There is room for one ticket only. If another one is not finished, the operator is asked about it.
  if (record_.standing && record_.ticket.name != taken_.name) record_.unknown.insert(record_.ticket.name);
  record_.ticket = taken_;
  record_.standing = Standing{Standing::State::kBegun, progress, 0};
  record_.command.clear();
  record_.receiptOpen = false;
  record_.unknown.erase(taken_.name);
  Save();
}

void Evidence::Sending(const SentCommand& command) {
  record_.receiptOpen = record_.receiptOpen || command.opens;
  if (!command.completes || !record_.standing) return;
  record_.standing->state = Standing::State::kUnderWay;
  record_.standing->line = command.line;
  record_.command = command.command;
  Save();
}

void Evidence::Replied(const SentCommand& command, const Reply& reply, const DocumentProgress& progress) {
  if (!record_.standing) return;
  const bool done = progress != record_.standing->progress;
  record_.standing->progress = progress;
  if (!command.completes || !(done || reply.IsRefusal())) return;
  if (done) record_.receiptOpen = false;
  record_.standing->state = Standing::State::kBegun;
  record_.standing->line = 0;
  record_.command.clear();
  Save();
}

void Evidence::Decided(Decision decision) {
  const bool underWay = record_.standing && record_.standing->state == Standing::State::kUnderWay;
  if (decision == Decision::kPrinted && underWay) record_.receiptOpen = false;
}

void Evidence::Ended(PrintEnd end) {
  if (end != PrintEnd::kGivenUp || !record_.standing) return;
  record_.standing->state = Standing::State::kGivenUp;
  Save();
}

void Evidence::Filed(const std::string&) {
  record_.unknown.erase(taken_.name);
  record_.standing.reset();
  record_.ticket = taken_;
  Save();
}

void Evidence::Save() {
  try {
    files_.Write(path_, EvidenceText(record_));
    failing_ = false;
  } catch (const SystemError& failure) {
    if (!std::exchange(failing_, true)) logs_.WrFailure(kLabel, failure.Number(), failure.Description());
    RemoveOutdated();
  }
}

/// Without evidence the next start asks; with an outdated one it would be wrong.
void Evidence::RemoveOutdated() {
  try {
    if (files_.Exists(path_)) RemoveReadOnlyToo(files_, path_);
  } catch (const SystemError&) {
    // Already logged.
  }
}

}  // namespace orvenza
