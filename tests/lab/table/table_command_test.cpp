#include <gtest/gtest.h>

#include "lab/shell/lab_bench.h"
#include "lab/shell/run_lab.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;

/// A clock that moves on with each reading.
struct RestlessClock : VirtualClock {
  std::chrono::nanoseconds Uptime() const override { return now += step; }
  std::chrono::nanoseconds step{};
  mutable std::chrono::nanoseconds now{};
};

/// A lab with that clock.
struct TableLab : LabBench {
  RestlessClock restless;
  LabSurroundings passing{files, folders, restless, clock, machine, console, "home"};

  int Run(const std::vector<std::string>& words) { return RunLab(words, Commands(), passing); }
};

TEST(TableCommand, WritesToTheOutput) {
  TableLab lab;
  EXPECT_EQ(lab.Run({"table", "--thinned", "--step", "cash movement"}), 0);
  const std::string table = lab.out.str();
  EXPECT_TRUE(table.starts_with(
      "| End | Contract by day | Contract at 23:59:50 | AskInDoubt by day | AskInDoubt at 23:59:50 |\n"));
  EXPECT_NE(table.find("\n### Cash movement\n"), std::string::npos);
  EXPECT_EQ(table.find("payment"), std::string::npos);
  EXPECT_NE(table.find("ERR08"), std::string::npos);
  EXPECT_EQ(table.find("ERR09"), std::string::npos);
  EXPECT_EQ(lab.err.str(), "");
}

TEST(TableCommand, TriesEveryCodeUnlessItIsThinned) {
  TableLab lab;
  EXPECT_EQ(lab.Run({"table", "--step", "opening status query, an earlier receipt left open"}), 0);
  EXPECT_NE(lab.out.str().find("ERR01 to 16, ERR18 to 31"), std::string::npos);
}

TEST(TableCommand, ShowsItsProgressOnATerminal) {
  TableLab lab;
  lab.console.progress = true;
  lab.restless.step = 100ms;
  EXPECT_EQ(lab.Run({"table", "--thinned", "--step", "cash movement", "--output", "C:\\table.md"}), 0);
  const std::string told = lab.err.str();
  EXPECT_TRUE(told.starts_with("\rplayed: "));
  EXPECT_FALSE(told.starts_with("\rplayed: 2 "));
  EXPECT_NE(told.find("\rplayed: 100 %"), std::string::npos);
  EXPECT_TRUE(told.ends_with("\r                \r"));
  EXPECT_EQ(lab.out.str(), "");
  EXPECT_TRUE(lab.files.Exists("C:\\table.md"));
}

TEST(TableCommand, ShowsNoProgressWithinASecond) {
  TableLab lab;
  lab.console.progress = true;
  EXPECT_EQ(lab.Run({"table", "--thinned", "--step", "cash movement"}), 0);
  EXPECT_EQ(lab.err.str(), "");
}

TEST(TableCommand, TakesItsStepsByTheirNamesInTheTable) {
  TableLab lab;
  EXPECT_EQ(lab.Run({"table", "--thinned", "--step", "Line without a separator; CASH MOVEMENT"}), 0);
  const std::string table = lab.out.str();
  EXPECT_NE(table.find("\n### Cash movement\n"), std::string::npos);
  EXPECT_NE(table.find("\n### Line without a separator\n"), std::string::npos);
  EXPECT_EQ(table.find("payment"), std::string::npos);
}

TEST(TableCommand, NamesTheStepThatWasProbablyMeant) {
  TableLab lab;
  EXPECT_EQ(lab.Run({"table", "--step", "logo row; part paymnt"}), 2);
  EXPECT_EQ(lab.err.str(),
            "orvenza-lab table: no step is called 'part paymnt'; did you mean 'part payment'?\n"
            "See 'orvenza-lab table --help'.\n");
}

TEST(TableCommand, NamesAllStepsWhereItKnowsNone) {
  TableLab lab;
  for (const char* text : {"coffee", ";"}) {
    lab.err.str({});
    EXPECT_EQ(lab.Run({"table", "--step", text}), 2);
    const std::string said = lab.err.str();
    EXPECT_TRUE(said.starts_with("orvenza-lab table: no step is called '" + std::string(text) +
                                 "'; there are\n  opening status query\n"))
        << said;
    EXPECT_NE(said.find("\n  logo row\n"), std::string::npos) << said;
  }
}

