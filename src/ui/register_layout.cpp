#include "ui/register_layout.h"

#include <algorithm>
#include <limits>

namespace orvenza {
namespace {

// All in form units.
constexpr int kMargin = 150;
constexpr int kGap = 60;            ///< Between a heading and what it names, and between two buttons.
constexpr int kSectionGap = 180;    ///< Above a heading.
constexpr int kButtonHeight = 390;  ///< The house's buttons have 375, in which a frame would touch the "p".
constexpr int kButtonPadding = 270;
constexpr int kSwitchHeight = 315;
constexpr int kSwitchMark = 330;  ///< The box of a switch and the gap after it.
constexpr int kNarrowestColumn = 3900;

constexpr int kFewestFaults = 4;
constexpr int kUsualFaults = 10;
constexpr int kFewestRollLines = 10;
constexpr int kChosenLines = 2;
constexpr int kStatusLines = 2;

constexpr int kNoLimit = std::numeric_limits<int>::max() / 2;

/// Lays out the column on the right, from top to bottom.
class Column {
 public:
  Column(const RegisterParts& parts, int dpi) : parts_(parts), dpi_(dpi), width_(WidthOf()) {}

  int Width() const { return width_; }

  /// Places all but the button of the last row, and returns the lower edge.
  int Place(RegisterLayout& layout, int left, int listHeight) const {
    int top = Px(kMargin);
    layout.switchesHeading = Heading(left, top);
    top = layout.switchesHeading.Bottom() + Px(kGap);
    for (std::size_t i = 0; i < parts_.switches.size(); ++i, top += SwitchHeight())
      layout.switches.push_back({left, top, width_, SwitchHeight()});
    layout.faultsHeading = Heading(left, top + Px(kSectionGap));
    layout.faults = {left, layout.faultsHeading.Bottom() + Px(kGap), width_, listHeight};
    top = layout.faults.Bottom() + Px(kGap);
    const int half = (width_ - Px(kGap)) / 2;
    layout.nextCommand = {left, top, half, Px(kButtonHeight)};
    layout.untilOff = {left + width_ - half, top, half, Px(kButtonHeight)};
    top = layout.nextCommand.Bottom() + Px(kGap);
    const int off = ButtonWidth(parts_.switchOff);
    const int chosenHeight = std::max(kChosenLines * parts_.textLine, Px(kButtonHeight));
    layout.chosen = {left, top, width_ - off - Px(kGap), chosenHeight};
    layout.switchOff = {left + width_ - off, top, off, Px(kButtonHeight)};
    layout.countersHeading = Heading(left, layout.chosen.Bottom() + Px(kSectionGap));
    layout.counters = {left, layout.countersHeading.Bottom() + Px(kGap), width_,
                       parts_.counters(width_).height};
    return layout.counters.Bottom();
  }

  int ListHeight(int entries) const { return entries * parts_.listEntry + parts_.listBorder; }

  int ButtonWidth(const TextMeasure& caption) const { return caption(kNoLimit).width + Px(kButtonPadding); }

 private:
  int Px(int units) const { return Pixels(units, dpi_); }

  Box Heading(int left, int top) const { return {left, top, width_, parts_.textLine}; }

  int SwitchHeight() const { return std::max(Px(kSwitchHeight), parts_.textLine); }

  int WidthOf() const {
    const int half = std::max(ButtonWidth(parts_.nextCommand), ButtonWidth(parts_.untilOff));
    int width = std::max({Px(kNarrowestColumn), parts_.listWidth, 2 * half + Px(kGap)});
    for (const TextMeasure& one : parts_.switches)
      width = std::max(width, one(kNoLimit).width + Px(kSwitchMark));
    return width;
  }

  const RegisterParts& parts_;
  const int dpi_;
  const int width_;
};

/// Height of the row of buttons and the status line, with the gap above them and the margin below.
int FootHeight(const RegisterParts& parts, int dpi) {
  return Pixels(kSectionGap, dpi) + Pixels(kButtonHeight, dpi) + Pixels(kGap, dpi) +
         kStatusLines * parts.textLine + Pixels(kMargin, dpi);
}

/// The client area whose column shows at most `entries` faults.
Extent SizeWith(int entries, const RegisterParts& parts, int dpi) {
  const Column column(parts, dpi);
  const int margin = Pixels(kMargin, dpi);
  const int rollTop = margin + parts.textLine + Pixels(kGap, dpi);
  RegisterLayout layout;
  const int columnBottom = column.Place(layout, 0, column.ListHeight(std::min(entries, parts.faults)));
  const int bottom = std::max(columnBottom, rollTop + kFewestRollLines * parts.rollLine);
  return {parts.rollWidth + column.Width() + 3 * margin, bottom + FootHeight(parts, dpi)};
}

}  // namespace

RegisterLayout LayOutRegister(const RegisterParts& parts, int dpi, Extent client) {
  const auto px = [dpi](int units) { return Pixels(units, dpi); };
  const int margin = px(kMargin);
  const Extent least = SizeWith(kFewestFaults, parts, dpi);
  RegisterLayout layout;
  layout.form = {std::max(client.width, least.width), std::max(client.height, least.height)};

  const Column column(parts, dpi);
  const int left = layout.form.width - margin - column.Width();
  const int buttons = layout.form.height - FootHeight(parts, dpi) + px(kSectionGap);
  const int bottom = buttons - px(kSectionGap);
  RegisterLayout withoutFaults;
  const int room = bottom - column.Place(withoutFaults, left, 0);
  column.Place(layout, left, std::min(room, column.ListHeight(parts.faults)));

  layout.rollHeading = {margin, margin, left - 2 * margin, parts.textLine};
  const int rollTop = layout.rollHeading.Bottom() + px(kGap);
  layout.roll = {margin, rollTop, left - 2 * margin, bottom - rollTop};
  layout.save = {margin, buttons, column.ButtonWidth(parts.save), px(kButtonHeight)};
  layout.copy = {left, buttons, column.ButtonWidth(parts.copy), px(kButtonHeight)};
  layout.status = {margin, layout.save.Bottom() + px(kGap), layout.form.width - 2 * margin,
                   kStatusLines * parts.textLine};
  return layout;
}

Extent UsualRegister(const RegisterParts& parts, int dpi) { return SizeWith(kUsualFaults, parts, dpi); }

}  // namespace orvenza
