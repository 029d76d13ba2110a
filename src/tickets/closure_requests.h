#pragma once

#include <cstddef>
#include <string>

#include "core/logs.h"
#include "core/settings.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "tickets/remembered_tickets.h"
#include "tickets/ticket_listing.h"
#include "ui/utilities_dialog.h"

namespace orvenza {

/// Requests the register's fiscal closure: a ticket at the end of the queue.
class ClosureRequests final : public WaitingTickets {
 public:
  ClosureRequests(Files& files, const Folders& folders, const AppSettings& settings, Logs& logs,
                  const RememberedTickets& remembered);

  /// Counts the new tickets still to be printed. It may be called in the middle of a tick, so it lists the
  /// folder itself.
  std::size_t CountWaitingTickets() override;

  /// Writes one line under a name that sorts after every ticket: record type 22 (with the financial report)
  /// for kind 1, otherwise 21.
  bool WriteClosureRequest(int kind) override;

 private:
  void PutLast(const std::string& name);

  Files& files_;
  const AppSettings& settings_;
  Logs& logs_;
  const RememberedTickets& remembered_;
  TicketListing listing_;
};

}  // namespace orvenza
