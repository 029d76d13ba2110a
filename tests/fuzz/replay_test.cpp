// Runs every file of the stored corpus through its target. A violated property ends the program.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "targets.h"

namespace orvenza::fuzz {
namespace {

void Replay(const std::string& target, void (*play)(std::string_view)) {
  play({});
  std::size_t played = 0;
  for (const auto& file :
       std::filesystem::directory_iterator(std::filesystem::path(ORVENZA_FUZZ_CORPUS) / target)) {
    std::ifstream in(file.path(), std::ios::binary);
    const std::string input(std::istreambuf_iterator<char>(in), {});
    SCOPED_TRACE(file.path().string());
    play(input);
    ++played;
  }
  EXPECT_GT(played, 0u) << target;
}

TEST(FuzzCorpus, CommandFile) { Replay("command_file", FuzzCommandFile); }
TEST(FuzzCorpus, ErrorTexts) { Replay("error_texts", FuzzErrorTexts); }
TEST(FuzzCorpus, Formats) { Replay("formats", FuzzFormats); }
TEST(FuzzCorpus, Logo) { Replay("logo", FuzzLogo); }
TEST(FuzzCorpus, Scenario) { Replay("scenario", FuzzScenario); }
TEST(FuzzCorpus, Script) { Replay("script", FuzzScript); }
TEST(FuzzCorpus, Settings) { Replay("settings", FuzzSettings); }
TEST(FuzzCorpus, StateFile) { Replay("state_file", FuzzStateFile); }
TEST(FuzzCorpus, Text) { Replay("text", FuzzText); }
TEST(FuzzCorpus, Ticket) { Replay("ticket", FuzzTicket); }
TEST(FuzzCorpus, Translation) { Replay("translation", FuzzTranslation); }

}  // namespace
}  // namespace orvenza::fuzz
