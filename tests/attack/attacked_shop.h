#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "app/connector.h"
#include "attack/attack.h"
#include "attack/attacked_disk.h"
#include "core/event_loop.h"
#include "lab/rehearsal/bounded_pump.h"
#include "platform/ini_profile_file.h"
#include "simulator/paper_roll.h"
#include "simulator/scripted_operator.h"
#include "simulator/simulated_link.h"
#include "simulator/simulated_register.h"
#include "simulator/virtual_clock.h"
#include "simulator/virtual_disk.h"
#include "ui/notification_icon.h"

namespace orvenza::test {

/// How a shop differs from an ordinary one.
enum class ShopKind {
  kPlain,
  kArchiveElsewhere,  ///< The historic folder is on another volume, so tickets are copied there.
  kTicketHeld,        ///< Another program reads a ticket of the second day until the day ends.
  kNotSplit,          ///< A file of several receipts is printed as a whole.
};

/// A shop, and who decides there when a receipt is in doubt.
struct AttackedKind {
  ShopKind shop = ShopKind::kPlain;
  bool asksInDoubt = false;  ///< The operator, who answers truthfully; the shop has been set up already.
};

/// One receipt of a ticket.
struct Slip {
  std::string item;        ///< Unique; printed on the receipt and part of the ticket file.
  std::int64_t total = 0;  ///< In cents.
  bool abandoned = false;  ///< The operator gives this ticket up.
};

/// Three days of a shop with one attack during the first two: the first start ever; then a day with the
/// rotation, a file of several receipts, one that is given up, "Configura" and the fiscal closure; then a
/// quiet day to see what is left. A killed program is restarted at once on the same disk and with the same
/// register.
class AttackedShop {
 public:
  AttackedShop(AttackedKind kind, const Attack& attack);

  void LiveThreeDays();

  /// Violated expectations, as sentences; empty when all is well.
  const std::vector<std::string>& Violations() const { return violations_; }

  const FileCalls& Calls() const { return calls_; }

  /// Whether the kill came between printing a ticket and archiving it, so that it may be printed again unless
  /// somebody is asked.
  bool StruckAfterPrinting() const { return !printedAtKill_.empty() || closedAtKill_; }

  /// How often the operator was asked about an interrupted ticket.
  int Questions() const { return questions_; }

 private:
  class NoIcon : public NotificationIcon {
    void CreateIcon(const std::string&) override {}
    void DeleteIcon() override {}
  };

  void SetUpSettings();
  void FirstDay();
  void Technician();
  void SecondDay();
  void ThirdDay();
  void After(std::chrono::milliseconds delay, std::function<void()> event);
  void RunUntilQuit();
  bool RunOnce();
  void OnTick();
  bool TicketsWait() const;
  int Starts() const;
  void NoteKill();
  std::string Answer(const ShownDialog& dialog);
  std::string Choose(const ShownDialog& dialog);
  bool IsOnPaper(const std::string& heading) const;

  void Judge();
  void JudgeSlip(const Slip& slip);
  void JudgeSettings(const std::string& when);
  void Violate(const std::string& what) { violations_.push_back(what); }
  std::size_t Printed(const Slip& slip) const;
  std::vector<std::string> FilesWith(const std::string& item, const std::string& folder) const;

  AttackedKind kind_;
  Attack attack_;
  FileCalls calls_;
  VirtualClock clock_;
  VirtualDisk disk_;
  AttackedFiles files_;
  AttackedFolders folders_;
  IniProfileFile profile_;
  std::optional<BoundedPump> pump_;
  std::optional<EventLoop> loop_;  ///< Both are recreated for each start.
  ScriptedOperator person_;
  NoIcon icon_;
  PaperRoll paper_;
  SimulatedRegister device_;
  SimulatedLink link_;

  Connector* connector_ = nullptr;
  std::vector<Slip> expected_;
  int eventsToCome_ = 0;
  bool quitAsked_ = false;
  bool settingsOfTheShop_ = false;  ///< The settings were changed by hand.
  std::set<std::string> printedAtKill_;
  bool closedAtKill_ = false;
  int questions_ = 0;
  std::vector<std::string> violations_;
};

}  // namespace orvenza::test
