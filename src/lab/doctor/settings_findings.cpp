#include "lab/doctor/settings_findings.h"

#include <algorithm>
#include <optional>

#include "app/trace/trace_setting.h"
#include "core/text.h"
#include "device/serial_settings.h"
#include "lab/doctor/settings_lines.h"
#include "lab/shell/wording.h"
#include "tickets/ticket_splitter.h"

namespace orvenza {
namespace {

using State = SettingsReview::State;

/// "[General] Time Shift".
std::string NameOf(const std::string& section, const std::string& key) { return "[" + section + "] " + key; }

std::string Listed(const std::vector<ProfileValue>& values) {
  std::string listed;
  for (const auto& value : values) {
    listed += (listed.empty() ? "" : ", ") + value.key + "=" + value.text;
  }
  return listed;
}

bool IsRepaired(const SettingsReview& review, const ReviewedKey& key) {
  return std::any_of(review.repaired.begin(), review.repaired.end(),
                     [&](const auto& value) { return value.section == key.section && value.key == key.key; });
}

/// Whether `found` is the number `used` and nothing else.
bool IsPlainNumber(std::string_view found, const std::string& used) {
  const std::string_view digits = found.substr(found.starts_with('-') || found.starts_with('+') ? 1 : 0);
  const bool plain = !digits.empty() && digits.find_first_not_of("0123456789.") == std::string_view::npos &&
                     std::count(digits.begin(), digits.end(), '.') <= 1;
  return plain && LeadingNumber(found) == LeadingNumber(used);
}

/// Whether the connector uses the text unchanged. Folders are only completed, so they always count.
bool IsTakenAsItStands(const ReviewedKey& key) {
  const std::string found(Trim(key.found));
  if (key.section == "Database" || key.key == setting::kLineSettings) return true;
  return found == key.used || found == Trim(key.written) || IsPlainNumber(found, key.used);
}

Finding OfMissingKey(const ReviewedKey& key, bool repaired) {
  const std::string name = NameOf(key.section, key.key);
  if (repaired) {
    return {Severity::kWarning, "settings.repaired",
            name + " is missing; the next start writes " + key.used + " and uses that.",
            "Write the value that is meant."};
  }
  if (key.used == key.usual) {
    return {Severity::kNote, "settings.default", name + " is missing; " + Quoted(key.used) + " is used."};
  }
  return {Severity::kWarning, "settings.default",
          name + " is missing; " + Quoted(key.used) + " is used, where a new file has " +
              Quoted(key.written) + ".",
          "Write the line " + key.key + "=" + key.written + "."};
}

std::optional<Finding> OfKey(const SettingsReview& review, const ReviewedKey& key) {
  if (key.missing && key.optional) return std::nullopt;
  const bool repaired = IsRepaired(review, key);
  if (key.missing) return OfMissingKey(key, repaired);
  const std::string is = NameOf(key.section, key.key) + " is " + Quoted(key.found);
  if (repaired) {
    return Finding{Severity::kWarning, "settings.repaired",
                   is + "; the next start writes " + key.used + " and uses that.",
                   "Write the value that is meant."};
  }
  if (CountCharacters(key.found) > setting::kLongestValue) {
    return Finding{Severity::kWarning, "settings.cut",
                   is + ", of which only " + std::to_string(setting::kLongestValue) + " characters are seen.",
                   "Write a shorter value."};
  }
  if (IsTakenAsItStands(key)) return std::nullopt;
  return Finding{Severity::kWarning, "settings.reads-as", is + ", which is read as " + Quoted(key.used) + ".",
                 "Write " + key.used + ", or what is meant."};
}

void AddVersion(Findings& findings, const SettingsReview& review, const std::string& name) {
  if (review.state == State::kNew) {
    findings.push_back(
        {Severity::kNote, "settings.new",
         name + " is missing; the next start writes it with the defaults and asks for the port."});
  }
  if (review.state == State::kWrongVersion) {
    findings.push_back({Severity::kError, "settings.version",
                        name + " is of version " + Quoted(review.version) + ", which ends the start.",
                        "Restore the file from a copy, or delete it: the next start writes a new one."});
  } else if (!review.upgraded.empty()) {
    findings.push_back({Severity::kNote, "settings.upgrade",
                        name + " is of version " + review.version + "; the next start writes " +
                            Listed(review.upgraded) + " and tells the operator."});
  }
}

void AddTicketFiles(Findings& findings, const AppSettings& settings) {
  if (!settings.TicketFolder.empty() && !settings.TicketMask.empty()) return;
  findings.push_back({Severity::kError, "settings.tickets",
                      "[Database] TicketFiles is " + Quoted(settings.TicketFilesSpec) + ", which lacks the " +
                          (settings.TicketFolder.empty() ? "folder." : "mask of the file names."),
                      "Write the whole path with a mask, such as C:\\Orvenza\\data\\*.txt."});
}

/// An example of a name that matches the mask.
std::string ExampleOf(std::string mask) {
  std::replace_if(
      mask.begin(), mask.end(), [](char c) { return c == '*' || c == '?'; }, 'x');
  return mask;
}

void AddParser(Findings& findings, const AppSettings& settings) {
  const std::string& mask = settings.TicketMask;
  if (!settings.FileParser || mask.empty() || CanNameParts(ExampleOf(mask), mask)) return;
  findings.push_back({Severity::kWarning, "settings.parser",
                      "[General] File Parser is on, but the mask " + Quoted(mask) +
                          " has no room for the numbers of parts: a file of several receipts is printed as "
                          "one.",
                      "Write a mask such as *.txt in [Database] TicketFiles, or switch File Parser off."});
}

/// A relative path depends on the folder in which the program is started.
void AddRelative(Findings& findings, const char* key, const std::string& path) {
  if (IsWholePath(path)) return;
  findings.push_back({Severity::kWarning, "settings.relative",
                      NameOf("Database", key) + " is " + Quoted(path) + ", which begins at no drive.",
                      "Write the whole path, such as C:\\Orvenza\\data\\*.txt."});
}

void AddSerial(Findings& findings, const AppSettings& settings) {
  const std::string is = "[Com Settings] Settings is " + Quoted(settings.ComSettings);
  const std::string remedy = "Write speed, parity, data bits and stop bits: 19200,O,7,1.";
  const auto serial = SplitSerialSettings(settings.ComSettings);
  if (!serial) {
    findings.push_back(
        {Severity::kError, "settings.serial", is + ", with which the port cannot be opened.", remedy});
  } else if (serial->speed <= 0 || serial->dataBits < 7 || serial->dataBits > 8 || serial->stopBits < 1 ||
             serial->stopBits > 2) {
    findings.push_back({Severity::kWarning, "settings.serial",
                        is + ": speed, data bits or stop bits are none that the port dialog offers.",
                        remedy});
  }
}

void AddSeparator(Findings& findings, const AppSettings& settings) {
  const int code = static_cast<unsigned char>(settings.SeparatorChar);
  const std::string is = NameOf(setting::kGeneral, setting::kSeparator) + " is " + std::to_string(code);
  const std::string remedy =
      "Write 127, or the code of a character that no ticket holds, such as 59 for \";\".";
  const bool isValue = (code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z') ||
                       (code >= 'a' && code <= 'z') || code == ',' || code == '.' || code == ' ';
  if (code < ' ') {
    findings.push_back({Severity::kError, "settings.separator",
                        is + ", a control character: no field of a ticket is ever found.", remedy});
  } else if (isValue) {
    findings.push_back({Severity::kWarning, "settings.separator",
                        is + ", a character that values and texts hold themselves.", remedy});
  }
}

void AddTrace(Findings& findings, const SettingsReview& review, const std::string& name) {
  const std::string& commandFile = review.settings.CommandFilePath;
  const std::string folder = commandFile.substr(0, commandFile.rfind('\\'));
  const TraceSetting trace =
      ReadTraceSetting(IniText(review.content), {folder, name.substr(0, name.rfind('.'))});
  if (!trace.refused.empty()) {
    findings.push_back({Severity::kWarning, "settings.trace",
                        NameOf(setting::kHost, setting::kTrace) + " is " + Quoted(trace.refused) +
                            ", where no trace may be written; there is none.",
                        "Write the name of a file, such as trace.txt."});
  } else if (!trace.path.empty()) {
    findings.push_back({Severity::kNote, "settings.trace", "A trace is written to " + trace.path + "."});
  }
}

/// The mode is recommended, but a shop that works the other way has nothing to repair.
void AddSafety(Findings& findings, const SettingsReview& review) {
  if (review.settings.AskInDoubt || review.state == State::kNew) return;
  findings.push_back({Severity::kNote, "settings.safety",
                      NameOf(setting::kSafety, setting::kAskInDoubt) +
                          " is off: after a garbled reply, a lost status, paper-out or a power cut the "
                          "connector decides by itself, and a receipt may be lost or printed twice. On, it "
                          "asks the operator.",
                      "Write the line AskInDoubt=1 below [Safety], and show the operators what is asked "
                      "(docs/manuale-operatore.md)."});
}

}  // namespace

Findings FindInSettings(const SettingsReview& review, const std::string& name) {
  Findings findings;
  if (review.state == State::kUnreadable) {
    return {{Severity::kError, "settings.unreadable",
             name + " cannot be read, or is too large for a settings file, which ends the start.",
             "Give the user of the till the right to read and write it, or restore it from a copy."}};
  }
  AddVersion(findings, review, name);
  for (Finding& finding : FindInLines(review)) findings.push_back(std::move(finding));
  // The file is not even read, so a list of its missing keys would only hide that.
  if (review.state == State::kWrongVersion) return findings;
  for (const ReviewedKey& key : review.keys) {
    if (auto finding = OfKey(review, key)) findings.push_back(std::move(*finding));
  }
  AddTicketFiles(findings, review.settings);
  AddParser(findings, review.settings);
  AddRelative(findings, "TicketFiles", review.settings.TicketFolder);
  AddRelative(findings, "HistoricTickets", review.settings.HistoricFolder);
  AddSerial(findings, review.settings);
  AddSeparator(findings, review.settings);
  AddTrace(findings, review, name);
  if (findings.empty()) {
    findings.push_back({Severity::kOk, "settings.ok",
                        name + " is of version " + review.version + " and used as it stands."});
  }
  AddSafety(findings, review);
  return findings;
}

}  // namespace orvenza
