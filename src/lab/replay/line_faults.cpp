#include "lab/replay/line_faults.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

#include "core/text.h"
#include "lab/replay/exchanges.h"
#include "lab/replay/register_model.h"

namespace orvenza {
namespace {

using std::chrono::milliseconds;
using namespace std::chrono_literals;

constexpr std::size_t kCode = 4;
/// A reply that is later than its characters need is slow only from here on.
constexpr milliseconds kSlow = 20ms;
/// How many exchanges show which of two explanations fits better.
constexpr std::size_t kLookAhead = 40;
/// Of how many commands without a reply both explanations are tried.
constexpr int kForks = 3;

/// Two times rounded to milliseconds differ by no more than this.
constexpr milliseconds kExact = 3ms;
/// Where the identity begins in its reply, and the time of day in that of the clock.
constexpr std::size_t kIdentityAt = 6;
constexpr std::size_t kTimeAt = 10;

/// What happened to a command at the register.
struct Explanation {
  std::string fault;  ///< In the words of a script; empty: nothing.
  bool executed = true;
  std::optional<Paper> runsOut{};
};

std::string QuotedReply(const std::string& reply) {
  const bool plain = !reply.empty() && reply.front() != '"' && reply.front() != ' ' && reply.back() != ' ';
  return plain ? FromWindows1252(reply) : "\"" + FromWindows1252(reply) + "\"";
}

std::optional<Paper> PaperOf(const std::string& reply) {
  if (reply == "ERR01") return Paper::kJournal;
  if (reply == "ERR02") return Paper::kReceipt;
  return std::nullopt;
}

bool Fits(const Exchange& exchange, const std::string& reply) {
  return exchange.reply ? *exchange.reply == reply : exchange.linkError == 0;
}

/// The explanations of an exchange that the simulated register does not give by itself, the likeliest first.
std::vector<Explanation> Candidates(const Exchange& exchange) {
  if (exchange.linkError > 0) return {{"link-error " + std::to_string(exchange.linkError), false}};
  if (!exchange.reply) {
    if (exchange.cut) return {{"", false}, {"", true}};
    const Explanation lost{"lose-reply", true};
    const Explanation silent{"silence", false};
    return exchange.saidPrinted ? std::vector{lost, silent} : std::vector{silent, lost};
  }
  std::vector<Explanation> all;
  if (const auto paper = PaperOf(*exchange.reply)) {
    all.push_back({*paper == Paper::kJournal ? "paper-out journal" : "paper-out receipt", true, paper});
  }
  all.push_back({"reply " + QuotedReply(*exchange.reply), false});
  return all;
}

/// Explains one exchange after the other.
class Explainer {
 public:
  Explainer(std::vector<Exchange> exchanges, RegisterModel model, milliseconds start)
      : exchanges_(std::move(exchanges)), model_(std::move(model)), start_(start) {}

  std::vector<Explanation> Explain() {
    std::vector<Explanation> all;
    for (std::size_t i = 0; i < exchanges_.size(); ++i) all.push_back(ExplainOne(i));
    return all;
  }

 private:
  Explanation ExplainOne(std::size_t i) {
    const Exchange& exchange = exchanges_[i];
    model_.PassUntil(exchange.sent - start_);
    if (exchange.reply) {
      if (model_.Execute(exchange.command) == *exchange.reply) return {};
      model_.TakeBack();
    }
    std::vector<Explanation> candidates = Candidates(exchange);
    std::size_t best = 0;
    if (candidates.size() > 1) {
      std::size_t fewest = kLookAhead + 2;
      for (std::size_t c = 0; c < candidates.size(); ++c) {
        const std::size_t misses = Misses(i, candidates[c]);
        if (misses >= fewest) continue;
        fewest = misses;
        best = c;
      }
    }
    Apply(model_, exchange, candidates[best]);
    return candidates[best];
  }

  /// False if the register would not even answer like this.
  static bool Apply(RegisterModel& model, const Exchange& exchange, const Explanation& explanation) {
    if (!explanation.executed) return true;
    return Fits(exchange, model.Execute(exchange.command, explanation.runsOut));
  }

  /// How many faults the following exchanges need if this explanation is right. Equal ones in a row count
  /// once.
  std::size_t Misses(std::size_t i, const Explanation& explanation) const {
    RegisterModel model(model_);
    if (!Apply(model, exchanges_[i], explanation)) return kLookAhead + 1;
    const std::size_t end = std::min(exchanges_.size(), i + kLookAhead);
    return MissesFrom(std::move(model), i + 1, end,
                      explanation.executed ? std::string() : KeyOf(exchanges_[i]), kForks);
  }

