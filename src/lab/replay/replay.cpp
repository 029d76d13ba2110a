#include "lab/replay/replay.h"

#include <algorithm>
#include <utility>

#include "app/trace/event_words.h"
#include "core/text.h"
#include "lab/replay/line_faults.h"
#include "lab/replay/logos.h"
#include "lab/replay/shop_model.h"
#include "lab/replay/work_span.h"

namespace orvenza {
namespace {

using namespace std::chrono;

constexpr milliseconds kUsualLimit = 1h;
constexpr milliseconds kLongestScenario = 1000h;
/// How long the end of a trace that was cut, or of a part of one, waits for what may follow.
constexpr milliseconds kPastEnd = 1500ms;

/// The dialogs that wait for an answer, the innermost last, and the answers given.
class Answers {
 public:
  explicit Answers(ScenarioText& scenario) : scenario_(scenario) {}

  bool Waits() const { return !open_.empty(); }

  void OnDialog(const TracedEvent& event) {
    const std::string caption = event.text.substr(0, event.text.find(": "));
    const bool utilities = caption.find(" (utilities)") != std::string::npos;
    const bool message = !utilities && caption.find(" (choice)") == std::string::npos &&
                         caption.find(" (port)") == std::string::npos;
    open_.push_back({utilities, message});
    since_ = event.passed;
  }

  void OnAnswer(const TracedEvent& event) {
    Add(event.passed, event.text);
    const bool stays = !open_.empty() && open_.back().utilities && event.text != "close";
    if (!open_.empty() && !stays) open_.pop_back();
  }

  /// A menu that is opened while a dialog waits closes the messages.
  void OnMenu(const TracedEvent& event) {
    Add(event.passed, "menu " + event.text);
    std::erase_if(open_, [](const Open& dialog) { return dialog.message; });
  }

  /// Whatever was open has been closed.
  void Close() { open_.clear(); }

  /// The innermost dialog has not been answered.
  void Leave() {
    if (!open_.empty()) scenario_.AddAnswer("answer nothing");
    open_.clear();
  }

 private:
  struct Open {
    bool utilities;
    bool message;
  };

  void Add(milliseconds passed, const std::string& text) {
    const milliseconds reaction = std::max(passed - since_, 0ms);
    scenario_.AddAnswer("answer " + (reaction > 0ms ? "after " + TimeWords(reaction) + " " : "") + text);
    since_ = passed;
  }

  ScenarioText& scenario_;
  std::vector<Open> open_;
  milliseconds since_{};
};

/// Turns a part of a trace into a scenario.
class Replayer {
 public:
  Replayer(const std::vector<TracedEvent>& events, const WorkSpan& span)
      : events_(events), span_(span), shop_(settings_, scenario_), answers_(scenario_) {}

  std::string Write(const std::string& name) {
    for (std::size_t i = 0; i < span_.end; ++i) {
      if (i == span_.first) Begin(name);
      Take(i);
    }
    End();
    return scenario_.Text();
  }

 private:
  void Begin(const std::string& name);
  void Take(std::size_t i);
  void TakeAct(const TracedEvent& event);
  void TakeStart(std::size_t i);
  void End();
  void AddEvent(milliseconds passed, const std::string& line) {
    scenario_.AddEvent(passed - span_.start, line);
  }
  std::string Where(const TracedEvent& event) const { return " at " + TraceStamp(event.at); }

