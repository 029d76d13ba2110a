#include "lab/settings/settings_review.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "core/logs.h"
#include "core/text.h"
#include "lab/shell/no_files.h"
#include "platform/ini_profile_file.h"
#include "platform/system_error.h"

namespace orvenza {
namespace {

/// Runs the connector's settings code on a profile that only records.
class DryRun {
 public:
  DryRun(RecordingProfile& profile, Clock& clock, const ProgramPaths& paths)
      : logs_(files_, clock, settings, paths.AppPath), file(profile, files_, logs_, paths) {}

  AppSettings settings;

 private:
  NoFiles files_;
  Logs logs_;

 public:
  SettingsFile file;
};

std::string FlagText(bool on) { return on ? "1" : "0"; }

std::string NumberText(double number) {
  std::array<char, 400> digits{};
  const auto end = std::to_chars(digits.begin(), digits.end(), number, std::chars_format::fixed);
  return {digits.data(), end.ptr};
}

/// The value that the connector uses for a key, in the form of the file.
struct UsedValue {
  const char* key;
  std::string (*text)(const AppSettings& settings);
};

constexpr UsedValue kUsedValues[] = {
    {"TicketFiles", [](const AppSettings& s) { return s.TicketFilesSpec; }},
    {"HistoricTickets", [](const AppSettings& s) { return s.HistoricFolder; }},
    {setting::kComPort, [](const AppSettings& s) { return std::to_string(s.ComPortNumber); }},
    {setting::kLineSettings, [](const AppSettings& s) { return s.ComSettings; }},
    {"FrameRetry", [](const AppSettings& s) { return std::to_string(s.FrameRetry); }},
    {"TimeWaitForAck", [](const AppSettings& s) { return std::to_string(s.TimeWaitForAck); }},
    {"TimeWaitForEtx", [](const AppSettings& s) { return std::to_string(s.TimeWaitForEtx); }},
    {"TxMessageRetry", [](const AppSettings& s) { return std::to_string(s.TxMessageRetry); }},
    {"Ident",
     [](const AppSettings& s) {
       return FromWindows1252({&s.Ident, 1});
     }},
    {"TimeWaitForLONGEtx", [](const AppSettings& s) { return std::to_string(s.TimeWaitForLONGEtx); }},
    {"Pc Time Correction", [](const AppSettings& s) { return NumberText(s.PcTimeCorrection); }},
    {"Time Shift", [](const AppSettings& s) { return NumberText(s.TimeShift); }},
    {setting::kSeparator, [](const AppSettings& s) { return std::to_string(s.SeparatorChar); }},
    {"Single Quantity", [](const AppSettings& s) { return FlagText(s.SingleQuantity); }},
    {"File Parser", [](const AppSettings& s) { return FlagText(s.FileParser); }},
    {setting::kAskInDoubt, [](const AppSettings& s) { return FlagText(s.AskInDoubt); }},
};

/// Entries of `after` that are new or changed.
std::vector<ProfileValue> Added(const std::vector<ProfileValue>& before,
                                const std::vector<ProfileValue>& after) {
  std::vector<ProfileValue> added;
  for (const auto& value : after) {
    const bool isOld = std::any_of(before.begin(), before.end(), [&](const auto& old) {
      return old.section == value.section && old.key == value.key && old.text == value.text;
    });
    if (!isOld) added.push_back(value);
  }
  return added;
}

std::vector<ProfileValue> AllKeys(const std::vector<ProfileValue>& defaults) {
  std::vector<ProfileValue> keys = defaults;
  for (const auto& optional : OptionalSettings()) keys.push_back({optional.section, optional.key, {}});
  return keys;
}

std::vector<ReviewedKey> ReviewKeys(const RecordingProfile& profile, const SettingsReview& review,
                                    const AppSettings& usual) {
  std::vector<ReviewedKey> keys;
  std::size_t number = 0;
  for (const auto& standard : AllKeys(review.defaults)) {
    const bool optional = ++number > review.defaults.size();
    const auto used = std::find_if(std::begin(kUsedValues), std::end(kUsedValues),
                                   [&](const UsedValue& value) { return value.key == standard.key; });
    const auto asked = std::find_if(profile.AllAsked().begin(), profile.AllAsked().end(), [&](const auto& a) {
      return a.value.section == standard.section && a.value.key == standard.key;
    });
    if (used == std::end(kUsedValues) || asked == profile.AllAsked().end()) continue;
    keys.push_back({standard.section, standard.key, ToUtf8(asked->value.text), asked->missing,
                    used->text(review.settings), used->text(usual), standard.text, optional});
  }
  return keys;
}

/// The connector rejects a larger file, too.
std::string ContentOf(const FileReader& files, const std::string& path) {
  std::string content = ReadWhole(files, path, IniProfileFile::kLargestFile + 1);
  if (content.size() > IniProfileFile::kLargestFile) throw SystemError(error_number::kPathFileAccess, path);
  return content;
}

/// Reads the whole file, like the connector.
SettingsReview::State Look(const FileReader& files, const ProgramPaths& paths, SettingsReview& review) {
  try {
    if (!files.Exists(paths.Ini())) return SettingsReview::State::kNew;
    review.content = ContentOf(files, paths.Ini());
    review.lines = IniText(review.content).Lines();
    return SettingsReview::State::kRead;
  } catch (const SystemError&) {
    return SettingsReview::State::kUnreadable;
  }
}

}  // namespace

bool IsWholePath(const std::string& path) {
  return path.empty() || path.front() == '\\' || (path.size() > 2 && path[1] == ':' && path[2] == '\\');
}

SettingsReview ReviewSettings(const FileReader& files, Clock& clock, const ProgramPaths& paths) {
  SettingsReview review;
  const IniText nothing;
  RecordingProfile defaults(nothing);
  review.defaults = DefaultSettings(paths.AppPath);
  defaults.WriteAll(review.defaults);
  DryRun usual(defaults, clock, paths);
  usual.file.ReadIni(usual.settings);

  review.state = Look(files, paths, review);
  const IniText found(review.content);
  RecordingProfile recording(found);
  if (review.state == SettingsReview::State::kNew) recording.WriteAll(review.defaults);
  const auto asFound = recording.AllWritten();
  DryRun start(recording, clock, paths);
  review.version = ReadProfileValue(*recording.Load(paths.Ini()), "Version", "Version");
  const bool known = start.file.UpgradeIni(start.settings, [] {});
  if (!known && review.state == SettingsReview::State::kRead) {
    review.state = SettingsReview::State::kWrongVersion;
  }
  const auto upToDate = recording.AllWritten();
  start.file.ReadIni(start.settings);
  review.upgraded = Added(asFound, upToDate);
  review.repaired = Added(upToDate, recording.AllWritten());
  review.settings = start.settings;
  if (review.state != SettingsReview::State::kUnreadable) {
    review.keys = ReviewKeys(recording, review, usual.settings);
  }
  return review;
}

}  // namespace orvenza