  std::size_t MissesFrom(RegisterModel model, std::size_t i, std::size_t end, std::string latest,
                         int forks) const {
    std::size_t misses = 0;
    for (; i < end; ++i) {
      const Exchange& exchange = exchanges_[i];
      model.PassUntil(exchange.sent - start_);
      if (!exchange.reply) {
        if (forks == 0 || exchange.linkError > 0) continue;
        RegisterModel executed(model);
        executed.Execute(exchange.command);
        return misses + std::min(MissesFrom(std::move(executed), i + 1, end, latest, forks - 1),
                                 MissesFrom(std::move(model), i + 1, end, latest, forks - 1));
      }
      if (model.Execute(exchange.command) == *exchange.reply) {
        if (latest.starts_with(exchange.command.substr(0, kCode))) latest.clear();
        continue;
      }
      model.TakeBack();
      if (std::exchange(latest, KeyOf(exchange)) != KeyOf(exchange)) ++misses;
    }
    return misses;
  }

  static std::string KeyOf(const Exchange& exchange) {
    return exchange.command.substr(0, kCode) + exchange.reply.value_or("");
  }

  std::vector<Exchange> exchanges_;
  RegisterModel model_;
  milliseconds start_;
};

/// Writes the lines of a script.
class ScriptWriter {
 public:
  void AddFault(const std::string& command, const std::string& fault) {
    const std::string code = command.substr(0, kCode);
    const std::size_t number = ++counts_[code];
    if (fault.empty()) return;
    const auto latest =
        std::find_if(runs_.rbegin(), runs_.rend(), [&](const Run& run) { return run.code == code; });
    if (latest != runs_.rend() && latest->fault == fault && latest->first + latest->times == number)
      ++latest->times;
    else
      runs_.push_back({code, fault, number, 1});
  }

  std::vector<std::string> Lines() const {
    std::vector<std::string> lines;
    for (const Run& run : runs_) {
      lines.push_back("on " + run.code + (run.first > 1 ? " #" + std::to_string(run.first) : "") +
                      (run.times > 1 ? " x" + std::to_string(run.times) : "") + " " + run.fault);
    }
    return lines;
  }

 private:
  struct Run {
    std::string code;
    std::string fault;
    std::size_t first;
    std::size_t times;
  };
  std::map<std::string, std::size_t> counts_;
  std::vector<Run> runs_;
};

/// What the register's clock shows in a reply "4201ddmmyyHHMM".
std::optional<TraceTime> RegisterTime(const std::string& reply) {
  const std::string digits = reply.substr(kCode, kTimeAt + 4 - kCode);
  if (digits.size() != kTimeAt + 4 - kCode || !OnlyDigits(digits)) return std::nullopt;
  return ReadTraceStamp(digits.substr(0, 2) + "/" + digits.substr(2, 2) + "/20" + digits.substr(4, 2) + " " +
                        digits.substr(6, 2) + ":" + digits.substr(8, 2) + ":00.000");
}

/// The register of the trace: its identity, and its clock as far as a reply tells it.
RegisterProfile ProfileOf(const std::vector<TracedEvent>& events, std::size_t first, std::size_t end) {
  RegisterProfile profile;
  // A register that named itself before the first event is still the same.
  for (const Exchange& exchange : ReadExchanges(events, 0, end)) {
    const std::string reply = exchange.reply.value_or("");
    if (!reply.starts_with("1999") || reply.size() < kIdentityAt + 2 * kIdentityWidth) continue;
    profile.model = reply.substr(kIdentityAt, kIdentityWidth);
    profile.release = reply.substr(kIdentityAt + kIdentityWidth, kIdentityWidth);
  }
  for (const Exchange& exchange : ReadExchanges(events, first, end)) {
    const std::string reply = exchange.reply.value_or("");
    if (!reply.starts_with("4201") || reply.size() < kTimeAt + 4) continue;
    const auto shown = RegisterTime(reply);
    if (!shown) continue;
    const auto ahead = *shown - std::chrono::floor<std::chrono::minutes>(exchange.wall);
    if (abs(ahead) < 24h * 366) profile.clockAhead = std::chrono::floor<std::chrono::seconds>(ahead);
    break;
  }
  return profile;
}

void AddProfile(const RegisterProfile& profile, std::vector<std::string>& lines) {
  const RegisterProfile usual;
  if (profile.model != usual.model) lines.push_back("model \"" + FromWindows1252(profile.model) + "\"");
  if (profile.release != usual.release) {
    const std::string release(Trim(profile.release));
    if (!release.empty()) lines.push_back("release \"" + FromWindows1252(release) + "\"");
  }
  if (profile.clockAhead.count() != 0) lines.push_back("clock " + std::to_string(profile.clockAhead.count()));
}

milliseconds Delay(const Exchange& exchange) {
  const std::size_t characters = exchange.command.size() + exchange.reply.value_or("").size();
  return exchange.ended - exchange.sent - LineTime(characters, exchange.speed);
}

/// The checks for the register that did not find it, and the port that did not open. They are tied to the
/// command before them, so that they come in time even if the rehearsal is a little faster or slower than the
/// trace.
class StateFaults {
 public:
  /// `atStart`: the connector starts with the first event. `lines` receives the lines of the script.
  StateFaults(milliseconds start, bool atStart, std::vector<std::string>& lines)
      : start_(start), lines_(lines), open_(!atStart) {
    if (!atStart) counts_ = {{"3217", 1}, {"1999", 1}};
  }

