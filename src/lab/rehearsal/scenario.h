#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
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

/// The kinds of events in the connector's environment.
enum class EventKind {
  kPut,         ///< A file appears at `path`, dated `modified` or with the time of the event.
  kMakeFolder,  ///< A folder appears at `path`.
  kDelete,      ///< The file or folder at `path` disappears.
  kReadOnly,
  kHold,       ///< Another program opens the file for `hold`, or closes it.
  kDriveAway,  ///< The drive named by `path` disappears.
  kDriveBack,
  kDiskFull,  ///< The drive named by `path` has no room left.
  kDiskFree,
  kRefuseClock,  ///< From now on the PC does not allow its clock to be set.
  kMenu,         ///< The operator chooses `item` from the icon's menu.
  kQuit,         ///< The host writes "QUIT" into the command file.
  kSessionEnds,  ///< The operator logs off, or the PC is shut down.
  kPowerFails,   ///< The PC loses its power: the connector stops at once.
  kStartAgain,   ///< The connector is started again, as soon as it has ended.
};

struct ScenarioEvent {
  EventKind kind = EventKind::kPut;
  std::chrono::milliseconds at{};  ///< Since the connector's start; 0: before the start.
  std::string path;
  std::string content;
  std::string source;  ///< The file whose bytes are the content, as it was named; empty: none.
  std::optional<LocalTime> modified;
  FileHold hold = FileHold::kNone;
  MenuItem item = MenuItem::kExit;
};

/// A loss of power at a point of the connector's work.
struct PowerCut {
  enum class When {
    kBeforeCommand,  ///< Right before the `number`th command that begins with `command` is sent.
    kAfterReply,     ///< Right after the reply to that command has arrived.
    kAfterChange,    ///< Right after the `number`th change that the connector makes to the disk.
  };
  When when = When::kBeforeCommand;
  std::string command;
  std::size_t number = 1;
};

/// One value of the settings file.
struct ScenarioSetting {
  std::string section;
  std::string key;
  std::string value;
};

/// An answer of the operator, in the form of ScriptedOperator, and the time until it is given.
struct ScenarioAnswer {
  /// No operator: the dialog waits until something else ends it.
  static constexpr std::chrono::milliseconds kNever = std::chrono::hours(1'000'000);

  std::string text;
  std::chrono::milliseconds reaction{};
};

/// A condition to be met at the end of a rehearsal.
struct Expectation {
  enum class Kind {
    kEvent,  ///< An event of the kind `event` whose text contains `text`.
    kSent,   ///< `times` commands that begin with `text`.
    kPaper,  ///< A line on the paper that contains `text`.
    kFile,   ///< A file at the path `text` that contains `content`.
  };
  Kind kind = Kind::kEvent;
  bool none = false;  ///< The condition is negated.
  std::string event;
  std::string text;
  std::string content;
  std::size_t times = 1;
};

/// The description of a rehearsal. The default is a shop on a quiet day: an ordinary register, the files and
/// folders of a first start with ";" as separator, and no tickets.
struct Scenario {
  LocalTime start{2026, 11, 16, 9, 0, 0};  ///< What the PC's clock shows at the start.
  bool settingsFile = true;                ///< False: the program has never been started here.
  std::vector<ScenarioSetting> settings;
  FaultScript device;
  std::vector<ScenarioEvent> events;
  std::vector<PowerCut> powerCuts;
  std::vector<ScenarioAnswer> answers;
  ScriptedOperator::Judgement judgement;                 ///< Gives the answers after these; null if none.
  ScriptedOperator::Observer onDialog;                   ///< Receives each dialog; may be null.
  std::function<void(const std::string& line)> onPaper;  ///< Receives each printed line; may be null.
  bool secondInstance = false;                           ///< Another connector already serves the folder.
  /// The host asks the connector to end once no ticket is left. If it ended earlier, it is started again with
  /// the same disk and register.
  bool untilPrinted = false;
  std::chrono::milliseconds limit{3'600'000};  ///< A longer run is stopped.
  std::vector<Expectation> expectations;
  bool transcript = true;  ///< False: the outcome has no events, which makes the rehearsal much faster.
};

}  // namespace orvenza
