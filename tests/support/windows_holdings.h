#pragma once

#include <windows.h>
// These require <windows.h>.
#include <gtest/gtest.h>
#include <psapi.h>

#include <algorithm>
#include <cstring>
#include <iostream>
#include <vector>

#include "platform/windows/system_functions.h"

namespace orvenza::test {

/// Tolerance for objects that come and go by themselves, for any number of rounds.
constexpr DWORD kSlack = 10;
/// The simulated register keeps its last receipts, commands, settings and lines of paper: about 4 MB for a
/// thousand tickets under Wine.
constexpr SIZE_T kMemorySlack = 6 * 1024 * 1024;

/// The system resources held by a process.
struct Holdings {
  DWORD handles = 0;
  DWORD gdiObjects = 0;   ///< Always 0 under Wine 8, which does not count them.
  DWORD userObjects = 0;  ///< The same.
  SIZE_T memory = 0;      ///< Committed, in bytes.
};

/// Handles of a process, counted in the list of all handles: Wine 8 does not count those of one process.
inline DWORD CountHandles(DWORD process) {
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

inline Holdings HoldingsOf(HANDLE process) {
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

inline void ExpectFlat(const Holdings& before, const Holdings& after) {
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

}  // namespace orvenza::test
