// The formats of `orvenza-lab check` for build servers.

#include <gtest/gtest.h>

#include <algorithm>

#include "core/version.h"
#include "lab/check/finding_codes.h"
#include "lab/shell/json.h"
#include "lab/shell/lab_bench.h"

namespace orvenza::test {
namespace {

/// The command on files in memory, with ";" as separator.
class CheckFormatsTest : public ::testing::Test {
 protected:
  int Check(std::vector<std::string> words) {
    words.insert(words.begin(), {"check", "--separator", ";"});
    return lab.Run(words);
  }

  std::string Written(const std::string& format, std::vector<std::string> files) {
    files.insert(files.begin(), {"--format", format});
    lab.out.str("");
    Check(std::move(files));
    return lab.out.str();
  }

  LabBench lab;
};

constexpr const char* kBad = "4;x;\n\n4;25;\n";
constexpr const char* kGood = "4;1;\n";

TEST_F(CheckFormatsTest, WritesWorkflowCommandsForGithub) {
  lab.files.content["bad.txt"] = kBad;
  EXPECT_EQ(Check({"--format", "github", "bad.txt", "none.txt"}), 2);
  EXPECT_EQ(
      lab.out.str(),
      "::error file=bad.txt,line=1,col=3,endColumn=4,title=not-digits::'x' holds other characters than "
      "digits; accepted: digits, 0 to 20; others are sent as 20\n"
      "::warning file=bad.txt,line=3,col=3,endColumn=5,title=clamped::'25' is sent as '20': outside 0 to "
      "20\n"
      "::error file=none.txt,title=unreadable::File not found ( none.txt )\n"
      "3 lines, 1 error, 1 warning; 1 file could not be read\n");
}

TEST_F(CheckFormatsTest, EscapesWhatWouldEndAWorkflowCommand) {
  lab.files.content["C:\\a,b%\r\n.txt"] = "4;%,:;";
  EXPECT_EQ(
      Written("github", {"C:\\a,b%\r\n.txt"}),
      "::error file=C%3A\\a%2Cb%25  .txt,line=1,col=3,endColumn=6,title=not-digits::'%25,:' holds other "
      "characters than digits; accepted: digits, 0 to 20; others are sent as 20\n"
      "1 line, 1 error, 0 warnings\n");
}

TEST_F(CheckFormatsTest, WritesATestCaseForEachFile) {
  lab.files.content["good.txt"] = kGood;
  lab.files.content["warned.txt"] = "4;25;\n";
  lab.files.content["bad.txt"] = kBad;
  EXPECT_EQ(Check({"--format", "junit", "good.txt", "warned.txt", "bad.txt", "none.txt"}), 2);
  EXPECT_EQ(lab.out.str(), R"(<?xml version="1.0" encoding="UTF-8"?>
<testsuites>
  <testsuite name="orvenza-lab check" tests="4" failures="1" errors="1" skipped="0">
    <testcase classname="orvenza-lab check" name="good.txt">
    </testcase>
    <testcase classname="orvenza-lab check" name="warned.txt">
      <system-out>warned.txt:1:1: warning: &#39;25&#39; is sent as &#39;20&#39;: outside 0 to 20 [clamped]
</system-out>
    </testcase>
    <testcase classname="orvenza-lab check" name="bad.txt">
      <failure message="1 error, 1 warning" type="invalid">bad.txt:1:1: error: &#39;x&#39; holds other characters than digits; accepted: digits, 0 to 20; others are sent as 20 [not-digits]
</failure>
      <system-out>bad.txt:3:1: warning: &#39;25&#39; is sent as &#39;20&#39;: outside 0 to 20 [clamped]
</system-out>
    </testcase>
    <testcase classname="orvenza-lab check" name="none.txt">
      <error message="1 error, 0 warnings" type="unreadable">none.txt: error: File not found ( none.txt ) [unreadable]
</error>
    </testcase>
  </testsuite>
</testsuites>
)");
}

TEST_F(CheckFormatsTest, WritesXmlForAnyBytes) {
  lab.files.content["<&\"'>\x01.txt"] = "4;]]>\xEF\xBF\xBF\x1B;\n";
  EXPECT_EQ(Written("junit", {"<&\"'>\x01.txt"}), R"(<?xml version="1.0" encoding="UTF-8"?>
<testsuites>
  <testsuite name="orvenza-lab check" tests="1" failures="1" errors="0" skipped="0">
    <testcase classname="orvenza-lab check" name="&lt;&amp;&quot;&#39;&gt; .txt">
      <failure message="1 error, 0 warnings" type="invalid">&lt;&amp;&quot;&#39;&gt; .txt:1:1: error: &#39;]]&gt;&#39; holds other characters than digits; accepted: digits, 0 to 20; others are sent as 20 [not-digits]
</failure>
    </testcase>
  </testsuite>
</testsuites>
)");
}

/// The results of a SARIF log, one in each line.
std::string ResultsOf(const std::string& sarif) {
  const std::size_t begin = sarif.find("\"results\": [\n") + 13;
  return sarif.substr(begin, sarif.find("      ],", begin) - begin);
}

TEST_F(CheckFormatsTest, WritesSarif) {
  lab.files.content["bad.txt"] = kBad;
  const std::string sarif = Written("sarif", {"bad.txt", "none.txt"});
  EXPECT_EQ(
      sarif.substr(0, sarif.find("{\"id\": \"unknown-type\"")),
      "{\n  \"$schema\": \"https://json.schemastore.org/sarif-2.1.0.json\",\n  \"version\": \"2.1.0\",\n"
      "  \"runs\": [\n    {\n      \"tool\": {\n"
      "        \"driver\": {\"name\": \"orvenza-lab check\", \"version\": \"" +
          std::string(kVersionText) +
          "\", \"rules\": [{\"id\": \"no-separator\", \"shortDescription\": {\"text\": \"The line has no "
          "fields: the separator does not occur in it.\"}, \"defaultConfiguration\": {\"level\": "
          "\"error\"}}, ");
  EXPECT_EQ(
      ResultsOf(sarif),
      R"SARIF(        {"ruleId": "not-digits", "ruleIndex": 4, "level": "error", "message": {"text": "'x' holds other characters than digits; accepted: digits, 0 to 20; others are sent as 20"}, "locations": [{"physicalLocation": {"artifactLocation": {"uri": "bad.txt"}, "region": {"startLine": 1, "startColumn": 3, "endColumn": 4}}}]},
        {"ruleId": "clamped", "ruleIndex": 12, "level": "warning", "message": {"text": "'25' is sent as '20': outside 0 to 20"}, "locations": [{"physicalLocation": {"artifactLocation": {"uri": "bad.txt"}, "region": {"startLine": 3, "startColumn": 3, "endColumn": 5}}}]},
        {"ruleId": "unreadable", "ruleIndex": 11, "level": "error", "message": {"text": "File not found ( none.txt )"}, "locations": [{"physicalLocation": {"artifactLocation": {"uri": "none.txt"}}}]}
)SARIF");
  EXPECT_NE(sarif.find("\n      \"columnKind\": \"unicodeCodePoints\",\n"), std::string::npos);
  EXPECT_TRUE(
      sarif.ends_with("      ],\n      \"invocations\": [\n        {\"executionSuccessful\": false}\n"
                      "      ]\n    }\n  ]\n}\n"))
      << sarif;
  lab.files.content["good.txt"] = kGood;
  EXPECT_NE(Written("sarif", {"good.txt"}).find("\"results\": [],\n"), std::string::npos);
  EXPECT_NE(lab.out.str().find("{\"executionSuccessful\": true}"), std::string::npos);
}

TEST_F(CheckFormatsTest, WritesAPathAsAUri) {
  const struct {
    const char* path;
    const char* uri;
  } kPaths[] = {
      {"a b#1.txt", "a%20b%231.txt"},
      {"sub\\a.txt", "sub/a.txt"},
      {"caff\xC3\xA8.txt", "caff%C3%A8.txt"},
      {"caff\xE8.txt", "caff%C3%A8.txt"},
      {"C:\\shop\\a.txt", "file:///C:/shop/a.txt"},
      {"/shop/a.txt", "file:///shop/a.txt"},
      {"\\\\server\\shop\\a.txt", "file://server/shop/a.txt"},
      {"a:b", "a%3Ab"},
      {"-", "-"},
  };
  for (const auto& [path, uri] : kPaths) {
    lab.files.content[path] = "4;25;";
    lab.in.clear();
    lab.in.str("4;25;");
    EXPECT_NE(Written("sarif", {path}).find("{\"uri\": \"" + std::string(uri) + "\"}"), std::string::npos)
        << path << lab.out.str();
  }
}

TEST_F(CheckFormatsTest, CountsColumnsInCharacters) {
  const struct {
    std::string line;
    const char* place;
  } kLines[] = {
      {"4;25;", ",col=3,endColumn=5,title=clamped"},
      {"  4;25;", ",col=5,endColumn=7,title=clamped"},
      {"24;Caff\xC3\xA8;x;", ",col=10,endColumn=11,title=replaced"},
      {"24;Caff\xE8;x;", ",col=10,endColumn=11,title=replaced"},
      {"24;Caff\xE8;", ",col=4,endColumn=9,title=blanked"},
      {"2;1;1000", ",col=5,endColumn=9,title=lost-text"},
      {"2;1;", ",line=1,col=5,title=empty"},
      {"2;", ",line=1,title=empty"},
      {"nothing", ",line=1,title=no-separator"},
      {"29;1;;;;;;;;more", ",line=1,title=extra-text"},
  };
  for (const auto& [line, place] : kLines) {
    lab.files.content["a.txt"] = line;
    EXPECT_NE(Written("github", {"a.txt"}).find(place), std::string::npos) << line << "\n" << lab.out.str();
  }
}

TEST_F(CheckFormatsTest, TakesEachFormatByItsName) {
  lab.files.content["good.txt"] = kGood;
  EXPECT_EQ(Written("text", {"good.txt"}), "good.txt\n    1  102801\n1 line, 0 errors, 0 warnings\n");
  const std::string json = Written("json", {"good.txt"});
  lab.out.str("");
  EXPECT_EQ(Check({"--json", "good.txt"}), 0);
  EXPECT_EQ(lab.out.str(), json);
  lab.out.str("");
  EXPECT_EQ(Check({"--json", "--format=json", "good.txt"}), 0);
  EXPECT_EQ(lab.out.str(), json);
}

TEST_F(CheckFormatsTest, RefusesFormatsThatContradict) {
  EXPECT_EQ(Check({"--json", "--format", "text", "good.txt"}), 2);
  EXPECT_EQ(Check({"--format", "unit", "good.txt"}), 2);
  EXPECT_EQ(Check({"--format", "xml", "good.txt"}), 2);
  EXPECT_EQ(lab.err.str(),
            "orvenza-lab check: --json means --format json, not --format text\n"
            "See 'orvenza-lab check --help'.\n"
            "orvenza-lab check: --format 'unit': expected text, json, github, junit or sarif; did you mean "
            "'junit'?\n"
            "See 'orvenza-lab check --help'.\n"
            "orvenza-lab check: --format 'xml': expected text, json, github, junit or sarif\n"
            "See 'orvenza-lab check --help'.\n");
  EXPECT_EQ(lab.out.str(), "");
}

TEST(FindingCodes, AreFoundByTheirNames) {
  EXPECT_EQ(PlaceOfCode("no-separator"), 0u);
  EXPECT_EQ(PlaceOfCode("not-paid"), FindingCodes().size() - 1);
  EXPECT_THROW(PlaceOfCode("none"), std::logic_error);
}

}  // namespace
}  // namespace orvenza::test
