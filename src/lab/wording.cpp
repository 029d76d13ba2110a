#include "lab/wording.h"

#include <chrono>
#include <cstdio>

#include "core/text.h"

namespace orvenza {
namespace {

constexpr std::size_t kLongestQuote = 100;

std::chrono::local_seconds OnTimeLine(const LocalTime& time) {
  using namespace std::chrono;
  const auto date = year(time.year) / static_cast<int>(time.month) / static_cast<int>(time.day);
  return local_days(date) + hours(time.hour) + minutes(time.minute) + seconds(time.second);
}

}  // namespace

std::string CountOf(std::uintmax_t count, std::string_view thing) {
  return std::to_string(count).append(" ").append(thing).append(count == 1 ? "" : "s");
}

std::string SizeText(std::uintmax_t bytes) {
  if (bytes < 1000) return CountOf(bytes, "byte");
  const char* const units[] = {"kB", "MB", "GB", "TB"};
  std::size_t unit = 0;
  auto tenths = (bytes + 50) / 100;
  for (; tenths >= 10000 && unit < 3; ++unit) tenths = (tenths + 500) / 1000;
  return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " " + units[unit];
}

std::string AgeText(const LocalTime& now, const LocalTime& then) {
  const auto seconds = (OnTimeLine(now) - OnTimeLine(then)).count();
  if (seconds < 60) return "less than a minute";
  const auto count = [](std::int64_t number) { return static_cast<std::uintmax_t>(number); };
  if (seconds < 3600) return CountOf(count(seconds / 60), "minute");
  if (seconds < 86400) return CountOf(count(seconds / 3600), "hour");
  return CountOf(count(seconds / 86400), "day");
}

std::string MinuteText(const LocalTime& time) {
  std::string text = IsoText(time).substr(0, 16);
  text[10] = ' ';
  return text;
}

std::string IsoText(const LocalTime& time) {
  char text[80];
  std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d", time.year, time.month, time.day,
                time.hour, time.minute, time.second);
  return text;
}

std::string Quoted(std::string_view utf8) {
  std::string shown = FirstCharacters(utf8, kLongestQuote);
  const bool isCut = shown.size() < utf8.size();
  for (char& c : shown) {
    if (static_cast<unsigned char>(c) < ' ' || c == 127) c = ' ';
  }
  return "\"" + shown + (isCut ? "...\"" : "\"");
}

}  // namespace orvenza
