#include "simulator/scripted_operator.h"

#include <algorithm>
#include <optional>
#include <ostream>
#include <sstream>
#include <utility>

#include "core/text.h"

namespace orvenza {
namespace {

constexpr std::string_view kClose = "close";
constexpr std::string_view kMenu = "menu ";

/// The caption, counted from 1, that `answer` names; 0 when it names none.
template <typename Captions>
int Find(const Captions& captions, const std::string& answer) {
  int number = 0;
  for (const std::string& caption : captions) {
    ++number;
    if (ComparableCaption(caption) == ComparableCaption(answer)) return number;
  }
  return 0;
}

std::string Joined(const std::vector<std::string>& texts) {
  std::string joined;
  for (const auto& text : texts) joined += (joined.empty() ? "" : "|") + text;
  return joined;
}

std::string OnOneLine(std::string_view text) {
  std::string line;
  for (const char c : text) {
    if (c == '\r')
      line += "\\r";
    else if (c == '\n')
      line += "\\n";
    else
      line += c;
  }
  return line;
}

std::string_view Name(DialogKind kind) {
  switch (kind) {
    case DialogKind::kMessage: return "message";
    case DialogKind::kChoice: return "choice";
    case DialogKind::kPortSettings: return "port";
    case DialogKind::kUtilities: return "utilities";
  }
  return "";
}

/// Sets `selected` to the entries that `answer` names. False when a word is in no list after that of the
/// previous word.
bool SelectEntries(const PortContent& content, const std::string& answer, std::array<int, 5>& selected) {
  std::istringstream words(answer);
  std::size_t list = 0;
  for (std::string word; words >> word; ++list) {
    while (list < content.entries.size() && Find(content.entries[list], word) == 0) ++list;
    if (list == content.entries.size()) return false;
    selected[list] = Find(content.entries[list], word) - 1;
  }
  return true;
}

}  // namespace

std::string ComparableCaption(std::string_view caption) {
  std::string plain = ToUpperAscii(caption);
  plain.erase(std::remove(plain.begin(), plain.end(), '&'), plain.end());
  return plain;
}

ShownDialog DialogOf(const MessageContent& content) {
  return {DialogKind::kMessage, content.caption, "", content.text, content.icon, {}, content.buttons, ""};
}

ShownDialog DialogOf(const ChoiceContent& content) {
  return {DialogKind::kChoice,
          content.caption,
          content.heading,
          content.text,
          MessageIcon::kNone,
          content.frameVisible ? content.options : std::vector<std::string>(),
          {content.button},
          "",
          content.frameVisible ? content.selected : 0};
}

ShownDialog DialogOf(const PortContent& content) {
  return {DialogKind::kPortSettings,
          content.caption,
          "",
          EntriesOf(content, content.selected),
          MessageIcon::kNone,
          {},
          {content.button},
          ""};
}

ShownDialog DialogOf(const UtilitiesContent& content) {
  return {DialogKind::kUtilities,
          content.caption,
          "",
          "",
          MessageIcon::kNone,
          {},
          {content.buttons.begin(), content.buttons.end()},
          ""};
}

std::string EntriesOf(const PortContent& content, const std::array<int, 5>& selected) {
  std::string text;
  for (std::size_t list = 0; list < content.entries.size(); ++list) {
    const auto at = static_cast<std::size_t>(selected[list]);
    const auto& entries = content.entries[list];
    text += (list == 0 ? "" : " ") + (at < entries.size() ? entries[at] : "-");
  }
  return text;
}

std::ostream& operator<<(std::ostream& out, const ShownDialog& dialog) {
  out << Name(dialog.kind) << " \"" << OnOneLine(dialog.caption) << '"';
  if (!dialog.heading.empty()) out << " \"" << OnOneLine(dialog.heading) << '"';
  if (!dialog.text.empty()) out << " \"" << OnOneLine(dialog.text) << '"';
  if (!dialog.options.empty()) out << " (" << Joined(dialog.options) << ')';
  out << " [" << Joined(dialog.buttons) << ']';
  if (!dialog.answer.empty()) out << " <- " << dialog.answer;
  return out;
}

/// A message dialog that waits. CloseMessage closes it through the operator's list.
class ScriptedOperator::OpenMessage {
 public:
  explicit OpenMessage(std::vector<bool*>& open) : open_(open) { open_.push_back(&closed_); }
  ~OpenMessage() { open_.pop_back(); }
  OpenMessage(const OpenMessage&) = delete;
  OpenMessage& operator=(const OpenMessage&) = delete;

