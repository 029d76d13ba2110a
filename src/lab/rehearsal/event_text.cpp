#include "lab/rehearsal/event_text.h"

#include "app/trace/event_words.h"
#include "app/trace/transcript_text.h"

namespace orvenza {
namespace {

std::string HoldText(const ScenarioEvent& event) {
  if (event.hold == FileHold::kNone)
    return "another program closes " + ShownPath(event.path, kRehearsalFolder);
  return std::string("another program opens ") + ShownPath(event.path, kRehearsalFolder) +
         (event.hold == FileHold::kReading ? " for reading" : " for writing");
}

}  // namespace

std::string_view EventKindText(const ScenarioEvent& event) {
  return event.kind == EventKind::kMenu ? "menu" : "world";
}

std::string EventText(const ScenarioEvent& event) {
  switch (event.kind) {
    case EventKind::kPut: return ShownPath(event.path, kRehearsalFolder) + " comes";
    case EventKind::kMakeFolder: return "the folder " + ShownPath(event.path, kRehearsalFolder) + " comes";
    case EventKind::kDelete: return ShownPath(event.path, kRehearsalFolder) + " goes";
    case EventKind::kReadOnly: return ShownPath(event.path, kRehearsalFolder) + " becomes read-only";
    case EventKind::kHold: return HoldText(event);
    case EventKind::kDriveAway: return "drive " + event.path + " goes away";
    case EventKind::kDriveBack: return "drive " + event.path + " comes back";
    case EventKind::kDiskFull: return "disk " + event.path + " is full";
    case EventKind::kDiskFree: return "disk " + event.path + " has room again";
    case EventKind::kRefuseClock: return "the PC's clock may not be set any more";
    case EventKind::kMenu: return MenuCaptions()[static_cast<std::size_t>(event.item)];
    case EventKind::kQuit: return "the host writes command.txt: QUIT";
    case EventKind::kSessionEnds: return kSessionEnds;
    case EventKind::kPowerFails: return "the power fails";
    case EventKind::kStartAgain: return "the connector is started again";
  }
  return {};
}

}  // namespace orvenza
