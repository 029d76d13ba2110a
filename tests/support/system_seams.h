#pragma once

// The system's seams for the tests, under names common to all systems.

#ifdef _WIN32
#include "platform/windows/windows_files.h"
#include "platform/windows/windows_folders.h"
#else
#include "platform/posix/posix_files.h"
#include "platform/posix/posix_folders.h"
#endif

namespace orvenza::test {

#ifdef _WIN32
using SystemFiles = WindowsFiles;
using SystemFolders = WindowsFolders;
#else
using SystemFiles = PosixFiles;
using SystemFolders = PosixFolders;
#endif

}  // namespace orvenza::test
