#include "attack/attacked_shop.h"

#include <algorithm>
#include <utility>

#include "core/catalogue.h"
#include "core/logs.h"
#include "core/own_texts.h"
#include "core/settings.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;

const std::string kFolder = "C:\\Orvenza";
const std::string kIni = kFolder + "\\Orvenza.ini";
const std::string kData = kFolder + "\\data\\";
const std::string kInProcess = kData + "inproces\\";
const std::string kHeldTicket = "0005.txt";
const std::string kClosureTicket = "0009.txt";

FaultScript InNoTime() {
  FaultScript script;
  script.speed = 0;
  return script;
}

/// A ticket line with the separator of a new installation.
std::string Line(std::string text) {
  std::replace(text.begin(), text.end(), ';', '\x7f');
  return text + "\r\n";
}

std::string ReceiptOf(const Slip& slip) {
  return Line("1;" + slip.item + ";1,000;" + std::to_string(slip.total) + ";1;;;1;;") + Line("2;1;0;;;;;;;;");
}

}  // namespace

AttackedShop::AttackedShop(AttackedKind kind, const Attack& attack)
    : kind_(kind),
      attack_(attack),
      calls_(attack),
      disk_(clock_, kFolder),
      files_(disk_, calls_),
      folders_(disk_, calls_),
      profile_(files_),
      pump_(std::in_place, clock_, 1h),
      loop_(std::in_place, clock_, *pump_),
      person_(*loop_),
      device_(clock_, paper_),
      link_(device_, clock_, InNoTime()) {
  disk_.MakeFolder(kFolder);
  if (kind_.asksInDoubt) SetUpSettings();
  person_.SetJudgement([this](const ShownDialog& dialog) { return Answer(dialog); });
  link_.SetObserver([this](LineEvent event, const std::string& text) {
    if (event == LineEvent::kSent || event == LineEvent::kReceived) calls_.OnLine(text);
  });
  disk_.SetObserver([this](const DiskEvent& event) {
    if (event.path.ends_with(".ini") || event.target.ends_with(".ini")) JudgeSettings("while it runs");
  });
}

void AttackedShop::LiveThreeDays() {
  FirstDay();
  Technician();
  SecondDay();
  calls_.Cease();
  ThirdDay();
  Judge();
}

/// A first start would switch the asking off, so its settings are there already.
void AttackedShop::SetUpSettings() {
  const ProgramPaths paths{kFolder, "Orvenza"};
  IniProfileFile byHand(disk_.FileSeam());
  AppSettings settings;
  Logs logs(disk_.FileSeam(), clock_, settings, kFolder);
  SettingsFile(byHand, disk_.FileSeam(), logs, paths).WriteDefaultIni();
  byHand.Write(kIni, setting::kSafety, setting::kAskInDoubt, "1");
}

void AttackedShop::FirstDay() {
  const Slip slip{"PANE", 150};
  expected_.push_back(slip);
  After(3s, [this, slip] { disk_.Put(kData + "0001.txt", ReceiptOf(slip)); });
  RunUntilQuit();
}

/// Changes the settings by hand once they exist.
void AttackedShop::Technician() {
  IniProfileFile byHand(disk_.FileSeam());
  const auto settings = disk_.Content(kIni);
  if (!settings) return;
  disk_.Put(kIni, "; NEGOZIO\r\n" + *settings);
  byHand.Write(kIni, setting::kGeneral, "File Parser", kind_.shop == ShopKind::kNotSplit ? "0" : "1");
  if (kind_.shop == ShopKind::kArchiveElsewhere) {
    disk_.MakeFolder("D:\\storico");
    byHand.Write(kIni, "Database", "HistoricTickets", "D:\\storico\\");
  }
  settingsOfTheShop_ = true;
}

void AttackedShop::SecondDay() {
  clock_.Advance(20h);
  const std::vector<Slip> divided{{"LATTE", 129}, {"MELE", 199}, {"UVA", 249}};
  const Slip abandoned{"GUASTO", 99, true};
  const Slip single{"FARINA", 89};
  for (const auto& slips : {divided, {abandoned}, {single}}) {
    expected_.insert(expected_.end(), slips.begin(), slips.end());
  }
  After(1s, [this, divided] {
    disk_.Put(kData + "0002.txt", ReceiptOf(divided[0]) + ReceiptOf(divided[1]) + ReceiptOf(divided[2]));
  });
  After(1s, [this, abandoned] {
    disk_.Put(kData + "0003.txt", Line("1;" + abandoned.item + ";1,000;99;1;;;1;;") + Line("99;;;;;;;;;;"));
  });
  After(2s, [this, single] {
    disk_.Put(kData + kHeldTicket, ReceiptOf(single));
    if (kind_.shop == ShopKind::kTicketHeld) disk_.Hold(kData + kHeldTicket, FileHold::kReading);
  });
  After(2200ms, [this] {
    if (connector_ != nullptr) connector_->OnMenu(MenuItem::kConfigure);
  });
  After(6s, [this] { disk_.Put(kData + kClosureTicket, Line("21;;;;;;;;;;")); });
  RunUntilQuit();
}

