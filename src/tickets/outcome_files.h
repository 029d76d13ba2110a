#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/logs.h"
#include "core/settings.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "tickets/outcome.h"

namespace orvenza {

/// Whether outcomes must not be written into the folder of the settings: it is searched for tickets, lies in
/// one that is, or in the historic folder, whose rotation would take it away, or is the program folder
/// `appPath` (without a trailing "\"). Paths are compared as texts, see NormalisedFolder.
[[nodiscard]] bool OutcomesFolderIsRefused(const AppSettings& settings, const std::string& appPath);

/// The name of a ticket's outcome, unless an older one has it.
[[nodiscard]] std::string OutcomeName(const std::string& ticket);

/// An outcome and its file.
struct OutcomeFile {
  std::string path;                          ///< Empty while there is no such file.
  ReceiptState written = ReceiptState::kNo;  ///< What the file says about the receipt.
  Outcome outcome;
};

/// The files with outcomes: one per ticket, named after it. Their failures never stop anything: one line goes
/// to the error log, at most one a minute, and the file is written later.
class OutcomeFiles {
 public:
  OutcomeFiles(Files& files, Folders& folders, Logs& logs) : files_(files), folders_(folders), logs_(logs) {}

  /// Uses this folder, which ends in "\", and creates it if it is missing.
  void Open(const std::string& folder);

  /// Writes the outcome, under a free name if it has no file yet. If that fails, the file is written later,
  /// with what the outcome says by then.
  void Save(const std::shared_ptr<OutcomeFile>& file);

  /// Writes what could not be written so far; every ten seconds at most. Call it on each tick.
  void SaveLate();

  /// The outcome that an earlier run has begun for this ticket, whatever its text if that is empty. Null if
  /// there is none; `unreadable` is set if that cannot be said.
  [[nodiscard]] std::shared_ptr<OutcomeFile> FindStarted(const std::string& ticket,
                                                         const std::optional<Fingerprint>& text,
                                                         bool& unreadable);

 private:
  void WriteLate();
  [[nodiscard]] bool IsPaused() const { return pausedUntil_ && Now() < *pausedUntil_; }
  [[nodiscard]] bool Write(OutcomeFile& file);
  void WriteInFolder(const std::string& path, const std::string& text);
  [[nodiscard]] std::string FreePath(const std::string& ticket) const;
  [[nodiscard]] std::vector<std::string> NewestOf(const std::string& ticket) const;
  void RemoveOutdated(OutcomeFile& file);
  [[nodiscard]] bool Attempt(const std::function<void()>& step);
  [[nodiscard]] std::chrono::nanoseconds Now() const { return logs_.StampClock().Uptime(); }

  Files& files_;
  Folders& folders_;
  Logs& logs_;
  std::string folder_;
  std::vector<std::shared_ptr<OutcomeFile>> late_;  // to be written, the oldest first
  std::optional<std::chrono::nanoseconds> told_;    // when a failure was written to the error log
  std::optional<std::chrono::nanoseconds> pausedUntil_;
  std::chrono::nanoseconds tried_{};  // when the late ones were tried
};

}  // namespace orvenza
