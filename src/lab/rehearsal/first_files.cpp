#include "lab/rehearsal/first_files.h"

#include "core/logs.h"
#include "core/settings.h"
#include "lab/rehearsal/scenario.h"
#include "platform/ini_profile_file.h"
#include "simulator/virtual_clock.h"
#include "simulator/virtual_disk.h"

namespace orvenza {

const FirstFiles& FilesOfAFirstStart() {
  static const FirstFiles written = [] {
    const ProgramPaths paths{kRehearsalFolder, "Orvenza"};
    VirtualClock clock;
    VirtualDisk disk(clock);
    disk.MakeFolder(kRehearsalFolder);
    IniProfileFile profile(disk.FileSeam());
    AppSettings settings;
    Logs logs(disk.FileSeam(), clock, settings, kRehearsalFolder);
    SettingsFile file(profile, disk.FileSeam(), logs, paths);
    file.WriteDefaultIni();
    file.WriteDefaultErrDesc();
    profile.Write(paths.Ini(), setting::kGeneral, setting::kSeparator, "59");
    return FirstFiles{disk.Content(paths.Ini()).value_or(""), disk.Content(paths.ErrDesc()).value_or("")};
  }();
  return written;
}

}  // namespace orvenza
