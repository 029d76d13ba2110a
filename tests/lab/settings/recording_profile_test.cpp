#include "lab/settings/recording_profile.h"

#include <gtest/gtest.h>

#include "platform/ini_text.h"

namespace orvenza::test {
namespace {

class RecordingProfileTest : public ::testing::Test {
 protected:
  std::string Read(const std::string& key) {
    return profile.Load("a.ini")->Value("S", key).value_or("missing");
  }

  /// Every key that was read, with its answer.
  std::string Asked() const {
    std::string text;
    for (const auto& [value, missing] : profile.AllAsked()) {
      text += value.section + "/" + value.key + "=" + value.text + (missing ? " missing" : "") + "\n";
    }
    return text;
  }

  IniText behind{"[S]\r\nkey=1\r\nempty=\r\n"};
  RecordingProfile profile{behind};
};

TEST_F(RecordingProfileTest, NotesWhatWasFoundAndWhatWasMissing) {
  EXPECT_EQ(Read("key"), "1");
  EXPECT_EQ(Read("empty"), "");
  EXPECT_EQ(Read("none"), "missing");
  EXPECT_EQ(Asked(), "S/key=1\nS/empty=\nS/none= missing\n");
}

TEST_F(RecordingProfileTest, ReadsBackWhatWasWrittenToIt) {
  EXPECT_EQ(Read("key"), "1");
  profile.Write("a.ini", "s", "KEY", "2");
  profile.Write("a.ini", "S", "key", "3");
  EXPECT_EQ(Read("key"), "3");
  EXPECT_EQ(Asked(), "S/key=3\n");
  ASSERT_EQ(profile.AllWritten().size(), 1u);
  EXPECT_EQ(profile.AllWritten().front().text, "3");
}

TEST_F(RecordingProfileTest, LeavesTheContentBehindItAsItIs) {
  profile.WriteAll({{"S", "key", "2"}});
  EXPECT_EQ(Read("key"), "2");
  EXPECT_EQ(behind.Value("S", "key"), "1");
}

}  // namespace
}  // namespace orvenza::test
