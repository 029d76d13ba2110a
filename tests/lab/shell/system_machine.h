#pragma once

// The machine of the tests' operating system, under a common name.

#include "support/system_seams.h"

#ifdef _WIN32
#include "lab/shell/windows/windows_machine.h"
#else
#include "lab/shell/posix/posix_machine.h"
#endif

namespace orvenza::test {

#ifdef _WIN32
using SystemMachine = WindowsMachine;
#else
using SystemMachine = PosixMachine;
#endif

}  // namespace orvenza::test
