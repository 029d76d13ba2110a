// What the operator hears.

#include "windows/form_bench.h"
#include "windows/person.h"

namespace orvenza::test {
namespace {

using SoundTest = DialogBench;

TEST_F(SoundTest, AMessageStartsTheSoundOfTheProgramsFolder) {
  folder.Write("ding.wav", "RIFF");
  constexpr UINT kWithoutWaiting = 1;
  const std::vector<std::pair<std::string, UINT>> ding{{folder.Path("ding.wav"), kWithoutWaiting}};
  ShowMessage("Sei sicuro ?", [&](HWND form) {
    EXPECT_EQ(sounds, ding);
    CloseByCross(form);
  });
  EXPECT_EQ(sounds, ding);
}

TEST_F(SoundTest, AMessageIsSilentWithoutTheFile) {
  ShowMessage("Sei sicuro ?", CloseByCross);
  EXPECT_TRUE(sounds.empty());
}

TEST_F(SoundTest, NoOtherDialogSounds) {
  folder.Write("ding.wav", "RIFF");
  ShowAll(CloseByCross);
  EXPECT_TRUE(sounds.empty());
}

}  // namespace
}  // namespace orvenza::test
