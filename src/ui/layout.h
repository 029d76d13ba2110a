#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <vector>

namespace orvenza {

/// A size in pixels.
struct Extent {
  int width = 0;
  int height = 0;

  bool operator==(const Extent&) const = default;
};

/// A place in pixels, counted from the form's upper left corner.
struct Box {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  int Right() const { return left + width; }
  int Bottom() const { return top + height; }
  bool operator==(const Box&) const = default;
};

/// Form units of 1/1440 inch on a screen of `dpi` pixels an inch.
constexpr int Pixels(int units, int dpi) { return (units * dpi + 720) / 1440; }

/// The size of a text when its lines are broken to be at most `widest` pixels wide.
using TextMeasure = std::function<Extent(int widest)>;

/// What decides about the layout of a message dialog.
struct MessageParts {
  TextMeasure text;
  bool centred = false;  ///< A centred text brings its leading empty line along.
  bool icon = false;
  int buttons = 1;
};

struct MessageLayout {
  Extent form;  ///< Without title bar and border, as everywhere here.
  Box icon;
  Box text;
  std::vector<Box> buttons;
};

/// The text above the row of buttons, the icon to its left. The leading empty line of a centred text may lie
/// partly above the form, so that the last line does not touch the buttons. The buttons stand at
/// ButtonPlace's top: a longer text makes the form wider. Only one that is too long for the `screen` all the
/// same, or has too many lines of its own, moves the buttons down.
MessageLayout LayOutMessage(const MessageParts& parts, int dpi, Extent screen);

struct ChoiceParts {
  TextMeasure heading;
  TextMeasure text;
  std::vector<TextMeasure> options;  ///< None: the frame is not shown.
};

struct ChoiceLayout {
  Extent form;
  Box heading;
  Box text;
  Box frame;
  std::vector<Box> options;
  Box button;
};

/// Heading, text, framed options and button below each other, as wide as the longest of the texts wants;
/// texts that would make the form too wide to be read at a glance are broken.
ChoiceLayout LayOutChoice(const ChoiceParts& parts, int dpi, Extent screen);

struct PortParts {
  TextMeasure caption;
  std::array<TextMeasure, 5> labels;
};

struct PortLayout {
  Extent form;
  Box frame;
  std::array<Box, 5> labels;
  std::array<Box, 5> lists;  ///< Closed.
  Box button;
};

/// One row for each list, its label to its left, all in a frame with the button below.
PortLayout LayOutPort(const PortParts& parts, int dpi, Extent screen);

struct UtilitiesLayout {
  Extent form;
  std::array<Box, 3> buttons;
};

/// Three large buttons below each other.
UtilitiesLayout LayOutUtilities(const std::array<TextMeasure, 3>& captions, int dpi, Extent screen);

}  // namespace orvenza
