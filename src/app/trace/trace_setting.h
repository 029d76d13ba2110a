#pragma once

#include <string>

#include "core/settings.h"
#include "platform/profile_file.h"

namespace orvenza {

/// The setting "[Host] Trace".
struct TraceSetting {
  std::string path;     ///< The trace's file, whole, with "\" as separator; empty: no trace.
  std::string refused;  ///< The value, if it names no file that may be written to; empty otherwise.
};

/// Reads it from `content`. A relative path lies in the program folder. A value is refused if it is no path
/// of a file, leads to another computer, or names a file of the program or one in a folder of tickets: there
/// a trace would be taken for a ticket, or replace one.
TraceSetting ReadTraceSetting(const ProfileContent& content, const ProgramPaths& paths);

}  // namespace orvenza
