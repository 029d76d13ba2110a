#include "lab/page/html_page.h"

#include <gtest/gtest.h>

#include <string>

namespace orvenza {
namespace {

using namespace std::string_literals;

TEST(HtmlText, EscapesWhatMarkupWouldTake) {
  EXPECT_EQ(HtmlText("<script>alert(\"1\" & '2')</script>"),
            "&lt;script&gt;alert(&quot;1&quot; &amp; &#39;2&#39;)&lt;/script&gt;");
}

TEST(HtmlText, KeepsUtf8AndReadsOtherBytesAsWindows1252) {
  EXPECT_EQ(HtmlText("Caff\xC3\xA8 \xE2\x82\xAC"), "Caffè €");
  EXPECT_EQ(HtmlText("Caff\xE8 \x80"), "Caffè €");
}

TEST(HtmlText, ShowsControlCharactersAsBlanksExceptTheLineFeed) {
  EXPECT_EQ(HtmlText("a\0b\x1B[31m\x7F\r\nc\td"s), "a b [31m  \nc d");
  EXPECT_EQ(HtmlText("\x81"), " ");
  EXPECT_EQ(HtmlText("\xC2\x9F|\xC2\xA0"), " |\xC2\xA0");
  EXPECT_EQ(HtmlText("\xEF\xBF\xBE|\xEF\xBF\xBF|\xEF\xBF\xBD"), " | |\xEF\xBF\xBD");
}

TEST(HtmlPage, FramesTheBodyAndEscapesTheTitle) {
  const std::string document = DocumentOf({"a<b", "p { color: red; }\n", "<p>text</p>\n"});
  EXPECT_EQ(document.find("<!DOCTYPE html>\n<html xmlns=\"http://www.w3.org/1999/xhtml\" lang=\"en\">\n"),
            0U);
  EXPECT_NE(document.find("<title>a&lt;b</title>\n<style>\n"), std::string::npos);
  EXPECT_TRUE(
      document.ends_with("p { color: red; }\n</style>\n</head>\n<body>\n<p>text</p>\n</body>\n</html>\n"));
}

TEST(HtmlPage, RunsNoScriptsAndLoadsNothing) {
  const std::string document = DocumentOf({"", "", ""});
  EXPECT_NE(document.find("default-src 'none'"), std::string::npos);
  for (const char* foreign : {"<script", "<link", "@import", "url(", "src="}) {
    EXPECT_EQ(document.find(foreign), std::string::npos) << foreign;
  }
}

TEST(HtmlPage, RunsItsOwnScriptOnly) {
  const std::string document = DocumentOf({"", "", "<p>text</p>\n", "start();\n"});
  EXPECT_NE(document.find(
                "content=\"default-src 'none'; style-src 'unsafe-inline'; script-src 'unsafe-inline'\" />\n"),
            std::string::npos);
  EXPECT_TRUE(document.ends_with("<p>text</p>\n<script>\nstart();\n</script>\n</body>\n</html>\n"));
}

TEST(HtmlPage, HasAStyleThatIsAlsoXml) {
  const std::string document = DocumentOf({"", "", ""});
  const std::size_t begin = document.find("<style>") + 7;
  const std::string style = document.substr(begin, document.find("</style>") - begin);
  EXPECT_EQ(style.find_first_of("<&"), std::string::npos);
}

}  // namespace
}  // namespace orvenza
