#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clock.h"
#include "simulator/paper_roll.h"
#include "simulator/receipt.h"
#include "simulator/register_profile.h"

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

  SimulatedRegister(const Clock& clock, PaperRoll& paper, RegisterProfile profile = {});

  /// Executes `command` and returns the reply text.
  std::string Execute(const std::string& text);

  /// The paper runs out now. The next printing command is still accepted, but its lines are held back and its
  /// reply is the paper's error. Further ones and the status query are refused with that error until "1149",
  /// which prints the lines held back.
  void RunOutOfPaper(Paper paper) { paperOut_ = paper; }

  bool PaperOut() const { return paperOut_.has_value(); }

  /// Whether a receipt or a non-fiscal document is open.
  bool ReceiptOpen() const { return receipt_.has_value() || documentOpen_; }

  /// Closed and voided receipts, oldest first.
  const std::vector<PrintedReceipt>& Receipts() const { return receipts_; }

  /// Since the last fiscal closure: the sum in cents and the number of closed receipts.
  std::int64_t DailyTotal() const { return dailyTotal_; }
  int DailyReceipts() const { return dailyReceipts_; }

  int FiscalClosures() const { return fiscalClosures_; }

  /// Logo rows received so far.
  std::size_t LogoRows() const { return logoRows_; }

 private:
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
  void Restart();

  LocalTime Now() const;
  bool ReceiptFull() const;
  std::string PaperError() const;
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
  std::optional<Receipt> receipt_;            ///< Empty while no receipt is open.
  bool documentOpen_ = false;                 ///< A non-fiscal document.
  std::map<std::int64_t, std::string> foot_;  ///< Lines for the end of the next receipt, by position.
  std::optional<Paper> paperOut_;
  bool commandHeld_ = false;  ///< A command was accepted after the paper ran out.
  std::vector<std::string> linesHeld_;
  std::size_t linesPrinted_ = 0;  ///< On this roll.
  std::vector<PrintedReceipt> receipts_;
  std::int64_t dailyTotal_ = 0;
  int dailyReceipts_ = 0;
  int fiscalClosures_ = 0;
  std::size_t logoRows_ = 0;
};

}  // namespace orvenza
