#include "ui/terminal/blocks.h"

#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "core/own_texts.h"
#include "core/text.h"
#include "ui/menu.h"
#include "ui/terminal/answers.h"
#include "ui/terminal/text_box.h"

namespace orvenza {
namespace {

/// Width of the label column in the port dialog.
constexpr std::size_t kLabelWidth = 16;

std::string_view IconWord(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::kStop: return own_text::kStop;
    case MessageIcon::kQuestion: return own_text::kQuestion;
    case MessageIcon::kExclamation: return own_text::kExclamation;
    case MessageIcon::kInformation: return own_text::kInformation;
    case MessageIcon::kNone: break;
  }
  return "";
}

/// "[1] Riprova", "[2] Annulla" etc.
std::vector<std::string> Numbered(std::span<const std::string> captions) {
  std::vector<std::string> items;
  for (const std::string& caption : captions) {
    items.push_back("[" + std::to_string(items.size() + 1) + "] " + PlainCaption(caption));
  }
  return items;
}

/// The same after a mark for the selected item; `selected` counts from 1, 0 is none.
std::vector<std::string> Marked(std::span<const std::string> captions, int selected) {
  std::vector<std::string> items = Numbered(captions);
  int number = 0;
  for (std::string& item : items) item.insert(0, ++number == selected ? "(*) " : "( ) ");
  return items;
}

/// Says what a number does, what Enter alone does, and how to close.
std::string Prompt(const std::string& number, const std::string& enter, const std::string& close) {
  return number + " (" + own_text::kEnterAlone + " " + PlainCaption(enter) + "; " + close + ")\n";
}

std::string Prompt(const std::string& enter) {
  return Prompt(own_text::kNumberAndEnter, enter, own_text::kXCloses);
}

std::string SelectedEntry(const std::vector<std::string>& entries, int selected) {
  const bool any = selected >= 0 && selected < static_cast<int>(entries.size());
  return any ? entries[static_cast<std::size_t>(selected)] : "-";
}

}  // namespace

Block DrawMessage(const MessageContent& content, std::size_t width) {
  const std::string icon(IconWord(content.icon));
  TextBox box(icon.empty() ? content.caption : icon + " | " + content.caption, width);
  // A short text starts with its empty line.
  if (!content.text.starts_with(kLineBreak)) box.AddText("");
  box.AddText(content.text, content.centred);
  box.AddText("");
  box.AddRule();
  box.AddColumns(Numbered(content.buttons));
  return {box.Draw(), Prompt(content.buttons.front())};
}

Block DrawChoice(const ChoiceContent& content, std::size_t width) {
  TextBox box(content.caption, width);
  box.AddText("");
  if (!content.heading.empty()) box.AddText(content.heading);
  if (!content.text.empty()) box.AddText(content.text);
  box.AddText("");
  box.AddRule();
  if (content.frameVisible) {
    for (const std::string& option : Marked(content.options, content.selected)) box.AddText(option);
  } else {
    box.AddText("[1] " + PlainCaption(content.button));
  }
  const bool anySelected = content.frameVisible && content.selected != 0;
  // Options are too long to be repeated in the prompt.
  return {box.Draw(), Prompt(anySelected ? "[" + std::to_string(content.selected) + "]" : content.button)};
}

Block DrawPortSettings(const PortContent& content, const std::array<int, 5>& selected, std::size_t width) {
  TextBox box(content.caption, width);
  std::size_t list = 0;
  for (std::string& line : Numbered(content.labels)) {
    const std::size_t length = CountCharacters(line);
    line.append(length < kLabelWidth ? kLabelWidth - length : 1, ' ');
    line.append(SelectedEntry(content.entries[list], selected[list]));
    box.AddText(line);
    ++list;
  }
  return {box.Draw(), Prompt(own_text::kNumberChanges, content.button, own_text::kXClosesUnsaved)};
}

Block DrawPortList(const PortContent& content, std::size_t list, int selected, std::size_t width) {
  TextBox box(content.caption + " - " + content.labels[list], width);
  box.AddColumns(Marked(content.entries[list], selected + 1));
  return {box.Draw(), Prompt(SelectedEntry(content.entries[list], selected))};
}

Block DrawUtilities(const UtilitiesContent& content, std::size_t width) {
  TextBox box(content.caption, width);
  for (const std::string& button : Numbered(content.buttons)) box.AddText(button);
  return {box.Draw(), Prompt(content.buttons.front())};
}

std::string DescribeTickets(const std::string& files, char separator) {
  const bool visible = separator > ' ' && separator < 127;
  const std::string shown =
      visible ? std::string(1, separator) : own_text::kCharacter + (" " + std::to_string(separator));
  return std::string(own_text::kTicketsIn) + " " + files + ", " + own_text::kSeparatorIs + " " + shown;
}

Block DrawMenu(std::size_t width) {
  TextBox box(own_text::kMenu, width);
  bool first = true;
  for (const std::string& item : Numbered(MenuCaptions())) {
    if (!std::exchange(first, false)) box.AddRule();
    box.AddText(item);
  }
  return {box.Draw(), std::string(own_text::kNumberAndEnter) + " (" + own_text::kEnterAlone + " " +
                          own_text::kClosesMenu + ")\n"};
}

}  // namespace orvenza