TEST(TableCommand, LeavesAFileAloneThatHasNoPlaceForATable) {
  TableLab lab;
  lab.files.Write("C:\\notes.md", "My notes.\n");
  EXPECT_EQ(lab.Run({"table", "--thinned", "--step", "cash movement", "--output", "C:\\notes.md"}), 2);
  EXPECT_EQ(lab.err.str(), "orvenza-lab table: C:\\notes.md exists and has no marker lines for a table\n");
  EXPECT_EQ(ReadWhole(lab.files, "C:\\notes.md"), "My notes.\n");
}

TEST(TableCommand, WritesAPageAndNothingElse) {
  TableLab lab;
  const std::vector<std::string> words{"table",        "--thinned", "--step",
                                       "line without", "--html",    "C:\\t.html"};
  EXPECT_EQ(lab.Run(words), 0);
  EXPECT_EQ(lab.out.str(), "");
  const std::string page = ReadWhole(lab.files, "C:\\t.html");
  EXPECT_TRUE(page.starts_with("<!DOCTYPE html>\n"));
  EXPECT_NE(page.find("<h2>Line without a separator</h2>"), std::string::npos);
  EXPECT_EQ(lab.Run(words), 0) << "a page may be replaced";
  EXPECT_EQ(ReadWhole(lab.files, "C:\\t.html"), page);
}

TEST(TableCommand, WritesAPageBesideTheTable) {
  TableLab lab;
  EXPECT_EQ(lab.Run({"table", "--thinned", "--step", "line without", "--html", "C:\\t.html", "--output",
                     "C:\\t.md"}),
            0);
  EXPECT_TRUE(ReadWhole(lab.files, "C:\\t.html").starts_with("<!DOCTYPE html>\n"));
  EXPECT_NE(ReadWhole(lab.files, "C:\\t.md").find("### Line without a separator"), std::string::npos);
}

TEST(TableCommand, ReplacesNoOtherFileByAPage) {
  TableLab lab;
  lab.files.Write("C:\\notes.md", "My notes.\n");
  EXPECT_EQ(lab.Run({"table", "--thinned", "--step", "line without", "--html", "C:\\notes.md"}), 2);
  EXPECT_EQ(lab.Run({"table", "--pairs", "1", "--html", "C:\\t.html"}), 2);
  EXPECT_EQ(lab.err.str(),
            "orvenza-lab table: C:\\notes.md exists and is no HTML page\n"
            "orvenza-lab table: --html does not go with --pairs\nSee 'orvenza-lab table --help'.\n");
  EXPECT_EQ(ReadWhole(lab.files, "C:\\notes.md"), "My notes.\n");
}

TEST(TableCommand, PlaysPairs) {
  TableLab lab;
  EXPECT_EQ(lab.Run({"table", "--pairs", "20", "--seed", "3"}), 0);
  const std::string first = lab.out.str();
  EXPECT_TRUE(first.starts_with("| End | Pairs |\n|---|---|\n| fine | ")) << first;
  EXPECT_TRUE(first.ends_with("| all | 20 |\n\nEnds that nobody chose: 0\n")) << first;
  lab.out.str({});
  EXPECT_EQ(lab.Run({"table", "--pairs", "20", "--seed", "3"}), 0);
  EXPECT_EQ(lab.out.str(), first);
}

TEST(TableCommand, WantsNumbersForPairs) {
  TableLab lab;
  EXPECT_EQ(lab.Run({"table", "--pairs", "many"}), 2);
  EXPECT_EQ(lab.Run({"table", "--seed", "3"}), 2);
  EXPECT_EQ(lab.err.str(),
            "orvenza-lab table: 'many' is not a number\nSee 'orvenza-lab table --help'.\n"
            "orvenza-lab table: --seed needs --pairs\nSee 'orvenza-lab table --help'.\n");
}

TEST(TableCommand, HasAHelpPageForATerminal) {
  TableLab lab;
  EXPECT_EQ(lab.Run({"table", "--help"}), 0);
  std::istringstream page(lab.out.str());
  for (std::string line; std::getline(page, line);) EXPECT_LE(line.size(), 80u) << line;
}

TEST(TableCommand, TakesNoOtherWords) {
  TableLab lab;
  EXPECT_EQ(lab.Run({"table", "more"}), 2);
  EXPECT_EQ(lab.err.str(), "orvenza-lab table: unexpected word 'more'\nSee 'orvenza-lab table --help'.\n");
}

}  // namespace
}  // namespace orvenza::test
