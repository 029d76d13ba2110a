// The program's resources do not grow over time. ORVENZA_TEST_TICKETS sets how many ticket files are printed
// in a row on the simulated register instead of kFiles.

#include <windows.h>
// These require <windows.h>.
#include <gtest/gtest.h>

#include <cstdlib>

#include "core/catalogue.h"
#include "support/windows_holdings.h"
#include "ui/operator_message.h"
#include "windows/control.h"
#include "windows/form_bench.h"
#include "windows/person.h"
#include "windows/till.h"

namespace orvenza::test {
namespace {

constexpr int kFiles = 40;
constexpr int kWarmUp = 10;
constexpr int kDialogs = 60;

void PrintTickets(const Shop& shop, Till::Link link, int files) {
  const char* const receipt = "1;Pane;1,000;250;1;;;1;;\r\n1;Latte;2,000;120;1;;;1;;\r\n2;1;500;\r\n";
  for (int i = 1; i <= kWarmUp + files; ++i) shop.Drop(std::to_string(10000 + i) + ".txt", receipt);
  const Till till(shop, link, std::chrono::seconds(120 + files));
  const auto await = [&](int number) { till.AwaitArchived(std::to_string(number) + ".txt", receipt); };
  for (int i = 1; i <= kWarmUp; ++i) await(i);
  const Holdings before = HoldingsOf(till.Process());
  for (int i = kWarmUp + 1; i <= kWarmUp + files; ++i) await(i);
  ExpectFlat(before, HoldingsOf(till.Process()));
  EXPECT_EQ(shop.folder.Read("Err.txt"), "");
}

/// The pace shortens the pauses between the tickets only.
TEST(Endurance, ATicketLeavesNothingBehind) {
  const Shop shop("pace 20\n");
  const char* const wanted = std::getenv("ORVENZA_TEST_TICKETS");
  PrintTickets(shop, Till::Link::kSimulated, wanted != nullptr ? std::atoi(wanted) : kFiles);
}

TEST(Endurance, ATicketThroughTheControlLeavesNothingBehind) {
  const Shop shop;
  const Control control(shop.folder);
  PrintTickets(shop, Till::Link::kControl, kFiles);
}

using DialogEndurance = FormBench;

TEST_F(DialogEndurance, DialogsLeaveNothingBehind) {
  OperatorMessages messages(person, "Orvenza");
  const ChoiceContent choice{
      "Orvenza", LoadMessage(MessageId::kEcrErrorWarning),  LoadMessage(EcrErrorMessage(8)),
      true,      {LoadMessage(MessageId::kReceiptPrinted)}, 1,
      "&Ok"};
  const auto show = [&](int rounds) {
    for (int i = 0; i < rounds; ++i) {
      WhenShown(CloseByCross);
      messages.ShowOperatorMessage(LoadMessage(MessageId::kDeviceOff),
                                   {MessageIcon::kInformation, MessageButtons::kRetryCancelConfigure},
                                   LoadMessage(MessageId::kCommunicationWarning));
      WhenShown(CloseByCross);
      person.ShowChoice(choice);
    }
  };
  show(10);
  const Holdings before = HoldingsOf(GetCurrentProcess());
  show(kDialogs);
  ExpectFlat(before, HoldingsOf(GetCurrentProcess()));
}

}  // namespace
}  // namespace orvenza::test
