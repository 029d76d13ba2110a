#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "app/connector.h"
#include "core/event_loop.h"
#include "platform/ini_profile_file.h"
#include "simulator/fault_script.h"
#include "simulator/paper_roll.h"
#include "simulator/scripted_operator.h"
#include "simulator/simulated_link.h"
#include "simulator/simulated_register.h"
#include "support/faulty_files.h"
#include "support/test_clock.h"
#include "support/virtual_folder.h"
#include "ui/notification_icon.h"

namespace orvenza::test {

/// Records the state of the notification icon.
class RecordedIcon : public NotificationIcon {
 public:
  void CreateIcon(const std::string& tip) override {
    tip_ = tip;
    ++created;
  }
  void DeleteIcon() override {
    tip_.reset();
    ++deleted;
  }
  const std::optional<std::string>& Tip() const { return tip_; }

  int created = 0;
  int deleted = 0;

 private:
  std::optional<std::string> tip_;
};

/// A shop: the whole connector on the virtual clock and disk, with the simulated register and a scripted
/// operator. The settings file is the default one with ";" as separator; transmission takes no time until a
/// test changes that.
class Shop {
 public:
  using Lines = std::vector<std::string>;

  /// `script` is a simulator script.
  explicit Shop(const std::string& script = "")
      : files(disk.FileSeam()),
        folders(disk.FolderSeam()),
        profile(files),
        loop(clock, clock),
        person(loop),
        script_(ParseFaultScript("script", "speed instant\n" + script)),
        device(clock, paper, script_.profile),
        link(device, clock, script_) {
    link.SetObserver([this](LineEvent event, const std::string& text) {
      if (event == LineEvent::kSent) sentAt_.emplace_back(text, clock.Uptime());
    });
    const std::string tickets = folder.Path("data\\*.txt");
    const std::string historic = folder.Path("storico\\");
    folder.Write("Orvenza.ini",
                 "[Version]\nVersion=1.06\n"
                 "[Database]\nTicketFiles=" +
                     tickets + "\nHistoricTickets=" + historic +
                     "\n"
                     "[Com Settings]\nComPort=1\nSettings=19200,O,7,1\n"
                     "TimeWaitForEtx=10000\nTimeWaitForLONGEtx=50000\n"
                     "[General]\nSeparator (ascii,max 127)=59\n");
  }

  void Configure(const std::string& section, const std::string& key, const std::string& value) {
    profile.Write(folder.Path("Orvenza.ini"), section, key, value);
  }

  /// The host writes a ticket, dated one second after the previous one.
  void Drop(const std::string& name, const Lines& lines) { DropBytes(name, Joined(lines)); }

  void DropBytes(const std::string& name, const std::string& content) {
    folder.Write("data\\" + name, content);
    folder.SetModified("data\\" + name, nextStamp_++);
  }

  /// Another program holds the files whose path contains `part`: they can be read, but neither moved nor
  /// removed.
  void Hold(const std::string& part) {
    files.FailAlways("Move", part, error_number::kPermissionDenied);
    files.FailAlways("Remove", part, error_number::kPermissionDenied);
  }

  /// The disk is full for new files whose path contains `part`.
  void Fill(const std::string& part) {
    files.FailAlways("Move", part, error_number::kDiskFull);
    files.FailAlways("Copy", part, error_number::kDiskFull);
  }

  /// Runs `action` after the connector has run for `delay`.
  void After(std::chrono::milliseconds delay, std::function<void()> action) {
    clock.After(delay, std::move(action));
  }

  void Answer(const std::string& answer) { person.Answer(answer); }

  /// Starts the connector and lets the host end it after `life`.
  void Run(std::chrono::milliseconds life = std::chrono::seconds(30)) {
    After(life, [this] { folder.Write("command.txt", "QUIT\r\n"); });
    RunToItsEnd();
  }

