#pragma once

#include <string>
#include <vector>

#include "lab/preview/ticket_preview.h"

namespace orvenza {

/// The paper of each file, drawn as text, as a page or as a picture. The same on every system.
[[nodiscard]] std::string PreviewText(const std::vector<PaperSheet>& sheets);
[[nodiscard]] std::string PreviewHtml(const std::vector<PaperSheet>& sheets);
[[nodiscard]] std::string PreviewSvg(const std::vector<PaperSheet>& sheets);

}  // namespace orvenza
