#include "lab/replay/traced_settings.h"

#include <memory>
#include <optional>
#include <utility>

#include "app/trace/transcript_text.h"
#include "core/settings.h"
#include "core/text.h"
#include "lab/rehearsal/first_files.h"
#include "lab/rehearsal/scenario.h"
#include "platform/folders.h"
#include "platform/ini_text.h"

namespace orvenza {
namespace {

constexpr std::string_view kIn = " in ";

/// A path of any system as one of the rehearsal's disk.
std::string WithDrive(std::string path) {
  path = SettingsPath(std::move(path));
  if (path.starts_with("\\\\")) return "S:" + path.substr(1);
  if (path.starts_with('\\')) return "C:" + path;
  return path;
}

bool IsWhole(std::string_view path) {
  return (path.size() > 2 && path[1] == ':') || path.starts_with('\\') || path.starts_with('/');
}

}  // namespace

void TracedSettings::Take(const TracedEvent& event) {
  if (event.kind == "start" || event.kind == "continued") {
    const std::size_t in = event.text.find(kIn);
    if (in != std::string::npos) programFolder_ = event.text.substr(in + kIn.size());
    values_.clear();
  }
  if (event.kind != "setting") return;
  const std::size_t close = event.text.find("] ");
  const std::size_t equals = event.text.find(" =", close == std::string::npos ? 0 : close);
  if (!event.text.starts_with('[') || close == std::string::npos || equals == std::string::npos ||
      equals < close + 2)
    return;
  values_.push_back({event.text.substr(1, close - 1), event.text.substr(close + 2, equals - close - 2),
                     std::string(Trim(event.text.substr(equals + 2)))});
  FindFolders();
}

std::string TracedSettings::Path(std::string_view shown) const {
  const std::string inside = programFolder_.empty() ? std::string(shown) : ShownPath(shown, programFolder_);
  return IsWhole(inside) ? WithDrive(inside) : inside;
}

/// A value that names a place of the program folder names the rehearsal's.
std::string TracedSettings::Translated(const std::string& text) const {
  if (!IsWhole(text)) return text;
  const std::string path = Path(text);
  return IsWhole(path) ? path : std::string(kRehearsalFolder) + "\\" + path;
}

void TracedSettings::FindFolders() {
  std::optional<std::string> historic;
  for (const Value& value : values_) {
    if (value.section != "Database") continue;
    const std::string path = SettingsPath(Path(value.text));
    if (value.key == "TicketFiles") tickets_ = path.substr(0, path.rfind('\\') + 1);
    if (value.key == "HistoricTickets") historic = path;
  }
  historic_ = historic.value_or(InProcess());
  if (!historic_.empty() && !historic_.ends_with('\\')) historic_ += '\\';
}

char TracedSettings::Separator() const {
  int code = 127;
  for (const Value& value : values_) {
    if (value.key == setting::kSeparator) code = LeadingInteger(value.text);
  }
  return code < 0 || code > 127 ? '\x7F' : static_cast<char>(code);
}

void TracedSettings::AddTo(ScenarioText& scenario) const {
  const IniText usual(FilesOfAFirstStart().settings);
  std::size_t found = 0;
  std::vector<std::string> lines;
  for (const Value& value : values_) {
    if (value.section == setting::kHost && value.key == setting::kTrace) continue;
    const std::string text = value.section == "Database" ? Translated(value.text) : value.text;
    const auto first = usual.Value(value.section, value.key);
    if (first) ++found;
    if (!first || *first != text)
      lines.push_back("setting [" + value.section + "] " + value.key + " = " + text);
  }
  std::size_t wanted = 0;
  for (const ProfileValue& value : DefaultSettings(kRehearsalFolder)) wanted += value.key.empty() ? 0U : 1U;
  if (found == wanted) {
    for (const std::string& line : lines) scenario.AddSetting(line);
    return;
  }
  // A key that is missing cannot be set, so the whole file is written.
  const auto file = std::make_shared<FileContent>();
  file->known = true;
  std::string section;
  for (const Value& value : values_) {
    if (value.section == setting::kHost && value.key == setting::kTrace) continue;
    if (value.section != section) file->lines.push_back("[" + value.section + "]");
    section = value.section;
    file->lines.push_back(value.key + "=" +
                          (value.section == "Database" ? Translated(value.text) : value.text));
  }
  scenario.AddFile("file Orvenza.ini", file);
}

}  // namespace orvenza
