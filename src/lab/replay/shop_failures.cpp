// What the failures of a trace tell about files and drives.

#include <algorithm>
#include <string>
#include <utility>

#include "app/trace/trace_time.h"
#include "core/text.h"
#include "lab/replay/attempt.h"
#include "lab/replay/shop_model.h"
#include "platform/system_error.h"

namespace orvenza {

using std::chrono::milliseconds;

/// Another program uses a file in the folder; a whole drive is never renamed.
void ShopModel::OnNotRotated(milliseconds passed, const std::string& folder) {
  const std::string path = folder + "1.txt";
  if (recording_ && Find(path) == nullptr) {
    notRotated_ = "file " + path + " of ";
    const auto start = ReadTraceStamp(startStamp_ + ".000");
    notRotated_ += FixedStamp(LocalTimeOf(start.value_or(TraceTime()) - std::chrono::hours(24)));
    scenario_.AddState(notRotated_);
    folders_.insert(ToUpperAscii(WithoutEnd(folder)));
    At(path).own = true;
  }
  if (folder.size() > 3) SetHold(passed, path, Hold::kHeld);
}

void ShopModel::SetHold(milliseconds passed, const std::string& path, Hold hold) {
  File& file = Existing(passed, path);
  if (file.hold == hold || (file.hold == Hold::kLocked && hold == Hold::kHeld)) return;
  file.hold = hold;
  Add(passed, (hold == Hold::kLocked ? "lock " : "hold ") + path);
}

void ShopModel::Release(milliseconds passed, const std::string& path) {
  File* const file = Find(path);
  if (file == nullptr || file->hold == Hold::kNone) return;
  file->hold = Hold::kNone;
  Add(passed, "release " + path);
}

/// A drive that was there before.
void ShopModel::TakeDriveAway(milliseconds passed, const std::string& path) {
  const std::string drive = DriveOf(path);
  if (drive == "C:" || ticks_ == 0 || !away_.insert(drive).second) return;
  Add(passed, "drive " + drive + " away");
}

void ShopModel::OnNotMade(const std::string& shown, int number) {
  const std::string path = WithoutEnd(shown);
  const std::string name = ToUpperAscii(path);
  if (!failing_.insert(name).second || number != error_number::kFileExists || !recording_) return;
  if (name == "DATA" || name == "DATA\\INPROCES" || name == "DATA\\ABORT")
    scenario_.AddState("remove " + path);
  scenario_.AddState("file " + Named(path));
}

/// A file that fails exists, even if nothing else tells of it.
ShopModel::File& ShopModel::Existing(milliseconds passed, const std::string& path) {
  File* const known = Find(path);
  if (known != nullptr) return *known;
  File& file = At(path);
  const std::string name = ToUpperAscii(path);
  if (name != "ORVENZA.INI" && name != "ERRDESC.INI") Put(passed, path, file);
  return file;
}

void ShopModel::OnFailed(const TracedEvent& event) {
  namespace number = error_number;
  const Attempt attempt = ReadAttempt(event.text, true, settings_);
  const std::string& verb = attempt.verb;
  const bool across = !attempt.target.empty() && DriveOf(attempt.path) != DriveOf(attempt.target);
  if (verb == "set the clock") return Add(event.passed, "clock refused");
  if (verb == "make") OnNotMade(attempt.path, attempt.number);
  if (attempt.number == number::kDiskFull) {
    const std::string drive = DriveOf(attempt.target.empty() ? attempt.path : attempt.target);
    if (full_.insert(drive).second) Add(event.passed, "disk " + drive + " full");
  } else if (verb == "reach drive" || attempt.number == number::kPathNotFound) {
    TakeDriveAway(event.passed, attempt.path);
  } else if (attempt.number == number::kFileNotFound && (verb == "read" || verb == "copy")) {
    if (Find(attempt.path) != nullptr) Add(event.passed, "remove " + attempt.path);
    Forget(attempt.path);
  } else if (verb == "read" || (verb == "copy" && attempt.number == number::kPermissionDenied)) {
    SetHold(event.passed, attempt.path, Hold::kLocked);
  } else if (verb == "copy") {
    SetHold(event.passed, attempt.target, Hold::kHeld);
  } else if (verb == "rename") {
    OnNotRotated(event.passed, attempt.path);
  } else if ((verb == "remove" || verb == "append to") && attempt.number == number::kPathFileAccess) {
    File& file = Existing(event.passed, attempt.path);
    if (!std::exchange(file.readOnly, true)) Add(event.passed, "read-only " + attempt.path);
  } else if (verb == "move" ? !across : verb == "remove" || verb == "append to" || verb == "write") {
    SetHold(event.passed, attempt.path, Hold::kHeld);
  }
}

void ShopModel::OnWorks(const TracedEvent& event) {
  const Attempt attempt = ReadAttempt(event.text, false, settings_);
  const std::string drive = DriveOf(attempt.target.empty() ? attempt.path : attempt.target);
  Release(event.passed, attempt.path);
  Release(event.passed, attempt.target);
  if (attempt.verb == "rename") Release(event.passed, attempt.path + "1.txt");
  if (full_.erase(drive) > 0) Add(event.passed, "disk " + drive + " free");
  if (away_.erase(DriveOf(attempt.path)) > 0) Add(event.passed, "drive " + DriveOf(attempt.path) + " back");
}

}  // namespace orvenza
