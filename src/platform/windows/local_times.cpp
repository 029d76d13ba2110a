#include "platform/windows/local_times.h"

namespace orvenza {

LocalTime FromSystemTime(const SYSTEMTIME& time) {
  return {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
}

LocalTime FromFileTime(const FILETIME& time) {
  FILETIME local{};
  SYSTEMTIME calendar{};
  if (!::FileTimeToLocalFileTime(&time, &local) || !::FileTimeToSystemTime(&local, &calendar)) return {};
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
