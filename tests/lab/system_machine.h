#pragma once

// The machine that the tests run on, under names of its own.

#include "support/system_seams.h"

#ifdef _WIN32
#include "lab/windows/windows_machine.h"
#include "platform/windows/windows_profile_file.h"
#else
#include "lab/posix/posix_machine.h"
#include "platform/ini_profile_file.h"
#endif

namespace orvenza::test {

#ifdef _WIN32
using SystemMachine = WindowsMachine;
class SystemProfileFile : public WindowsProfileFile {
 public:
  explicit SystemProfileFile(Files&) {}
};
#else
using SystemMachine = PosixMachine;
using SystemProfileFile = IniProfileFile;
#endif

}  // namespace orvenza::test
