#include "core/arguments.h"

#include <gtest/gtest.h>

namespace orvenza::test {
namespace {

using Words = std::vector<std::string>;

const std::vector<Option> kOptions = {{"--json", "", "for programs"},
                                      {"--folder", "DIR", "the folder"},
                                      {"--simulate", "[SCRIPT]", "a script"}};

TEST(Arguments, KeepsWordsAndOptionsApart) {
  const Arguments arguments = ReadArguments({"a.txt", "--folder", "shop", "-", "--json", "b.txt"}, kOptions);
  EXPECT_EQ(arguments.words, (Words{"a.txt", "-", "b.txt"}));
  EXPECT_EQ(arguments.Value("--folder"), "shop");
  EXPECT_TRUE(arguments.Has("--json"));
  EXPECT_EQ(arguments.error, "");
}

TEST(Arguments, ReadsAnAttachedValueUnchanged) {
  EXPECT_EQ(ReadArguments({"--folder=--odd=name"}, kOptions).Value("--folder"), "--odd=name");
}

TEST(Arguments, TakesEverythingAfterTwoDashesAsArguments) {
  const Arguments arguments = ReadArguments({"--json", "--", "--json", "-x", "--"}, kOptions);
  EXPECT_EQ(arguments.words, (Words{"--json", "-x", "--"}));
}

TEST(Arguments, LetsTheLastOfSeveralValuesCount) {
  EXPECT_EQ(ReadArguments({"--folder", "a", "--folder", "b"}, kOptions).Value("--folder"), "b");
}

TEST(Arguments, KnowsNothingOfAnOptionThatWasNotGiven) {
  const Arguments arguments = ReadArguments({}, kOptions);
  EXPECT_FALSE(arguments.Has("--json"));
  EXPECT_EQ(arguments.Value("--folder"), std::nullopt);
}

TEST(Arguments, AValueInBracketsMayBeLeftOut) {
  EXPECT_EQ(ReadArguments({"--simulate", "a.script"}, kOptions).Value("--simulate"), "a.script");
  for (const Words& words : {Words{"--simulate"}, {"--simulate", "--json"}, {"--simulate="}}) {
    const Arguments arguments = ReadArguments(words, kOptions);
    EXPECT_EQ(arguments.Value("--simulate"), "");
    EXPECT_EQ(arguments.error, "");
  }
}

TEST(Arguments, SaysWhatIsWrong) {
  const struct {
    Words words;
    const char* error;
  } kWrong[] = {
      {{"--jsn"}, "unknown option '--jsn'; did you mean '--json'?"},
      {{"--foldr=x"}, "unknown option '--foldr'; did you mean '--folder'?"},
      {{"--colour"}, "unknown option '--colour'"},
      {{"-j"}, "unknown option '-j'"},
      {{"--json=yes"}, "option '--json' takes no value"},
      {{"--folder"}, "option '--folder' needs a value: --folder DIR"},
      {{"--folder", "--json"}, "option '--folder' needs a value: --folder DIR"},
      {{"--folder="}, "option '--folder' needs a value: --folder DIR"},
      {{"--folder", ""}, "option '--folder' needs a value: --folder DIR"},
  };
  for (const auto& [words, error] : kWrong) EXPECT_EQ(ReadArguments(words, kOptions).error, error);
}

TEST(ClosestTo, FindsAWordWithAFewLettersWrong) {
  const Words known = {"check", "rehearse", "doctor"};
  EXPECT_EQ(ClosestTo("chek", known), "check");
  EXPECT_EQ(ClosestTo("rehaerse", known), "rehearse");
  EXPECT_EQ(ClosestTo("docker", known), "doctor");
  EXPECT_EQ(ClosestTo("print", known), "");
  EXPECT_EQ(ClosestTo("", known), "");
}

}  // namespace
}  // namespace orvenza::test
