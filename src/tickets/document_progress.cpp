#include "tickets/document_progress.h"

#include "tickets/record_types.h"

namespace orvenza {
namespace {

/// Whether a line after a payment belongs to the same receipt: the same lines as where "File Parser" divides.
bool BelongsToPaid(std::string_view type) {
  return HasRole(type, &RecordRoles::closesTicket) || HasRole(type, &RecordRoles::followsClosing);
}

}  // namespace

void DocumentProgress::Done(std::size_t number, std::string_view type) {
  complete_ = CompleteBefore(type);
  const bool ends = HasRole(type, &RecordRoles::endsReceipt) || MayComplete(type);
  const bool pays = BelongsToPaid(type) && HasRole(type, &RecordRoles::completes);
  paid_ = pays ? number : 0;
  if (ends && !pays) complete_ = number;
}

std::size_t DocumentProgress::CompleteBefore(std::string_view type) const {
  return paid_ != 0 && !BelongsToPaid(type) ? paid_ : complete_;
}

}  // namespace orvenza
