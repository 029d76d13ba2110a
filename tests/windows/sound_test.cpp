// What the operator hears.

#include "platform/windows/wide.h"
#include "platform/windows/windows_files.h"
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

TEST_F(SoundTest, IsReachedInAFolderThatTheCodePageCannotSpell) {
  const std::string odd = folder.Path("\xE5\xBA\x97");  // A Chinese character.
  CreateDirectoryW(ToWide(odd).c_str(), nullptr);
  WindowsFiles().Write(odd + "\\ding.wav", "RIFF");
  WindowsOperator other{loop, pump, odd, "Orvenza", [this](const char* path, UINT flags) {
                          sounds.emplace_back(path, flags);
                          return TRUE;
                        }};
  WhenShown(CloseByCross);
  OperatorMessages(other, "Orvenza").ShowOperatorMessage("Sei sicuro ?", {MessageIcon::kQuestion}, "");
  ASSERT_EQ(sounds.size(), 1U);
  EXPECT_NE(GetFileAttributesA(sounds[0].first.c_str()), INVALID_FILE_ATTRIBUTES) << sounds[0].first;
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
