#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "simulator/fault_script.h"
#include "simulator/scripted_operator.h"
#include "simulator/virtual_disk.h"
#include "ui/menu.h"

namespace orvenza {

/// The program folder of every rehearsal.
inline constexpr const char* kRehearsalFolder = "C:\\Orvenza";

/// What somebody does to the connector's world.
enum class EventKind {
  kPut,         ///< A file comes to `path`, of `modified` or of its moment.
  kMakeFolder,  ///< So does a folder.
  kDelete,      ///< What is at `path` goes.
  kReadOnly,
  kHold,         ///< Another program opens the file for `hold`, or closes it.
  kDriveAway,    ///< `path` is the drive.
  kDriveBack,    ///< The same.
  kDiskFull,     ///< The same.
  kDiskFree,     ///< The same.
  kRefuseClock,  ///< From now on the PC's clock may not be set.
  kMenu,         ///< The operator chooses `item` of the icon's menu.
  kQuit,         ///< The host writes its command file.
  kSessionEnds,  ///< The operator logs off, or the PC is shut down.
  kPowerFails,   ///< The PC loses its power: the connector is gone at once.
};

struct ScenarioEvent {
  EventKind kind = EventKind::kPut;
  std::chrono::milliseconds at{};  ///< Since the connector's start; 0: all is so before it starts.
  std::string path;
  std::string content;
  std::optional<LocalTime> modified;
  FileHold hold = FileHold::kNone;
  MenuItem item = MenuItem::kExit;
};

/// One value of the settings file.
struct ScenarioSetting {
  std::string section;
  std::string key;
  std::string value;
};

/// An answer of the operator, as ScriptedOperator takes it, and how long the operator thinks.
struct ScenarioAnswer {
  /// The operator is not there: the dialog waits until something else ends it.
  static constexpr std::chrono::milliseconds kNever = std::chrono::hours(1'000'000);

  std::string text;
  std::chrono::milliseconds reaction{};
};

/// What must have come true when a rehearsal is over.
struct Expectation {
  enum class Kind {
    kEvent,  ///< An event of the kind `event` whose text contains `text`.
    kSent,   ///< `times` commands that begin with `text`.
    kPaper,  ///< A printed line that contains `text`.
    kFile,   ///< A file at the path `text`.
  };
  Kind kind = Kind::kEvent;
  bool none = false;  ///< That there is no such thing.
  std::string event;
  std::string text;
  std::size_t times = 1;
};

/// Everything that a rehearsal needs to know. The default is a shop on a quiet day: an ordinary register, the
/// files and folders that a first start makes, but for the separator, ";", and no tickets.
struct Scenario {
  LocalTime start{2026, 11, 16, 9, 0, 0};  ///< What the PC's clock shows at first.
  bool settingsFile = true;                ///< False: the program was never started here.
  std::vector<ScenarioSetting> settings;   ///< Those that differ.
  FaultScript device;
  std::vector<ScenarioEvent> events;
  std::vector<ScenarioAnswer> answers;
  ScriptedOperator::Judgement judgement;  ///< Who answers after them; null: nobody.
  bool secondInstance = false;            ///< Another connector serves the folder already.
  /// The host asks the connector to end once no ticket is left, and whoever ended it before starts it again,
  /// on the disk and in front of the register that were left.
  bool untilPrinted = false;
  std::chrono::milliseconds limit{3'600'000};  ///< A run that takes longer is broken off.
  std::vector<Expectation> expectations;
  bool transcript =
      true;  ///< False: the outcome holds no events, which makes the rehearsal a good deal faster.
};

}  // namespace orvenza
