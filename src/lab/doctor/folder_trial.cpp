#include "lab/doctor/folder_trial.h"

#include <array>

#include "platform/system_error.h"

namespace orvenza {
namespace {

void Discard(Files& files, const std::string& path) {
  try {
    if (files.Exists(path)) files.Remove(path);
  } catch (const SystemError&) {
    // The finding says that files cannot be removed there.
  }
}

}  // namespace

std::string TryFolder(Files& files, const std::string& folder) {
  const std::string made = folder + "orvenza-doctor-1" + std::string(kUnfinishedSuffix);
  const std::string renamed = folder + "orvenza-doctor-2" + std::string(kUnfinishedSuffix);
  const char* step = "made";
  std::string reason;
  try {
    files.Write(made, "A file of orvenza-lab doctor, to be removed at once.\r\n");
    step = "renamed";
    files.Move(made, renamed);
    step = "removed";
    files.Remove(renamed);
  } catch (const SystemError& failure) {
    reason = std::string("a file cannot be ") + step + " there: " + failure.Description();
    for (const std::string& path : std::array{made, renamed}) Discard(files, path);
  }
  return reason;
}

}  // namespace orvenza
