#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "lab/check/line_findings.h"
#include "simulator/receipt.h"

namespace orvenza {

struct RegisterCommand;
enum class CommandPlace;

/// Follows the commands of one ticket, a file or part of one, and reports receipts and documents that do not
/// begin or end properly. It calculates like the simulated register.
class ReceiptWatch {
 public:
  /// Handles the command text of a valid line.
  void Follow(const std::string& text, TicketFindings& findings);

  /// Handles an invalid line of record type `type`: the receipt's sum is unknown from now on. If the line may
  /// have closed the receipt, so is whether it is still open.
  void Miss(std::string_view type);

  /// Ends the ticket; `where` is the beginning of the finding, such as "the file ends".
  void End(std::string_view where, TicketFindings& findings);

 private:
  bool FindRefused(const RegisterCommand& command, TicketFindings& findings) const;
  std::string_view WhyNot(CommandPlace place) const;
  void FindPrinted(std::string_view what, TicketFindings& findings) const;
  void BeginSale(TicketFindings& findings);
  void FollowSums(const RegisterCommand& command, const std::string& text);
  void Void();
  void EndReceipt();
  void Forget();
  void FindUnpaid(std::string_view where, TicketFindings& findings) const;

  // At most one of the two is open.
  std::optional<Receipt> receipt_;
  bool documentOpen_ = false;
  bool anyEnded_ = false;
  bool anyPrinted_ = false;       // and would be printed again with the ticket; voided receipts do not count
  std::string_view lastReceipt_;  // what became of it; "" if nothing was sold yet
  bool sumKnown_ = true;
  bool allKnown_ = true;  // about every receipt so far
  bool endKnown_ = true;
};

}  // namespace orvenza
