#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "lab/check/line_findings.h"
#include "simulator/receipt.h"

namespace orvenza {

class CommandFields;

/// Follows the commands of one ticket, a file or a part of one, and tells where its receipts and documents
/// do not begin or end as they should. It counts as the simulated register does.
class ReceiptWatch {
 public:
  /// A valid line and its command.
  void Follow(const std::string& command, TicketFindings& findings);

  /// An invalid line of record type `type`: what the receipt comes to is not known any more, and where it
  /// may have been its end, nor is whether it is closed.
  void Miss(std::string_view type);

  /// The end of the ticket, which `where` names: "the file ends".
  void End(std::string_view where, TicketFindings& findings);

 private:
  enum class Effect;
  enum class Place;
  struct Demand;
  static Effect EffectOf(std::string_view code);
  static Demand DemandOf(Effect effect);

  bool FindRefused(Effect effect, TicketFindings& findings) const;
  bool Fits(Place place) const;
  std::string_view WhyNot(Place place) const;
  void FindPrinted(std::string_view what, TicketFindings& findings) const;
  void BeginSale(TicketFindings& findings);
  void FollowSums(Effect effect, CommandFields& fields);
  void Void();
  void EndReceipt();
  void Forget();
  void FindUnpaid(std::string_view where, TicketFindings& findings) const;

  // At most one of the two is open.
  std::optional<Receipt> receipt_;
  bool documentOpen_ = false;
  bool anyEnded_ = false;
  bool anyPrinted_ = false;       // and would be printed again with the ticket: nothing voided
  std::string_view lastReceipt_;  // what became of it; "" where nothing was sold yet
  bool sumKnown_ = true;
  bool allKnown_ = true;  // of every receipt so far
  bool endKnown_ = true;
};

}  // namespace orvenza
