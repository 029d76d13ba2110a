#include "lab/deed_text.h"

#include "lab/disk_watch.h"

namespace orvenza {
namespace {

std::string HoldText(const Deed& deed) {
  if (deed.hold == FileHold::kNone) return "another program closes " + ShownPath(deed.path);
  return std::string("another program opens ") + ShownPath(deed.path) +
         (deed.hold == FileHold::kReading ? " for reading" : " for writing");
}

}  // namespace

std::string_view DeedKindText(const Deed& deed) { return deed.kind == DeedKind::kMenu ? "menu" : "world"; }

std::string DeedText(const Deed& deed) {
  switch (deed.kind) {
    case DeedKind::kPut: return ShownPath(deed.path) + " comes";
    case DeedKind::kMakeFolder: return "the folder " + ShownPath(deed.path) + " comes";
    case DeedKind::kDelete: return ShownPath(deed.path) + " goes";
    case DeedKind::kReadOnly: return ShownPath(deed.path) + " becomes read-only";
    case DeedKind::kHold: return HoldText(deed);
    case DeedKind::kDriveAway: return "drive " + deed.path + " goes away";
    case DeedKind::kDriveBack: return "drive " + deed.path + " comes back";
    case DeedKind::kDiskFull: return "disk " + deed.path + " is full";
    case DeedKind::kDiskFree: return "disk " + deed.path + " has room again";
    case DeedKind::kRefuseClock: return "the PC's clock may not be set any more";
    case DeedKind::kMenu: return MenuCaptions()[static_cast<std::size_t>(deed.item)];
    case DeedKind::kQuit: return "the host writes command.txt: QUIT";
    case DeedKind::kSessionEnds: return "the session ends";
    case DeedKind::kPowerFails: return "the power fails";
  }
  return {};
}

}  // namespace orvenza
