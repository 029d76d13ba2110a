#pragma once

#include <chrono>
#include <compare>
#include <string>

namespace orvenza {

/// A calendar date and time of day in local time. The default, midnight of 30 December 1899, is the date zero
/// that an empty historic folder is dated with.
struct LocalTime {
  int year = 1899;
  int month = 12;
  int day = 30;
  int hour = 0;
  int minute = 0;
  int second = 0;

  auto operator<=>(const LocalTime&) const = default;
};

/// "yyyymmdd".
std::string DateDigits(const LocalTime& time);
/// "hhmmss", 24-hour.
std::string TimeDigits(const LocalTime& time);
/// "dd/mm/yyyy hh:mm:ss".
std::string FixedStamp(const LocalTime& time);

/// The program's source of time.
class Clock {
 public:
  virtual ~Clock() = default;

  virtual LocalTime Now() const = 0;

  /// Seconds since local midnight with their fraction, from 0 to below 86400.
  virtual double SecondsSinceMidnight() const = 0;

  /// Time since an arbitrary start. Never goes back, even when the PC clock is set.
  virtual std::chrono::nanoseconds Uptime() const = 0;

  /// Sets the PC's time of day and keeps the date. Throws SystemError when the right to do so is missing.
  virtual void SetTimeOfDay(int hour, int minute, int second) = 0;

  /// `time` as the logs show it: date, blank, time of day, in the system's short formats.
  virtual std::string Stamp(const LocalTime& time) const = 0;
};

}  // namespace orvenza
