#include "lab/replay/trace_events.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "core/text.h"

namespace orvenza {
namespace {

using std::chrono::milliseconds;

constexpr std::string_view kContentMark = "  | ";
constexpr std::string_view kJump = "jumps to ";
/// Longer pauses between two lines are no pauses of one trace.
constexpr std::chrono::hours kLongestPause{24 * 366};

/// Reads the lines one by one.
class TraceReader {
 public:
  std::vector<TracedEvent> Read(std::string_view text) {
    for (std::size_t number = 1; !text.empty(); ++number) {
      const std::size_t end = std::min(text.find('\n'), text.size());
      std::string_view line = text.substr(0, end);
      text.remove_prefix(std::min(end + 1, text.size()));
      if (line.ends_with('\r')) line.remove_suffix(1);
      Take(line, number);
    }
    return std::move(events_);
  }

 private:
  void Take(std::string_view line, std::size_t number) {
    if (line.empty()) return;
    if (line.starts_with(kContentMark) || line == "  |") return TakeContent(line, number);
    const auto at = ReadTraceStamp(line.substr(0, kTraceStampLength));
    std::string_view rest = line.substr(std::min(kTraceStampLength, line.size()));
    if (!at || !rest.starts_with("  ") || rest.size() < 3 || ToUtf8(line) != line) return AddGap(number);
    rest.remove_prefix(2);
    const std::size_t blank = std::min(rest.find(' '), rest.size());
    Advance(*at);
    events_.push_back(
        {*at, passed_, std::string(rest.substr(0, blank)), std::string(Trim(rest.substr(blank))), {}});
    gap_ = false;
    if (events_.back().kind == "clock" && events_.back().text.starts_with(kJump)) {
      last_ = ReadTraceStamp(events_.back().text.substr(kJump.size()));
    }
  }

  void TakeContent(std::string_view line, std::size_t number) {
    if (events_.empty() || events_.back().kind != "read" || ToUtf8(line) != line) return AddGap(number);
    events_.back().lines.emplace_back(line.substr(std::min(kContentMark.size(), line.size())));
  }

  /// A clock that went back without a word, or a year forward, tells nothing about the time that passed.
  void Advance(TraceTime at) {
    if (last_ && at > *last_ && at - *last_ < kLongestPause) passed_ += at - *last_;
    last_ = at;
  }

  void AddGap(std::size_t number) {
    if (!std::exchange(gap_, true))
      events_.push_back({last_.value_or(TraceTime()), passed_, "gap", "line " + std::to_string(number), {}});
  }

  std::vector<TracedEvent> events_;
  std::optional<TraceTime> last_;
  milliseconds passed_{};
  bool gap_ = false;
};

}  // namespace

std::vector<TracedEvent> ReadTrace(std::string_view text) { return TraceReader().Read(text); }

}  // namespace orvenza
