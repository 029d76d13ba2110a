#include "app/trace/trace_setting.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "app/trace/trace_file.h"
#include "core/folder_path.h"
#include "core/text.h"
#include "platform/folders.h"

namespace orvenza {
namespace {

bool IsNamed(const std::string& path, std::string_view name) {
  return ToUpperAscii(FileNameOf(path)) == ToUpperAscii(name);
}

/// Whether one of the trace's files would be a file of the program.
bool IsOwnFile(const std::string& path, const ProgramPaths& paths) {
  const std::array<std::string, 10> own{paths.ExecutableName + ".ini",
                                        paths.ExecutableName + ".exe",
                                        paths.ExecutableName,
                                        "ErrDesc.ini",
                                        "Remembered.ini",
                                        "command.txt",
                                        "Log.txt",
                                        "Err.txt",
                                        "error.txt",
                                        "ding.wav"};
  const bool bak = path.size() > 4 && ToUpperAscii(path.substr(path.size() - 4)) == ".BAK";
  return bak ||
         std::any_of(own.begin(), own.end(), [&](const std::string& name) { return IsNamed(path, name); });
}

/// Whether a folder of tickets holds the file.
bool LiesAmongTickets(const std::string& path, const ProfileContent& content, const ProgramPaths& paths) {
  const auto value = [&](const char* key, const std::string& missing) {
    return SettingsPath(ReadProfileValue(content, "Database", key, missing));
  };
  std::string tickets = value("TicketFiles", paths.AppPath + "\\data\\*.txt");
  tickets.erase(tickets.rfind('\\') + 1);
  const std::string historic = value("HistoricTickets", tickets + "inproces");
  const std::string place = NormalisedFolder(path.substr(0, path.rfind('\\') + 1));
  for (const std::string& folder : {tickets, tickets + "inproces", tickets + "abort", historic}) {
    if (!folder.empty() && NormalisedFolder(folder) == place) return true;
  }
  return false;
}

}  // namespace

TraceSetting ReadTraceSetting(const ProfileContent& content, const ProgramPaths& paths) {
  const std::string value(Trim(ReadProfileValue(content, setting::kHost, setting::kTrace)));
  if (value.empty()) return {};
  const std::string named = SettingsPath(value);
  const bool drive = named.size() > 2 && named[1] == ':' && named[2] == '\\';
  const bool whole = drive || named.starts_with('\\');
  const std::string path = whole ? named : paths.AppPath + "\\" + named;
  const std::string rest = named.substr(drive ? 2 : 0);
  const bool file = !named.ends_with('\\') && rest.find_first_of("<>:\"|?*") == std::string::npos &&
                    FileNameOf(named).find_first_not_of(". ") != std::string::npos;
  const bool elsewhere = named.starts_with("\\\\");
  if (!file || elsewhere || IsOwnFile(path, paths) || LiesAmongTickets(path, content, paths))
    return {{}, value};
  return {path, {}};
}

}  // namespace orvenza
