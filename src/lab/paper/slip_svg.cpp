#include "lab/paper/slip_svg.h"

#include <algorithm>

#include "core/text.h"
#include "lab/page/html_page.h"

namespace orvenza {
namespace {

constexpr int kColumn = 8;
constexpr int kRow = 18;
constexpr int kBaseline = 13;  // in a row
constexpr int kMargin = 26;
constexpr int kTooth = 6;
constexpr std::string_view kGap = "  ";

std::string Attribute(const char* name, int value) {
  return std::string(" ") + name + "=\"" + std::to_string(value) + "\"";
}

/// The texts of a row, which blanks keep apart.
std::string RowTexts(const PaperRow& row, int top, const char* kind) {
  std::string svg;
  std::string_view rest = row.text;
  int column = 0;
  while (true) {
    const std::size_t blanks = std::min(rest.find_first_not_of(' '), rest.size());
    column += static_cast<int>(blanks);
    rest.remove_prefix(blanks);
    if (rest.empty()) return svg;
    const std::string_view text = rest.substr(0, std::min(rest.find(kGap), rest.size()));
    const int columns = static_cast<int>(CountCharacters(text));
    svg += std::string("<text class=\"") + kind + "\"" + Attribute("x", kMargin + column * kColumn) +
           Attribute("y", top + kBaseline) + Attribute("textLength", columns * kColumn) + ">" +
           HtmlText(text) + "</text>\n";
    column += columns;
    rest.remove_prefix(text.size());
  }
}

std::string RowSvg(const PaperRow& row, int top) {
  if (row.kind == PaperRow::Kind::kPrinted) return RowTexts(row, top, "printed");
  const char* const kind = row.kind == PaperRow::Kind::kLogo ? "logo" : "remark";
  return std::string("<rect class=\"") + kind + "\"" + Attribute("x", kMargin / 2) + Attribute("y", top) +
         Attribute("width", kSvgSlipWidth - kMargin) + Attribute("height", kRow) + " />\n" +
         RowTexts(row, top, kind);
}

/// The outline, with teeth where the paper was cut.
std::string Outline(int height, bool cut) {
  std::string path = "M0 0H" + std::to_string(kSvgSlipWidth) + "V" + std::to_string(height);
  if (!cut) return path + "H0Z";
  for (int x = kSvgSlipWidth; x > 0; x -= 2 * kTooth) path += "l-6 -6l-6 6";
  return path + "Z";
}

}  // namespace

const std::string_view kSvgSlipStyle =
    R"(text { font: 13px ui-monospace, Menlo, Consolas, "DejaVu Sans Mono", "Liberation Mono", monospace; }
.slip { fill: #fffefa; stroke: #b9b9b0; }
.open { stroke-dasharray: 6 4; }
text.printed { fill: #1b1b19; }
rect.logo { fill: none; stroke: #8a8a82; stroke-dasharray: 4 3; }
text.logo { fill: #55554f; }
rect.remark { fill: #fde4e1; }
text.remark { fill: #8c1d18; font-weight: 600; }
)";

int SvgSlipHeight(const PaperSlip& slip) { return 2 * kMargin + static_cast<int>(slip.rows.size()) * kRow; }

std::string SlipSvg(const PaperSlip& slip) {
  std::string svg = std::string("<path class=\"slip") + (slip.cut ? "" : " open") + "\" d=\"" +
                    Outline(SvgSlipHeight(slip), slip.cut) + "\" />\n";
  int top = kMargin;
  for (const PaperRow& row : slip.rows) {
    svg += RowSvg(row, top);
    top += kRow;
  }
  return svg;
}

}  // namespace orvenza
