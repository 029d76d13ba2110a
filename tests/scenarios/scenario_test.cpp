// Plays every scenario and compares its transcript with the stored one. With --accept-scenarios it replaces
// the stored transcripts instead, for review.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "lab/rehearsal/rehearsal.h"
#include "lab/rehearsal/scenario_reader.h"
#include "replay_test.h"

namespace orvenza::test {
namespace {

using Lines = std::vector<std::string>;

bool acceptsAll = false;

const char* const kNames[] = {
#include "scenario_names.inc"
};

std::filesystem::path PathOf(const std::string& name, const std::string& extension) {
  return std::filesystem::path(ORVENZA_SCENARIOS) / (name + extension);
}

/// The text of a file with this program's line breaks, whatever the checkout made of them.
std::string Read(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::string text(std::istreambuf_iterator<char>(in), {});
  std::erase(text, '\r');
  return text;
}

/// A new program version is not a change of behaviour.
std::string WithoutVersion(std::string text) {
  const std::string mark = "Start Rel. ";
  const std::size_t at = text.find(mark);
  if (at == std::string::npos) return text;
  const std::size_t end = std::min(text.find('\n', at), text.size());
  return text.replace(at + mark.size(), end - at - mark.size(), "VERSION");
}

class ScenarioTest : public ::testing::Test {
 public:
  explicit ScenarioTest(std::string name) : name_(std::move(name)) {}

 private:
  void TestBody() override {
    const std::string text = Read(PathOf(name_, ".scenario"));
    ASSERT_NE(text, "");
    std::string transcript;
    const RehearsalOutcome outcome = Rehearse(ParseScenario(name_, text), [&](const std::string& line) {
      transcript += WithoutVersion(line) + "\n";
    });
    EXPECT_EQ(outcome.problems, Lines{});
    if (acceptsAll) {
      std::ofstream(PathOf(name_, ".expected"), std::ios::binary) << transcript;
    } else {
      EXPECT_EQ(transcript, Read(PathOf(name_, ".expected")));
    }
  }

  std::string name_;
};

/// The blocks of verbatim text in a Markdown file.
Lines BlocksOf(const std::string& manual) {
  const std::string fence = "```";
  Lines blocks;
  for (std::size_t at = manual.find(fence); at != std::string::npos; at = manual.find(fence, at)) {
    const std::size_t begin = manual.find('\n', at) + 1;
    const std::size_t end = manual.find("\n" + fence, begin);
    blocks.push_back(manual.substr(begin, end + 1 - begin));
    at = end + 1 + fence.size();
  }
  return blocks;
}

/// Whether a file with this extension contains `text`.
bool IsInAny(const std::string& text, const std::string& extension) {
  const auto holds = [&](const char* name) {
    return Read(PathOf(name, extension)).find(text) != std::string::npos;
  };
  return std::any_of(std::begin(kNames), std::end(kNames), holds);
}

TEST(RehearsalManual, ShowsScenariosAndTranscriptsAsTheyAre) {
  int scenarios = 0;
  int transcripts = 0;
  for (const std::string& block : BlocksOf(Read(ORVENZA_MANUAL))) {
    if (block.starts_with("# ")) {
      ++scenarios;
      EXPECT_TRUE(IsInAny(block, ".scenario")) << block;
    } else if (block.starts_with("   ")) {
      ++transcripts;
      EXPECT_TRUE(IsInAny(WithoutVersion(block), ".expected")) << block;
    }
  }
  EXPECT_EQ(scenarios, 3);
  EXPECT_EQ(transcripts, 3);
}

TEST(Scenarios, HaveAScenarioForEachTranscript) {
  for (const auto& entry : std::filesystem::directory_iterator(ORVENZA_SCENARIOS)) {
    if (entry.path().extension() != ".expected") continue;
    EXPECT_NE(Read(PathOf(entry.path().stem().string(), ".scenario")), "") << entry.path();
  }
}

}  // namespace
}  // namespace orvenza::test

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  orvenza::test::acceptsAll = argc > 1 && std::string(argv[1]) == "--accept-scenarios";
  for (const char* const name : orvenza::test::kNames) {
    ::testing::RegisterTest("Scenario", name, nullptr, nullptr, __FILE__, __LINE__,
                            [name]() -> ::testing::Test* { return new orvenza::test::ScenarioTest(name); });
    orvenza::test::RegisterReplayTest(name, orvenza::test::Read(orvenza::test::PathOf(name, ".scenario")));
  }
  return RUN_ALL_TESTS();
}
