#include "lab/rehearsal/rehearsal.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <set>
#include <utility>

#include "app/connector.h"
#include "app/trace/dialog_text.h"
#include "app/trace/disk_watch.h"
#include "app/trace/event_words.h"
#include "app/trace/tracing.h"
#include "app/trace/transcript_text.h"
#include "core/event_loop.h"
#include "core/logs.h"
#include "lab/rehearsal/bounded_pump.h"
#include "lab/rehearsal/event_text.h"
#include "lab/rehearsal/expectations.h"
#include "lab/rehearsal/first_files.h"
#include "lab/rehearsal/power_watch.h"
#include "platform/ini_profile_file.h"
#include "platform/program_end.h"
#include "platform/system_error.h"
#include "simulator/paper_roll.h"
#include "simulator/scripted_operator.h"
#include "simulator/simulated_link.h"
#include "simulator/virtual_clock.h"
#include "simulator/virtual_disk.h"

namespace orvenza {
namespace {

using std::chrono::milliseconds;

const std::string kFolder = kRehearsalFolder;
const ProgramPaths kPaths{kFolder, "Orvenza"};
const std::string kCommandFile = kFolder + "\\command.txt";
constexpr const char* kQuit = "QUIT\r\n";

std::string TimeText(milliseconds time) { return std::to_string(time.count()) + " ms"; }

/// Events that need a running connector: at time zero they happen in its first wait, not before its start.
bool NeedsConnector(const ScenarioEvent& event) {
  return event.kind == EventKind::kMenu || event.kind == EventKind::kQuit ||
         event.kind == EventKind::kSessionEnds || event.kind == EventKind::kPowerFails ||
         event.kind == EventKind::kStartAgain;
}

/// Whether an event creates or removes something on the disk, as opposed to restricting its use.
bool ComesOrGoes(const ScenarioEvent& event) {
  return event.kind == EventKind::kPut || event.kind == EventKind::kMakeFolder ||
         event.kind == EventKind::kDelete;
}

/// The connector and its environment. The members are in order of dependence.
class Stage {
 public:
  Stage(const Scenario& scenario, Transcript::Sink sink)
      : scenario_(scenario),
        clock_(scenario.start),
        transcript_(clock_, std::move(sink)),
        disk_(clock_, kFolder),
        profile_(disk_.FileSeam()),
        pump_(clock_, scenario.limit),
        loop_(std::in_place, clock_, pump_),
        person_(*loop_),
        icon_(transcript_),
        device_(clock_, WatchedPaper(), scenario.device.profile),
        link_(device_, clock_, scenario.device),
        watch_(transcript_, kFolder),
        power_(scenario.powerCuts, [this] { transcript_.Add("world", "the power fails"); }) {
    SetUpFiles();
    SetUpEvents();
    for (const ScenarioAnswer& answer : scenario.answers) person_.Answer(answer.text, answer.reaction);
    person_.SetJudgement(scenario.judgement);
    SetUpObservers();
  }

  RehearsalOutcome Play();

 private:
  void SetUpFiles();
  void SetUpEvents();
  void SetUpObservers();
  PaperRoll& WatchedPaper();
  void RunConnector();
  bool AwaitNextStart();
  void RunOnce();
  void UseMenu(MenuItem item);
  void AskToQuit();
  bool TicketsWait();
  void OnTick();
  void Do(const ScenarioEvent& event);
  void DoToDisk(const ScenarioEvent& event);
  void OnLine(LineEvent event, const std::string& text);
  void BreakOff(const std::string& why);
  void TakeStock();
  void MissFaults();
  void Miss(std::string what) { outcome_.problems.push_back(std::move(what)); }

