#pragma once

#include <array>
#include <functional>
#include <vector>

namespace orvenza {

/// A size in pixels.
struct Extent {
  int width = 0;
  int height = 0;

  bool operator==(const Extent&) const = default;
};

/// A rectangle in pixels, relative to the form's upper left corner.
struct Box {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  int Right() const { return left + width; }
  int Bottom() const { return top + height; }
  bool operator==(const Box&) const = default;
};

/// Converts form units of 1/1440 inch to pixels at `dpi` pixels per inch.
constexpr int Pixels(int units, int dpi) { return (units * dpi + 720) / 1440; }

/// The size of a text wrapped to at most `widest` pixels.
using TextMeasure = std::function<Extent(int widest)>;

/// Input of the layout of a message dialog.
struct MessageParts {
  TextMeasure text;
  bool centred = false;  ///< A centred text starts with its empty line.
  bool icon = false;
  int buttons = 1;
};

struct MessageLayout {
  Extent form;  ///< Client area: without title bar and border, as everywhere here.
  Box icon;
  Box text;
  std::vector<Box> buttons;
};

/// The text is above the row of buttons, with the icon on its left. The leading empty line of a centred text
/// may lie partly above the form, so that the last line does not touch the buttons. The buttons stay at
/// ButtonPlace's top: a longer text makes the form wider. The buttons move down only if the text is still too
/// long for the `screen` or has too many line breaks of its own.
MessageLayout LayOutMessage(const MessageParts& parts, int dpi, Extent screen);

struct ChoiceParts {
  TextMeasure heading;
  TextMeasure text;
  std::vector<TextMeasure> options;  ///< Empty: the frame is not shown.
};

struct ChoiceLayout {
  Extent form;
  Box heading;
  Box text;
  Box frame;
  std::vector<Box> options;
  Box button;
};

/// Heading, text, framed options and button from top to bottom, as wide as the longest text. Texts are
/// wrapped when the form would become too wide to be read at a glance.
ChoiceLayout LayOutChoice(const ChoiceParts& parts, int dpi, Extent screen);

struct PortParts {
  TextMeasure caption;
  std::array<TextMeasure, 5> labels;
};

struct PortLayout {
  Extent form;
  Box frame;
  std::array<Box, 5> labels;
  std::array<Box, 5> lists;  ///< Size when closed.
  Box button;
};

/// One row per list with its label on the left, all in a frame with the button below.
PortLayout LayOutPort(const PortParts& parts, int dpi, Extent screen);

struct UtilitiesLayout {
  Extent form;
  std::array<Box, 3> buttons;
};

/// Three large buttons from top to bottom.
UtilitiesLayout LayOutUtilities(const std::array<TextMeasure, 3>& captions, int dpi, Extent screen);

}  // namespace orvenza
