#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/clock.h"
#include "simulator/paper_roll.h"
#include "simulator/register_profile.h"
#include "simulator/register_state.h"

namespace orvenza {

struct RegisterCommand;
struct CommandData;

/// A receipt that was closed or voided.
struct PrintedReceipt {
  int number = 0;                  ///< Counted from 1 after each fiscal closure; 0 for a voided one.
  std::int64_t total = 0;          ///< In cents; for a voided receipt, the sum sold until then.
  std::vector<std::string> lines;  ///< As printed, including heading and divider.
  bool voided = false;
};

/// The fiscal register itself: executes one command after the other, keeps the receipt and prints. It has no
/// notion of the line or of waiting. Its clock runs independently of the PC's.
///
/// A normal reply begins with the command's first four digits. A refused command changes nothing and is
/// answered with "ERR" and a two-digit code: 01 or 02 paper out, 11 out of sequence, 13 malformed data, 16
/// unknown command, 17 not while a receipt is open, 20 value too large. For a full receipt the reply is
/// "ERR2323", with the code in characters 4 and 5 and again in 6 and 7.
class SimulatedRegister {
 public:
  /// At least this many closed and voided receipts are kept; older ones are dropped, so that days of printing
  /// do not fill the memory.
  static constexpr std::size_t kReceiptsKept = 10000;

  /// Receives the state after each command.
  using Keeper = std::function<void(const RegisterState&)>;

  /// `remembered` is the state of a register that goes on; empty: a new register.
  SimulatedRegister(const Clock& clock, PaperRoll& paper, RegisterProfile profile = {},
                    std::optional<RegisterState> remembered = {});

  /// Null: nobody keeps the state.
  void SetKeeper(Keeper keeper) { keeper_ = std::move(keeper); }

  const RegisterState& State() const { return state_; }

  /// Executes `command` and returns the reply text.
  std::string Execute(const std::string& text);

  /// The paper runs out now. The next printing command is still accepted, but its lines are held back and its
  /// reply is the paper's error. Further ones and the status query are refused with that error until "1149",
  /// which prints the lines held back.
  void RunOutOfPaper(Paper paper) { state_.paperOut = paper; }

  /// `paper` is taken out, or new paper is put in (`in`). While it is out, "1149" is refused, too. After that
  /// the lines held back wait for "1149"; without such lines the register goes on at once.
  void SetPaper(Paper paper, bool in);
  bool PaperIn(Paper paper) const { return !missing_.contains(paper); }

  /// The register's key. Unless it is in the position for selling (`on`), every command that prints is
  /// refused with 17.
  void TurnKey(bool on) { keyOn_ = on; }
  bool KeyOn() const { return keyOn_; }

  /// Called when a receipt or document was voided, with the number of its lines that were printed since the
  /// start, of which the last may be held back; null: nobody.
  void SetVoidObserver(std::function<void(std::size_t lines)> observer) {
    voidObserver_ = std::move(observer);
  }

  /// The text of an item that somebody keys in at the register itself.
  static constexpr std::string_view kKeyedInItem = "A MANO";

  /// Somebody keys an item of 1.00 in at the register itself. Without effect while anything is open.
  void KeyInItem();

  /// Somebody has the receipt of such an item paid. Without effect while none is open.
  void PayWhatWasKeyedIn();

  bool PaperOut() const { return state_.paperOut.has_value(); }

  /// Whether a receipt or a non-fiscal document is open.
  bool ReceiptOpen() const { return state_.receipt.has_value() || state_.documentOpen; }

  /// Closed and voided receipts, oldest first.
  const std::vector<PrintedReceipt>& Receipts() const { return receipts_; }

  /// Since the last fiscal closure: the sum in cents and the number of closed receipts.
  std::int64_t DailyTotal() const { return state_.dailyTotal; }
  int DailyReceipts() const { return state_.dailyReceipts; }

  int FiscalClosures() const { return state_.fiscalClosures; }

  /// Logo rows received so far.
  std::size_t LogoRows() const { return state_.logoRows; }

 private:
  std::string Answer(const std::string& text);
  std::string CarryOut(const RegisterCommand& command, const CommandData& data);
  std::string Status(const RegisterCommand& command) const;
  std::string TimeOfDay(const RegisterCommand& command) const;

  // One function per group of commands: returns the error code of a refusal, "" on success.
  std::string_view Sell(const RegisterCommand& command, const CommandData& data);
  std::string_view TakeBack(const RegisterCommand& command, const CommandData& data);
  std::string_view ChangePrice(const RegisterCommand& command, const CommandData& data);
  std::string_view Subtotal(const RegisterCommand& command);
  std::string_view Pay(const RegisterCommand& command, const CommandData& data);
  std::string_view Void();
  std::string_view PrintText(const CommandData& data);
  std::string_view MoveCash(const RegisterCommand& command, const CommandData& data);

  void OpenDocument();
  void Report(const RegisterCommand& command);
  void FiscalClosure(const RegisterCommand& command);
  std::string_view Restart();
  void GoOnWithNewPaper();

  LocalTime Now() const;
  void RememberClock();
  bool ReceiptFull() const;
  std::string_view PaperCode() const;
  std::string_view EntryRefused() const;
  void PutOnPaper(const std::string& line);
  void Print(const std::string& line);
  void PrintEntry(const std::string& line);
  void PrintItem(const CommandData& item, std::int64_t amount);
  void PrintHead();
  void PrintEnd(std::string_view title);
  void PrintDay(const std::string& title);
  void EndReceipt(bool voided);
  void EndDocument(std::string_view title);

  const Clock& clock_;
  PaperRoll& paper_;
  RegisterProfile profile_;
  LocalTime clockStart_;  ///< The register's own clock at uptime `clockStartUptime_`.
  std::chrono::nanoseconds clockStartUptime_;
  RegisterState state_;
  std::vector<PrintedReceipt> receipts_;
  Keeper keeper_;
  std::set<Paper> missing_;  ///< Taken out.
  bool keyOn_ = true;
  std::size_t slipLines_;  ///< Printed or held back since the latest heading, or since the start.
  std::function<void(std::size_t)> voidObserver_;
};

}  // namespace orvenza
