#include "tickets/ticket_total.h"

#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>

#include "core/own_texts.h"
#include "core/text.h"
#include "tickets/field_format.h"
#include "tickets/line_reader.h"
#include "tickets/record.h"
#include "tickets/record_types.h"

namespace orvenza {
namespace {

constexpr std::int64_t kThousandths = 1000;
/// The position of "hh" and "mm" in a stamp, from 0.
constexpr std::size_t kHour = 8;
constexpr std::size_t kMinute = 10;

/// The digits of a formatted field as a number; empty if the field was rejected or is too long.
std::optional<std::int64_t> NumberOf(const std::string& digits) {
  if (digits.empty() || digits.size() > 9 || !OnlyDigits(digits)) return std::nullopt;
  return std::stoll(digits);
}

/// What an item line adds, in cents; empty if that is more than a quantity and a price.
std::optional<std::int64_t> AmountOf(const RecordFields& item) {
  const auto quantity = NumberOf(FmtQuantity(item[2]));
  const auto price = NumberOf(FmtAmount9(item[3]));
  if (item[8] == "-1" || !quantity || !price) return std::nullopt;
  return (*quantity * *price + kThousandths / 2) / kThousandths;
}

/// Whether a line of this type leaves the total as it is.
bool IsNeutral(std::string_view type) { return type == "0" || type == "20" || type == "26" || type == "28"; }

/// The total of the first receipt behind `skipped` lines, up to line `last`, in cents; empty if the items
/// alone do not say it.
std::optional<std::int64_t> TotalOf(std::string_view text, std::size_t skipped, std::size_t last,
                                    char separator) {
  LineReader reader(std::make_unique<ViewBytes>(text));
  RecordFields fields;
  std::int64_t total = 0;
  std::size_t number = 0;
  for (std::string line; reader.ReadLine(line);) {
    SplitRecord(line, separator, fields);
    if (++number > last) return total;
    if (number <= skipped || fields.IsEmpty() || IsNeutral(fields[0])) continue;
    if (HasRole(fields[0], &RecordRoles::closesTicket)) return total;
    const auto amount = fields[0] == "1" ? AmountOf(fields) : std::nullopt;
    if (!amount) return std::nullopt;
    total += *amount;
  }
  return std::nullopt;
}

/// Whether the first line behind `skipped` lines is a closure or a report.
bool BeginsWithReport(std::string_view text, std::size_t skipped, char separator) {
  LineReader reader(std::make_unique<ViewBytes>(text));
  RecordFields fields;
  std::size_t number = 0;
  for (std::string line; reader.ReadLine(line);) {
    SplitRecord(line, separator, fields);
    if (++number > skipped && !fields.IsEmpty()) return HasRole(fields[0], &RecordRoles::reports);
  }
  return false;
}

}  // namespace

std::string DescribeTicket(std::string_view stamp, std::string_view text, std::size_t skipped,
                           std::size_t last, char separator) {
  const bool report = BeginsWithReport(text, skipped, separator);
  std::string description(report ? own_text::kReportOf : own_text::kReceiptOf);
  description.append(" ").append(stamp.substr(kHour, 2)).append(":").append(stamp.substr(kMinute, 2));
  const auto total = TotalOf(text, skipped, last, separator);
  if (!total) return description;
  char amount[32];
  std::snprintf(amount, sizeof amount, "%lld,%02d", static_cast<long long>(*total / 100),
                static_cast<int>(*total % 100));
  return description + ", " + own_text::kTotal + " " + amount;
}

}  // namespace orvenza
