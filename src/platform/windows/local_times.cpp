#include "platform/windows/local_times.h"

#include <algorithm>
#include <chrono>
#include <cstdint>

namespace orvenza {
namespace {

using std::chrono::sys_days;
using std::chrono::year;

/// A FILETIME counts units of 100 ns since 1601.
constexpr std::uint64_t kUnitsPerDay = 864'000'000'000;
constexpr std::uint64_t kLatest =
    kUnitsPerDay *
    static_cast<std::uint64_t>((sys_days{year{9998} / 12 / 31} - sys_days{year{1601} / 1 / 1}).count());

FILETIME AtMostLatest(const FILETIME& time) {
  const std::uint64_t units =
      std::min(std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime, kLatest);
  return {static_cast<DWORD>(units), static_cast<DWORD>(units >> 32)};
}

}  // namespace

LocalTime FromSystemTime(const SYSTEMTIME& time) {
  return {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
}

LocalTime FromFileTime(const FILETIME& time) {
  const FILETIME shown = AtMostLatest(time);
  FILETIME local{};
  SYSTEMTIME calendar{};
  if (!::FileTimeToLocalFileTime(&shown, &local) || !::FileTimeToSystemTime(&local, &calendar)) return {};
  return FromSystemTime(calendar);
}

SYSTEMTIME AtTimeOfDay(SYSTEMTIME date, int hour, int minute, int second) {
  date.wHour = static_cast<WORD>(hour);
  date.wMinute = static_cast<WORD>(minute);
  date.wSecond = static_cast<WORD>(second);
  date.wMilliseconds = 0;
  return date;
}

}  // namespace orvenza
