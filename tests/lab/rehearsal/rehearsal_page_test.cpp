#include "lab/rehearsal/rehearsal_page.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "core/version.h"
#include "lab/rehearsal/rehearsal.h"
#include "lab/rehearsal/scenario_reader.h"

namespace orvenza::test {
namespace {

/// The body of the page of a rehearsal.
std::string Page(const std::string& name, const std::string& text) {
  Scenario scenario = ParseScenario(name, text);
  DialogRecord dialogs;
  scenario.onDialog = [&](const auto& dialog, auto answer) { dialogs.Note(dialog, answer); };
  const std::string page = RehearsalPage(name, text, Rehearse(scenario), dialogs);
  return page.substr(page.find("<body>\n"));
}

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

constexpr const char* kDocument =
    "# A document <of>\n"
    "# one line.\n"
    "ticket 1.txt\n"
    "| 29;1;\n"
    "| 31;1;\n"
    "at 2s quit\n";

constexpr const char* kDocumentPage = R"(<body>
<header>
<h1>Rehearsal of day.scenario</h1>
<p>A document &lt;of&gt; one line.</p>
<p class="good">The connector ran to its end, and every expectation came true.</p>
<details><summary>The scenario</summary>
<pre class="scenario">
# A document &lt;of&gt;
# one line.
ticket 1.txt
| 29;1;
| 31;1;
at 2s quit
</pre></details>
<p class="jump"><a href="#paper">To the paper</a></p>
</header>
<main>
<section id="events">
<h2>What happened</h2>
<details open="open"><summary><time>0:00.000</time> start 16/11/2026 09:00:00</summary>
<ol>
<li id="e0" class="start"><time>0:00.000</time><span class="kind">start</span><span class="text">16/11/2026 09:00:00</span></li>
<li id="e1" class="log"><time>0:00.000</time><span class="kind">log</span><span class="text">Start Rel. VERSION</span></li>
<li id="e2" class="port"><time>0:00.000</time><span class="kind">port</span><span class="text">open: COM1, 19200 bits a second, end-of-text wait 10000 ms</span></li>
<li id="e3" class="icon"><time>0:00.000</time><span class="kind">icon</span><span class="text">shown</span></li>
<li id="e4" class="sent"><time>0:00.000</time><span class="kind">sent</span><span class="text">321700</span></li>
<li id="e5" class="reply"><time>0:00.006</time><span class="kind">reply</span><span class="text">321700</span></li>
<li id="e6" class="sent"><time>0:00.006</time><span class="kind">sent</span><span class="text">199900</span></li>
<li id="e7" class="reply"><time>0:00.022</time><span class="kind">reply</span><span class="text">199900ORVSIM  01  01.00.00</span></li>
<li id="e8" class="log"><time>0:00.022</time><span class="kind">log</span><span class="text">Dati Cash : 00ORVSIM  01  01.00.00</span></li>
</ol>
</details>
<details open="open"><summary><time>0:00.522</time> archived 1.txt as storico\1.txt</summary>
<ol>
<li id="e9" class="tick"><time>0:00.522</time><span class="kind">tick</span><span class="text"></span></li>
<li id="e10" class="taken"><time>0:00.522</time><span class="kind">taken</span><span class="text">1.txt</span></li>
<li id="e11" class="log"><time>0:00.522</time><span class="kind">log</span><span class="text">Start Scontrino</span></li>
<li id="e12" class="sent"><time>0:00.522</time><span class="kind">sent</span><span class="text">321701</span></li>
<li id="e13" class="reply"><time>0:00.529</time><span class="kind">reply</span><span class="text">321700</span></li>
<li id="e14" class="sent"><time>0:00.529</time><span class="kind">sent</span><span class="text">106301</span><a href="#p14">4 lines</a></li>
<li id="e19" class="reply"><time>0:00.535</time><span class="kind">reply</span><span class="text">106300</span></li>
<li id="e20" class="sent"><time>0:00.535</time><span class="kind">sent</span><span class="text">106501</span><a href="#p20">1 line</a></li>
<li id="e23" class="reply"><time>0:00.541</time><span class="kind">reply</span><span class="text">106500</span></li>
<li id="e24" class="log"><time>0:00.541</time><span class="kind">log</span><span class="text">End Scontrino</span></li>
<li id="e25" class="folder"><time>0:00.541</time><span class="kind">folder</span><span class="text">storico made</span></li>
<li id="e26" class="archived"><time>0:00.541</time><span class="kind">archived</span><span class="text">1.txt as storico\1.txt</span></li>
</ol>
</details>
<ol class="quiet">
<li id="e27" class="tick"><time>0:01.041</time><span class="kind">tick</span><span class="text">2 idle ones</span></li>
<li id="e28" class="world"><time>0:02.000</time><span class="kind">world</span><span class="text">the host writes command.txt: QUIT</span></li>
</ol>
<details open="open"><summary><time>0:02.041</time> Quit Command !</summary>
<ol>
<li id="e29" class="tick"><time>0:02.041</time><span class="kind">tick</span><span class="text"></span></li>
<li id="e30" class="port"><time>0:02.041</time><span class="kind">port</span><span class="text">closed</span></li>
<li id="e31" class="deleted"><time>0:02.041</time><span class="kind">deleted</span><span class="text">command.txt</span></li>
<li id="e32" class="log"><time>0:02.041</time><span class="kind">log</span><span class="text">Quit Command !</span></li>
<li id="e33" class="icon"><time>0:02.041</time><span class="kind">icon</span><span class="text">taken away</span></li>
<li id="e34" class="log"><time>0:02.041</time><span class="kind">log</span><span class="text">End</span></li>
<li id="e35" class="end"><time>0:02.041</time><span class="kind">end</span><span class="text"></span></li>
</ol>
</details>
</section>
<section id="paper">
<h2>The paper</h2>
<a class="source" href="#e14">at 0:00.529</a>
<div class="paper"><pre class="slip">
<a id="p14" href="#e14">            NEGOZIO DI PROVA
         REGISTRATORE SIMULATO
                                    EURO
         DOCUMENTO NON FISCALE
</a><a id="p20" href="#e20">16/11/2026 09:00          FINE DOCUMENTO
</a></pre></div>
</section>
</main>
</body>
</html>
)";

TEST(RehearsalPage, LinksEventsAndPaper) {
  std::string page = Page("C:\\a\\day.scenario", kDocument);
  const std::string version = kVersionText;
  page.replace(page.find(version), version.size(), "VERSION");
  EXPECT_EQ(page, kDocumentPage);
}

constexpr const char* kPaperOut =
    "register on 1004 paper-out receipt\n"
    "ticket 1.txt\n"
    "| 1;PANE;1,000;150;1;;;1;;\n"
    "| 1;LATTE;2,000;129;1;;;1;;\n"
    "| 2;1;500;\n"
    "answer after 20s Ok\n"
    "at 60s quit\n";

TEST(RehearsalPage, DrawsADialogWhereItAppeared) {
  const std::string page = Page("day", kPaperOut);
  EXPECT_TRUE(Contains(page,
                       "class=\"dialog\"><time>0:00.619</time><span class=\"kind\">dialog</span>"
                       "<span class=\"text\"><div class=\"window\">"))
      << page;
  EXPECT_TRUE(Contains(page, "Answered: Ok")) << page;
  EXPECT_TRUE(Contains(page,
                       "archived 1.txt as storico\\1.txt<span class=\"count\">1 dialog</span>"
                       "<span class=\"count bad\">2 errors</span></summary>"))
      << page;
}

TEST(RehearsalPage, PutsProblemsOnTop) {
  const std::string page = Page("day", std::string(kDocument) + "expect paper <GRAZIE>\nanswer Ok\n");
  EXPECT_TRUE(Contains(page,
                       "<div class=\"problems\">\n<h2>2 problems</h2>\n<ul>\n"
                       "<li>the answer &quot;Ok&quot; was never asked for</li>\n"
                       "<li>expected &quot;&lt;GRAZIE&gt;&quot; on the paper</li>\n</ul>\n</div>\n"))
      << page;
}

TEST(RehearsalPage, ShowsHowFarABrokenRehearsalCame) {
  std::string scenario = kPaperOut;
  scenario.erase(scenario.find("answer"), scenario.find("at 60s") - scenario.find("answer"));
  const std::string page = Page("day", scenario);
  EXPECT_TRUE(Contains(page, "<h2>1 problem</h2>")) << page;
  EXPECT_TRUE(Contains(page, "Nobody answered.")) << page;
  EXPECT_TRUE(Contains(page, "<span class=\"kind\">broken</span>")) << page;
  EXPECT_TRUE(Contains(page, "<div class=\"paper open\">")) << page;
}

TEST(RehearsalPage, CountsTheHoursOfALongDay) {
  const std::string page = Page("day", "limit 3h\nat 1h quit\n");
  EXPECT_TRUE(Contains(page, "<time>1:00:00.000</time><span class=\"kind\">world</span>")) << page;
}

TEST(RehearsalPage, SaysThatNothingWasPrinted) {
  EXPECT_TRUE(Contains(Page("day", "at 2s quit\n"), "<p class=\"soft\">Nothing was printed.</p>"));
}

TEST(RehearsalPage, EscapesWhatATicketHolds) {
  const std::string page = Page("day",
                                "ticket a&b.txt\n"
                                "| 1;<script>x</;1,000;150;1;;;1;;\n"
                                "| 2;1;0;\n"
                                "at 5s quit\n");
  EXPECT_TRUE(Contains(page, "taken</span><span class=\"text\">a&amp;b.txt")) << page;
  EXPECT_FALSE(Contains(page, "<script")) << page;
  EXPECT_TRUE(Contains(page, "\n&lt;script&gt;x&lt;/                         1,50\n")) << page;
}

/// A day of many tickets; the receipt paper runs out in the last one.
std::string LongDay(int tickets) {
  std::string scenario =
      "answer Ok\nregister on 1004 #" + std::to_string(tickets) + " paper-out receipt\nat 10min quit\n";
  for (int i = 1; i <= tickets; ++i) {
    scenario += "at " + std::to_string(10 * i) + "s ticket " + std::to_string(i) +
                ".txt\n| 1;PANE;2,000;150;1;;;1;;\n| 2;1;0;\n";
  }
  return scenario;
}

std::size_t CountOf(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

TEST(RehearsalPage, UnfoldsOnlyWhatNeedsAttentionInALongDay) {
  // The start, the tickets and the end; the scenario itself is folded, too.
  const std::string whole = Page("day", LongDay(8));
  EXPECT_EQ(CountOf(whole, "<details open=\"open\">"), 10u);
  EXPECT_EQ(CountOf(whole, "<details>"), 1u);
  const std::string folded = Page("day", LongDay(9));
  EXPECT_EQ(CountOf(folded, "<details open=\"open\">"), 1u);
  EXPECT_EQ(CountOf(folded, "<details>"), 11u);
}

/// The values of an attribute.
std::vector<std::string> ValuesOf(const std::string& page, const std::string& attribute) {
  std::vector<std::string> values;
  const std::string before = attribute + "=\"";
  for (std::size_t at = page.find(before); at != std::string::npos; at = page.find(before, at)) {
    at += before.size();
    values.push_back(page.substr(at, page.find('"', at) - at));
  }
  return values;
}

TEST(RehearsalPage, HasATargetForEachLink) {
  const std::string page = Page("day", LongDay(9));
  const std::vector<std::string> ids = ValuesOf(page, " id");
  const std::set<std::string> targets(ids.begin(), ids.end());
  EXPECT_EQ(targets.size(), ids.size());
  const std::vector<std::string> links = ValuesOf(page, "href");
  EXPECT_GT(links.size(), 50u);
  for (const std::string& link : links) EXPECT_EQ(targets.count(link.substr(1)), 1u) << link;
}

TEST(RehearsalPage, IsTheSameEachTime) { EXPECT_EQ(Page("day", kPaperOut), Page("day", kPaperOut)); }

}  // namespace
}  // namespace orvenza::test
