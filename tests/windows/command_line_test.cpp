// The program without windows: what it says to whoever started it.

#include <gtest/gtest.h>

#include "core/version.h"
#include "windows/till.h"

namespace orvenza::test {
namespace {

TEST(CommandLine, TellsTheVersion) {
  const ProgramRun run = RunProgram("--version");
  EXPECT_EQ(run.exitCode, 0U);
  EXPECT_EQ(run.output, std::string("Orvenza ") + kVersionText + "\n");
}

TEST(CommandLine, ShowsTheHelp) {
  const ProgramRun run = RunProgram("--help");
  EXPECT_EQ(run.exitCode, 0U);
  EXPECT_TRUE(run.output.starts_with("Usage: Orvenza [--folder DIR] [--simulate [SCRIPT]]\n")) << run.output;
}

TEST(CommandLine, RefusesWhatItCannotStartWith) {
  const TempFolder folder;
  folder.Write("bad.script", "speed fast\n");
  const std::string bad = folder.Path("bad.script");
  const struct {
    std::string options;
    std::string reason;
  } kRefused[] = {
      {"--nope", "unknown option '--nope'; see --help"},
      {"--folder", "--folder needs the name of a folder; see --help"},
      {"--folder \"" + bad + "\" --simulate", bad + " is not a folder"},
      {"--folder \"" + folder.Path() + "\" --simulate \"" + bad + "\"",
       bad + ":1: expected bits a second, or \"instant\""},
  };
  for (const auto& [options, reason] : kRefused) {
    const ProgramRun run = RunProgram(options);
    EXPECT_EQ(run.exitCode, 2U) << reason;
    EXPECT_EQ(run.output, "Orvenza: " + reason + "\n");
  }
}

}  // namespace
}  // namespace orvenza::test