  const Scenario& scenario_;
  RehearsalOutcome outcome_;
  std::set<const ScenarioEvent*> due_;  ///< Events that are still to come.
  VirtualClock clock_;
  Transcript transcript_;
  VirtualDisk disk_;
  IniProfileFile profile_;
  BoundedPump pump_;
  std::optional<EventLoop> loop_;  ///< Recreated for each start of the connector.
  ScriptedOperator person_;
  RecordedIcon icon_;
  PaperRoll paper_;
  SimulatedRegister device_;
  SimulatedLink link_;
  DiskWatch watch_;
  PowerWatch power_;
  std::optional<Tracing> tracing_;  ///< Recreated like `loop_`.
  Connector* connector_ = nullptr;  ///< Null while none runs.
  bool startAgain_ = false;
  int status_ = exit_status::kInOrder;  ///< Exit code of the last start.
};

void Stage::SetUpFiles() {
  disk_.MakeFolder(kFolder);
  if (scenario_.settingsFile) {
    disk_.Put(kPaths.Ini(), FilesOfAFirstStart().settings);
    disk_.Put(kPaths.ErrDesc(), FilesOfAFirstStart().errDesc);
    disk_.MakeFolder(kFolder + "\\data\\inproces");
    disk_.MakeFolder(kFolder + "\\data\\abort");
  }
  const auto prepare = [this](bool comesOrGoes) {
    for (const ScenarioEvent& event : scenario_.events) {
      if (event.at.count() == 0 && !NeedsConnector(event) && ComesOrGoes(event) == comesOrGoes)
        DoToDisk(event);
    }
  };
  prepare(true);
  for (const ScenarioSetting& setting : scenario_.settings) {
    if (!disk_.FileSeam().Exists(kPaths.Ini())) {
      Miss("cannot be set, for Orvenza.ini was removed: [" + setting.section + "] " + setting.key);
      continue;
    }
    profile_.Write(kPaths.Ini(), setting.section, setting.key, setting.value);
  }
  prepare(false);  // Only now the settings file may be held or read-only.
}

void Stage::SetUpEvents() {
  for (const ScenarioEvent& event : scenario_.events) {
    if (event.at.count() == 0 && !NeedsConnector(event)) continue;
    due_.insert(&event);
    clock_.After(event.at, [this, &event] { Do(event); });
  }
}

void Stage::SetUpObservers() {
  link_.SetObserver([this](LineEvent event, const std::string& text) { OnLine(event, text); });
  person_.SetObserver([this](const ShownDialog& dialog, std::string_view answer) {
    if (scenario_.onDialog) scenario_.onDialog(dialog, answer);
    if (!scenario_.transcript) return;
    transcript_.Add(answer.empty() ? "dialog" : "answer",
                    answer.empty() ? DialogText(dialog) : std::string(answer));
  });
  if (!scenario_.transcript && scenario_.powerCuts.empty()) return;
  disk_.SetObserver([this](const DiskEvent& event) {
    if (tracing_ && tracing_->Owns(event.path)) return;
    if (scenario_.transcript) watch_.OnDisk(event);
    power_.Changed();
  });
  clock_.SetObserver([this](const LocalTime& time) { RecordClock(transcript_, clock_.Stamp(time)); });
}

PaperRoll& Stage::WatchedPaper() {
  paper_.SetSink([this](const std::string& line) {
    outcome_.paper.push_back(line);
    if (scenario_.onPaper) scenario_.onPaper(line);
    if (scenario_.transcript) transcript_.Add("paper", "|" + Printable(line));
  });
  return paper_;
}

void Stage::OnLine(LineEvent event, const std::string& text) {
  if (event == LineEvent::kSent) {
    power_.Sending(text);
    outcome_.sent.push_back(text);
    outcome_.lastSent = std::chrono::floor<milliseconds>(clock_.Uptime());
  }
  if (scenario_.transcript) {
    RecordLine(transcript_, event, text,
               [this](LinkProperty which) { return link_.Property(which).value_or(0); });
  }
  if (event == LineEvent::kReceived) power_.Replied();
}

/// Carries out an event when its time comes. That is inside a wait, so no failure may reach the connector's
/// traps.
void Stage::Do(const ScenarioEvent& event) {
  due_.erase(&event);
  if (event.kind == EventKind::kStartAgain) return void(startAgain_ = true);
  if (connector_ == nullptr && NeedsConnector(event) && event.kind != EventKind::kQuit)
    return Miss("no connector runs at " + TimeText(event.at) + ": " + EventText(event));
  transcript_.Add(EventKindText(event), EventText(event));
  if (event.kind == EventKind::kMenu) return UseMenu(event.item);
  if (event.kind == EventKind::kSessionEnds) return loop_->RequestEnd({.unload = true});
  if (event.kind == EventKind::kPowerFails) throw PowerFailure{};
  DoToDisk(event);
}

void Stage::DoToDisk(const ScenarioEvent& event) {
  try {
    switch (event.kind) {
      case EventKind::kPut: disk_.Put(event.path, event.content, event.modified); break;
      case EventKind::kMakeFolder: disk_.MakeFolder(event.path); break;
      case EventKind::kDelete: disk_.Delete(event.path); break;
      case EventKind::kReadOnly: disk_.SetReadOnly(event.path); break;
      case EventKind::kHold: disk_.Hold(event.path, event.hold); break;
      case EventKind::kDriveAway: disk_.SetAway(event.path, true); break;
      case EventKind::kDriveBack: disk_.SetAway(event.path, false); break;
      case EventKind::kDiskFull: disk_.SetFull(event.path, true); break;
      case EventKind::kDiskFree: disk_.SetFull(event.path, false); break;
      case EventKind::kRefuseClock: clock_.RefuseSetTime(true); break;
      case EventKind::kQuit: disk_.Put(kCommandFile, kQuit); break;
      case EventKind::kMenu:
      case EventKind::kSessionEnds:
      case EventKind::kPowerFails:
      case EventKind::kStartAgain: break;
    }
  } catch (const SystemError& failure) {
    Miss("cannot be done at " + TimeText(event.at) + ": " + EventText(event) + ": " + failure.Description());
  }
}

RehearsalOutcome Stage::Play() {
  transcript_.Add("start", clock_.Stamp(scenario_.start));
  try {
    RunConnector();
    transcript_.Add("end", status_ == exit_status::kInOrder ? "" : "status " + std::to_string(status_));
    outcome_.ended = true;
  } catch (const UnansweredDialog& unanswered) {
    BreakOff("no answer is left for the dialog " + DialogText(unanswered.dialog));
  } catch (const BadAnswer& bad) {
    BreakOff("the answer \"" + bad.answer + "\" does not fit the dialog " + DialogText(bad.dialog));
  } catch (const RunTooLong&) {
    BreakOff("the connector has not ended after " + TimeText(scenario_.limit) +
             ": nothing stops it, or it waits for ever");
  } catch (const std::exception& failure) {
    BreakOff(std::string("the rehearsal cannot go on: ") + failure.what());
  }
  transcript_.Close();
  TakeStock();
  return std::move(outcome_);
}

void Stage::RunConnector() {
  RunOnce();
  while (AwaitNextStart()) {
    link_.SetPortOpen(false);
    person_.DropAnswerAfter(ScenarioAnswer::kNever);
    transcript_.Add("start", "again");
    RunOnce();
  }
}

/// Waits until the connector is started again; false if it is not.
bool Stage::AwaitNextStart() {
  if (scenario_.untilPrinted && TicketsWait()) return true;
  const auto isStart = [](const ScenarioEvent* event) { return event->kind == EventKind::kStartAgain; };
  while (!startAgain_ && std::any_of(due_.begin(), due_.end(), isStart)) pump_.WaitForEvent(scenario_.limit);
  return std::exchange(startAgain_, false);
}

void Stage::RunOnce() {
  tracing_.emplace(disk_.FileSeam(), disk_.FileSeam(), clock_, kPaths, !scenario_.secondInstance);
  Tracing& tracing = *tracing_;
  loop_.emplace(clock_, tracing.WrapEventPump(pump_));
  IniProfileFile profile(tracing.WrapFiles(disk_.FileSeam()));
  Connector connector({tracing.WrapFiles(disk_.FileSeam()), tracing.WrapFolders(disk_.FolderSeam()), profile,
                       tracing.WrapClock(clock_), *loop_, tracing.WrapOperator(person_),
                       tracing.WrapNotificationIcon(icon_), tracing.WrapEcrLink(link_)},
                      kPaths);
  connector_ = &connector;
  watch_.SetSettings(connector.Settings());
  tracing_->Watch(connector.Settings(), *loop_);
  connector.SetTickObserver([this] { OnTick(); });
  person_.SetMenuHandler([this](MenuItem item) { UseMenu(item); });
  try {
    status_ = connector.Run(scenario_.secondInstance);
    tracing_->End(status_);
  } catch (const PowerFailure&) {
    // Only the disk's content survives.
  }
  connector_ = nullptr;
}

void Stage::UseMenu(MenuItem item) {
  tracing_->OnMenu(item, [this, item] { connector_->OnMenu(item); });
}

void Stage::OnTick() {
  if (scenario_.untilPrinted && !TicketsWait()) AskToQuit();
  transcript_.Tick();
  tracing_->OnTick();
}

void Stage::AskToQuit() {
  ScenarioEvent quit;
  quit.kind = EventKind::kQuit;
  try {
    disk_.Put(kCommandFile, kQuit);
    transcript_.Add(EventKindText(quit), EventText(quit));
  } catch (const SystemError&) {
    // The file is held; the host tries again at the next tick.
  }
}

/// Checks the folders of a first start. Tickets on a drive that is away count as waiting.
bool Stage::TicketsWait() {
  const Folders& folders = disk_.FolderSeam();
  if (!folders.DriveAvailable(kFolder)) return true;
  const auto holdTickets = [&](const char* folder) {
    return folders.Exists(kFolder + folder) && !folders.ListFolder(kFolder + folder + "\\*.txt").empty();
  };
  return holdTickets("\\data") || holdTickets("\\data\\inproces");
}

void Stage::BreakOff(const std::string& why) {
  transcript_.Add("broken", Printable(why));
  Miss(why);
}

void Stage::TakeStock() {
  const std::size_t given = scenario_.answers.size() - person_.AnswersLeft();
  for (std::size_t i = given; outcome_.ended && i < scenario_.answers.size(); ++i) {
    if (scenario_.answers[i].reaction >= ScenarioAnswer::kNever) continue;
    Miss("the answer \"" + scenario_.answers[i].text + "\" was never asked for");
  }
  for (const ScenarioEvent& event : scenario_.events) {
    if (!outcome_.ended || !due_.contains(&event)) continue;
    Miss("the connector has ended before " + TimeText(event.at) + ": " + EventText(event));
  }
  if (outcome_.ended) MissFaults();
  if (scenario_.transcript) outcome_.events = transcript_.Events();
  outcome_.receipts = device_.Receipts();
  outcome_.receiptOpen = device_.ReceiptOpen();
  for (const std::string& path : disk_.Paths()) outcome_.files[path] = disk_.Content(path).value_or("");
  for (std::string& problem : Unfulfilled(scenario_.expectations, outcome_)) Miss(std::move(problem));
}

/// Reports faults and cuts of the power that never struck.
void Stage::MissFaults() {
  for (const std::string& point : power_.Missed()) Miss("the power never failed " + point);
  for (const Fault& fault : scenario_.device.faults) {
    if (fault.prefix.empty()) continue;
    const auto sent = static_cast<std::size_t>(
        std::count_if(outcome_.sent.begin(), outcome_.sent.end(),
                      [&](const std::string& command) { return command.starts_with(fault.prefix); }));
    if (sent >= fault.first) continue;
    Miss("the fault on " + fault.prefix + " #" + std::to_string(fault.first) +
         " never struck: the command was sent " + std::to_string(sent) + " times");
  }
}

}  // namespace

RehearsalOutcome Rehearse(const Scenario& scenario, Transcript::Sink sink) {
  return Stage(scenario, std::move(sink)).Play();
}

}  // namespace orvenza
