#include "app/command_line.h"

#include <gtest/gtest.h>

namespace orvenza::test {
namespace {

TEST(CommandLine, WithoutWordsRunsWhereTheExecutableLies) {
  const CommandLine line = ParseCommandLine({});
  EXPECT_EQ(line.folder, "");
  EXPECT_FALSE(line.simulate);
  EXPECT_EQ(line.error, "");
}

TEST(CommandLine, ReadsFolderAndScript) {
  const CommandLine line = ParseCommandLine({"--folder", "/srv/shop", "--simulate", "faults.script"});
  EXPECT_EQ(line.folder, "/srv/shop");
  EXPECT_TRUE(line.simulate);
  EXPECT_EQ(line.script, "faults.script");
}

TEST(CommandLine, ScriptIsOptional) {
  const CommandLine line = ParseCommandLine({"--simulate", "--folder", "/srv/shop"});
  EXPECT_TRUE(line.simulate);
  EXPECT_EQ(line.script, std::nullopt);
  EXPECT_EQ(line.folder, "/srv/shop");
}

TEST(CommandLine, AsksForHelpAndVersion) {
  EXPECT_TRUE(ParseCommandLine({"--help"}).help);
  EXPECT_TRUE(ParseCommandLine({"--version"}).version);
}

TEST(CommandLine, RefusesWhatItDoesNotKnow) {
  EXPECT_EQ(ParseCommandLine({"--simulated"}).error, "unknown option '--simulated'");
  EXPECT_EQ(ParseCommandLine({"shop"}).error, "unknown option 'shop'");
  EXPECT_EQ(ParseCommandLine({"--folder"}).error, "--folder needs the name of a folder");
  EXPECT_EQ(ParseCommandLine({"--folder", "--simulate"}).error, "--folder needs the name of a folder");
}

TEST(CommandLine, UsageTellsHowTheMenuIsOpened) {
  EXPECT_NE(Usage("The icon opens it.").find("\n\nThe icon opens it.\nIt ends through the menu"),
            std::string::npos);
}

TEST(CommandLine, UsageNamesEveryOption) {
  for (const char* option : {"--folder DIR", "--simulate [SCRIPT]", "--version", "--help"}) {
    EXPECT_NE(Usage("").find(option), std::string::npos) << option;
  }
}

}  // namespace
}  // namespace orvenza::test