void AttackedShop::ThirdDay() {
  if (kind_.shop == ShopKind::kTicketHeld) {
    // The host notices and releases the file during the day.
    After(30s, [this] {
      if (disk_.Content(kData + kHeldTicket)) disk_.Hold(kData + kHeldTicket, FileHold::kNone);
    });
  }
  clock_.Advance(20h);
  const Slip last{"OLIO", 649};
  expected_.push_back(last);
  After(1s, [this, last] { disk_.Put(kData + "0010.txt", ReceiptOf(last)); });
  const auto starts = Starts();
  RunUntilQuit();
  // A second start is possible if the previous day's command could not be removed and ended the first one.
  if (Starts() == starts) Violate("the next start is not in the log");
}

/// The number of starts in the activity log.
int AttackedShop::Starts() const {
  const std::string log = disk_.Content(kFolder + "\\Log.txt").value_or("");
  int starts = 0;
  for (std::size_t at = 0; (at = log.find("Start Rel.", at)) != std::string::npos; ++at) ++starts;
  return starts;
}

void AttackedShop::After(std::chrono::milliseconds delay, std::function<void()> event) {
  ++eventsToCome_;
  clock_.After(delay, [this, event = std::move(event)] {
    --eventsToCome_;
    event();
  });
}

/// Starts the connector until it ends at the host's request.
void AttackedShop::RunUntilQuit() {
  constexpr int kMostStarts = 4;
  quitAsked_ = false;
  for (int starts = 1; !RunOnce() || !quitAsked_; ++starts) {
    if (starts == kMostStarts) return Violate("it does not start again");
  }
}

/// Whether it ended by itself.
bool AttackedShop::RunOnce() {
  link_.SetPortOpen(false);
  pump_.emplace(clock_, std::chrono::duration_cast<std::chrono::milliseconds>(clock_.Uptime()) + 1h);
  loop_.emplace(clock_, *pump_);
  calls_.Begin();
  Connector connector({files_, folders_, profile_, clock_, *loop_, person_, icon_, link_},
                      {kFolder, "Orvenza"});
  connector_ = &connector;
  connector.SetTickObserver([this] { OnTick(); });
  bool ended = false;
  try {
    connector.Run(false);
    ended = true;
    if (calls_.Gone()) Violate("a trap has held up the kill");
  } catch (const Killed&) {
    NoteKill();
  } catch (const RunTooLong&) {
    Violate("it goes on for ever");
    quitAsked_ = ended = true;
  } catch (const std::exception& failure) {
    Violate(std::string("it ended with a failure: ") + failure.what());
  }
  connector_ = nullptr;
  return ended;
}

void AttackedShop::OnTick() {
  if (eventsToCome_ > 0 || TicketsWait()) return;
  disk_.Put(kFolder + "\\command.txt", "QUIT\r\n");
  quitAsked_ = true;
}

bool AttackedShop::TicketsWait() const {
  const auto paths = disk_.Paths();
  return std::any_of(paths.begin(), paths.end(), [&](const std::string& path) {
    const bool held = kind_.shop == ShopKind::kTicketHeld && path == kData + kHeldTicket;
    const bool waits = path.starts_with(kInProcess) || path.find('\\', kData.size()) == std::string::npos;
    return path.starts_with(kData) && path.ends_with(".txt") && waits && !held;
  });
}

void AttackedShop::NoteKill() {
  for (const Slip& slip : expected_) {
    if (Printed(slip) > 0 && !FilesWith(slip.item, kInProcess).empty()) printedAtKill_.insert(slip.item);
  }
  closedAtKill_ = device_.FiscalClosures() > 0 && disk_.Content(kInProcess + kClosureTicket).has_value();
}

std::string AttackedShop::Answer(const ShownDialog& dialog) {
  switch (dialog.kind) {
    case DialogKind::kPortSettings: return settingsOfTheShop_ ? "COM2 9600 None 8 1" : "Ok";
    case DialogKind::kChoice: return Choose(dialog);
    default:
      if (dialog.text.find(own_text::kForeignReceipt) != std::string::npos)
        Violate("a receipt of its own is foreign to it");
      return dialog.buttons.front();
  }
}

/// An operator who looks at the paper before answering. A ticket with an invalid line is given up.
std::string AttackedShop::Choose(const ShownDialog& dialog) {
  if (dialog.text.find(own_text::kInterrupted) == std::string::npos)
    return LoadMessage(MessageId::kAbortReceipt);
  ++questions_;
  return LoadMessage(IsOnPaper(dialog.heading) ? MessageId::kReceiptPrinted : MessageId::kReprintReceipt);
}

/// Whether what a question is about has been printed: the closure, or the receipt with the total that it
/// names.
bool AttackedShop::IsOnPaper(const std::string& heading) const {
  if (heading.find(kClosureTicket) != std::string::npos) return device_.FiscalClosures() > 0;
  return std::any_of(expected_.begin(), expected_.end(), [&](const Slip& slip) {
    const std::string cents = std::to_string(slip.total);
    const std::string total = std::string(cents.size() < 3 ? "0," : cents.substr(0, cents.size() - 2) + ",") +
                              cents.substr(cents.size() - 2);
    return heading.find(std::string(own_text::kTotal) + " " + total + " ") != std::string::npos &&
           Printed(slip) > 0;
  });
}

}  // namespace orvenza::test
