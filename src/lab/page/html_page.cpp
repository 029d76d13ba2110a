#include "lab/page/html_page.h"

#include "core/text.h"

namespace orvenza {
namespace {

constexpr std::string_view kStyle = R"(:root {
  color-scheme: light dark;
  --ground: #f4f4f1; --ink: #1c1c1a; --soft: #65655f; --line: #d2d2cb; --panel: #ffffff; --link: #0b57a4;
  --good: #1b6e35; --warn: #8a5a00; --bad: #b3261e; --mark: #fff0b8;
}
@media screen and (prefers-color-scheme: dark) {
  :root {
    --ground: #1a1a19; --ink: #e8e8e3; --soft: #a2a29b; --line: #42423e; --panel: #262624; --link: #8ab8f2;
    --good: #7ccb92; --warn: #e3b55c; --bad: #f2938c; --mark: #544708;
  }
}
@media print {
  :root { color-scheme: light; --ground: #ffffff; }
}
* { box-sizing: border-box; }
html { -webkit-text-size-adjust: 100%; text-size-adjust: 100%; }
body {
  margin: 0 auto; padding: 1rem; background: var(--ground); color: var(--ink);
  font: 1rem/1.45 system-ui, "Segoe UI", Roboto, "Helvetica Neue", Arial, sans-serif; overflow-wrap: anywhere;
}
h1 { font-size: 1.4rem; line-height: 1.2; margin: 0 0 .5rem; }
h2 { font-size: 1.1rem; line-height: 1.25; margin: 1.5rem 0 .5rem; }
a { color: var(--link); }
code, pre { font-family: ui-monospace, Menlo, Consolas, "DejaVu Sans Mono", "Liberation Mono", monospace; }
code { font-size: .9em; }
table { border-collapse: collapse; }
th, td { padding: .3rem .6rem; border: 1px solid var(--line); text-align: left; vertical-align: top; }
summary { cursor: pointer; }
:target { background: var(--mark); }
)";

constexpr std::string_view kBeforeTitle = R"(<!DOCTYPE html>
<html xmlns="http://www.w3.org/1999/xhtml" lang="en">
<head>
<meta charset="utf-8" />
<meta name="viewport" content="width=device-width, initial-scale=1" />
<meta http-equiv="Content-Security-Policy" content="default-src 'none'; style-src 'unsafe-inline')";

std::string_view Escaped(char c) {
  switch (c) {
    case '&': return "&amp;";
    case '<': return "&lt;";
    case '>': return "&gt;";
    case '"': return "&quot;";
    case '\'': return "&#39;";
    default: return {};
  }
}

/// Length of the character at the start of `text` that XML does not allow or a viewer would not show; 0 if it
/// is another.
std::size_t ControlLength(std::string_view text) {
  const auto code = static_cast<unsigned char>(text[0]);
  if ((code < ' ' && code != '\n') || code == 127) return 1;
  if (code == 0xC2 && static_cast<unsigned char>(text[1]) < 0xA0) return 2;  // 128 to 159
  return text.starts_with("\xEF\xBF\xBE") || text.starts_with("\xEF\xBF\xBF") ? 3 : 0;
}

}  // namespace

std::string HtmlText(std::string_view text) {
  const std::string utf8 = ToUtf8(text);
  std::string html;
  html.reserve(utf8.size());
  for (std::size_t at = 0; at < utf8.size(); ++at) {
    if (const std::size_t length = ControlLength(std::string_view(utf8).substr(at)); length > 0) {
      html += ' ';
      at += length - 1;
    } else if (const std::string_view escaped = Escaped(utf8[at]); !escaped.empty()) {
      html += escaped;
    } else {
      html += utf8[at];
    }
  }
  return html;
}

std::string DocumentOf(const HtmlPage& page) {
  const bool runs = !page.script.empty();
  return std::string(kBeforeTitle) + (runs ? "; script-src 'unsafe-inline'" : "") + "\" />\n<title>" +
         HtmlText(page.title) + "</title>\n<style>\n" + std::string(kStyle) + page.style +
         "</style>\n</head>\n<body>\n" + page.body +
         (runs ? "<script>\n" + page.script + "</script>\n" : std::string()) + "</body>\n</html>\n";
}

}  // namespace orvenza
