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
  EXPECT_EQ(ParseCommandLine({"--simulated"}).error,
            "unknown option '--simulated'; did you mean '--simulate'?");
  EXPECT_EQ(ParseCommandLine({"--quiet"}).error, "unknown option '--quiet'");
  EXPECT_EQ(ParseCommandLine({"shop"}).error, "unexpected word 'shop'");
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"--folder"}, {"--folder", "--simulate"}, {"--folder="}}) {
    EXPECT_EQ(ParseCommandLine(words).error, "option '--folder' needs a value: --folder DIR");
  }
}

TEST(CommandLine, ReadsValuesAfterAnEqualsSign) {
  const CommandLine line = ParseCommandLine({"--folder=/srv/shop", "--simulate=faults.script"});
  EXPECT_EQ(line.folder, "/srv/shop");
  EXPECT_EQ(line.script, "faults.script");
}

TEST(CommandLine, UsageExplainsHowTheMenuIsOpened) {
  EXPECT_NE(Usage("The icon opens it.").find("\n\nThe icon opens it.\nTo end the program use the menu"),
            std::string::npos);
}

TEST(CommandLine, UsageNamesEveryOption) {
  for (const char* option : {"--folder DIR", "--simulate [SCRIPT]", "--version", "--help"}) {
    EXPECT_NE(Usage("").find(option), std::string::npos) << option;
  }
}

}  // namespace
}  // namespace orvenza::test
