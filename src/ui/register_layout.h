#pragma once

#include <array>
#include <vector>

#include "ui/layout.h"

namespace orvenza {

/// Input of the layout of the simulated register's window. All sizes are in pixels.
struct RegisterParts {
  int rollWidth = 0;   ///< Width of the roll for a full line, with borders and scroll bar.
  int rollLine = 0;    ///< Height of a line on the roll.
  int listWidth = 0;   ///< Width of the list for its longest fault, with borders and scroll bar.
  int listEntry = 0;   ///< Height of a fault in the list.
  int listBorder = 0;  ///< Height of the list's two edges.
  int faults = 0;      ///< Number of faults in the list.
  int textLine = 0;    ///< Height of a line of text.

  TextMeasure save, nextCommand, untilOff, switchOff, copy;  ///< The buttons' captions.
  std::vector<TextMeasure> switches;
  TextMeasure counters;
};

struct RegisterLayout {
  Extent form;  ///< Client area.
  Box rollHeading, roll, save;
  Box switchesHeading;
  std::vector<Box> switches;
  Box faultsHeading, faults, nextCommand, untilOff, chosen, switchOff;
  Box countersHeading, counters, copy;
  Box status;
};

/// The roll on the left, as high and as wide as `client` allows. On its right a column of fixed width with
/// the switches, the faults and the counters; the list of faults takes the height that is left in it. Below
/// both a row of buttons and two lines of status. The form is larger than `client` if that is too small for a
/// whole line of the roll and a few faults.
RegisterLayout LayOutRegister(const RegisterParts& parts, int dpi, Extent client);

/// The client area that shows a whole line of the roll and ten faults.
Extent UsualRegister(const RegisterParts& parts, int dpi);

}  // namespace orvenza
