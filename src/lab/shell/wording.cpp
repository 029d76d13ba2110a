#include "lab/shell/wording.h"

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

std::string NumberRanges(const std::vector<int>& numbers) {
  std::string text;
  for (std::size_t first = 0; first < numbers.size();) {
    std::size_t last = first;
    while (last + 1 < numbers.size() && numbers[last + 1] == numbers[last] + 1) ++last;
    text += (text.empty() ? "" : ", ") + std::to_string(numbers[first]);
    if (last > first) text += (last > first + 1 ? " to " : ", ") + std::to_string(numbers[last]);
    first = last + 1;
  }
  return text;
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

std::string ShownBytes(std::string_view bytes) {
  std::string shown = ToUtf8(bytes);
  for (std::size_t i = 0; i < shown.size(); ++i) {
    const auto code = static_cast<unsigned char>(shown[i]);
    if (code < ' ' || code == 127) shown[i] = ' ';
    // The control characters 128 to 159, which some terminals interpret, are two bytes in UTF-8.
    if (code == 0xC2 && static_cast<unsigned char>(shown[i + 1]) < 0xA0) shown.replace(i, 2, " ");
  }
  return shown;
}

std::string Quoted(std::string_view utf8) {
  const std::string beginning = FirstCharacters(utf8, kLongestQuote);
  return "\"" + ShownBytes(beginning) + (beginning.size() < utf8.size() ? "...\"" : "\"");
}

}  // namespace orvenza
