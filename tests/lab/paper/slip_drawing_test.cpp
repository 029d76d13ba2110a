// The same slip as text, HTML and SVG.

#include <gtest/gtest.h>

#include <string>

#include "lab/paper/slip_html.h"
#include "lab/paper/slip_svg.h"
#include "lab/paper/slip_text.h"

namespace orvenza {
namespace {

using Kind = PaperRow::Kind;

const PaperSlip kSlip{{{Kind::kLogo, "[logo 01: a.bmp]"},
                       {Kind::kPrinted, "Caffè <b>                           1,50"},
                       {Kind::kRemark, ">>> line 2 refused: \"x\""}},
                      true};

TEST(SlipText, HasAFrame) {
  EXPECT_EQ(SlipText(kSlip),
            "+------------------------------------------+\n"
            "| [logo 01: a.bmp]                         |\n"
            "| Caffè <b>                           1,50 |\n"
            "| >>> line 2 refused: \"x\"                  |\n"
            "+------------------------------------------+\n");
}

TEST(SlipText, IsDashedWhereThePaperIsNotCut) {
  EXPECT_EQ(SlipText({{{Kind::kPrinted, "PANE"}}, false}),
            "+------------------------------------------+\n"
            "| PANE                                     |\n"
            "+- - - - - - - - - - - - - - - - - - - - - +\n");
}

TEST(SlipHtml, EscapesItsTexts) {
  EXPECT_EQ(SlipHtml(kSlip),
            "<div class=\"paper\"><pre class=\"slip\">\n"
            "<span class=\"logo\">[logo 01: a.bmp]</span>"
            "Caffè &lt;b&gt;                           1,50\n"
            "<span class=\"remark\">&gt;&gt;&gt; line 2 refused: &quot;x&quot;</span></pre></div>\n");
}

TEST(SlipHtml, MarksAPaperThatIsNotCut) {
  EXPECT_EQ(SlipHtml(PaperSlip{{{Kind::kPrinted, "PANE"}}, false}),
            "<div class=\"paper open\"><pre class=\"slip\">\nPANE\n</pre></div>\n");
}

TEST(SlipHtml, HasAStyleThatIsAlsoXml) { EXPECT_EQ(kSlipStyle.find_first_of("<&"), std::string_view::npos); }

TEST(SlipSvg, PlacesEachTextInItsColumn) {
  EXPECT_EQ(
      SlipSvg({{{Kind::kPrinted, "  2 x 1,20"}, {Kind::kPrinted, "Tè <b>                              2,40"}},
               false}),
      "<path class=\"slip open\" d=\"M0 0H372V88H0Z\" />\n"
      "<text class=\"printed\" x=\"42\" y=\"39\" textLength=\"64\">2 x 1,20</text>\n"
      "<text class=\"printed\" x=\"26\" y=\"57\" textLength=\"48\">Tè &lt;b&gt;</text>\n"
      "<text class=\"printed\" x=\"314\" y=\"57\" textLength=\"32\">2,40</text>\n");
}

TEST(SlipSvg, FramesALogoAndShadesARemark) {
  const PaperSlip slip{{{Kind::kLogo, "[logo]"}, {Kind::kRemark, ">>> a"}, {Kind::kPrinted, ""}}, false};
  EXPECT_EQ(SlipSvg(slip),
            "<path class=\"slip open\" d=\"M0 0H372V106H0Z\" />\n"
            "<rect class=\"logo\" x=\"13\" y=\"26\" width=\"346\" height=\"18\" />\n"
            "<text class=\"logo\" x=\"26\" y=\"39\" textLength=\"48\">[logo]</text>\n"
            "<rect class=\"remark\" x=\"13\" y=\"44\" width=\"346\" height=\"18\" />\n"
            "<text class=\"remark\" x=\"26\" y=\"57\" textLength=\"40\">&gt;&gt;&gt; a</text>\n");
}

TEST(SlipSvg, HasTeethWhereThePaperIsCut) {
  std::string teeth;
  for (int i = 0; i < 31; ++i) teeth += "l-6 -6l-6 6";
  EXPECT_EQ(SlipSvg({{}, true}), "<path class=\"slip\" d=\"M0 0H372V52" + teeth + "Z\" />\n");
}

TEST(SlipSvg, HasAStyleThatIsAlsoXml) {
  EXPECT_EQ(kSvgSlipStyle.find_first_of("<&"), std::string_view::npos);
}

}  // namespace
}  // namespace orvenza
