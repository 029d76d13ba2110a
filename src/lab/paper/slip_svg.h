#pragma once

#include <string>

#include "lab/paper/paper_slip.h"

namespace orvenza {

/// The measures of a slip in SVG, in pixels.
inline constexpr int kSvgSlipWidth = 372;
[[nodiscard]] int SvgSlipHeight(const PaperSlip& slip);

/// The style of drawn slips, for the <style> of a document.
extern const std::string_view kSvgSlipStyle;

/// A slip whose upper left corner is at (0, 0). Each text has its place and its width, so that the columns
/// stand in every font.
[[nodiscard]] std::string SlipSvg(const PaperSlip& slip);

}  // namespace orvenza