  /// Starts the connector and waits until it ends by itself. Every planned answer must have been used.
  void RunToItsEnd(bool anotherInstanceRuns = false) {
    Connector connector({files, folders, profile, clock, loop, person, icon, link},
                        {folder.Path(), "Orvenza"});
    person.SetMenuHandler([&](MenuItem item) { connector.OnMenu(item); });
    connector_ = &connector;
    status = connector.Run(anotherInstanceRuns);
    connector_ = nullptr;
    person.SetMenuHandler({});
    EXPECT_EQ(person.AnswersLeft(), 0U) << "answers that no dialog has asked for";
  }

  /// The operator chooses an item of the icon's menu.
  void UseMenu(MenuItem item) { connector_->OnMenu(item); }

  /// Every command sent, oldest first.
  Lines Sent() const { return {link.Sent().begin(), link.Sent().end()}; }

  /// The times when commands that begin with `prefix` were sent, in milliseconds since the connector's start.
  std::vector<std::int64_t> SentAt(const std::string& prefix) const {
    std::vector<std::int64_t> times;
    for (const auto& [command, time] : sentAt_) {
      if (command.starts_with(prefix)) times.push_back(time / std::chrono::milliseconds(1));
    }
    return times;
  }

  /// The commands of tickets: without the start-up queries and the status query before each ticket.
  Lines SentForTickets() const {
    Lines sent;
    for (const std::string& command : link.Sent()) {
      if (!command.starts_with("3217") && !command.starts_with("1999")) sent.push_back(command);
    }
    return sent;
  }

  /// The logs' messages without their stamps.
  Lines Log() const { return Messages("Log.txt"); }
  Lines Err() const { return Messages("Err.txt"); }
  Lines Messages(const std::string& log) const {
    Lines messages;
    std::istringstream in(folder.Read(log));
    for (std::string line; std::getline(in, line);) {
      if (!line.empty() && line.back() == '\r') line.pop_back();
      const std::size_t dash = line.find(" - ");
      messages.push_back(dash == std::string::npos ? line : line.substr(dash + 3));
    }
    return messages;
  }

  /// The activity log without the lines of start-up and shutdown.
  Lines LogForTickets() const {
    Lines lines;
    for (const std::string& line : Log()) {
      const bool ofTheProgram = line.starts_with("Start Rel.") || line.starts_with("Dati Cash :") ||
                                line == "Quit Command !" || line == "End";
      if (!ofTheProgram) lines.push_back(line);
    }
    return lines;
  }

  /// Names in a folder of the shop, sorted.
  Lines Names(const std::string& relative) const { return folder.Names(relative); }

  /// The text of each dialog, without leading line breaks, in order.
  Lines DialogTexts() const {
    Lines texts;
    for (const ShownDialog& dialog : person.Shown()) {
      const std::size_t start = dialog.text.find_first_not_of("\r\n");
      texts.push_back(start == std::string::npos ? "" : dialog.text.substr(start));
    }
    return texts;
  }

  /// The text of each dialog, without leading line breaks, in order.
  std::string Spelled(const std::string& relative) const { return SettingsPath(folder.Path(relative)); }

  static std::string Joined(const Lines& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\r\n";
    return text;
  }

  TestClock clock;
  VirtualDisk disk{clock, "C:\\shop"};
  VirtualFolder folder{disk};
  int status = -1;  ///< The connector's last exit code.
  FaultyFiles files;
  FaultyFolders folders;
  IniProfileFile profile;
  EventLoop loop;
  ScriptedOperator person;
  RecordedIcon icon;

 private:
  FaultScript script_;

 public:
  PaperRoll paper;
  SimulatedRegister device;
  SimulatedLink link;

 private:
  Connector* connector_ = nullptr;
  std::int64_t nextStamp_ = 1'700'000'000;
  std::vector<std::pair<std::string, std::chrono::nanoseconds>> sentAt_;
};

}  // namespace orvenza::test
