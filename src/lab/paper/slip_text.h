#pragma once

#include <string>

#include "lab/paper/paper_slip.h"

namespace orvenza {

/// A slip as text of fixed width. Its last line is dashed where the paper is not cut.
[[nodiscard]] std::string SlipText(const PaperSlip& slip);

}  // namespace orvenza
