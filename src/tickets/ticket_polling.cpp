#include "tickets/ticket_polling.h"

namespace orvenza {
namespace {

constexpr const char* kLabel = "Timer1 - ";

}  // namespace

void TicketPolling::Tick() {
  timer_.SetEnabled(false);
  const bool newListed = failures_.Attempt(kLabel, [&] { folders_.RefreshNewList(); });
  // Without the list of tickets taken in, a new ticket could replace one of the same name.
  const bool listed = failures_.Attempt(kLabel, [&] { folders_.RefreshInProcessList(); });
  const bool recalled = folders_.Recall();
  if (newListed && listed) queue_.ForgetGone();
  failures_.Attempt(kLabel, [&] { commandFile_.QuitIfAsked(); });
  if (listed && recalled) failures_.Attempt(kLabel, [&] { queue_.ProcessOneTicket(); });
  failures_.Attempt(kLabel, [&] { clockCheck_.Tick(); });
  failures_.EndRound();
  timer_.SetEnabled(true);
}

}  // namespace orvenza
