#include "tickets/closure_requests.h"

#include <algorithm>

#include "core/text.h"
#include "platform/name_mask.h"
#include "platform/system_error.h"

namespace orvenza {
namespace {

/// The label of the utilities dialog's failures in the error log.
constexpr const char* kLabel = "Orv_Uti - ";

constexpr int kWithFinancialReport = 1;

/// All fields of the record except its type are empty.
constexpr std::size_t kSeparators = 9;

/// Sorts after the name of any ordinary ticket.
std::string RequestName(const std::string& mask) {
  std::string blanked = mask;
  std::replace(blanked.begin(), blanked.end(), '*', ' ');
  std::string name = std::string(16, 'z').append(Trim(blanked));
  const bool canBeNamed = name.find('?') == std::string::npos;
  if (mask.empty() || (canBeNamed && MatchesMask(name, mask))) return name;
  // A mask without "*", or with other text before it, would never match that name.
  name = mask;
  std::replace(name.begin(), name.end(), '?', 'z');
  if (const std::size_t star = name.find('*'); star != std::string::npos) {
    std::erase(name.replace(star, 1, 16, 'z'), '*');
  }
  return name;
}

}  // namespace

ClosureRequests::ClosureRequests(Files& files, const Folders& folders, const AppSettings& settings,
                                 Logs& logs, const RememberedTickets& remembered)
    : files_(files),
      settings_(settings),
      logs_(logs),
      remembered_(remembered),
      listing_(folders, settings, logs, remembered.Path()) {}

std::size_t ClosureRequests::CountWaitingTickets() {
  const TicketListing::SortedList list = listing_.Read(settings_.TicketFolder);
  const auto waits = [&](const std::string& entry) { return !remembered_.Get().takenIn.contains(entry); };
  return static_cast<std::size_t>(std::count_if(list.begin(), list.end(), waits));
}

bool ClosureRequests::WriteClosureRequest(int kind) {
  const std::string name = RequestName(settings_.TicketMask);
  const bool written = logs_.Attempt(kLabel, [&] {
    const std::string path = settings_.TicketFolder + name;
    // If all tickets have the same name, a waiting one must not be replaced.
    if (name == settings_.TicketMask && files_.Exists(path)) {
      throw SystemError(error_number::kFileExists, path);
    }
    std::string line = kind == kWithFinancialReport ? "22" : "21";
    line.append(kSeparators, settings_.SeparatorChar).append(kLineBreak);
    files_.Write(path, line);
  });
  // The closure must not precede the tickets of the day, even if the clock was set back.
  if (written) logs_.Attempt(kLabel, [&] { PutLast(name); });
  return written;
}

/// Moves the file `name` of the input folder to the end of the queue, regardless of file times.
void ClosureRequests::PutLast(const std::string& name) {
  const TicketListing::SortedList list = listing_.Read(settings_.TicketFolder);
  if (list.empty() || TicketListing::NameOf(list.back()) == name) return;
  files_.CopyModified(settings_.TicketFolder + TicketListing::NameOf(list.back()),
                      settings_.TicketFolder + name);
}

}  // namespace orvenza
