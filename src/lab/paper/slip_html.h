#pragma once

#include <string>
#include <string_view>

#include "lab/paper/paper_slip.h"

namespace orvenza {

/// The style of drawn slips, for a page.
extern const std::string_view kSlipStyle;

/// A row of a slip.
[[nodiscard]] std::string RowHtml(const PaperRow& row);

/// A slip of `rows`, the HTML of its rows.
[[nodiscard]] std::string SlipHtml(std::string_view rows, bool cut);

[[nodiscard]] std::string SlipHtml(const PaperSlip& slip);

}  // namespace orvenza
