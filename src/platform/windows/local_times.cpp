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

}  // namespace orvenza
