// Three days of a shop on the virtual disk: a kill before every file call, a kill halfway through every
// divisible one, and a failure of every one; if the operator is asked in doubt, a kill at every command and
// every reply, too.

#include <gtest/gtest.h>

#include <cstdio>
#include <ostream>
#include <string>
#include <vector>

#include "attack/attacked_shop.h"

namespace orvenza::test {
namespace {

/// Without optimisation, or with sanitizers, only some calls are attacked.
constexpr std::size_t kStep = ORVENZA_THINNED_ATTACK ? 13 : 1;

/// Most file calls between the reply to a ticket's last command and the end of its archiving, during which a
/// kill causes the ticket to be printed again; and the number of things printed on the first two days.
constexpr std::size_t kCallsAfterPrinting = 12;
constexpr std::size_t kCallsAfterPrintingElsewhere = 16;
constexpr std::size_t kPrinted = 6;

struct Sweep {
  std::string name;
  AttackedKind kind;
  Blow blow;
  /// The errors of the failing calls; if there are several, they take turns.
  std::vector<int> errors;
};

void PrintTo(const Sweep& sweep, std::ostream* out) { *out << sweep.name; }

std::vector<Sweep> Sweeps() {
  std::vector<Sweep> sweeps;
  const std::vector<int> errors{error_number::kDiskFull, error_number::kDeviceError,
                                error_number::kPermissionDenied, error_number::kTooManyFiles};
  const auto kills = [&](const std::string& shop, AttackedKind kind) {
    sweeps.push_back({shop + "KillBefore", kind, Blow::kKillBefore, {0}});
    sweeps.push_back({shop + "KillWithin", kind, Blow::kKillWithin, {0}});
  };
  const auto decides = [&](const std::string& shop, ShopKind kind) {
    kills(shop, {kind, false});
    const std::vector<std::string> names{"DiskFull", "DeviceError", "PermissionDenied", "TooManyFiles"};
    for (std::size_t i = 0; i < names.size(); ++i)
      sweeps.push_back({shop + names[i], {kind, false}, Blow::kFail, {errors[i]}});
  };
  decides("Plain", ShopKind::kPlain);
  decides("ArchiveElsewhere", ShopKind::kArchiveElsewhere);
  decides("TicketHeld", ShopKind::kTicketHeld);
  const auto asks = [&](const std::string& shop, ShopKind kind) {
    kills(shop, {kind, true});
    sweeps.push_back({shop + "KillOnLine", {kind, true}, Blow::kKillOnLine, {0}});
    sweeps.push_back({shop + "Fails", {kind, true}, Blow::kFail, errors});
  };
  asks("AskingPlain", ShopKind::kPlain);
  asks("AskingNotSplit", ShopKind::kNotSplit);
  asks("AskingArchiveElsewhere", ShopKind::kArchiveElsewhere);
  asks("AskingTicketHeld", ShopKind::kTicketHeld);
  return sweeps;
}

class VirtualAttack : public ::testing::TestWithParam<Sweep> {};

TEST_P(VirtualAttack, LeavesTheShopWhole) {
  const Sweep& sweep = GetParam();
  AttackedShop calm(sweep.kind, {});
  calm.LiveThreeDays();
  ASSERT_EQ(calm.Violations(), std::vector<std::string>());
  const FileCalls::Counts counted = calm.Calls().Counted();
  const std::size_t calls = sweep.blow == Blow::kKillWithin   ? counted.parts
                            : sweep.blow == Blow::kKillOnLine ? counted.onLine
                                                              : counted.calls;
  ASSERT_GT(calls, 20U);
  std::size_t struck = 0;
  std::size_t afterPrinting = 0;
  std::size_t asked = 0;
  for (std::size_t call = 1; call <= calls; call += kStep) {
    AttackedShop shop(sweep.kind, {sweep.blow, call, sweep.errors[call % sweep.errors.size()]});
    shop.LiveThreeDays();
    if (!shop.Calls().Struck().empty()) ++struck;
    if (shop.StruckAfterPrinting()) ++afterPrinting;
    if (shop.Questions() > 0) ++asked;
    for (const std::string& violation : shop.Violations()) {
      ADD_FAILURE() << "call " << call << ", " << shop.Calls().Struck() << ": " << violation;
    }
  }
  std::printf("%zu of %zu calls struck, %zu of them after a ticket was printed, %zu followed by a question\n",
              struck, calls, afterPrinting, asked);
  EXPECT_EQ(struck, (calls + kStep - 1) / kStep);
  if (sweep.kind.asksInDoubt) return;  // A question closes the window, however long it is.
  const bool elsewhere = sweep.kind.shop == ShopKind::kArchiveElsewhere;
  EXPECT_LE(afterPrinting, kPrinted * (elsewhere ? kCallsAfterPrintingElsewhere : kCallsAfterPrinting));
}

INSTANTIATE_TEST_SUITE_P(, VirtualAttack, ::testing::ValuesIn(Sweeps()),
                         [](const auto& sweep) { return sweep.param.name; });

}  // namespace
}  // namespace orvenza::test
