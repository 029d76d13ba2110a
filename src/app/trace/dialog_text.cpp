#include "app/trace/dialog_text.h"

#include <string_view>

#include "app/trace/transcript_text.h"
#include "core/text.h"

namespace orvenza {
namespace {

std::string_view NameOf(const ShownDialog& dialog) {
  switch (dialog.kind) {
    case DialogKind::kChoice: return " (choice)";
    case DialogKind::kPortSettings: return " (port)";
    case DialogKind::kUtilities: return " (utilities)";
    case DialogKind::kMessage: break;
  }
  switch (dialog.icon) {
    case MessageIcon::kStop: return " (stop)";
    case MessageIcon::kQuestion: return " (question)";
    case MessageIcon::kExclamation: return " (exclamation)";
    case MessageIcon::kInformation: return " (information)";
    case MessageIcon::kNone: return "";
  }
  return "";
}

/// `text` on one line; the blank line before a short message is dropped.
std::string SideBySide(std::string_view text) {
  if (text.starts_with(kLineBreak)) text.remove_prefix(kLineBreak.size());
  std::string joined;
  for (std::size_t at = text.find(kLineBreak); at != std::string_view::npos; at = text.find(kLineBreak)) {
    joined.append(text.substr(0, at)).append(" / ");
    text.remove_prefix(at + kLineBreak.size());
  }
  return Printable(joined.append(text));
}

}  // namespace

std::string DialogText(const ShownDialog& dialog) {
  std::string text = SideBySide(dialog.caption) + std::string(NameOf(dialog));
  if (!dialog.heading.empty()) text += ": " + SideBySide(dialog.heading);
  if (!dialog.text.empty()) text += (dialog.heading.empty() ? ": " : " / ") + SideBySide(dialog.text);
  int number = 0;
  for (const std::string& option : dialog.options) {
    text += (++number == dialog.selected ? " (*) " : " ( ) ") + SideBySide(option);
  }
  for (const std::string& button : dialog.buttons) text += " [" + SideBySide(button) + "]";
  return text;
}

}  // namespace orvenza
