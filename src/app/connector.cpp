#include "app/connector.h"

#include <set>
#include <utility>

#include "core/catalogue.h"
#include "core/create_all_dirs.h"
#include "core/own_texts.h"
#include "core/text.h"
#include "core/version.h"
#include "platform/system_error.h"
#include "tickets/historic_rotation.h"
#include "ui/end_confirmation.h"
#include "ui/open_mark.h"
#include "ui/path_reports.h"

namespace orvenza {
namespace {

using namespace std::chrono_literals;

constexpr const char* kMainLabel = "Main - ";
constexpr const char* kLoadLabel = "Main_Load - ";
constexpr int kSettingsRetries = 10;
constexpr auto kSettingsPause = 500ms;
constexpr int kRenameRetries = 5;
constexpr auto kIdleWait = 1s;

}  // namespace

Connector::Connector(const Surroundings& around, const ProgramPaths& paths)
    : files_(around.files),
      folders_(around.folders),
      clock_(around.clock),
      loop_(around.loop),
      person_(around.person),
      icon_(around.icon),
      paths_(paths),
      logs_(files_, clock_, settings_, paths.AppPath),
      settingsFile_(around.profile, files_, logs_, paths),
      timer1_(clock_),
      messages_(person_, paths.ExecutableName),
      orvConf_(person_, settings_, around.profile, paths),
      errorTexts_(around.profile, paths.ErrDesc()),
      linkDialogs_(messages_, orvConf_, logs_),
      link_(around.control, settings_, logs_, linkDialogs_, loop_, clock_),
      clockCorrection_(clock_, settings_, logs_),
      cash_(link_, settings_, logs_, messages_, linkDialogs_, loop_, clockCorrection_),
      recovery_(errorTexts_, settings_, cash_, person_, logs_, paths.ExecutableName),
      queries_(link_, cash_, recovery_, linkDialogs_, logs_, loop_, timer1_),
      logo_(link_, settings_, recovery_, files_, logs_, messages_),
      translator_(queries_.Identity(), settings_, files_, logs_),
      evidence_(files_, logs_, paths_.AppPath),
      outcomes_(files_, folders_, logs_, evidence_),
      remembered_(files_, logs_, paths_.AppPath),
      archive_(files_, folders_, settings_, logs_, messages_, remembered_, witnesses_),
      splitter_(files_, settings_, logs_, archive_, witnesses_),
      sender_(link_, settings_, cash_, recovery_, logo_, translator_, logs_, witnesses_),
      processor_(files_, settings_, logs_, loop_, cash_, recovery_, sender_, archive_, evidence_, witnesses_),
      tickFailures_(logs_),
      commandFile_(files_, settings_, logs_, loop_, link_),
      ticketFolders_(files_, folders_, settings_, logs_, loop_, archive_, remembered_),
      queue_(files_, settings_, logs_, tickFailures_, commandFile_, ticketFolders_, splitter_, processor_,
             archive_),
      clockCheck_(settings_, queries_, clockCorrection_),
      polling_(timer1_, tickFailures_, commandFile_, ticketFolders_, queue_, clockCheck_),
      closureRequests_(files_, folders_, settings_, logs_, remembered_),
      orvUti_(person_, messages_, logs_, closureRequests_) {}

int Connector::Run(bool anotherInstanceRuns) {
  try {
    Main(anotherInstanceRuns);
  } catch (const ProgramEnd& end) {
    Unload(end);
    return end.status;
  }
}

void Connector::Main(bool anotherInstanceRuns) {
  if (anotherInstanceRuns) {
    const auto tell = [&] {
      messages_.ShowOperatorMessage(LoadMessage(MessageId::kAlreadyRunning), {MessageIcon::kStop}, {});
    };
    const auto log = [&] { logs_.WrErr(LoadMessage(MessageId::kAlreadyRunning)); };
    RefuseStart(exit_status::kServedAlready, tell, log);
  }
  PrepareSettings();
  CheckOutcomesFolder();
  RemoveUnfinished();
  RecallEvidence();
  errorTexts_.LoadEcrErrorTable();
  logs_.WrLog(LoadMessage(MessageId::kProgramStart) + " Rel. " + kVersionText);
  LoadMainForm();
  RunMainLoop();
}

/// Informs the operator, logs and ends, even if the end is requested while the operator reads.
void Connector::RefuseStart(int status, const std::function<void()>& tell, const std::function<void()>& log) {
  try {
    tell();
  } catch (const ProgramEnd&) {
    // The program ends anyway.
  }
  if (log) log();
  throw ProgramEnd{.unload = false, .status = status};
}

void Connector::PrepareSettings() {
  if (!ReadSettings([&] { return files_.Exists(paths_.Ini()); })) {
    settings_.IniCreated = true;
    logs_.Attempt(kMainLabel, [&] { settingsFile_.WriteDefaultIni(); });
    logs_.WrLog(LoadMessage(MessageId::kDefaultIni));
  }
  settings_.IniUpgradeDone = false;
  const auto stepDone = [&] {
    messages_.ShowOperatorMessage(LoadMessage(MessageId::kIniUpgraded), {MessageIcon::kInformation}, {});
  };
  if (!ReadSettings([&] { return settingsFile_.UpgradeIni(settings_, stepDone); })) {
    RefuseStart(exit_status::kSettings, [&] {
      messages_.ShowOperatorMessage(LoadMessage(MessageId::kWrongIniVersion) + std::string(kLineBreak) +
                                        LoadMessage(MessageId::kProgramEnded),
                                    {MessageIcon::kStop}, {});
    });
  }
  ReadSettings([&] {
    settingsFile_.ReadIni(settings_);
    return true;
  });
  logs_.Attempt(kMainLabel, [&] {
    if (!files_.Exists(paths_.ErrDesc())) settingsFile_.WriteDefaultErrDesc();
  });
}

/// With defaults in place of unreadable settings, receipts would be printed wrong and printed tickets thrown
/// away. So reading is retried for a few seconds, and then the start is refused.
bool Connector::ReadSettings(const std::function<bool()>& read) {
  for (int retry = 0; retry < kSettingsRetries; ++retry) {
    try {
      return read();
    } catch (const SystemError&) {
      loop_.Pause(kSettingsPause);
    }
  }
  if (const auto answer = logs_.Attempt(kMainLabel, read)) return *answer;
  RefuseStart(exit_status::kSettings, [&] { ReportUnreadableSettings(messages_, logs_, paths_.Ini()); });
}

/// In a folder that is searched for tickets, outcomes would be printed.
void Connector::CheckOutcomesFolder() {
  std::string& folder = settings_.OutcomesFolder;
  if (folder.empty() || !OutcomesFolderIsRefused(settings_, paths_.AppPath)) return;
  logs_.WrErr(std::string(own_text::kOutcomesOff) + " " + folder);
  folder.clear();
}

/// Safe here: this instance has acquired the lock, so no other one writes there.
void Connector::RemoveUnfinished() {
  for (const std::string& folder :
       {paths_.AppPath + "\\", settings_.TicketFolder, settings_.InProcessFolder, settings_.AbortFolder,
        settings_.HistoricFolder, settings_.OutcomesFolder}) {
    if (!folder.empty()) folders_.RemoveUnfinished(folder);
  }
}

/// Nobody keeps the evidence up to date unless the settings ask for it; an old one would be wrong one day.
void Connector::RecallEvidence() {
  if (!settings_.AskInDoubt && settings_.OutcomesFolder.empty()) return evidence_.Discard();
  const auto leftovers = logs_.Attempt(kMainLabel, [&] {
    std::set<std::string> names;
    if (!folders_.Exists(settings_.InProcessFolder)) return names;
    for (const FolderEntry& entry : folders_.ListFolder(settings_.InProcessFolder + "*"))
      names.insert(entry.name);
    return names;
  });
  if (!settings_.OutcomesFolder.empty()) {
    outcomes_.Open(settings_.OutcomesFolder, leftovers.value_or(std::set<std::string>{}));
    witnesses_.Add(outcomes_);
  }
  witnesses_.Add(evidence_);
  const auto gone = evidence_.Recall(leftovers);
  if (gone && !settings_.OutcomesFolder.empty()) outcomes_.Finish(*gone);
  cash_.ReceiptIsOurs = evidence_.ReceiptMayBeOurs();
}

void Connector::LoadMainForm() {
  mainFormLoaded_ = true;
  const auto step = [&](const std::function<void()>& run) { logs_.Attempt(kLoadLabel, run); };
  if (settings_.IniCreated) step([&] { orvConf_.Show(); });
  step([&] { RotateHistoric(); });
  step([&] { link_.OpenDeviceLink(settings_.TimeWaitForEtx); });
  step([&] { RequireTicketFolder(); });
  step([&] { MakeWorkFolder(settings_.InProcessFolder); });
  step([&] { MakeWorkFolder(settings_.AbortFolder); });
  step([&] {
    iconShown_ = true;
    icon_.CreateIcon(paths_.ExecutableName + " - " + kVersionText);
  });
  step([&] { IdentifyRegister(); });
  timer1_.SetEnabled(true);
}

void Connector::RotateHistoric() {
  // A missing setting defaults to the in-process folder.
  const std::string& historic = settings_.HistoricFolder;
  if (HistoricHoldsTickets(settings_, paths_.AppPath)) {
    logs_.WrErr(std::string(own_text::kHistoricOff) + " " + historic);
    settings_.HistoricFolder.clear();
  }
  for (int retry = 0;; ++retry) {
    try {
      RotateHistoricFolder(folders_, clock_, logs_, settings_);
      return;
    } catch (const SystemError& failure) {
      if (failure.Number() != error_number::kPathFileAccess || retry == kRenameRetries) throw;
      logs_.WrErr(kMainLabel + LoadMessage(MessageId::kRenamingHistoricFolder) + " " +
                  settings_.HistoricFolder);
      loop_.Pause(1000ms);
    }
  }
}

void Connector::RequireTicketFolder() {
  const std::string& folder = settings_.TicketFolder;
  if (CreateAllDirs(folders_, logs_, folder)) return;
  RefuseStart(
      exit_status::kFolderNotMade, [&] { ReportWrongPath(messages_, logs_, folder); },
      [&] { logs_.WrLog(LoadMessage(MessageId::kProgramEnd)); });
}

void Connector::MakeWorkFolder(const std::string& folder) {
  if (!folders_.Exists(folder)) folders_.Create(folder);
}

void Connector::IdentifyRegister() {
  if (!queries_.StatusQuery(Asking::kAttended) || !queries_.IdentityQuery(Asking::kAttended))
    throw ProgramEnd{.unload = true};
}

void Connector::RunMainLoop() {
  for (;;) {
    loop_.Wait(timer1_.Enabled() ? timer1_.TimeLeft() : kIdleWait);
    logs_.Attempt(kMainLabel, [&] { link_.ApplyChangedSettings(); });
    if (!timer1_.Enabled() || timer1_.TimeLeft() > 0s) continue;
    if (tickObserver_) tickObserver_();
    outcomes_.SaveLate();
    polling_.Tick();
  }
}

void Connector::Unload(const ProgramEnd& end) {
  if (iconShown_) icon_.DeleteIcon();
  iconShown_ = false;
  if (end.unload && mainFormLoaded_) logs_.WrLog(LoadMessage(MessageId::kProgramEnd));
}

void Connector::OnMenu(MenuItem item) {
  if (!iconShown_) return;  // the menu belongs to the icon
  // A failure in a menu's dialog must not break off the interrupted wait.
  logs_.Attempt(kMainLabel, [&] {
    switch (item) {
      case MenuItem::kExit: Pm1(); break;
      case MenuItem::kUtilities: Pm2(); break;
      case MenuItem::kInfo: break;  // deliberately without effect
      case MenuItem::kConfigure: Pm4(); break;
    }
  });
}

/// The question whether to end is an ordinary message dialog.
void Connector::CloseMessage() {
  person_.CloseMessage();
  exitAsked_ = false;
}

void Connector::Pm1() {
  if (exitAsked_) return;  // Closing and asking again would nest the questions without limit.
  CloseMessage();
  const OpenMark mark(exitAsked_);
  const PollingPause pause(timer1_);
  if (!ConfirmEnd(messages_, MessageIcon::kExclamation)) return;
  logs_.WrLog(LoadMessage(MessageId::kEndedByOperator));
  loop_.RequestEnd({.unload = true});
}

void Connector::Pm2() {
  CloseMessage();
  const PollingPause pause(timer1_);
  orvUti_.Show();
}

void Connector::Pm4() {
  CloseMessage();
  const PollingPause pause(timer1_);
  orvConf_.Show();
  link_.ReapplySettings();
}

}  // namespace orvenza
