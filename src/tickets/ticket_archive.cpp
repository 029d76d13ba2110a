#include "tickets/ticket_archive.h"

#include <algorithm>
#include <cstdint>
#include <map>

#include "core/catalogue.h"
#include "core/create_all_dirs.h"
#include "core/folder_path.h"
#include "core/own_texts.h"
#include "core/text.h"
#include "platform/program_end.h"
#include "platform/system_error.h"
#include "ui/path_reports.h"

namespace orvenza {
namespace {

constexpr const char* kLabel = "Trasmissione ";
/// A double represents numbers up to this exactly; a longer file name is not one of ours.
constexpr double kLargestSequenceNumber = 1e15;

}  // namespace

std::string ArchiveExtension(const std::string& mask) {
  const std::string extension(Right(mask, 3));
  return extension.find_first_of("*?") == std::string::npos && !extension.empty() ? extension : "txt";
}

std::string AbortName(const std::string& ticket) { return ticket + ".abort.txt"; }

TicketArchive::TicketArchive(Files& files, Folders& folders, const AppSettings& settings, Logs& logs,
                             OperatorMessages& messages, RememberedTickets& remembered,
                             TicketWitness& witness)
    : files_(files),
      folders_(folders),
      settings_(settings),
      logs_(logs),
      messages_(messages),
      remembered_(remembered),
      witness_(witness) {}

void TicketArchive::Archive(const std::string& workFile, std::string_view text) {
  if (settings_.HistoricFolder.empty()) {
    Remove(workFile, text);
    witness_.Filed({});
    return;
  }
  if (HasGone(workFile)) {
    Abort(workFile, text);
    LogNotArchived(workFile);
    return;
  }
  const bool drive = folders_.DriveAvailable(settings_.HistoricFolder);
  const bool folder = drive && CreateAllDirs(folders_, logs_, settings_.HistoricFolder);
  if (folder && Store(workFile, text, [&] { return NextHistoricPath(); })) return;
  // The file is moved first: the operator may end the program from the message.
  Abort(workFile, text);
  LogNotArchived(workFile);
  if (!drive) ReportMissingDrive(settings_.HistoricFolder);
  if (drive && !folder) {
    ReportWrongPath(messages_, logs_, settings_.HistoricFolder);
    throw ProgramEnd{.unload = true, .status = exit_status::kFolderNotMade};
  }
}

void TicketArchive::Abort(const std::string& workFile, std::string_view text) {
  const bool gone = HasGone(workFile);
  const bool drive = gone || folders_.DriveAvailable(settings_.AbortFolder);
  if (!gone && drive && Store(workFile, text, [&] { return AbortPath(workFile); })) return;
  Settle(workFile, text, false);
  witness_.Filed(gone ? std::string() : workFile);
  if (!drive) ReportMissingDrive(settings_.AbortFolder);
}

/// A file that cannot be seen is not gone if its whole folder cannot be seen either, or if the check fails. A
/// file that is gone counts as settled until the next check: it may only have been invisible, and must not be
/// printed again.
bool TicketArchive::HasGone(const std::string& workFile) const {
  try {
    return folders_.Exists(settings_.InProcessFolder) && !files_.Exists(workFile);
  } catch (const SystemError&) {
    return false;
  }
}

void TicketArchive::LogNotArchived(const std::string& workFile) {
  logs_.WrErr(std::string(own_text::kPrintedNotArchived) + " " + FileNameOf(workFile));
}

bool TicketArchive::Store(const std::string& workFile, std::string_view text,
                          const std::function<std::string()>& target) {
  std::string path;
  const auto moved = logs_.Attempt(kLabel, [&] { return MoveOrCopy(files_, workFile, path = target()); });
  if (!moved) return false;
  if (!*moved) Remove(workFile, text);
  witness_.Filed(path);
  return true;
}

std::string TicketArchive::NextHistoricPath() const {
  const std::string extension = "." + ArchiveExtension(settings_.TicketMask);
  double largest = 0;
  // Listed by extension, not by mask: a mask that does not match the numbered names would hide them, and the
  // next ticket would replace the last one.
  for (const FolderEntry& entry : folders_.ListFolder(settings_.HistoricFolder + "*" + extension)) {
    if (entry.isFolder) continue;
    const double number = LeadingNumber(entry.name.substr(0, entry.name.rfind('.')));
    if (number < kLargestSequenceNumber) largest = std::max(largest, number);
  }
  auto number = static_cast<std::int64_t>(largest);
  std::string path;
  do {
    path = settings_.HistoricFolder + std::to_string(++number) + extension;
  } while (files_.Exists(path) || folders_.Exists(path));
  return path;
}

std::string TicketArchive::AbortPath(const std::string& workFile) {
  if (!folders_.Exists(settings_.AbortFolder)) folders_.Create(settings_.AbortFolder);
  const std::string stem = settings_.AbortFolder + FileNameOf(workFile);
  const std::string path = AbortName(stem);
  if (files_.Exists(path)) {
    // Hosts reuse names: the older ticket gets a number.
    int number = 1;
    while (files_.Exists(stem + ".abort." + std::to_string(number) + ".txt")) ++number;
    const std::string numbered = stem + ".abort." + std::to_string(number) + ".txt";
    try {
      files_.Move(path, numbered);
    } catch (const SystemError&) {
      return numbered;  // The older one is held, so the newer one gets the number.
    }
  }
  return path;
}

void TicketArchive::Remove(const std::string& workFile, std::string_view text) {
  const auto remove = [&] { RemoveReadOnlyToo(files_, workFile); };
  if (HasGone(workFile) || !logs_.Attempt(kLabel, remove)) Settle(workFile, text, true);
}

void TicketArchive::Settle(const std::string& workFile, std::string_view text, bool copied) {
  remembered_.Settle(FileNameOf(workFile), {copied, FingerprintOf(text)});
}

bool TicketArchive::IsSettled(const std::string& workFile) const {
  const auto& settled = remembered_.Get().settled;
  return !settled.empty() && settled.contains(FileNameOf(workFile));
}

void TicketArchive::RetrySettled() {
  if (remembered_.Get().settled.empty()) return;
  // A copy, since removed files are forgotten.
  for (const auto& [name, file] : std::map(remembered_.Get().settled)) {
    const std::string workFile = settings_.InProcessFolder + name;
    try {
      if (!folders_.Exists(settings_.InProcessFolder)) return;  // see HasGone
      const bool isThere = files_.Exists(workFile);
      if (isThere && FingerprintOf(ReadWhole(files_, workFile)) == file.text) MoveSettled(workFile, file);
      remembered_.ForgetSettled(name);
    } catch (const SystemError&) {
      // Already logged at the first failure.
    }
  }
}

void TicketArchive::MoveSettled(const std::string& workFile, RememberedFiles::Settled file) {
  const bool moved = !file.copied && MoveOrCopy(files_, workFile, AbortPath(workFile));
  if (moved) return;
  file.copied = true;
  remembered_.Settle(FileNameOf(workFile), file);
  RemoveReadOnlyToo(files_, workFile);
}

void TicketArchive::ReportMissingDrive(const std::string& folder) {
  const std::string text = LoadMessage(MessageId::kDriveUnavailable) + " " + folders_.DriveOf(folder);
  logs_.WrErr(std::string(text));
  messages_.ShowOperatorMessage(text, {MessageIcon::kStop}, LoadMessage(MessageId::kWarning));
}

}  // namespace orvenza
