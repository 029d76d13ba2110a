#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "core/logs.h"
#include "platform/files.h"
#include "platform/profile_file.h"

namespace orvenza {

/// The settings, filled once at start-up. Later only the port dialog changes them (the two serial values).
struct AppSettings : LogPaths {
  std::string TicketFilesSpec;  ///< Folder and mask of the incoming tickets, as read.
  std::string TicketFolder;     ///< The part up to and including the last "\"; empty when there is none.
  std::string TicketMask;       ///< The rest.
  std::string HistoricFolder;   ///< Ends in "\"; if empty, printed tickets are deleted.
  std::string InProcessFolder;  ///< Ends in "\".
  std::string AbortFolder;      ///< Ends in "\".
  std::string CommandFilePath;
  std::string EvidencePath;  ///< How far the ticket being printed has come.
  int ComPortNumber = 0;
  std::string ComSettings;  ///< Speed, parity, data bits, stop bits: "19200,O,7,1".
  int FrameRetry = 0;
  int TimeWaitForAck = 0;      ///< Milliseconds.
  int TimeWaitForEtx = 0;      ///< Milliseconds.
  int TimeWaitForLONGEtx = 0;  ///< Milliseconds, for long-running commands.
  int TxMessageRetry = 0;
  char Ident = 'V';             ///< In Windows-1252.
  double PcTimeCorrection = 0;  ///< Seconds between two clock corrections; 0 or less: never.
  double TimeShift = 0;  ///< Tolerated difference between the PC's clock and the register's, in seconds.
  char SeparatorChar = 127;
  bool SingleQuantity = false;
  bool FileParser = false;
  bool AskInDoubt = false;  ///< The operator decides wherever a receipt is in doubt.
  std::string
      OutcomesFolder;       ///< Where the host finds what became of each ticket; ends in "\"; empty: nowhere.
  bool IniCreated = false;  ///< Start-up wrote a default settings file.
  bool IniUpgradeDone = false;  ///< The version check is finished.
};

/// Paths of the settings file and the files beside it.
struct ProgramPaths {
  std::string AppPath;         ///< Program folder, without a trailing "\".
  std::string ExecutableName;  ///< Base name, without extension.

  std::string Ini() const { return AppPath + "\\" + ExecutableName + ".ini"; }
  std::string ErrDesc() const { return AppPath + "\\ErrDesc.ini"; }
};

/// Name of a file in the program folder: how far the ticket being printed has come.
inline constexpr const char* kEvidenceName = "Evidence.ini";

/// The version of the settings file that this program reads and writes.
inline constexpr const char* kIniVersion = "1.06";

/// Sections, keys and limits of the settings file that are used in several places.
namespace setting {
inline constexpr const char* kGeneral = "General";
inline constexpr const char* kSeparator = "Separator (ascii,max 127)";  ///< The key is the whole phrase.
inline constexpr const char* kComSettings = "Com Settings";
inline constexpr const char* kComPort = "ComPort";
inline constexpr const char* kLineSettings = "Settings";
inline constexpr const char* kSafety = "Safety";
inline constexpr const char* kAskInDoubt = "AskInDoubt";
inline constexpr const char* kHost = "Host";
inline constexpr const char* kOutcomes = "Outcomes";
inline constexpr const char* kTrace = "Trace";    ///< The file of the trace.
inline constexpr int kPorts = 16;                 ///< Ports are numbered from 1 to this.
inline constexpr std::size_t kLongestValue = 99;  ///< Longer values are cut to this many characters.
}  // namespace setting

/// One value of a settings file in UTF-8 (other bytes are read as Windows-1252), cut to `kLongestValue`
/// characters; `fallback` if it is missing.
[[nodiscard]] std::string ReadProfileValue(const ProfileContent& content, const std::string& section,
                                           const std::string& key, const std::string& fallback = {});

/// The content of a new settings file, in file order. `appPath` without a trailing "\".
std::vector<ProfileValue> DefaultSettings(const std::string& appPath);

/// The keys that neither a new file nor an upgrade has, without values: what they ask for is off unless
/// somebody wants it.
std::vector<ProfileValue> OptionalSettings();

/// Reads, creates and upgrades the settings file.
class SettingsFile {
 public:
  SettingsFile(ProfileFile& profile, Files& files, Logs& logs, ProgramPaths paths);

  /// Writes every key with its default, all or nothing. Throws SystemError.
  void WriteDefaultIni();

  /// Upgrades the file to the current version, calling `stepDone` after each step, and sets `IniUpgradeDone`.
  /// Returns false for an unknown version, after a line in the error log. A file that cannot be written is
  /// used as it is, after a line in the error log. Throws SystemError when the file cannot be read.
  [[nodiscard]] bool UpgradeIni(AppSettings& settings, const std::function<void()>& stepDone);

  /// Fills `settings` from the file, read as a whole, and repairs a wrong port number or separator, in the
  /// file too. If it throws a SystemError, the file cannot be read and `settings` is unchanged.
  void ReadIni(AppSettings& settings);

  /// Writes `ErrDesc.ini` with the texts of messages 110 to 116, all or nothing. Throws SystemError.
  void WriteDefaultErrDesc();

 private:
  void WriteWhole(const std::string& path, const std::vector<ProfileValue>& values);
  void Repair(const char* section, const char* key, const char* value);
  void ReadFolders(const ProfileContent& content, AppSettings& settings) const;
  void ReadComSettings(const ProfileContent& content, AppSettings& settings);
  void ReadGeneral(const ProfileContent& content, AppSettings& settings);
  void ReadOptional(const ProfileContent& content, AppSettings& settings);

  ProfileFile& profile_;
  Files& files_;
  Logs& logs_;
  ProgramPaths paths_;
};

}  // namespace orvenza
