#pragma once

#include <array>
#include <string>

#include "core/settings.h"
#include "platform/profile_file.h"
#include "ui/operator.h"

namespace orvenza {

/// The serial port dialog `Orv_Conf`. It edits the port number and the line settings, in `settings` and in
/// the settings file.
class PortDialog {
 public:
  PortDialog(Operator& person, AppSettings& settings, ProfileFile& profile, ProgramPaths paths);

  /// Shows the dialog and saves the confirmed values; returns at once when it is already open. The caller
  /// applies the settings to the link. Throws ProgramEnd if the program ends meanwhile.
  void Show();

  /// The dialog's content with the current values selected. A value missing from its list selects nothing.
  PortContent LoadPortSettingsIntoDialog() const;

  /// Stores the selected entries (indices from 0) as the current values and writes both to the settings file.
  /// A list without a selection leaves its part unchanged; if the line settings would then lack a part, they
  /// stay as they are, in the file too. Never fails.
  void SavePortSettingsFromDialog(const std::array<int, 5>& selected);

 private:
  void WriteComSetting(const std::string& key, const std::string& value);

  Operator& person_;
  AppSettings& settings_;
  ProfileFile& profile_;
  ProgramPaths paths_;
  bool open_ = false;
};

}  // namespace orvenza
