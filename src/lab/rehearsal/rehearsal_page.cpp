#include "lab/rehearsal/rehearsal_page.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <sstream>

#include "core/text.h"
#include "lab/page/html_page.h"
#include "lab/paper/slip_html.h"
#include "lab/rehearsal/printed_roll.h"
#include "lab/shell/wording.h"

namespace orvenza {
namespace {

/// A run with more work than this shows only what needs attention; the rest unfolds.
constexpr std::size_t kMostUnfolded = 10;

constexpr std::string_view kStyle = R"(body { max-width: 90rem; }
header { margin-bottom: 1rem; }
header p { margin: 0 0 .5rem; }
.good { color: var(--good); }
.problems { padding: .6rem 1rem; margin: 0 0 .5rem; border-left: 4px solid var(--bad); background: var(--panel); }
.problems h2 { margin: 0; color: var(--bad); }
.problems ul { margin: .3rem 0 0; padding-left: 1.2rem; }
.soft, time { color: var(--soft); }
pre.scenario { padding: .7rem; background: var(--panel); overflow: auto; font-size: .85rem; }
main { display: grid; grid-template-columns: minmax(0, 1fr) max-content; gap: 1.5rem; align-items: start; }
#paper { position: sticky; top: 0; max-height: 100vh; overflow-y: auto; padding: 0 .5rem; }
#paper .source { font-size: .8rem; }
ol { margin: 0; padding: 0; list-style: none; }
details { margin: 0 0 .4rem; border: 1px solid var(--line); border-radius: 6px; background: var(--panel); }
details > summary { padding: .3rem .6rem; }
details > ol { padding: 0 .6rem .4rem; }
.quiet { padding: 0 .6rem .4rem; }
.jump { display: none; }
section:target { background: none; }
li { scroll-margin-top: .5rem; }
main li {
  display: grid; grid-template-columns: 5.2rem 4.6rem minmax(0, 1fr) max-content; gap: .6rem; font-size: .85rem;
}
main li .window { font-size: .95rem; }
main .window li { display: block; }
time { font-variant-numeric: tabular-nums; text-align: right; }
.text { white-space: pre-wrap; }
.sent .text, .reply .text { font-family: ui-monospace, Menlo, Consolas, "DejaVu Sans Mono", monospace; font-size: .8rem; }
.tick, .port, .written, .icon, .clock { color: var(--soft); }
.error .kind, .error .text, .broken .kind, .broken .text, .count.bad { color: var(--bad); }
.dialog .kind, .answer > .kind, .menu .kind, .world .kind { color: var(--link); font-weight: 600; }
.count { margin-left: .5rem; font-size: .85rem; color: var(--link); }
.slip a { display: block; color: inherit; text-decoration: none; }
.slip a:hover { background: #f0efe6; }
.slip a:target { background: #ffe58a; }
@media screen and (max-width: 60rem) {
  .jump, main { display: block; }
  #paper { position: static; max-height: none; padding: 0; }
  main li { grid-template-columns: 5.2rem 3.6rem minmax(0, 1fr) max-content; gap: .3rem; }
}
@media print {
  main { display: block; }
  #paper { position: static; max-height: none; overflow: visible; }
}
)";

/// "0:00.522", "1:05:00.000".
std::string TimeText(std::chrono::milliseconds at) {
  const auto hours = static_cast<int>(at.count() / 3'600'000);
  const auto rest = static_cast<int>(at.count() % 3'600'000);
  char text[80];
  if (hours > 0) {
    std::snprintf(text, sizeof text, "%d:%02d:%02d.%03d", hours, rest / 60'000, rest / 1000 % 60,
                  rest % 1000);
  } else {
    std::snprintf(text, sizeof text, "%d:%02d.%03d", rest / 60'000, rest / 1000 % 60, rest % 1000);
  }
  return text;
}

std::string Anchor(char kind, std::size_t index) { return kind + std::to_string(index); }

bool IsIdle(const RehearsalEvent& event) { return event.kind == "tick" && !event.text.empty(); }

bool BeginsRun(const RehearsalEvent& event) { return event.kind == "start"; }

bool BeginsWork(const RehearsalEvent& event) {
  return BeginsRun(event) || (event.kind == "tick" && event.text.empty());
}

/// A span of events: the work of one tick, or the time between.
struct Span {
  std::size_t begin = 0;
  std::size_t end = 0;
  bool works = false;
};

std::vector<Span> SpansOf(const std::vector<RehearsalEvent>& events) {
  std::vector<Span> spans;
  for (std::size_t i = 0; i < events.size(); ++i) {
    const bool begins = BeginsWork(events[i]);
    if (spans.empty() || begins || IsIdle(events[i])) spans.push_back({i, i, begins});
    spans.back().end = i + 1;
  }
  return spans;
}

/// Draws the events of a rehearsal and its paper.
class PageWriter {
 public:
  PageWriter(const RehearsalOutcome& outcome, const DialogRecord& dialogs)
      : events_(outcome.events), dialogs_(dialogs.Dialogs()), parts_(PrintedParts(outcome)) {
    for (const PrintedPart& part : parts_) lines_[part.event] += part.lines.size();
  }

  std::string Events();
  std::string Paper() const;

 private:
  std::string EventHtml(std::size_t index);
  std::string WorkHtml(const Span& span, bool unfolded);
  std::string SummaryOf(const Span& span) const;
  std::size_t CountOfKind(const Span& span, std::string_view kind) const;

  const std::vector<RehearsalEvent>& events_;
  const std::deque<ShownDialog>& dialogs_;
  std::vector<PrintedPart> parts_;
  std::map<std::size_t, std::size_t> lines_;  // per event, the number of lines that it printed
  std::size_t dialog_ = 0;                    // the next one to be drawn
};

std::string PageWriter::EventHtml(std::size_t index) {
  const RehearsalEvent& event = events_[index];
  const auto printed = lines_.find(index);
  if (event.kind == "paper" && printed == lines_.end()) return {};
  std::string text = HtmlText(event.text);
  if (event.kind == "paper") text = "printed";
  if (event.times > 1) text += " (" + std::to_string(event.times) + " times)";
  if (event.kind == "dialog") {
    text.clear();
    for (std::size_t n = 0; n < event.times && dialog_ < dialogs_.size(); ++n) {
      text += DialogHtml(dialogs_[dialog_++]);
    }
  }
  std::string link;
  if (printed != lines_.end()) {
    link = "<a href=\"#" + Anchor('p', index) + "\">" + CountOf(printed->second, "line") + "</a>";
  }
  const std::string kind(event.kind);
  return "<li id=\"" + Anchor('e', index) + "\" class=\"" + kind + "\"><time>" + TimeText(event.at) +
         "</time><span class=\"kind\">" + kind + "</span><span class=\"text\">" + text + "</span>" + link +
         "</li>\n";
}

std::size_t PageWriter::CountOfKind(const Span& span, std::string_view kind) const {
  const auto begin = events_.begin() + static_cast<std::ptrdiff_t>(span.begin);
  const auto end = events_.begin() + static_cast<std::ptrdiff_t>(span.end);
  return static_cast<std::size_t>(
      std::count_if(begin, end, [&](const RehearsalEvent& event) { return event.kind == kind; }));
}

/// What became of the tickets, otherwise those that were taken, otherwise the start or what was logged first.
std::string PageWriter::SummaryOf(const Span& span) const {
  std::string ended;
  std::string taken;
  std::string other = BeginsRun(events_[span.begin]) ? "start " + events_[span.begin].text : std::string();
  const auto add = [](std::string& text, const RehearsalEvent& event) {
    text += (text.empty() ? "" : ", ") + std::string(event.kind) + " " + event.text;
  };
  for (std::size_t i = span.begin; i < span.end; ++i) {
    const RehearsalEvent& event = events_[i];
    if (event.kind == "archived" || event.kind == "aborted") add(ended, event);
    if (event.kind == "taken") add(taken, event);
    if (other.empty() && event.kind == "log") other = event.text;
  }
  if (!ended.empty()) return ended;
  return taken.empty() ? other : taken;
}

std::string PageWriter::WorkHtml(const Span& span, bool unfolded) {
  const std::size_t asked = CountOfKind(span, "dialog");
  const std::size_t errors = CountOfKind(span, "error");
  const bool attention = asked + errors + CountOfKind(span, "broken") > 0;
  std::string html = unfolded || attention ? "<details open=\"open\">" : "<details>";
  html += "<summary><time>" + TimeText(events_[span.begin].at) + "</time> " + HtmlText(SummaryOf(span));
  if (asked > 0) html += "<span class=\"count\">" + CountOf(asked, "dialog") + "</span>";
  if (errors > 0) html += "<span class=\"count bad\">" + CountOf(errors, "error") + "</span>";
  html += "</summary>\n<ol>\n";
  for (std::size_t i = span.begin; i < span.end; ++i) html += EventHtml(i);
  return html + "</ol>\n</details>\n";
}

std::string PageWriter::Events() {
  const std::vector<Span> spans = SpansOf(events_);
  const auto works = [](const Span& span) { return span.works; };
  const bool unfolded =
      std::count_if(spans.begin(), spans.end(), works) <= static_cast<std::ptrdiff_t>(kMostUnfolded);
  std::string html = "<section id=\"events\">\n<h2>What happened</h2>\n";
  for (const Span& span : spans) {
    if (span.works) {
      html += WorkHtml(span, unfolded);
      continue;
    }
    html += "<ol class=\"quiet\">\n";
    for (std::size_t i = span.begin; i < span.end; ++i) html += EventHtml(i);
    html += "</ol>\n";
  }
  return html + "</section>\n";
}

std::string PageWriter::Paper() const {
  std::string html = "<section id=\"paper\">\n<h2>The paper</h2>\n";
  std::string rows;
  std::size_t last = events_.size();
  for (const PrintedPart& part : parts_) {
    if (rows.empty()) {
      html += "<a class=\"source\" href=\"#" + Anchor('e', part.event) + "\">at " +
              TimeText(events_[part.event].at) + "</a>\n";
    }
    const std::string to = " href=\"#" + Anchor('e', part.event) + "\">";
    rows += part.event == last ? "<a" + to : "<a id=\"" + Anchor('p', part.event) + "\"" + to;
    last = part.event;
    for (const std::string& line : part.lines) rows += RowHtml(PrintedRow(line));
    rows += "</a>";
    if (!part.cut) continue;
    html += SlipHtml(rows, true);
    rows.clear();
  }
  if (!rows.empty()) html += SlipHtml(rows, false);
  if (parts_.empty()) html += "<p class=\"soft\">Nothing was printed.</p>\n";
  return html + "</section>\n";
}

std::string Problems(const RehearsalOutcome& outcome) {
  if (outcome.problems.empty()) {
    return "<p class=\"good\">The connector ran to its end, and every expectation came true.</p>\n";
  }
  std::string html =
      "<div class=\"problems\">\n<h2>" + CountOf(outcome.problems.size(), "problem") + "</h2>\n<ul>\n";
  for (const std::string& problem : outcome.problems) html += "<li>" + HtmlText(problem) + "</li>\n";
  return html + "</ul>\n</div>\n";
}

/// The comment at the start of a scenario, which usually says what it is about.
std::string Subject(const std::string& text) {
  std::string subject;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line) && line.starts_with('#');) {
    subject += (subject.empty() ? "" : " ") + std::string(Trim(std::string_view(line).substr(1)));
  }
  return subject.empty() ? subject : "<p>" + HtmlText(subject) + "</p>\n";
}

}  // namespace

std::string RehearsalPage(const std::string& name, const std::string& text, const RehearsalOutcome& outcome,
                          const DialogRecord& dialogs) {
  const std::string title = "Rehearsal of " + ShownBytes(name.substr(name.find_last_of("\\/") + 1));
  PageWriter writer(outcome, dialogs);
  std::string body =
      "<header>\n<h1>" + HtmlText(title) + "</h1>\n" + Subject(text) + Problems(outcome) +
      "<details><summary>The scenario</summary>\n<pre class=\"scenario\">\n" + HtmlText(text) +
      "</pre></details>\n<p class=\"jump\"><a href=\"#paper\">To the paper</a></p>\n</header>\n<main>\n" +
      writer.Events() + writer.Paper() + "</main>\n";
  return DocumentOf({title, std::string(kSlipStyle).append(kDialogStyle).append(kStyle), body});
}

}  // namespace orvenza
