#include "lab/preview/preview_drawing.h"

#include "core/text.h"
#include "lab/page/html_page.h"
#include "lab/paper/slip_html.h"
#include "lab/paper/slip_svg.h"
#include "lab/paper/slip_text.h"
#include "lab/shell/wording.h"

namespace orvenza {
namespace {

constexpr const char* kNothing = "Nothing is printed.";
constexpr const char* kBy = "As the simulated register prints it.";
constexpr const char* kSamples = "The shop, the date and the receipt numbers are samples.";

constexpr std::string_view kStyle = R"(body { max-width: 80rem; }
.note, .nothing { color: var(--soft); margin: 0; }
main, .slips { display: flex; flex-wrap: wrap; align-items: flex-start; gap: 0 1.5rem; }
@media print { main, .slips { display: block; } h2 { break-after: avoid; } }
)";

// The picture, in pixels: one slip below the other.
constexpr int kMargin = 16;
constexpr int kLine = 20;
constexpr std::size_t kHeadingColumns = 44;
constexpr std::string_view kSvgStyle = R"(.ground { fill: #ecece8; }
text.heading { font: 600 14px system-ui, "Segoe UI", Roboto, Arial, sans-serif; fill: #1c1c1a; }
text.note { font: 12px system-ui, "Segoe UI", Roboto, Arial, sans-serif; fill: #65655f; }
@media (prefers-color-scheme: dark) {
  .ground { fill: #1a1a19; } text.heading { fill: #e8e8e3; } text.note { fill: #a2a29b; }
}
)";

std::string Title(const std::vector<PaperSheet>& sheets) {
  return "Preview of " +
         (sheets.size() == 1 ? ShownBytes(sheets.front().file) : CountOf(sheets.size(), "file"));
}

/// The name of a file without its folder, as far as it fits above a slip.
std::string HeadingOf(const std::string& file) {
  const std::string name = ShownBytes(file.substr(file.find_last_of("\\/") + 1));  // npos + 1 is 0
  const std::string beginning = FirstCharacters(name, kHeadingColumns);
  return beginning + (beginning.size() < name.size() ? "..." : "");
}

/// Puts one thing below the other.
class Picture {
 public:
  void AddText(const char* kind, const std::string& text) {
    top_ += kLine;
    content_ += std::string("<text class=\"") + kind + "\" x=\"" + std::to_string(kMargin) + "\" y=\"" +
                std::to_string(top_) + "\">" + HtmlText(text) + "</text>\n";
  }

  void AddSlip(const PaperSlip& slip) {
    content_ += "<g transform=\"translate(" + std::to_string(kMargin) + " " +
                std::to_string(top_ + kMargin / 2) + ")\">\n" + SlipSvg(slip) + "</g>\n";
    top_ += kMargin + SvgSlipHeight(slip);
  }

  std::string Document(const std::string& title) const {
    const std::string size =
        std::to_string(kSvgSlipWidth + 2 * kMargin) + " " + std::to_string(top_ + kMargin);
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " + size + "\" width=\"" +
           std::to_string(kSvgSlipWidth + 2 * kMargin) + "\" role=\"img\">\n<title>" + HtmlText(title) +
           "</title>\n<style>\n" + std::string(kSvgSlipStyle).append(kSvgStyle) + "</style>\n" +
           "<rect class=\"ground\" width=\"100%\" height=\"100%\" />\n" + content_ + "</svg>\n";
  }

 private:
  std::string content_;
  int top_ = kMargin / 2;
};

}  // namespace

std::string PreviewText(const std::vector<PaperSheet>& sheets) {
  std::string text;
  for (const PaperSheet& sheet : sheets) {
    text += (text.empty() ? "" : "\n") + ShownBytes(sheet.file) + "\n";
    for (const PaperSlip& slip : sheet.slips) text += SlipText(slip);
    if (sheet.slips.empty()) text += std::string(kNothing) + "\n";
  }
  return text;
}

std::string PreviewHtml(const std::vector<PaperSheet>& sheets) {
  const std::string title = Title(sheets);
  std::string body =
      "<h1>" + HtmlText(title) + "</h1>\n<p class=\"note\">" + kBy + " " + kSamples + "</p>\n<main>\n";
  for (const PaperSheet& sheet : sheets) {
    body += "<section>\n";
    if (sheets.size() > 1) body += "<h2>" + HtmlText(ShownBytes(sheet.file)) + "</h2>\n";
    body += "<div class=\"slips\">\n";
    for (const PaperSlip& slip : sheet.slips) body += SlipHtml(slip);
    if (sheet.slips.empty()) body += std::string("<p class=\"nothing\">") + kNothing + "</p>\n";
    body += "</div>\n</section>\n";
  }
  body += "</main>\n";
  return DocumentOf({title, std::string(kSlipStyle).append(kStyle), body});
}

std::string PreviewSvg(const std::vector<PaperSheet>& sheets) {
  Picture picture;
  for (const PaperSheet& sheet : sheets) {
    picture.AddText("heading", HeadingOf(sheet.file));
    for (const PaperSlip& slip : sheet.slips) picture.AddSlip(slip);
    if (sheet.slips.empty()) picture.AddText("note", kNothing);
  }
  picture.AddText("note", kBy);
  picture.AddText("note", kSamples);
  return picture.Document(Title(sheets));
}

}  // namespace orvenza
