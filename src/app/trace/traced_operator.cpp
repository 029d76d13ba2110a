#include "app/trace/traced_operator.h"

#include <string>
#include <utility>

#include "app/trace/dialog_text.h"
#include "app/trace/trace_mask.h"
#include "app/trace/transcript_text.h"

namespace orvenza {
namespace {

constexpr const char* kClosed = "close";

/// Lists a message while it is open.
class OpenMark {
 public:
  explicit OpenMark(std::vector<bool*>& open) : open_(open) { open_.push_back(&closed_); }
  ~OpenMark() { open_.pop_back(); }
  OpenMark(const OpenMark&) = delete;
  OpenMark& operator=(const OpenMark&) = delete;
  bool Closed() const { return closed_; }

 private:
  std::vector<bool*>& open_;
  bool closed_ = false;
};

/// The caption with this number, from 1, without the "&" of its letter.
template <typename Captions>
std::string Caption(const Captions& captions, int number) {
  std::string caption = captions[static_cast<std::size_t>(number - 1)];
  std::erase(caption, '&');
  return caption;
}

}  // namespace

void TracedOperator::TellDialog(ShownDialog dialog) {
  const char separator = watches_.settings == nullptr ? '\0' : watches_.settings->SeparatorChar;
  dialog.heading = MaskQuotes(dialog.heading, separator);
  dialog.text = MaskQuotes(dialog.text, separator);
  watches_.trace.Add("dialog", DialogText(dialog));
}

void TracedOperator::TellAnswer(const std::string& answer) {
  watches_.trace.Add("answer", Printable(answer));
}

std::optional<int> TracedOperator::ShowMessage(const MessageContent& content) {
  const OpenMark mark(openMessages_);
  TellDialog(DialogOf(content));
  const auto button = person_.ShowMessage(content);
  if (button) TellAnswer(Caption(content.buttons, *button));
  if (!button && !mark.Closed()) TellAnswer(kClosed);
  return button;
}

void TracedOperator::CloseMessage() {
  for (bool* closed : openMessages_) *closed = true;
  person_.CloseMessage();
}

std::optional<int> TracedOperator::ShowChoice(const ChoiceContent& content) {
  TellDialog(DialogOf(content));
  const auto option = person_.ShowChoice(content);
  const bool named = option && *option > 0 && content.frameVisible;
  if (named)
    TellAnswer(Caption(content.options, *option));
  else
    TellAnswer(option ? Caption(std::array{content.button}, 1) : kClosed);
  return option;
}

std::optional<std::array<int, 5>> TracedOperator::ShowPortSettings(const PortContent& content) {
  TellDialog(DialogOf(content));
  const auto selected = person_.ShowPortSettings(content);
  TellAnswer(selected ? EntriesOf(content, *selected) : kClosed);
  return selected;
}

void TracedOperator::ShowUtilities(const UtilitiesContent& content, const std::function<bool(int)>& pressed) {
  bool done = false;
  TellDialog(DialogOf(content));
  person_.ShowUtilities(content, [&](int button) {
    TellAnswer(Caption(content.buttons, button));
    done = pressed(button);
    return done;
  });
  if (!done) TellAnswer(kClosed);
}

}  // namespace orvenza