  const bool& Closed() const { return closed_; }

 private:
  std::vector<bool*>& open_;
  bool closed_ = false;
};

void ScriptedOperator::Answer(std::string answer, std::chrono::milliseconds reaction) {
  answers_.emplace_back(std::move(answer), reaction);
}

void ScriptedOperator::DropAnswerAfter(std::chrono::milliseconds reaction) {
  if (!answers_.empty() && answers_.front().reaction >= reaction) answers_.pop_front();
}

void ScriptedOperator::CloseMessage() {
  for (bool* closed : openMessages_) *closed = true;
}

std::optional<int> ScriptedOperator::ShowMessage(const MessageContent& content) {
  OpenMessage message(openMessages_);
  ShownDialog& dialog = Record(DialogOf(content));
  const auto answer = NextAnswer(dialog, message.Closed());
  if (!answer) return std::nullopt;
  const int button = Find(content.buttons, *answer);
  if (button == 0) throw BadAnswer{*answer, dialog};
  return button;
}

std::optional<int> ScriptedOperator::ShowChoice(const ChoiceContent& content) {
  ShownDialog& dialog = Record(DialogOf(content));
  const auto answer = NextAnswer(dialog, false);
  if (!answer) return std::nullopt;
  if (ComparableCaption(content.button) == ComparableCaption(*answer)) return content.selected;
  const int option = Find(dialog.options, *answer);
  if (option == 0) throw BadAnswer{*answer, dialog};
  return option;
}

std::optional<std::array<int, 5>> ScriptedOperator::ShowPortSettings(const PortContent& content) {
  ShownDialog& dialog = Record(DialogOf(content));
  const auto answer = NextAnswer(dialog, false);
  if (!answer) return std::nullopt;
  auto selected = content.selected;
  if (ComparableCaption(content.button) != ComparableCaption(*answer) &&
      !SelectEntries(content, *answer, selected)) {
    throw BadAnswer{*answer, dialog};
  }
  return selected;
}

void ScriptedOperator::ShowUtilities(const UtilitiesContent& content,
                                     const std::function<bool(int)>& pressed) {
  ShownDialog& dialog = Record(DialogOf(content));
  while (const auto answer = NextAnswer(dialog, false)) {
    const int button = Find(content.buttons, *answer);
    if (button == 0) throw BadAnswer{*answer, dialog};
    const bool closes = pressed(button);
    loop_.CheckEnd();
    if (closes) return;
  }
}

ShownDialog& ScriptedOperator::Record(ShownDialog dialog) {
  shown_.push_back(std::move(dialog));
  if (observer_) observer_(shown_.back(), {});
  return shown_.back();
}

std::optional<std::string> ScriptedOperator::NextAnswer(ShownDialog& dialog, const bool& closed) {
  for (;;) {
    loop_.Dispatch();
    loop_.CheckEnd();
    if (closed) return std::nullopt;
    if (answers_.empty() && judgement_) {
      if (PlannedAnswer judged = judgement_(dialog); !judged.text.empty())
        answers_.push_back(std::move(judged));
    }
    if (answers_.empty()) throw UnansweredDialog{dialog};
    if (!React(closed)) continue;
    const std::string answer = Take(dialog);
    if (answer == kClose) return std::nullopt;
    if (!answer.starts_with(kMenu)) return answer;
    UseMenu(dialog, answer);
  }
}

bool ScriptedOperator::React(const bool& closed) {
  const auto taken = answersTaken_;
  std::chrono::milliseconds left = answers_.front().reaction;
  while (left.count() > 0 && !closed) {
    const auto step = std::min(left, EventLoop::kSlice);
    loop_.Pause(step);
    loop_.CheckEnd();
    left -= step;
  }
  // A dialog that opened and closed in the meantime took the answer.
  return !closed && taken == answersTaken_;
}

std::string ScriptedOperator::Take(ShownDialog& dialog) {
  const std::string answer = std::move(answers_.front().text);
  answers_.pop_front();
  ++answersTaken_;
  dialog.answer += (dialog.answer.empty() ? "" : ", ") + answer;
  if (observer_) observer_(dialog, answer);
  return answer;
}

void ScriptedOperator::UseMenu(const ShownDialog& dialog, const std::string& answer) {
  const int item = Find(MenuCaptions(), answer.substr(kMenu.size()));
  if (item == 0 || !menuHandler_) throw BadAnswer{answer, dialog};
  menuHandler_(static_cast<MenuItem>(item - 1));
}

}  // namespace orvenza
