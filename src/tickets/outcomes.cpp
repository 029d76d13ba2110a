#include "tickets/outcomes.h"

#include <cstdio>
#include <utility>

#include "core/folder_path.h"
#include "core/text.h"

namespace orvenza {
namespace {

const char* WordOf(Decision decision) {
  switch (decision) {
    case Decision::kPrinted: return "printed";
    case Decision::kReprint: return "print-again";
    case Decision::kAbort: return "give-up";
    case Decision::kNothing:
    case Decision::kGoOn: break;
  }
  return "";
}

void Show(const LineTrouble& trouble, Outcome& outcome) {
  outcome.line = trouble.line;
  outcome.lineText = trouble.lineText;
  outcome.command = trouble.command;
  outcome.reply = trouble.reply;
}

}  // namespace

void Outcomes::Open(const std::string& folder, std::set<std::string> leftovers) {
  leftovers_ = std::move(leftovers);
  files_.Open(folder);
}

void Outcomes::Finish(const TicketFacts& ticket) {
  bool unreadable = false;
  const auto file = files_.FindStarted(ticket.name, ticket.text, unreadable);
  if (file == nullptr) return;
  file->outcome.done = true;
  file->outcome.reason = OutcomeReason::kInterrupted;
  file->outcome.ended = Time();
  files_.Save(file);
}

/// The ticket, whose outcome may have been begun earlier in this run or, for a leftover, in another one.
Outcomes::OpenTicket& Outcomes::Open(const std::string& name, const Fingerprint& text) {
  const auto known = open_.find(name);
  if (known != open_.end() && known->second.file->outcome.text == text) return known->second;
  OpenTicket& ticket = open_[name];
  ticket = {};
  if (leftovers_.erase(name) > 0) {
    bool unreadable = false;
    ticket.file = files_.FindStarted(name, text, unreadable);
    if (unreadable) unreadable_.insert(name);
  }
  if (ticket.file == nullptr) {
    ticket.file = std::make_shared<OutcomeFile>();
    ticket.file->outcome.ticket = name;
    ticket.file->outcome.text = text;
    ticket.file->outcome.started = Time();
  }
  return ticket;
}

void Outcomes::Taken(const TicketFacts& ticket) {
  name_ = ticket.name;
  end_ = PrintEnd::kLeft;
  OpenTicket& open = Open(ticket.name, ticket.text);
  if (!open.proof) open.proof = ProofOf(ticket, open.file->outcome);
}

/// What an earlier run may have done counts, too.
ReceiptProof Outcomes::ProofOf(const TicketFacts& ticket, Outcome& outcome) const {
  ReceiptProof proof(ticket.completes);
  const Standing standing = evidence_.Of(ticket);
  const bool begunEarlier = standing.state != Standing::State::kNew;
  if (begunEarlier && outcome.attempts == 0) outcome.attempts = 1;
  const bool evident = standing.state == Standing::State::kUnknown || standing.line != 0 ||
                       standing.progress != DocumentProgress();
  if (evident || outcome.receipt == ReceiptState::kDoubtful || unreadable_.contains(ticket.name))
    proof.MayHaveCompletedEarlier(std::exchange(outcome.reason, OutcomeReason::kNothing));
  return proof;
}

void Outcomes::Begun(const DocumentProgress& progress, bool certain) {
  OpenTicket& open = open_.at(name_);
  open.proof->Begun(progress, certain);
  Outcome& outcome = open.file->outcome;
  outcome.receipt = open.proof->SoFar();
  if (open.proof->Trouble()) Show(*open.proof->Trouble(), outcome);
  // The file of a part was written when its source was split.
  if (++outcome.attempts > 1 || open.file->path.empty()) files_.Save(open.file);
}

/// Before the first command that may complete something, the file says so: the program may stop behind it.
void Outcomes::Sending(const SentCommand& command) {
  OpenTicket& open = open_.at(name_);
  open.proof->Sending(command);
  Outcome& outcome = open.file->outcome;
  if (!command.completes || outcome.receipt == ReceiptState::kDoubtful) return;
  outcome.receipt = ReceiptState::kDoubtful;
  const LineTrouble before{outcome.line, outcome.lineText, outcome.command, outcome.reply};
  Show({command.line, FromWindows1252(command.text), FromWindows1252(command.command), {}}, outcome);
  files_.Save(open.file);
  Show(before, outcome);
}

void Outcomes::Replied(const SentCommand& command, const Reply& reply, const DocumentProgress& progress) {
  open_.at(name_).proof->Replied(command, reply, progress);
}

void Outcomes::Troubled(const SentCommand& command, const Reply& reply) {
  open_.at(name_).proof->Troubled(command, reply);
}

void Outcomes::Decided(Decision decision) {
  const auto open = open_.find(name_);
  if (open == open_.end()) return;  // about a query at the start
  open->second.proof->Decided(decision);
  std::string& answers = open->second.file->outcome.answers;
  answers.append(answers.empty() ? "" : ",").append(WordOf(decision));
}

/// A receipt that is open before anything of the current ticket was sent comes from another one: from the
/// last one, or one that was left. The file says so before the payment is sent.
void Outcomes::ClosedAutomatically() {
  const auto current = open_.find(name_);
  if (current != open_.end() && current->second.file->outcome.attempts > 0)
    return NoteClosed(current->second);
  for (auto& [name, ticket] : open_) {
    if (ticket.file->outcome.attempts > 0) NoteClosed(ticket);
  }
  for (const std::string& name : leftovers_) {
    bool unreadable = false;
    const auto file = files_.FindStarted(name, {}, unreadable);
    if (unreadable) unreadable_.insert(name);
    if (file != nullptr) NoteClosed(file);
  }
  if (last_ != nullptr) NoteClosed(last_);
}

void Outcomes::NoteClosed(OpenTicket& ticket) {
  if (ticket.proof) ticket.proof->ClosedAutomatically();
  NoteClosed(ticket.file);
}

/// The only case in which an outcome may change after its end.
void Outcomes::NoteClosed(const std::shared_ptr<OutcomeFile>& file) {
  const ReceiptState said = std::exchange(file->outcome.receipt, ReceiptState::kDoubtful);
  if (said == ReceiptState::kYes) file->outcome.receipt = said;
  if (said == ReceiptState::kYes || said == ReceiptState::kDoubtful) return;
  file->outcome.reason = OutcomeReason::kClosedAutomatically;
  files_.Save(file);
}

void Outcomes::Ended(PrintEnd end) { end_ = end; }

void Outcomes::Filed(const std::string& path) {
  const auto open = open_.find(name_);
  if (open == open_.end()) return;
  const ReceiptProof& proof = *open->second.proof;
  Outcome& outcome = open->second.file->outcome;
  outcome.done = true;
  outcome.receipt = proof.AtEnd(end_);
  outcome.reason = proof.ReasonAtEnd(end_);
  outcome.filed = path;
  outcome.ended = Time();
  if (proof.Trouble()) Show(*proof.Trouble(), outcome);
  last_ = open->second.file;
  open_.erase(open);
  unreadable_.erase(name_);
  name_.clear();
  files_.Save(last_);
}

void Outcomes::Splitting(const std::string& source, const std::vector<SplitPart>& parts) {
  const std::string sourceName = FileNameOf(source);
  for (std::size_t i = 0; i < parts.size(); ++i) {
    OpenTicket& part = Open(FileNameOf(parts[i].path), parts[i].text);
    if (!part.file->path.empty()) continue;
    part.file->outcome.source = sourceName;
    part.file->outcome.part = i + 1;
    files_.Save(part.file);
  }
}

void Outcomes::Split(const std::string& source, const std::vector<SplitPart>& parts) {
  const std::string name = FileNameOf(source);
  const auto known = open_.find(name);
  const auto file = known == open_.end() ? std::make_shared<OutcomeFile>() : known->second.file;
  if (known != open_.end()) open_.erase(known);
  Outcome& outcome = file->outcome;
  outcome.ticket = name;
  outcome.done = true;
  outcome.receipt = ReceiptState::kNone;
  outcome.reason = OutcomeReason::kSplit;
  outcome.parts = parts.size();
  outcome.ended = Time();
  if (outcome.started.empty()) outcome.started = outcome.ended;
  files_.Save(file);
}

std::string Outcomes::Time() const {
  const LocalTime now = logs_.StampClock().Now();
  char text[80];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", now.year, now.month, now.day, now.hour,
                now.minute, now.second);
  return text;
}

}  // namespace orvenza
