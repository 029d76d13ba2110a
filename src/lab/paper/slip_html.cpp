#include "lab/paper/slip_html.h"

#include "lab/page/html_page.h"

namespace orvenza {

const std::string_view kSlipStyle =
    R"(.paper { width: max-content; max-width: 100%; margin: 0 0 1.25rem; filter: drop-shadow(0 1px 2px #0006); }
.slip {
  --tooth: conic-gradient(from -45deg at bottom, #0000, #000 1deg 89deg, #0000 90deg);
  width: calc(40ch + 2.6em); margin: 0; padding: 1.1em 1.3em 1.4em; background: #fffefa; color: #1b1b19;
  font-size: min(.9rem, 3.4vw); line-height: 1.3;
  -webkit-mask: var(--tooth) 50% / .7em 100%; mask: var(--tooth) 50% / .7em 100%;
}
.open > .slip { -webkit-mask: none; mask: none; padding-bottom: .6em; border-bottom: 3px dashed #b9b9b0; }
.slip .logo { display: block; padding: .5em 0; border: 1px dashed #8a8a82; color: #55554f; text-align: center; }
.slip .remark { display: block; background: #fde4e1; color: #8c1d18; font-weight: 600; }
@media print {
  .paper { filter: none; break-inside: avoid; }
  .slip { -webkit-mask: none; mask: none; border: 1px solid #8a8a82; font-size: 9pt; }
}
)";

std::string RowHtml(const PaperRow& row) {
  const std::string text = HtmlText(row.text);
  switch (row.kind) {
    case PaperRow::Kind::kPrinted: return text + "\n";
    case PaperRow::Kind::kLogo: return "<span class=\"logo\">" + text + "</span>";
    case PaperRow::Kind::kRemark: return "<span class=\"remark\">" + text + "</span>";
  }
  return {};
}

std::string SlipHtml(std::string_view rows, bool cut) {
  std::string html = cut ? "<div class=\"paper\">" : "<div class=\"paper open\">";
  // A line feed behind <pre> is no part of the text.
  return html.append("<pre class=\"slip\">\n").append(rows).append("</pre></div>\n");
}

std::string SlipHtml(const PaperSlip& slip) {
  std::string rows;
  for (const PaperRow& row : slip.rows) rows += RowHtml(row);
  return SlipHtml(rows, slip.cut);
}

}  // namespace orvenza
