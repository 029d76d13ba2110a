#include "lab/handover/ticket_watch.h"

#include <algorithm>

#include "core/text.h"
#include "lab/shell/wording.h"
#include "platform/system_error.h"
#include "tickets/outcome.h"
#include "tickets/outcome_files.h"
#include "tickets/ticket_archive.h"

namespace orvenza {
namespace {

std::string ReceiptText(ReceiptState receipt) {
  switch (receipt) {
    case ReceiptState::kYes: return "printed";
    case ReceiptState::kNo: return "not printed";
    case ReceiptState::kDoubtful: return "in doubt, look at the paper";
    case ReceiptState::kNone: break;
  }
  return "done, it prints nothing";
}

/// "not printed (refused), line 2: 1;Pane;..., reply ERR13, filed as C:\Orvenza\data\abort\a.txt.abort.txt".
std::string TextOf(const Outcome& outcome) {
  std::string text = ReceiptText(outcome.receipt);
  if (outcome.reason != OutcomeReason::kPrinted) text += " (" + WordOf(outcome.reason) + ")";
  if (outcome.line > 0) {
    text += ", line " + std::to_string(outcome.line) + ": " + ShownLine(outcome.lineText, 60);
    text += outcome.reply.empty() ? "" : ", reply " + ShownBytes(outcome.reply);
  }
  return text + (outcome.filed.empty() ? "" : ", filed as " + outcome.filed);
}

bool IsInOrder(ReceiptState receipt) {
  return receipt == ReceiptState::kYes || receipt == ReceiptState::kNone;
}

}  // namespace

TicketWatch::TicketWatch(const FileReader& files, const Folders& folders, const AppSettings& settings,
                         const std::string& appPath)
    : files_(files),
      folders_(folders),
      settings_(settings),
      outcomes_(!settings.OutcomesFolder.empty() && !OutcomesFolderIsRefused(settings, appPath)) {}

std::optional<TicketFate> TicketWatch::FateOf(const HandedOver& ticket) const {
  try {
    return outcomes_ ? FateByOutcome(ticket) : FateByFolder(ticket);
  } catch (const SystemError&) {
    return std::nullopt;  // Tried again soon.
  }
}

std::optional<TicketFate> TicketWatch::FateByOutcome(const HandedOver& ticket) const {
  const auto outcome = Read(OutcomeName(ticket.name));
  if (!outcome || !outcome->done || outcome->text != FingerprintOf(ticket.text)) return std::nullopt;
  if (outcome->reason == OutcomeReason::kSplit) return FateOfParts(ticket, outcome->parts);
  return TicketFate{IsInOrder(outcome->receipt), TextOf(*outcome)};
}

/// The parts of a file that "File Parser" has split.
std::optional<TicketFate> TicketWatch::FateOfParts(const HandedOver& ticket, std::size_t count) const {
  std::vector<Outcome> parts;
  const std::string stem = ticket.name.substr(0, ticket.name.rfind('.'));
  for (const FolderEntry& entry : folders_.ListFolder(settings_.OutcomesFolder + "*" + stem + "*")) {
    const auto part = Read(entry.name);
    if (part && part->done && part->source == ticket.name) parts.push_back(*part);
  }
  if (parts.size() < count) return std::nullopt;
  std::sort(parts.begin(), parts.end(), [](const Outcome& a, const Outcome& b) { return a.part < b.part; });
  TicketFate fate{true, "split into " + CountOf(count, "ticket")};
  for (const Outcome& part : parts) {
    fate.inOrder = fate.inOrder && IsInOrder(part.receipt);
    fate.text += "\n  " + part.ticket + ": " + TextOf(part);
  }
  return fate;
}

/// The order matters: the connector moves a ticket from the ticket folder to the in-process folder, and from
/// there to its last place.
std::optional<TicketFate> TicketWatch::FateByFolder(const HandedOver& ticket) const {
  if (!folders_.Exists(settings_.TicketFolder)) return std::nullopt;  // A share may be away.
  if (files_.Exists(settings_.TicketFolder + ticket.name)) return std::nullopt;
  if (files_.Exists(settings_.InProcessFolder + ticket.name)) return std::nullopt;
  const std::string given = settings_.AbortFolder + AbortName(ticket.name);
  if (files_.Exists(given)) return TicketFate{false, "given up, look at the paper; filed as " + given};
  const std::string& historic = settings_.HistoricFolder;
  return TicketFate{true, historic.empty() ? "done and removed" : "done, filed in " + historic};
}

std::string TicketWatch::PlaceOf(const HandedOver& ticket) const {
  if (MayExist(files_, settings_.TicketFolder + ticket.name)) return "it waits in the ticket folder";
  if (MayExist(files_, settings_.InProcessFolder + ticket.name)) {
    return "it is being printed, or the operator is being asked";
  }
  return "it has left the ticket folder, but there is no outcome";
}

std::optional<Outcome> TicketWatch::Read(const std::string& name) const {
  const std::string path = settings_.OutcomesFolder + name;
  return files_.Exists(path) ? ParseOutcome(ReadWhole(files_, path)) : std::nullopt;
}

}  // namespace orvenza
