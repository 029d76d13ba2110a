#include "lab/rehearsal/dialog_html.h"

#include <algorithm>

#include "core/text.h"
#include "lab/page/html_page.h"

namespace orvenza {
namespace {

constexpr std::string_view kBetweenAnswers = ", ";

/// A text of several lines, without the blank line before a short message.
std::string Lines(std::string_view text) {
  std::string lines;
  for (const char c : text) {
    if (c != '\r' && !(c == '\n' && lines.empty())) lines += c;
  }
  return HtmlText(lines);
}

/// A caption with its access key underlined.
std::string Caption(const std::string& caption) {
  const std::size_t mark = caption.find('&');
  if (mark == std::string::npos) return HtmlText(caption);
  const std::string behind = caption.substr(mark + 1);
  const std::string key = FirstCharacters(behind, 1);
  return HtmlText(caption.substr(0, mark)) + "<u>" + HtmlText(key) + "</u>" +
         HtmlText(behind.substr(key.size()));
}

std::string IconHtml(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::kStop: return "<span class=\"icon stop\">\xC3\x97</span>";
    case MessageIcon::kQuestion: return "<span class=\"icon\">?</span>";
    case MessageIcon::kExclamation: return "<span class=\"icon warn\">!</span>";
    case MessageIcon::kInformation: return "<span class=\"icon\">i</span>";
    case MessageIcon::kNone: break;
  }
  return {};
}

/// Whether `caption` is what was answered last.
bool IsAnswered(const ShownDialog& dialog, const std::string& caption) {
  const std::string between(kBetweenAnswers);
  return (between + ComparableCaption(dialog.answer)).ends_with(between + ComparableCaption(caption));
}

std::string OptionsHtml(const ShownDialog& dialog) {
  if (dialog.options.empty()) return {};
  std::string html = "<ul>";
  int number = 0;
  for (const std::string& option : dialog.options) {
    html += IsAnswered(dialog, option) ? "<li class=\"answered\">" : "<li>";
    html += ++number == dialog.selected ? "\xE2\x97\x89 " : "\xE2\x97\x8B ";
    html += Caption(option) + "</li>";
  }
  return html + "</ul>";
}

std::string ButtonsHtml(const ShownDialog& dialog) {
  std::string html = "<div class=\"buttons\">";
  for (const std::string& button : dialog.buttons) {
    html += IsAnswered(dialog, button) ? "<span class=\"answered\">" : "<span>";
    html += Caption(button) + "</span>";
  }
  return html + "</div>";
}

std::string AnswerText(const std::string& answer) {
  if (answer.empty()) return "Nobody answered.";
  return answer == "close" ? "Closed without an answer." : "Answered: " + answer;
}

}  // namespace

const std::string_view kDialogStyle = R"(.window {
  width: max-content; max-width: 100%; margin: .4rem 0; border: 1px solid var(--soft); border-radius: 6px;
  background: var(--panel); overflow: hidden; box-shadow: 0 2px 6px #0003; break-inside: avoid;
}
.window .caption { padding: .2rem .7rem; background: var(--line); font-weight: 600; font-size: .85rem; }
.window .content { display: flex; gap: .8rem; padding: .7rem .7rem 0; }
.window p { margin: 0 0 .3rem; white-space: pre-line; }
.window ul { margin: .3rem 0 0; padding: 0; list-style: none; }
.window .icon {
  flex: none; width: 2rem; height: 2rem; border-radius: 50%; background: #2463a8; color: #fff;
  font: 700 1.2rem/2rem system-ui, sans-serif; text-align: center;
}
.window .stop { background: #b3261e; }
.window .warn { background: #b97900; }
.window .buttons { display: flex; flex-wrap: wrap; gap: .5rem; justify-content: flex-end; padding: .7rem; }
.window .buttons span { padding: .1rem .9rem; border: 1px solid var(--soft); border-radius: 4px; }
.window .answered { background: var(--mark); font-weight: 600; }
.window .answer { padding: .3rem .7rem; border-top: 1px solid var(--line); color: var(--soft); font-size: .85rem; }
)";

void DialogRecord::Note(const ShownDialog& dialog, std::string_view answer) {
  if (answer.empty()) {
    dialogs_.push_back(dialog);
    shown_.push_back(&dialog);
    return;
  }
  const auto shown = std::find(shown_.begin(), shown_.end(), &dialog);
  if (shown != shown_.end()) dialogs_[static_cast<std::size_t>(shown - shown_.begin())] = dialog;
}

std::string DialogHtml(const ShownDialog& dialog) {
  std::string content;
  if (!dialog.heading.empty()) content += "<p>" + Lines(dialog.heading) + "</p>";
  if (!dialog.text.empty()) content += "<p>" + Lines(dialog.text) + "</p>";
  content += OptionsHtml(dialog);
  if (!content.empty()) {
    content = "<div class=\"content\">" + IconHtml(dialog.icon) + "<div>" + content + "</div></div>";
  }
  return "<div class=\"window\"><div class=\"caption\">" + HtmlText(dialog.caption) + "</div>" + content +
         ButtonsHtml(dialog) + "<div class=\"answer\">" + HtmlText(AnswerText(dialog.answer)) +
         "</div></div>";
}

}  // namespace orvenza
