// The program without windows: what it reports to the user who started it.

#include <gtest/gtest.h>

#include "core/build_version.h"
#include "ui/windows/names.h"
#include "windows/person.h"
#include "windows/till.h"

namespace orvenza::test {
namespace {

TEST(CommandLine, TellsTheVersion) {
  const ProgramRun run = RunProgram("--version");
  EXPECT_EQ(run.exitCode, 0U);
  EXPECT_EQ(run.output, "Orvenza " + BuildVersion() + "\n");
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
      {"--nope", "unknown option '--nope'\nSee 'Orvenza --help'."},
      {"--folder", "option '--folder' needs a value: --folder DIR\nSee 'Orvenza --help'."},
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

/// Like a program started by a shortcut: there is no console to write to.
class NoConsole {
 public:
  NoConsole() { FreeConsole(); }
  ~NoConsole() { AttachConsole(ATTACH_PARENT_PROCESS); }
  NoConsole(const NoConsole&) = delete;
  NoConsole& operator=(const NoConsole&) = delete;
};

TEST(CommandLine, IsAnsweredByAMessageWithoutAConsole) {
  const NoConsole noConsole;
  const Shop shop;
  const struct {
    std::string options;
    std::string text;
    DWORD exitCode;
  } kAnswers[] = {{"--nope", "\r\nOrvenza: unknown option '--nope'\r\nSee 'Orvenza --help'.", 2},
                  {"--version", "\r\nOrvenza " + BuildVersion(), 0}};
  for (const auto& [options, text, exitCode] : kAnswers) {
    const Till till(shop, options);
    const HWND message = till.Form(window_class::kOrvMsg, "Orvenza");
    EXPECT_EQ(TextOf(message, control_id::kText1), text);
    Press(VK_RETURN);
    EXPECT_EQ(till.ExitCode(), exitCode);
  }
}

TEST(CommandLine, ShowsTheWholeHelpInAMessageWithoutAConsole) {
  const NoConsole noConsole;
  const Shop shop;
  const Till till(shop, "--help");
  const HWND message = till.Form(window_class::kOrvMsg, "Orvenza");
  const std::string text = TextOf(message, control_id::kText1);
  EXPECT_TRUE(text.starts_with("Usage: Orvenza [--folder DIR] [--simulate [SCRIPT]]\r\n\r\nPrints")) << text;
  EXPECT_TRUE(text.ends_with("cannot be created")) << text;
  CloseByCross(message);
  EXPECT_EQ(till.ExitCode(), 0U);
}

}  // namespace
}  // namespace orvenza::test
