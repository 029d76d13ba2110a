#include "core/settings.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "core/catalogue.h"
#include "core/logs.h"
#include "core/own_texts.h"
#include "core/text.h"
#include "platform/folders.h"
#include "platform/ini_text.h"

namespace orvenza {
namespace {

using namespace setting;

constexpr const char* kVersion = "Version";
constexpr const char* kDatabase = "Database";

bool IsOn(const std::string& text) { return Trim(text) == "1"; }

struct UpgradeKey {
  const char* section;
  const char* key;
  std::string value;
};

struct UpgradeStep {
  const char* from;
  const char* to;
  std::vector<UpgradeKey> keys;
};

/// Only the step from "1.00" goes to the next version. Every later one deliberately writes its own keys and
/// jumps to the current version: the defaults on reading cover the skipped keys.
std::vector<UpgradeStep> UpgradeSteps(const std::string& appPath) {
  return {
      {"1.00", "1.01", {{kComSettings, "TimeWaitForLONGEtx", "50000"}}},
      {"1.01", kIniVersion, {{kGeneral, "Pc Time Correction", ""}, {kGeneral, "Time Shift", "60"}}},
      {"1.02", kIniVersion, {{kGeneral, kSeparator, "127"}}},
      {"1.03", kIniVersion, {{kGeneral, "Single Quantity", "0"}}},
      {"1.04", kIniVersion, {{kGeneral, "File Parser", "0"}}},
      {"1.05", kIniVersion, {{kDatabase, "HistoricTickets", appPath + "\\storico\\"}}},
  };
}

int Integer(const ProfileContent& content, const char* key) {
  return LeadingInteger(ReadProfileValue(content, kComSettings, key));
}

}  // namespace

std::string ReadProfileValue(const ProfileContent& content, const std::string& section,
                             const std::string& key, const std::string& fallback) {
  return FirstCharacters(ToUtf8(content.Value(section, key).value_or(fallback)), kLongestValue);
}

std::vector<ProfileValue> DefaultSettings(const std::string& appPath) {
  return {
      {kVersion, "Version", kIniVersion},
      {kDatabase, "TicketFiles", appPath + "\\data\\*.txt"},
      {kDatabase, "HistoricTickets", appPath + "\\storico\\"},
      {kDatabase, "", "'***** Command File Name = command.txt *****"},
      {kComSettings, kComPort, "1"},
      {kComSettings, kLineSettings, "19200,O,7,1"},
      {kComSettings, "FrameRetry", "3"},
      {kComSettings, "TimeWaitForAck", "10000"},
      {kComSettings, "TimeWaitForEtx", "10000"},
      {kComSettings, "TxMessageRetry", "5"},
      {kComSettings, "Ident", "V"},
      {kComSettings, "TimeWaitForLONGEtx", "50000"},
      {kGeneral, "Pc Time Correction", ""},
      {kGeneral, "Time Shift", "60"},
      {kGeneral, kSeparator, "127"},
      {kGeneral, "Single Quantity", "0"},
      {kGeneral, "File Parser", "0"},
  };
}

std::vector<ProfileValue> OptionalSettings() {
  return {{kSafety, kAskInDoubt, {}}, {kHost, kOutcomes, {}}, {kHost, kTrace, {}}};
}

SettingsFile::SettingsFile(ProfileFile& profile, Files& files, Logs& logs, ProgramPaths paths)
    : profile_(profile), files_(files), logs_(logs), paths_(std::move(paths)) {}

void SettingsFile::WriteDefaultIni() { WriteWhole(paths_.Ini(), DefaultSettings(paths_.AppPath)); }

void SettingsFile::WriteWhole(const std::string& path, const std::vector<ProfileValue>& values) {
  IniText text;
  for (const ProfileValue& value : values) text.Set(value.section, value.key, value.text);
  files_.Write(path, text.Bytes());
}

bool SettingsFile::UpgradeIni(AppSettings& settings, const std::function<void()>& stepDone) {
  const std::vector<UpgradeStep> steps = UpgradeSteps(paths_.AppPath);
  bool done = false;
  while (!done) {
    const std::string version = ReadProfileValue(*profile_.Load(paths_.Ini()), kVersion, "Version");
    if (version == kIniVersion) break;
    const auto step =
        std::find_if(steps.begin(), steps.end(), [&](const auto& s) { return version == s.from; });
    if (step == steps.end()) {
      logs_.WrErr(LoadMessage(MessageId::kWrongIniVersion));
      logs_.WrErr(LoadMessage(MessageId::kProgramEnded));
      return false;
    }
    done = !logs_.Attempt("UpgradeIni - ", [&] {
      for (const UpgradeKey& key : step->keys) profile_.Write(paths_.Ini(), key.section, key.key, key.value);
      profile_.Write(paths_.Ini(), kVersion, "Version", step->to);
    });
    if (!done) stepDone();
  }
  settings.IniUpgradeDone = true;
  return true;
}

void SettingsFile::ReadIni(AppSettings& settings) {
  const auto content = profile_.Load(paths_.Ini());
  ReadFolders(*content, settings);
  settings.CommandFilePath = paths_.AppPath + "\\command.txt";
  settings.EvidencePath = paths_.AppPath + "\\" + kEvidenceName;
  settings.LogPath = paths_.AppPath + "\\Log.txt";
  settings.ErrPath = paths_.AppPath + "\\Err.txt";
  ReadComSettings(*content, settings);
  ReadGeneral(*content, settings);
  ReadOptional(*content, settings);
}

void SettingsFile::ReadFolders(const ProfileContent& content, AppSettings& settings) const {
  settings.TicketFilesSpec =
      SettingsPath(ReadProfileValue(content, kDatabase, "TicketFiles", paths_.AppPath + "\\data\\*.txt"));
  // The default on reading deliberately differs from the written one ("\storico\").
  std::string& historic = settings.HistoricFolder;
  historic = SettingsPath(
      ReadProfileValue(content, kDatabase, "HistoricTickets", paths_.AppPath + "\\data\\inproces\\"));
  if (!historic.empty() && historic.back() != '\\') historic += '\\';
  const std::size_t maskStart = settings.TicketFilesSpec.rfind('\\') + 1;  // 0 when there is no "\"
  settings.TicketFolder = settings.TicketFilesSpec.substr(0, maskStart);
  settings.TicketMask = settings.TicketFilesSpec.substr(maskStart);
  settings.InProcessFolder = settings.TicketFolder + "inproces\\";
  settings.AbortFolder = settings.TicketFolder + "abort\\";
}

void SettingsFile::ReadComSettings(const ProfileContent& content, AppSettings& settings) {
  settings.ComPortNumber = Integer(content, kComPort);
  if (settings.ComPortNumber < 1 || settings.ComPortNumber > kPorts) {
    settings.ComPortNumber = 1;
    Repair(kComSettings, kComPort, "1");
    logs_.WrErr(LoadMessage(MessageId::kWrongPort));
  }
  settings.ComSettings = ReadProfileValue(content, kComSettings, kLineSettings);
  settings.FrameRetry = Integer(content, "FrameRetry");
  settings.TimeWaitForAck = Integer(content, "TimeWaitForAck");
  settings.TimeWaitForEtx = Integer(content, "TimeWaitForEtx");
  settings.TxMessageRetry = Integer(content, "TxMessageRetry");
  const std::string ident = ReadProfileValue(content, kComSettings, "Ident", "V");
  settings.Ident = Trim(ident).empty() ? 'V' : FirstInWindows1252(Trim(ident));
  settings.TimeWaitForLONGEtx = Integer(content, "TimeWaitForLONGEtx");
}

void SettingsFile::ReadGeneral(const ProfileContent& content, AppSettings& settings) {
  settings.PcTimeCorrection = LeadingNumber(ReadProfileValue(content, kGeneral, "Pc Time Correction"));
  settings.TimeShift = LeadingNumber(ReadProfileValue(content, kGeneral, "Time Shift"));
  int separator = LeadingInteger(ReadProfileValue(content, kGeneral, kSeparator, "127"));
  if (separator < 0 || separator > 127) {
    separator = 127;
    Repair(kGeneral, kSeparator, "127");
  }
  settings.SeparatorChar = static_cast<char>(separator);
  settings.SingleQuantity = IsOn(ReadProfileValue(content, kGeneral, "Single Quantity"));
  settings.FileParser = IsOn(ReadProfileValue(content, kGeneral, "File Parser"));
}

void SettingsFile::ReadOptional(const ProfileContent& content, AppSettings& settings) {
  const std::string ask(Trim(ReadProfileValue(content, kSafety, kAskInDoubt)));
  settings.AskInDoubt = IsOn(ask);
  if (!ask.empty() && ask != "0" && ask != "1") {
    logs_.WrErr(std::string(own_text::kValueIgnored) + " [" + kSafety + "] " + kAskInDoubt + "=" + ask);
  }
  std::string& outcomes = settings.OutcomesFolder;
  outcomes = SettingsPath(std::string(Trim(ReadProfileValue(content, kHost, kOutcomes))));
  if (!outcomes.empty() && outcomes.back() != '\\') outcomes += '\\';
}

void SettingsFile::WriteDefaultErrDesc() {
  using enum MessageId;
  std::vector<ProfileValue> texts;
  for (const MessageId id : {kJournalPaperOutWarning, kReceiptPaperOutWarning, kReplacePaper, kOkButton,
                             kVoidingReceipt, kJournalPaperOut, kReceiptPaperOut}) {
    texts.push_back({"Error Description", std::to_string(NumberOf(id)), LoadMessage(id)});
  }
  WriteWhole(paths_.ErrDesc(), texts);
}

void SettingsFile::Repair(const char* section, const char* key, const char* value) {
  logs_.Attempt("ReadIni - ", [&] { profile_.Write(paths_.Ini(), section, key, value); });
}

}  // namespace orvenza
