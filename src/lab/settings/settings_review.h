#pragma once

#include <string>
#include <vector>

#include "core/settings.h"
#include "lab/settings/recording_profile.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/ini_text.h"

namespace orvenza {

/// One key as the connector reads it.
struct ReviewedKey {
  std::string section;
  std::string key;
  std::string found;     ///< The text in the file; empty where it is missing. UTF-8.
  bool missing = false;  ///< The default of reading was used.
  std::string used;      ///< What the connector makes of it, as it could stand in the file.
  std::string usual;     ///< The same for the value that a new file is written with.
  std::string written;   ///< That value itself.
};

/// What the next start would make of a settings file.
struct SettingsReview {
  enum class State {
    kNew,           ///< There is none; the start writes one with the defaults, as which it is reviewed.
    kUnreadable,    ///< There is one, but it cannot be read. Nothing below is filled but the settings.
    kWrongVersion,  ///< The start would end. Below is what would be read if it did not.
    kRead,
  };

  State state = State::kRead;
  std::string version;                 ///< As found.
  std::string content;                 ///< The file's bytes.
  std::vector<IniLine> lines;          ///< What they say.
  std::vector<ProfileValue> upgraded;  ///< What bringing it up to date would write.
  std::vector<ProfileValue> repaired;  ///< What reading it would write back.
  std::vector<ProfileValue> defaults;  ///< Every key that there is, with what a new file holds.
  std::vector<ReviewedKey> keys;       ///< In the order of `defaults`, without the version.
  AppSettings settings;                ///< As the connector would use them.
};

/// Runs the connector's own reading of the settings, with everything that it would write kept in memory.
SettingsReview ReviewSettings(const Files& files, Clock& clock, const ProgramPaths& paths);

}  // namespace orvenza
