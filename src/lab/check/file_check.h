#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "lab/check/check_report.h"
#include "lab/check/ticket_check.h"
#include "lab/shell/console.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "tickets/line_reader.h"

namespace orvenza {

/// A progress line on the error output, shown once the check takes longer than a second.
class CheckProgress {
 public:
  /// `shown`: false if there is no terminal for it.
  CheckProgress(Console& console, const Clock& clock, bool shown)
      : console_(console), clock_(clock), shown_(shown), start_(clock.Uptime()) {}

  void Show(std::uint64_t lines);
  /// Erases the line, so that other text can be written there.
  void Clear();

 private:
  Console& console_;
  const Clock& clock_;
  bool shown_;
  std::chrono::nanoseconds start_;
  std::size_t width_ = 0;  // of the line shown now
};

/// Whether a file is UTF-16, judged by its first line: it begins with a byte-order mark, or every other byte
/// is NUL.
bool IsUtf16(std::string_view line);

/// Checks whole files one after the other. Memory use does not depend on their size.
class FileCheck {
 public:
  /// Lines are checked up to this many bytes; the longest useful record is far shorter.
  static constexpr std::size_t kLongestLine = 64 * 1024;

  FileCheck(TicketCheck& check, CheckReport& report, CheckProgress& progress)
      : check_(check), report_(report), progress_(progress) {}

  /// `open` and its reader may throw SystemError: the file then counts as unreadable.
  void CheckFile(const std::string& name, const std::function<std::unique_ptr<ByteReader>()>& open);

  const CheckTotals& Totals() const { return totals_; }

 private:
  void CheckLines(LineReader& reader);
  void CheckLine(const std::string& line, std::uint64_t number, bool wasCut);
  void Report(std::uint64_t number);

  TicketCheck& check_;
  CheckReport& report_;
  CheckProgress& progress_;
  TicketFindings findings_;
  CheckTotals totals_;
};

}  // namespace orvenza
