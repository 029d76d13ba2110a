#include "platform/windows/windows_clock.h"

#include <windows.h>

#include <array>

#include "platform/system_error.h"
#include "platform/windows/local_times.h"
#include "platform/windows/steady_time.h"
#include "platform/windows/wide.h"

namespace orvenza {
namespace {

SYSTEMTIME SystemLocalTime() {
  SYSTEMTIME now{};
  ::GetLocalTime(&now);
  return now;
}

}  // namespace

LocalTime WindowsClock::Now() const { return FromSystemTime(SystemLocalTime()); }

double WindowsClock::SecondsSinceMidnight() const {
  const SYSTEMTIME now = SystemLocalTime();
  return (now.wHour * 60 + now.wMinute) * 60 + now.wSecond + now.wMilliseconds / 1000.0;
}

std::chrono::nanoseconds WindowsClock::Uptime() const { return SteadyTime(); }

void WindowsClock::SetTimeOfDay(int hour, int minute, int second) {
  const bool exists = hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60;
  if (!exists) throw SystemError(error_number::kInternalError);
  const SYSTEMTIME time = AtTimeOfDay(SystemLocalTime(), hour, minute, second);
  if (!::SetLocalTime(&time)) throw SystemError(error_number::kPermissionDenied);
}

std::string WindowsClock::Stamp(const LocalTime& time) const {
  SYSTEMTIME system{};
  system.wYear = static_cast<WORD>(time.year);
  system.wMonth = static_cast<WORD>(time.month);
  system.wDay = static_cast<WORD>(time.day);
  system.wHour = static_cast<WORD>(time.hour);
  system.wMinute = static_cast<WORD>(time.minute);
  system.wSecond = static_cast<WORD>(time.second);
  std::array<wchar_t, 100> date{};
  std::array<wchar_t, 100> clock{};
  const int size = static_cast<int>(date.size());
  const bool shown =
      ::GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &system, nullptr, date.data(), size) > 0 &&
      ::GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &system, nullptr, clock.data(), size) > 0;
  return shown ? ToUtf8(date.data()) + " " + ToUtf8(clock.data()) : FixedStamp(time);
}

}  // namespace orvenza
