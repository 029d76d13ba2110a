#include "lab/commands.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

#include "core/version.h"
#include "lab/shell/help_page.h"
#include "lab/shell/lab_bench.h"

namespace orvenza::test {
namespace {

int Greet(const Arguments& arguments, LabSurroundings& surroundings) {
  if (arguments.words.empty()) return RefuseUsage(surroundings.console, "greet", "whom?");
  if (arguments.words.front() == "nobody") throw std::runtime_error("there is nobody");
  surroundings.console.out << "Hello, " << arguments.words.front()
                           << (arguments.Has("--loud") ? "!\n" : ".\n");
  return 7;
}

/// A lab with one command.
struct GreetingLab : LabBench {
  GreetingLab()
      : LabBench({{"greet",
                   "say hello",
                   "NAME [--loud]",
                   "Says hello to NAME.",
                   {{"--loud", "", "with an exclamation mark"},
                    {"--language-of", "COUNTRY", "say it so\nthat all understand"}},
                   "7  said\n2  wrong usage",
                   "orvenza-lab greet Anna",
                   Greet}}) {}
};

TEST(Lab, RunsTheCommandWithItsArguments) {
  GreetingLab lab;
  EXPECT_EQ(lab.Run({"greet", "Anna", "--loud"}), 7);
  EXPECT_EQ(lab.out.str(), "Hello, Anna!\n");
  EXPECT_EQ(lab.err.str(), "");
}

constexpr const char* kGreetPage =
    "orvenza-lab greet: say hello\n"
    "\n"
    "Usage:\n"
    "  orvenza-lab greet NAME [--loud]\n"
    "\n"
    "Says hello to NAME.\n"
    "\n"
    "Options:\n"
    "  --loud                with an exclamation mark\n"
    "  --language-of COUNTRY\n"
    "                        say it so\n"
    "                        that all understand\n"
    "  --help                show this page and exit\n"
    "\n"
    "Exit codes:\n"
    "  7  said\n"
    "  2  wrong usage\n"
    "\n"
    "Examples:\n"
    "  orvenza-lab greet Anna\n";

TEST(Lab, ShowsTheHelpPageOfACommandInBothWays) {
  for (const auto& words : {std::vector<std::string>{"help", "greet"},
                            {"greet", "--help"},
                            {"greet", "Anna", "-h"},
                            {"--help", "greet"}}) {
    GreetingLab lab;
    EXPECT_EQ(lab.Run(words), 0);
    EXPECT_EQ(lab.out.str(), kGreetPage);
  }
}

TEST(Lab, HelpsWithHelp) {
  GreetingLab lab;
  EXPECT_EQ(lab.Run({"help", "help"}), 0);
  GreetingLab overview;
  overview.Run({"help"});
  EXPECT_EQ(lab.out.str(), overview.out.str());
  EXPECT_EQ(lab.Run({"help", "help", "Anna"}), 2);
}

TEST(Lab, ListsItsCommands) {
  GreetingLab lab;
  EXPECT_EQ(lab.Run({"--help"}), 0);
  EXPECT_EQ(lab.out.str(),
            "Usage: orvenza-lab COMMAND [OPTION...]\n"
            "\n"
            "Tools for integrators of Orvenza, besides the connector itself.\n"
            "\n"
            "Commands:\n"
            "  greet                 say hello\n"
            "\n"
            "  help COMMAND          describe a command; the same as COMMAND --help\n"
            "  completion SHELL      write the script that completes command lines in SHELL,\n"
            "                        bash or powershell\n"
            "  man [COMMAND]         write the man page of the lab, a command or Orvenza; to read it:\n"
            "                        orvenza-lab man check | man -l -\n"
            "  --version             show the version and exit\n"
            "  --help                show this page and exit\n");
}

TEST(Lab, ShowsTheListAsAnErrorWhenNothingIsAsked) {
  GreetingLab lab;
  EXPECT_EQ(lab.Run({}), 2);
  EXPECT_EQ(lab.out.str(), "");
  EXPECT_EQ(lab.err.str().substr(0, 38), "Usage: orvenza-lab COMMAND [OPTION...]");
}

TEST(Lab, ShowsItsVersion) {
  GreetingLab lab;
  EXPECT_EQ(lab.Run({"--version"}), 0);
  EXPECT_EQ(lab.out.str(), std::string("orvenza-lab ") + kVersionText + "\n");
}

TEST(Lab, ShowsTheVersionOfItsBuild) {
  GreetingLab lab;
  lab.surroundings.version = "1.0.0 (commit abcdef1234)";
  EXPECT_EQ(lab.Run({"--version"}), 0);
  EXPECT_EQ(lab.out.str(), "orvenza-lab 1.0.0 (commit abcdef1234)\n");
}

TEST(Lab, RefusesWhatItDoesNotUnderstand) {
  const struct {
    std::vector<std::string> words;
    const char* shown;
  } kRefused[] = {
      {{"gret"}, "orvenza-lab: unknown command 'gret'; did you mean 'greet'?\nSee 'orvenza-lab --help'.\n"},
      {{"help", "bye"}, "orvenza-lab: unknown command 'bye'\nSee 'orvenza-lab --help'.\n"},
      {{"help", "greet", "Anna"}, "orvenza-lab: unexpected word 'Anna'\nSee 'orvenza-lab --help'.\n"},
      {{"--versoin"},
       "orvenza-lab: unknown option '--versoin'; did you mean '--version'?\nSee 'orvenza-lab --help'.\n"},
      {{"greet", "--lound"},
       "orvenza-lab greet: unknown option '--lound'; did you mean '--loud'?\nSee 'orvenza-lab greet "
       "--help'.\n"},
      {{"man", "bye"}, "orvenza-lab: unknown command 'bye'\nSee 'orvenza-lab --help'.\n"},
      {{"man", "greet", "Anna"}, "orvenza-lab: unexpected word 'Anna'\nSee 'orvenza-lab --help'.\n"},
      {{"completion"},
       "orvenza-lab: completion for which shell? bash or powershell\nSee 'orvenza-lab --help'.\n"},
      {{"completion", "fish"},
       "orvenza-lab: completion for which shell? bash or powershell\nSee 'orvenza-lab --help'.\n"},
      {{"greet"}, "orvenza-lab greet: whom?\nSee 'orvenza-lab greet --help'.\n"},
  };
  for (const auto& [words, shown] : kRefused) {
    GreetingLab lab;
    EXPECT_EQ(lab.Run(words), 2);
    EXPECT_EQ(lab.err.str(), shown);
  }
}

TEST(Lab, ReportsOutputThatCannotBeWritten) {
  for (const auto& words :
       {std::vector<std::string>{"greet", "Anna"}, {"greet", "--help"}, {"--help"}, {"--version"}}) {
    GreetingLab lab;
    lab.out.setstate(std::ios::badbit);
    EXPECT_EQ(lab.Run(words), 2);
    EXPECT_EQ(lab.err.str(), "orvenza-lab: the standard output cannot be written\n");
  }
}

TEST(Lab, KeepsItsHelpPagesWithinEightyColumns) {
  for (const Command& command : Commands()) {
    std::istringstream page(HelpPage(command));
    for (std::string line; std::getline(page, line);) EXPECT_LE(line.size(), 80U) << line;
  }
}

TEST(Lab, ReportsACommandThatFails) {
  GreetingLab lab;
  EXPECT_EQ(lab.Run({"greet", "nobody"}), 2);
  EXPECT_EQ(lab.err.str(), "orvenza-lab greet: there is nobody\n");
}

}  // namespace
}  // namespace orvenza::test
