#include "lab/check/file_check.h"

#include <algorithm>
#include <utility>

#include "platform/system_error.h"
#include "tickets/line_reader.h"

namespace orvenza {
namespace {

using namespace std::chrono_literals;

/// Number of lines between two checks of the clock.
constexpr std::uint64_t kLook = 16 * 1024;

std::string Grouped(std::uint64_t number) {
  std::string digits = std::to_string(number);
  for (std::size_t i = digits.size(); i > 3; i -= 3) digits.insert(i - 3, ",");
  return digits;
}

}  // namespace

bool IsUtf16(std::string_view line) {
  if (line.starts_with("\xFF\xFE") || line.starts_with("\xFE\xFF")) return true;
  if (line.size() < 4) return false;
  const auto nulFrom = [line](std::size_t first) {
    for (std::size_t i = first; i < line.size(); i += 2) {
      if (line[i] != '\0') return false;
    }
    return true;
  };
  return nulFrom(0) != nulFrom(1);
}

void CheckProgress::Show(std::uint64_t lines) {
  if (!shown_ || lines % kLook != 0 || clock_.Uptime() - start_ < 1s) return;
  const std::string text = Grouped(lines) + " lines checked";
  console_.out.flush();  // otherwise output could follow this line on the same terminal
  console_.err << '\r' << text << std::flush;
  width_ = text.size();
}

void CheckProgress::Clear() {
  if (width_ == 0) return;
  console_.err << '\r' << std::string(std::exchange(width_, 0), ' ') << '\r' << std::flush;
}

void FileCheck::CheckFile(const std::string& name, const std::function<std::unique_ptr<ByteReader>()>& open) {
  report_.BeginFile(name);
  try {
    LineReader reader(open(), kLongestLine);
    ++totals_.files;
    CheckLines(reader);
  } catch (const SystemError& failure) {
    progress_.Clear();
    report_.AddUnreadable(failure.Description());
    ++totals_.unreadable;
  }
}

void FileCheck::CheckLines(LineReader& reader) {
  check_.BeginFile();
  std::uint64_t number = 0;
  std::uint64_t last = 0;
  for (std::string line; reader.ReadLine(line);) {
    ++number;
    ++totals_.lines;
    if (!line.empty()) last = number;
    if (number == 1 && IsUtf16(line)) {
      findings_.push_back({true, "utf-16", TicketFinding::kWholeLine,
                           "the file is UTF-16, two bytes a character; write plain ASCII. The rest is not "
                           "read"});
      Report(number);
      return;
    }
    CheckLine(line, number, reader.WasCut());
    progress_.Show(totals_.lines);
  }
  check_.EndFile(findings_);
  if (!check_.HoldsRecord()) {
    findings_.push_back(
        {false, "no-record", TicketFinding::kWholeLine,
         "no line of the file is a record: nothing is printed, and the file is filed as printed"});
  }
  Report(std::max<std::uint64_t>(last, 1));
}

void FileCheck::CheckLine(const std::string& line, std::uint64_t number, bool wasCut) {
  if (wasCut) {
    check_.Skip(line, findings_);
    findings_.push_back(
        {true, "line-too-long", TicketFinding::kWholeLine,
         "the line is longer than " + std::to_string(kLongestLine) + " bytes and is not checked"});
  } else if (const std::string& command = check_.Check(line, findings_); !command.empty()) {
    report_.AddCommand(number, command);
  }
  if (!findings_.empty()) Report(number);
}

void FileCheck::Report(std::uint64_t number) {
  progress_.Clear();
  std::stable_sort(findings_.begin(), findings_.end(),
                   [](const TicketFinding& a, const TicketFinding& b) { return a.field < b.field; });
  for (const TicketFinding& finding : findings_) {
    report_.AddFinding(number, finding);
    ++(finding.isError ? totals_.errors : totals_.warnings);
  }
  findings_.clear();
}

}  // namespace orvenza
