#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace orvenza {

class CommandFields;
class Receipt;

enum class CommandEffect {
  kSetting,  ///< No simulated effect.
  kSell,
  kTakeBack,
  kChangeItem,   ///< A discount or surcharge on the last item.
  kChangeTotal,  ///< The same on the whole receipt.
  kSubtotal,
  kPay,
  kVoid,
  kPrintText,
  kSetFootLine,
  kOpenDocument,
  kPrintInDocument,
  kCloseDocument,
  kCashIn,
  kCashOut,
  kReport,
  kFiscalClosure,
  kRestart,
  kIdentity,
  kStatus,
  kTimeOfDay,
  kLogoRow,
};

/// The state in which the register accepts a command, by what must or must not be open.
enum class CommandPlace {
  kAnywhere,
  kInReceipt,
  kInDocument,
  kInEither,
  kInNeither,
  kOutsideDocument,
};

/// The data of a command. The layout decides which fields are used.
struct CommandData {
  std::string text{};
  std::int64_t number = 0;    ///< Position of a line at the end of the receipt.
  std::int64_t quantity = 0;  ///< In thousandths.
  std::int64_t amount = 0;    ///< In cents: a payment, a price for one piece, a surcharge or discount.
  std::int64_t rate = 0;      ///< In hundredths of a percent. Discounts are negative.
};

struct RegisterCommand {
  std::string_view code;
  CommandEffect effect;
  CommandPlace place;
  /// Parses the data in the command's layout. CommandFields::Complete reports a mismatch afterwards.
  CommandData (*read)(CommandFields& fields);
  /// Printed before the command's text.
  std::string_view title{};
};

/// The command with this code; null if there is none.
const RegisterCommand* FindRegisterCommand(std::string_view code);

bool IsTaken(CommandPlace place, bool receiptOpen, bool documentOpen);

/// Whether commands with this effect change the sums of a receipt.
bool ChangesSums(CommandEffect effect);

/// The amount in cents by which a command changes `receipt`, or that it pays.
std::int64_t AmountOf(const RegisterCommand& command, const CommandData& data, const Receipt& receipt);

/// Applies a command with this effect and amount to the sums of `receipt`. Returns the register's error code
/// if it is refused, otherwise "".
std::string_view ChangeSums(Receipt& receipt, CommandEffect effect, std::int64_t amount);

}  // namespace orvenza
