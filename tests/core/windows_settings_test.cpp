#include <gtest/gtest.h>
#include <windows.h>

#include "core/logs.h"
#include "core/settings.h"
#include "platform/ini_profile_file.h"
#include "platform/windows/windows_clock.h"
#include "platform/windows/windows_files.h"
#include "support/temp_folder.h"

namespace orvenza::test {
namespace {

TEST(WindowsSettings, ANewFileIsAsTheSystemWouldWriteItKeyByKey) {
  const TempFolder folder;
  WindowsFiles files;
  WindowsClock clock;
  AppSettings settings;
  IniProfileFile profile(files);
  Logs logs(files, clock, settings, folder.Path());
  SettingsFile(profile, files, logs, {folder.Path(), "Orvenza"}).WriteDefaultIni();
  for (const ProfileValue& value : DefaultSettings(folder.Path())) {
    EXPECT_TRUE(::WritePrivateProfileStringA(value.section.c_str(), value.key.c_str(), value.text.c_str(),
                                             folder.Path("system.ini").c_str()));
  }
  EXPECT_EQ(folder.Read("Orvenza.ini"), folder.Read("system.ini"));
}

}  // namespace
}  // namespace orvenza::test
