#include "ui/layout.h"

#include <algorithm>
#include <limits>

#include "ui/button_row.h"

namespace orvenza {
namespace {

// All in form units.
constexpr int kMargin = 180;
constexpr int kIconSize = 480;
constexpr int kLineGap = 15;  ///< Above and below a message of up to three lines, so that it fits.
constexpr int kButtonGap =
    120;  ///< Between a centred message and the buttons; its leading empty line is cut for it.
constexpr int kWideGap = 120;   ///< The same when the buttons move down anyway.
constexpr int kAiryText = 660;  ///< Height of two lines; a message with more looks crowded.
constexpr int kNarrowestMessage = 6000;
constexpr int kWidestMessage = 10800;
constexpr int kMessageStep = 300;

constexpr int kNarrowestChoice = 5400;
constexpr int kWidestChoice = 10800;
constexpr int kParagraphGap = 150;
constexpr int kFrameTop = 210;
constexpr int kOptionMark = 345;  ///< The circle of an option and the gap after it.
constexpr int kOptionHeight = 450;
constexpr int kOptionPadding = 120;

constexpr int kListWidth = 1950;
constexpr int kListHeight = 420;
constexpr int kRowHeight = 525;
constexpr int kPortFrameTop = 450;

constexpr int kNarrowestUtilities = 4200;
constexpr int kLargeButtonPadding = 600;
constexpr int kLargeButton = 600;
constexpr int kLargeButtonGap = 150;

constexpr int kNoLimit = std::numeric_limits<int>::max() / 2;

/// Part of the screen stays visible beside a form.
int Widest(Extent screen) { return screen.width * 9 / 10; }

Box PlaceInRow(int index, int count, int formWidth, int top, int dpi) {
  const ButtonPlace place = PlaceButton(index, count, formWidth);
  // Edges are rounded rather than widths, so that the buttons touch at every resolution.
  const int left = Pixels(place.left, dpi);
  return {left, top, Pixels(place.left + place.width, dpi) - left, Pixels(place.height, dpi)};
}

struct MessageText {
  int formWidth = 0;  ///< In form units.
  int width = 0;
  int height = kNoLimit;
};

/// The narrowest form whose message is airy, otherwise the narrowest with the lowest message. `besides` is
/// the width not available to the message.
MessageText FitMessage(const MessageParts& parts, int besides, int dpi, Extent screen) {
  const int rowWidth = parts.buttons * ButtonPlace{}.width + 2 * kMargin;
  const int narrowest = std::max(kNarrowestMessage, rowWidth);
  const int widest = std::max(rowWidth, std::min(kWidestMessage, Widest(screen) * 1440 / dpi));
  MessageText best;
  for (int units = std::min(narrowest, widest);; units = std::min(units + kMessageStep, widest)) {
    const int width = Pixels(units, dpi) - besides;
    const int height = parts.text(width).height;
    if (height < best.height) best = {units, width, height};
    if (best.height <= Pixels(kAiryText, dpi) || units == widest) return best;
  }
}

}  // namespace

MessageLayout LayOutMessage(const MessageParts& parts, int dpi, Extent screen) {
  const auto px = [dpi](int units) { return Pixels(units, dpi); };
  const int textLeft = parts.icon ? px(kMargin + kIconSize + kMargin) : px(kMargin);
  const int room = px(ButtonPlace{}.top) - 2 * px(kLineGap);
  const MessageText text = FitMessage(parts, textLeft + px(kMargin), dpi, screen);
  const int gap = px(text.height <= room ? kLineGap : kWideGap);
  const int area = std::max(room, text.height);
  const int buttonTop = area + 2 * gap;

  MessageLayout layout;
  const int textTop =
      parts.centred ? std::min(0, buttonTop - px(kButtonGap) - text.height - gap) : (area - text.height) / 2;
  layout.text = {textLeft, gap + textTop, text.width, text.height};
  layout.icon = {px(kMargin), (buttonTop - px(kIconSize)) / 2, px(kIconSize), px(kIconSize)};
  for (int index = 1; index <= parts.buttons; ++index) {
    layout.buttons.push_back(PlaceInRow(index, parts.buttons, text.formWidth, buttonTop, dpi));
  }
  layout.form = {px(text.formWidth), layout.buttons.back().Bottom() + px(kMargin)};
  return layout;
}

ChoiceLayout LayOutChoice(const ChoiceParts& parts, int dpi, Extent screen) {
  const auto px = [dpi](int units) { return Pixels(units, dpi); };
  const int margin = px(kMargin);
  const int besideOption = 2 * margin + px(kOptionMark);
  int width = std::max(parts.heading(kNoLimit).width, parts.text(kNoLimit).width);
  for (const TextMeasure& option : parts.options)
    width = std::max(width, option(kNoLimit).width + besideOption);
  const int widest = std::min(px(kWidestChoice), Widest(screen)) - 2 * margin;
  width = std::min(std::max(width, px(kNarrowestChoice) - 2 * margin), widest);

  ChoiceLayout layout;
  layout.heading = {margin, margin, width, parts.heading(width).height};
  layout.text = {margin, layout.heading.Bottom() + px(kParagraphGap), width, parts.text(width).height};
  int bottom = layout.text.Bottom() + margin;
  if (!parts.options.empty()) {
    layout.frame = {margin, layout.text.Bottom() + px(kParagraphGap), width, 0};
    int top = layout.frame.top + px(kFrameTop);
    for (const TextMeasure& option : parts.options) {
      const int height = option(width - besideOption).height + px(kOptionPadding);
      layout.options.push_back({2 * margin, top, width - 2 * margin, std::max(px(kOptionHeight), height)});
      top = layout.options.back().Bottom();
    }
    layout.frame.height = top + px(kParagraphGap) / 2 - layout.frame.top;
    bottom = layout.frame.Bottom() + margin;
  }
  layout.form.width = width + 2 * margin;
  const ButtonPlace place;
  layout.button = {(layout.form.width - px(place.width)) / 2, bottom, px(place.width), px(place.height)};
  layout.form.height = layout.button.Bottom() + margin;
  return layout;
}

PortLayout LayOutPort(const PortParts& parts, int dpi, Extent screen) {
  const auto px = [dpi](int units) { return Pixels(units, dpi); };
  const int margin = px(kMargin);
  int labelWidth = 0;
  for (const TextMeasure& label : parts.labels) labelWidth = std::max(labelWidth, label(kNoLimit).width);
  const int rowWidth = labelWidth + margin + px(kListWidth);
  const int captionWidth = parts.caption(kNoLimit).width;
  const int inner = std::min(std::max(rowWidth, captionWidth), Widest(screen) - 4 * margin);

  PortLayout layout;
  layout.frame = {margin, margin, inner + 2 * margin, px(kPortFrameTop + 5 * kRowHeight)};
  int top = layout.frame.top + px(kPortFrameTop);
  for (std::size_t list = 0; list < layout.lists.size(); ++list, top += px(kRowHeight)) {
    const int listLeft = layout.frame.Right() - margin - px(kListWidth);
    layout.labels[list] = {2 * margin, top, listLeft - 3 * margin, px(kListHeight)};
    layout.lists[list] = {listLeft, top, px(kListWidth), px(kListHeight)};
  }
  layout.form.width = layout.frame.Right() + margin;
  const ButtonPlace place;
  layout.button = {(layout.form.width - px(place.width)) / 2, layout.frame.Bottom() + margin, px(place.width),
                   px(place.height)};
  layout.form.height = layout.button.Bottom() + margin;
  return layout;
}

UtilitiesLayout LayOutUtilities(const std::array<TextMeasure, 3>& captions, int dpi, Extent screen) {
  const auto px = [dpi](int units) { return Pixels(units, dpi); };
  const int margin = 2 * px(kMargin);
  int width = px(kNarrowestUtilities);
  for (const TextMeasure& caption : captions) {
    width = std::max(width, caption(kNoLimit).width + px(kLargeButtonPadding));
  }
  width = std::min(width, Widest(screen) - 2 * margin);

  UtilitiesLayout layout;
  int top = margin;
  for (Box& button : layout.buttons) {
    button = {margin, top, width, px(kLargeButton)};
    top = button.Bottom() + px(kLargeButtonGap);
  }
  layout.form = {width + 2 * margin, layout.buttons.back().Bottom() + margin};
  return layout;
}

}  // namespace orvenza
