#pragma once

#include "core/logs.h"
#include "core/settings.h"
#include "platform/ini_profile_file.h"
#include "simulator/virtual_clock.h"
#include "simulator/virtual_disk.h"

namespace orvenza::fuzz {

/// A program folder "C:\Shop" in memory, without a connector.
struct MemoryShop {
  MemoryShop() { disk.MakeFolder(paths.AppPath); }

  VirtualClock clock;
  VirtualDisk disk{clock};
  ProgramPaths paths{"C:\\Shop", "Orvenza"};
  AppSettings settings;
  Logs logs{disk.FileSeam(), clock, settings, paths.AppPath};
  IniProfileFile profile{disk.FileSeam()};
};

}  // namespace orvenza::fuzz
