#include "ui/port_dialog.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "core/catalogue.h"
#include "core/text.h"
#include "platform/system_error.h"
#include "ui/open_mark.h"

namespace orvenza {
namespace {

constexpr std::size_t kPort = 0;
constexpr std::size_t kParity = 2;

/// The lists in their order: port, speed, parity, data bits, stop bits.
std::array<std::vector<std::string>, 5> Entries() {
  std::vector<std::string> ports;
  for (int port = 1; port <= setting::kPorts; ++port) ports.push_back("COM" + std::to_string(port));
  return {ports,
          {"1200", "2400", "4800", "9600", "19200", "38400", "57600"},
          {"Odd", "Even", "None"},
          {"7", "8"},
          {"1", "2"}};
}

/// An entry's form in the line settings; a parity is its initial.
std::string SettingsPart(std::size_t list, const std::string& entry) {
  return list == kParity ? ToUpperAscii(entry.substr(0, 1)) : entry;
}

/// The labels of the lists in their order.
constexpr std::array kLabels{MessageId::kPort, MessageId::kSpeed, MessageId::kParity, MessageId::kDataBits,
                             MessageId::kStopBits};

/// The four parts of the line settings, each at the index of its list; missing ones are empty.
std::array<std::string, 5> SplitSettings(std::string_view text) {
  std::array<std::string, 5> parts;
  for (std::size_t list = kPort + 1; list < parts.size() && !text.empty(); ++list) {
    const std::size_t comma = std::min(text.find(','), text.size());
    parts[list] = text.substr(0, comma);
    text.remove_prefix(std::min(comma + 1, text.size()));
  }
  return parts;
}

int FindEntry(const std::vector<std::string>& entries, std::size_t list, const std::string& part) {
  const std::string wanted = list == kParity ? ToUpperAscii(part) : part;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (SettingsPart(list, entries[i]) == wanted) return static_cast<int>(i);
  }
  return -1;
}

/// The entry at `index`; empty if there is none.
std::optional<std::string> EntryAt(const std::vector<std::string>& entries, int index) {
  if (index < 0 || index >= static_cast<int>(entries.size())) return std::nullopt;
  return entries[static_cast<std::size_t>(index)];
}

}  // namespace

PortDialog::PortDialog(Operator& person, AppSettings& settings, ProfileFile& profile, ProgramPaths paths)
    : person_(person), settings_(settings), profile_(profile), paths_(std::move(paths)) {}

void PortDialog::Show() {
  if (open_) return;
  const OpenMark mark(open_);
  const auto selected = person_.ShowPortSettings(LoadPortSettingsIntoDialog());
  if (selected) SavePortSettingsFromDialog(*selected);
}

PortContent PortDialog::LoadPortSettingsIntoDialog() const {
  PortContent content;
  content.caption = LoadMessage(MessageId::kPortSettings);
  content.entries = Entries();
  content.button = LoadMessage(MessageId::kOkButton);
  const std::array<std::string, 5> parts = SplitSettings(settings_.ComSettings);
  for (std::size_t list = 0; list < parts.size(); ++list) {
    content.labels[list] = LoadMessage(kLabels[list]);
    content.selected[list] = FindEntry(content.entries[list], list, parts[list]);
  }
  const bool listed = settings_.ComPortNumber >= 1 && settings_.ComPortNumber <= setting::kPorts;
  content.selected[kPort] = listed ? settings_.ComPortNumber - 1 : -1;
  return content;
}

void PortDialog::SavePortSettingsFromDialog(const std::array<int, 5>& selected) {
  const auto lists = Entries();
  if (EntryAt(lists[kPort], selected[kPort])) {
    settings_.ComPortNumber = selected[kPort] + 1;
    WriteComSetting(setting::kComPort, std::to_string(settings_.ComPortNumber));
  }
  const std::array<std::string, 5> current = SplitSettings(settings_.ComSettings);
  std::string text;
  for (std::size_t list = kPort + 1; list < lists.size(); ++list) {
    const auto entry = EntryAt(lists[list], selected[list]);
    const std::string part = entry ? SettingsPart(list, *entry) : current[list];
    if (part.empty()) return;
    text.append(text.empty() ? "" : ",").append(part);
  }
  settings_.ComSettings = text;
  WriteComSetting(setting::kLineSettings, text);
}

void PortDialog::WriteComSetting(const std::string& key, const std::string& value) {
  try {
    profile_.Write(paths_.Ini(), setting::kComSettings, key, value);
  } catch (const SystemError&) {
    // The link takes the values from `settings_`, so the operator's choice still holds for this run.
  }
}

}  // namespace orvenza
