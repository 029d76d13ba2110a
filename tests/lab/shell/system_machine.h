#pragma once

// The machine that the tests run on, under a name of its own.

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