  const std::vector<TracedEvent>& events_;
  WorkSpan span_;
  TracedSettings settings_;
  ScenarioText scenario_;
  ShopModel shop_;
  Answers answers_;
  bool runs_ = false;  ///< The connector runs.
  bool ends_ = false;  ///< The session's end has been asked for.
};

void Replayer::Begin(const std::string& name) {
  const TracedEvent& first = events_[span_.first];
  scenario_.Comment("From " + name + ", " + TraceStamp(first.at) + " to " +
                    TraceStamp(events_[span_.end - 1].at) + ".");
  scenario_.Comment("Texts of tickets are masked.");
  const TraceTime wall = first.at - (first.passed - span_.start);
  const std::string stamp = FixedStamp(LocalTimeOf(wall));
  shop_.Begin(span_.start, stamp, span_.atStart);
  scenario_.AddSetting("start " + stamp);
  runs_ = true;
}

void Replayer::Take(std::size_t i) {
  const TracedEvent& event = events_[i];
  settings_.Take(event);
  shop_.Take(event);
  if (i < span_.first) return;
  if (event.kind == "start" && i > span_.first) TakeStart(i);
  if (event.kind == "gap")
    scenario_.Comment("Lines of the trace are missing or cannot be understood: " + event.text + ".");
  if (event.kind == "lost")
    scenario_.Comment("The trace could not be written" + Where(event) + ": " + event.text + " are missing.");
  if (event.kind == "clock" && event.text.starts_with("jumps to") &&
      !(i + 1 < events_.size() && events_[i + 1].kind == "clock"))
    scenario_.Comment("Another program has set the PC's clock" + Where(event) + ", which is not repeated.");
  if (event.kind == "failed" && event.text.starts_with("use the link control"))
    scenario_.Comment("The link control failed" + Where(event) + ", which cannot be repeated: " + event.text);
  TakeAct(event);
}

/// What people did.
void Replayer::TakeAct(const TracedEvent& event) {
  if (event.kind == "dialog") answers_.OnDialog(event);
  if (event.kind == "answer") answers_.OnAnswer(event);
  // Neither comes while a dialog waits.
  if (event.kind == "tick" || event.kind == "sent") answers_.Close();
  if (event.kind == "menu") {
    if (answers_.Waits())
      answers_.OnMenu(event);
    else
      AddEvent(event.passed, "menu " + event.text);
  }
  if (event.kind == "world" && event.text == kSessionEnds) {
    AddEvent(event.passed, "session ends");
    answers_.Leave();
    ends_ = true;
  }
  if (event.kind == "end") {
    answers_.Close();
    runs_ = false;
  }
}

void Replayer::TakeStart(std::size_t i) {
  const TracedEvent& event = events_[i];
  const milliseconds before = events_[i - 1].passed;
  if (runs_) {
    scenario_.Comment("The connector was killed, or the PC lost its power, at some time between " +
                      TraceStamp(events_[i - 1].at) + " and " + TraceStamp(event.at) + ".");
    AddEvent(std::min(before + 1ms, event.passed), "power fails");
    answers_.Leave();
  }
  AddEvent(event.passed, "start again");
  runs_ = true;
  ends_ = false;
}

void Replayer::End() {
  const TracedEvent& last = events_[span_.end - 1];
  milliseconds end = last.passed;
  if (runs_) {
    if (span_.end == events_.size()) scenario_.Comment("The trace ends while the connector runs.");
    end += kPastEnd;
    const bool waits = answers_.Waits();
    answers_.Leave();
    if (!ends_) AddEvent(end, waits ? "session ends" : "quit");
  }
  const milliseconds length = end - span_.start;
  if (length >= kLongestScenario)
    scenario_.Comment("This is longer than a scenario can be: take a part of it with --around.");
  settings_.AddTo(scenario_);
  if (length + 10min > kUsualLimit)
    scenario_.AddSetting(
        "limit " + TimeWords(std::min<milliseconds>(ceil<hours>(length + kUsualLimit), kLongestScenario)));
  const TraceTime wall = events_[span_.first].at - (events_[span_.first].passed - span_.start);
  const LineFaults faults = FindLineFaults(events_, span_, LocalTimeOf(wall));
  for (const std::string& comment : faults.comments) scenario_.Comment(comment);
  for (const std::string& line : faults.lines) scenario_.AddSetting("register " + line);
  for (const auto& [path, rows] : FindLogos(events_, span_, settings_.Separator())) {
    scenario_.Comment("The rows of the logo " + path + " are known only as far as they were sent.");
    scenario_.AddState("logo " + std::to_string(rows) + " " + settings_.Path(path));
  }
  shop_.End();
}

}  // namespace

std::string ReplayScenario(const std::vector<TracedEvent>& events, const std::string& name,
                           std::optional<TimeOfDay> around) {
  const auto span = FindWork(events, around);
  if (!span) return "# There is nothing in " + name + " that could be replayed.\nat 1s quit\n";
  return Replayer(events, *span).Write(name);
}

}  // namespace orvenza
