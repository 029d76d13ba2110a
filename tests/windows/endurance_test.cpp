// The program's resources do not grow over time. ORVENZA_TEST_TICKETS sets how many ticket files are printed
// in a row through the control, at two per second, instead of kFiles.

#include <windows.h>
// These require <windows.h>.
#include <gtest/gtest.h>
#include <psapi.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <vector>

#include "core/catalogue.h"
#include "platform/windows/system_functions.h"
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

/// Tolerance for objects that come and go by themselves, for any number of rounds.
constexpr DWORD kSlack = 10;
/// The simulated register keeps its last 10000 commands, settings and lines of paper, at a hundred bytes
/// each.
constexpr SIZE_T kMemorySlack = 4 * 1024 * 1024;

/// The system resources held by a process.
struct Holdings {
  DWORD handles = 0;
  DWORD gdiObjects = 0;   ///< Always 0 under Wine 8, which does not count them.
  DWORD userObjects = 0;  ///< The same.
  SIZE_T memory = 0;      ///< Committed, in bytes.
};

/// Handles of a process, counted in the list of all handles: Wine 8 does not count those of one process.
DWORD CountHandles(DWORD process) {
  struct Entry {
    USHORT process;
    USHORT rest[7];
  };
  using QueryType = LONG(WINAPI*)(int, void*, ULONG, ULONG*);
  const auto query = FindFunction<QueryType>(L"ntdll.dll", "NtQuerySystemInformation");
  std::vector<Entry> list(500000);
  constexpr int kHandles = 16;
  if (query(kHandles, list.data(), static_cast<ULONG>(list.size() * sizeof(Entry)), nullptr) < 0) return 0;
  ULONG count = 0;
  std::memcpy(&count, list.data(), sizeof count);
  const auto* const entries =
      reinterpret_cast<const Entry*>(reinterpret_cast<const char*>(list.data()) + sizeof count);
  return static_cast<DWORD>(
      std::count_if(entries, entries + count, [&](const Entry& entry) { return entry.process == process; }));
}

Holdings HoldingsOf(HANDLE process) {
  Holdings result;
  GetProcessHandleCount(process, &result.handles);
  if (result.handles == 0) result.handles = CountHandles(GetProcessId(process));
  result.gdiObjects = GetGuiResources(process, GR_GDIOBJECTS);
  result.userObjects = GetGuiResources(process, GR_USEROBJECTS);
  PROCESS_MEMORY_COUNTERS counters{};
  GetProcessMemoryInfo(process, &counters, sizeof counters);
  result.memory = counters.PagefileUsage;
  return result;
}

void ExpectFlat(const Holdings& before, const Holdings& after) {
  ASSERT_GT(before.handles, 0U);
  ASSERT_GT(before.memory, 0U);
  EXPECT_LE(after.handles, before.handles + kSlack);
  EXPECT_LE(after.gdiObjects, before.gdiObjects + kSlack);
  EXPECT_LE(after.userObjects, before.userObjects + kSlack);
  EXPECT_LE(after.memory, before.memory + kMemorySlack);
  std::cout << "handles " << before.handles << " -> " << after.handles << ", GDI objects "
            << before.gdiObjects << " -> " << after.gdiObjects << ", committed kB " << before.memory / 1024
            << " -> " << after.memory / 1024 << "\n";
}

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

TEST(Endurance, ATicketLeavesNothingBehind) {
  const Shop shop;
  PrintTickets(shop, Till::Link::kSimulated, kFiles);
}

TEST(Endurance, ATicketThroughTheControlLeavesNothingBehind) {
  const Shop shop;
  const Control control(shop.folder);
  const char* const wanted = std::getenv("ORVENZA_TEST_TICKETS");
  PrintTickets(shop, Till::Link::kControl, wanted != nullptr ? std::atoi(wanted) : kFiles);
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