  void Take(const TracedEvent& event) {
    if (event.kind == "port") TakePort(event);
    if (event.kind == "absent") TakeAbsent(event);
    if (event.kind == "present") anchor_.clear();
    if (event.kind == "present" || event.kind == "sent" || event.kind == "start") End();
    if (event.kind == "sent") TakeSent(event);
    if (event.kind == "start") open_ = false;
    if (event.kind == "start") anchor_.clear();
  }

  void End() {
    if (count_ > 0) Add(std::exchange(anchor_, {}), begin_, "absent " + std::to_string(count_));
    count_ = 0;
    whileClosed_ = 0;
  }

 private:
  void Add(const std::string& anchor, milliseconds at, const std::string& fault) {
    if (!anchor.empty())
      lines_.push_back(anchor + " " + fault);
    else
      lines_.push_back(at.count() <= 0 ? fault : "after " + std::to_string(at.count()) + " " + fault);
  }

  void TakeSent(const TracedEvent& event) {
    const std::string code = event.text.substr(0, kCode);
    const std::size_t number = ++counts_[code];
    anchor_ = "on " + code + (number > 1 ? " #" + std::to_string(number) : "");
    openedSince_ = false;
    failures_ = 0;
  }

  void TakePort(const TracedEvent& event) {
    open_ = event.text.starts_with("open");
    openedSince_ = openedSince_ || open_;
    if (open_) failures_ = 0;
    if (event.text != "not open") return;
    if (++failures_ > 1) lines_.pop_back();
    if (failures_ == 1) failedAt_ = event.passed - start_;
    Add(openedSince_ ? "" : anchor_, failedAt_, "port-fails " + std::to_string(failures_));
  }

  /// Through a closed port any register is absent; such a check counts only behind the command or another
  /// one.
  void TakeAbsent(const TracedEvent& event) {
    if (!open_) {
      ++whileClosed_;
      return;
    }
    const int before = std::exchange(whileClosed_, 0);
    if (count_ == 0) begin_ = event.passed - start_;
    count_ += (count_ > 0 || !anchor_.empty() ? before : 0) + 1;
  }

  milliseconds start_;
  std::vector<std::string>& lines_;
  bool open_;
  std::map<std::string, std::size_t> counts_;
  std::string anchor_;        ///< "on 1036 #2": the latest command; empty where none can be named.
  bool openedSince_ = false;  ///< Since that command.
  milliseconds failedAt_{};
  int failures_ = 0;  ///< Consecutive failures to open the port.
  milliseconds begin_{};
  int count_ = 0;  ///< Checks without the register, in a row.
  int whileClosed_ = 0;
};

}  // namespace

LineFaults FindLineFaults(const std::vector<TracedEvent>& events, const WorkSpan& span,
                          const LocalTime& clock) {
  LineFaults found;
  const std::vector<Exchange> exchanges = ReadExchanges(events, span.first, span.end);
  const RegisterProfile profile = ProfileOf(events, span.first, span.end);
  AddProfile(profile, found.lines);
  const bool instant = std::any_of(exchanges.begin(), exchanges.end(),
                                   [](const Exchange& e) { return e.reply && Delay(e) < -kExact; });
  if (instant) found.lines.emplace_back("speed instant");
  StateFaults states(span.start, span.atStart, found.lines);
  for (std::size_t i = span.first; i < span.end; ++i) states.Take(events[i]);
  states.End();
  const std::vector<Explanation> explanations =
      Explainer(exchanges, RegisterModel(profile, clock), span.start).Explain();
  ScriptWriter script;
  // The scenario begins with a start, which asks for status and identity.
  if (!span.atStart) {
    script.AddFault("3217", {});
    script.AddFault("1999", {});
  }

  for (std::size_t i = 0; i < exchanges.size(); ++i) {
    const Exchange& exchange = exchanges[i];
    std::string fault = explanations[i].fault;
    const milliseconds late = instant ? exchange.ended - exchange.sent : Delay(exchange);
    if (exchange.reply && late >= kSlow) {
      if (fault.empty())
        fault = "late " + std::to_string((late + 5ms) / 10ms * 10);
      else
        found.comments.push_back("The reply to " + exchange.command.substr(0, kCode) + " came " +
                                 std::to_string(late.count()) + " ms late, which is not repeated.");
    }
    script.AddFault(exchange.command, fault);
  }
  for (std::string& line : script.Lines()) found.lines.push_back(std::move(line));
  return found;
}

}  // namespace orvenza
