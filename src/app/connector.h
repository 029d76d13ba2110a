#pragma once

#include <functional>
#include <string>
#include <utility>

#include "core/event_loop.h"
#include "core/logs.h"
#include "core/poll_timer.h"
#include "core/repeated_failures.h"
#include "core/settings.h"
#include "device/cash_dialogues.h"
#include "device/clock_correction.h"
#include "device/device_link.h"
#include "device/error_recovery.h"
#include "device/error_texts.h"
#include "device/link_dialogs.h"
#include "device/logo_download.h"
#include "device/register_queries.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "tickets/clock_check.h"
#include "tickets/closure_requests.h"
#include "tickets/command_file.h"
#include "tickets/evidence.h"
#include "tickets/line_sender.h"
#include "tickets/outcomes.h"
#include "tickets/remembered_tickets.h"
#include "tickets/ticket_archive.h"
#include "tickets/ticket_folders.h"
#include "tickets/ticket_polling.h"
#include "tickets/ticket_processor.h"
#include "tickets/ticket_queue.h"
#include "tickets/ticket_splitter.h"
#include "tickets/ticket_witness.h"
#include "tickets/translation.h"
#include "ui/menu.h"
#include "ui/notification_icon.h"
#include "ui/operator.h"
#include "ui/port_dialog.h"
#include "ui/utilities_dialog.h"

namespace orvenza {

/// The connector's environment. Everything here outlives the connector.
struct Surroundings {
  Files& files;
  Folders& folders;
  ProfileFile& profile;
  Clock& clock;
  EventLoop& loop;
  Operator& person;
  NotificationIcon& icon;
  EcrLink& control;
};

/// The connector from start to stop: the entry procedure and the main form `Orv_Main`.
class Connector {
 public:
  Connector(const Surroundings& surroundings, const ProgramPaths& paths);

  /// Starts the connector, prints tickets until the program is to end, and shuts down. `anotherInstanceRuns`
  /// refuses the start. Returns the exit code.
  int Run(bool anotherInstanceRuns);

  /// Handles an item chosen from the icon's menu. Called as an event, during any wait; without effect while
  /// there is no icon. A failure goes to the error log and the wait goes on. ProgramEnd passes through.
  void OnMenu(MenuItem item);

  const AppSettings& Settings() const { return settings_; }

  /// Called at the start of each tick.
  void SetTickObserver(std::function<void()> observer) { tickObserver_ = std::move(observer); }

 private:
  [[noreturn]] void Main(bool anotherInstanceRuns);
  [[noreturn]] void RefuseStart(int status, const std::function<void()>& tell,
                                const std::function<void()>& log = {});
  void PrepareSettings();
  bool ReadSettings(const std::function<bool()>& read);
  void CheckOutcomesFolder();
  void RemoveUnfinished();
  void RecallEvidence();
  void LoadMainForm();
  void RotateHistoric();
  void RequireTicketFolder();
  void MakeWorkFolder(const std::string& folder);
  void IdentifyRegister();
  [[noreturn]] void RunMainLoop();
  void Unload(const ProgramEnd& end);

  void CloseMessage();
  void Pm1();
  void Pm2();
  void Pm4();

  Files& files_;
  Folders& folders_;
  Clock& clock_;
  EventLoop& loop_;
  Operator& person_;
  NotificationIcon& icon_;
  ProgramPaths paths_;

  AppSettings settings_;
  Logs logs_;
  SettingsFile settingsFile_;
  PollTimer timer1_;
  OperatorMessages messages_;
  PortDialog orvConf_;

  ErrorTexts errorTexts_;
  LinkDialogs linkDialogs_;
  DeviceLink link_;
  ClockCorrection clockCorrection_;
  CashDialogues cash_;
  ErrorRecovery recovery_;
  RegisterQueries queries_;
  LogoDownload logo_;

  RecordTranslator translator_;
  Evidence evidence_;
  Outcomes outcomes_;
  TicketWitnesses witnesses_;
  RememberedTickets remembered_;
  TicketArchive archive_;
  TicketSplitter splitter_;
  LineSender sender_;
  TicketProcessor processor_;
  RepeatedFailures tickFailures_;
  CommandFile commandFile_;
  TicketFolders ticketFolders_;
  TicketQueue queue_;
  ClockCheck clockCheck_;
  TicketPolling polling_;
  ClosureRequests closureRequests_;
  UtilitiesDialog orvUti_;

  std::function<void()> tickObserver_;
  bool mainFormLoaded_ = false;
  bool iconShown_ = false;
  bool exitAsked_ = false;  // the question whether to end is on the screen
};

}  // namespace orvenza
