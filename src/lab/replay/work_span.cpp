#include "lab/replay/work_span.h"

#include <algorithm>

namespace orvenza {
namespace {

using namespace std::chrono;

/// How long a start of the connector takes until its second tick, with an ordinary register.
constexpr milliseconds kUntilSecondTick = 1022ms;

/// A start, or a tick in which something was done, with everything up to the next one.
struct Piece {
  std::size_t first;
  std::size_t end;
  bool isStart;
  bool works;  ///< A ticket was at work, or something was said to the register.
};

bool IsWork(const std::string& kind) {
  return kind == "sent" || kind == "taken" || kind == "archived" || kind == "aborted" || kind == "read";
}

std::vector<Piece> PiecesOf(const std::vector<TracedEvent>& events) {
  std::vector<Piece> pieces;
  for (std::size_t i = 0; i < events.size(); ++i) {
    const bool start = events[i].kind == "start";
    if (start || events[i].kind == "tick" || pieces.empty()) pieces.push_back({i, i, start, start});
    pieces.back().end = i + 1;
    pieces.back().works = pieces.back().works || IsWork(events[i].kind);
  }
  return pieces;
}

/// How far a piece is from the minute on its own day; zero if it has a part in it.
milliseconds Distance(const std::vector<TracedEvent>& events, const Piece& piece, const TimeOfDay& time) {
  const TraceTime from = events[piece.first].at;
  const TraceTime to = events[piece.end - 1].at;
  const TraceTime minute = floor<days>(from) + hours(time.hour) + minutes(time.minute);
  if (to < minute) return minute - to;
  if (from >= minute + 1min) return from - minute - 1min + 1ms;
  return 0ms;
}

WorkSpan Spanning(const std::vector<TracedEvent>& events, std::size_t first, std::size_t end) {
  const bool atStart = events[first].kind == "start";
  return {first, end, events[first].passed - (atStart ? 0ms : kUntilSecondTick), atStart};
}

}  // namespace

std::optional<WorkSpan> FindWork(const std::vector<TracedEvent>& events, std::optional<TimeOfDay> around) {
  if (events.empty()) return std::nullopt;
  if (!around) return Spanning(events, 0, events.size());
  std::vector<Piece> pieces = PiecesOf(events);
  std::erase_if(pieces, [](const Piece& piece) { return !piece.works; });
  if (pieces.empty()) return std::nullopt;
  const auto distance = [&](const Piece& piece) { return Distance(events, piece, *around); };
  // The latest of the nearest, and those of the same minute before it.
  std::size_t last = pieces.size() - 1;
  for (std::size_t i = pieces.size(); i-- > 0;) {
    if (distance(pieces[i]) < distance(pieces[last])) last = i;
  }
  std::size_t first = last;
  const auto sameDay = [&](std::size_t i) {
    return floor<days>(events[pieces[i].first].at) == floor<days>(events[pieces[last].first].at);
  };
  while (first > 0 && distance(pieces[first - 1]) == 0ms && sameDay(first - 1)) --first;
  const auto directlyBefore = [&](std::size_t i) {
    return events[pieces[i + 1].first].passed - events[pieces[i].end - 1].passed < 1min;
  };
  if (first > 0 && pieces[first - 1].isStart && directlyBefore(first - 1)) --first;
  return Spanning(events, pieces[first].first, pieces[last].end);
}

}  // namespace orvenza
