#pragma once

#include <string>
#include <vector>

#include "core/settings.h"
#include "lab/settings/recording_profile.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/ini_text.h"

namespace orvenza {

/// A key as the connector reads it.
struct ReviewedKey {
  std::string section;
  std::string key;
  std::string found;      ///< The text in the file, in UTF-8; empty if missing.
  bool missing = false;   ///< The default was used.
  std::string used;       ///< The value that the connector uses, in the form of the file.
  std::string usual;      ///< The same for the default of a new file.
  std::string written;    ///< That default as a new file contains it.
  bool optional = false;  ///< A new file lacks it.
};

/// The effect of a settings file at the next start.
struct SettingsReview {
  enum class State {
    kNew,           ///< Does not exist: the start writes one with the defaults, which are reviewed here.
    kUnreadable,    ///< Exists but cannot be read. Only `settings` is filled.
    kWrongVersion,  ///< The start would fail. The rest shows what would be read otherwise.
    kRead,
  };

  State state = State::kRead;
  std::string version;                 ///< As found.
  std::string content;                 ///< The file's bytes.
  std::vector<IniLine> lines;          ///< Its parsed lines.
  std::vector<ProfileValue> upgraded;  ///< What the upgrade would write.
  std::vector<ProfileValue> repaired;  ///< What reading would write back.
  std::vector<ProfileValue> defaults;  ///< Every key with its value in a new file.
  std::vector<ReviewedKey> keys;  ///< In the order of `defaults`, without the version; then the optional.
  AppSettings settings;           ///< As the connector would use them.
};

/// False for a path of the settings that depends on where the connector is started; "" is no path.
bool IsWholePath(const std::string& path);

/// Runs the connector's own code for reading the settings; whatever it would write is kept in memory.
SettingsReview ReviewSettings(const FileReader& files, Clock& clock, const ProgramPaths& paths);

}  // namespace orvenza
