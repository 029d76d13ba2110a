#pragma once

#include <string>
#include <string_view>

namespace orvenza {

/// `text` for the content and the quoted attributes of HTML and SVG. Bytes that are no UTF-8 are read as
/// Windows-1252. Control characters become blanks, except the line feed.
[[nodiscard]] std::string HtmlText(std::string_view text);

/// A page in one file, which loads nothing and runs no other scripts than its own.
struct HtmlPage {
  std::string title;  ///< Plain text.
  std::string style;  ///< CSS, after that of every page; may be empty. Without "<" and "&".
  std::string body;   ///< HTML that is well-formed XML.
  std::string script =
      {};  ///< JavaScript that runs once the body is there; may be empty. Without "<" and "&".
};

/// The whole document, which is HTML and also well-formed XML.
///
/// The style of every page sets fonts, tables and links, and these colours for light, dark and print:
/// --ground and --ink, --soft for less important text, --line for borders, --panel for a raised surface,
/// --link, --good,
/// --warn, --bad, and --mark behind the target of a link.
[[nodiscard]] std::string DocumentOf(const HtmlPage& page);

}  // namespace orvenza
