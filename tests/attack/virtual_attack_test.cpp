// Three days of a shop on the virtual disk: a kill before every file call, a kill halfway through every
// divisible one, and a failure of every one.

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
  ShopKind kind;
  Blow blow;
  int error;
};

void PrintTo(const Sweep& sweep, std::ostream* out) { *out << sweep.name; }

std::vector<Sweep> Sweeps() {
  std::vector<Sweep> sweeps;
  const auto add = [&](const std::string& shop, ShopKind kind) {
    sweeps.push_back({shop + "KillBefore", kind, Blow::kKillBefore, 0});
    sweeps.push_back({shop + "KillWithin", kind, Blow::kKillWithin, 0});
    sweeps.push_back({shop + "DiskFull", kind, Blow::kFail, error_number::kDiskFull});
    sweeps.push_back({shop + "DeviceError", kind, Blow::kFail, error_number::kDeviceError});
    sweeps.push_back({shop + "PermissionDenied", kind, Blow::kFail, error_number::kPermissionDenied});
    sweeps.push_back({shop + "TooManyFiles", kind, Blow::kFail, error_number::kTooManyFiles});
  };
  add("Plain", ShopKind::kPlain);
  add("ArchiveElsewhere", ShopKind::kArchiveElsewhere);
  add("TicketHeld", ShopKind::kTicketHeld);
  return sweeps;
}

class VirtualAttack : public ::testing::TestWithParam<Sweep> {};

TEST_P(VirtualAttack, LeavesTheShopWhole) {
  const Sweep& sweep = GetParam();
  AttackedShop calm(sweep.kind, {});
  calm.LiveThreeDays();
  ASSERT_EQ(calm.Violations(), std::vector<std::string>());
  const FileCalls::Counts counted = calm.Calls().Counted();
  const std::size_t calls = sweep.blow == Blow::kKillWithin ? counted.parts : counted.calls;
  ASSERT_GT(calls, 20U);
  std::size_t struck = 0;
  std::size_t afterPrinting = 0;
  for (std::size_t call = 1; call <= calls; call += kStep) {
    AttackedShop shop(sweep.kind, {sweep.blow, call, sweep.error});
    shop.LiveThreeDays();
    if (!shop.Calls().Struck().empty()) ++struck;
    if (shop.StruckAfterPrinting()) ++afterPrinting;
    for (const std::string& violation : shop.Violations()) {
      ADD_FAILURE() << "call " << call << ", " << shop.Calls().Struck() << ": " << violation;
    }
  }
  std::printf("%zu of %zu calls struck, %zu of them after a ticket was printed\n", struck, calls,
              afterPrinting);
  EXPECT_EQ(struck, (calls + kStep - 1) / kStep);
  const bool elsewhere = sweep.kind == ShopKind::kArchiveElsewhere;
  EXPECT_LE(afterPrinting, kPrinted * (elsewhere ? kCallsAfterPrintingElsewhere : kCallsAfterPrinting));
}

INSTANTIATE_TEST_SUITE_P(, VirtualAttack, ::testing::ValuesIn(Sweeps()),
                         [](const auto& sweep) { return sweep.param.name; });

}  // namespace
}  // namespace orvenza::test
