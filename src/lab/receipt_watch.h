#pragma once

#include <optional>
#include <string>

#include "lab/line_findings.h"
#include "simulator/receipt.h"

namespace orvenza {

/// Follows the commands of one ticket file and tells where its receipts do not end as they should. It counts
/// as the simulated register does.
class ReceiptWatch {
 public:
  /// `severalReceipts`: the file is split before it is printed, so it may hold more than one.
  explicit ReceiptWatch(bool severalReceipts) : severalReceipts_(severalReceipts) {}

  /// A valid line and its command.
  void Follow(const std::string& command, TicketFindings& findings);

  /// An invalid line of record type `type`: what the receipt comes to is not known any more, and where it
  /// may have been its end, nor is whether it is closed.
  void Miss(std::string_view type);

  /// The end of the file.
  void End(TicketFindings& findings);

 private:
  void BeginSale(TicketFindings& findings);
  void Void();
  void EndReceipt();
  void FindUnpaid(TicketFindings& findings) const;

  bool severalReceipts_;
  std::optional<Receipt> receipt_;
  bool documentOpen_ = false;
  bool anyEnded_ = false;
  bool sumKnown_ = true;
  bool endKnown_ = true;
};

}  // namespace orvenza
