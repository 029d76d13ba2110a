#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "core/logs.h"
#include "platform/files.h"
#include "tickets/ticket_listing.h"

namespace orvenza {

/// Identifies a text by its length in bytes and a hash.
struct Fingerprint {
  std::uint64_t size = 0;
  std::uint64_t digest = 0;
  bool operator==(const Fingerprint&) const = default;
};

Fingerprint FingerprintOf(std::string_view text);

/// Tickets whose files still exist although they must not be printed (again).
struct RememberedFiles {
  struct Settled {
    bool copied = false;  ///< The historic or the abort folder has a copy: the file only needs to be removed.
    Fingerprint text;
    bool operator==(const Settled&) const = default;
  };

  /// Entries of the ticket folder (see TicketListing) that were copied but could not be removed, with a
  /// fingerprint of their text if it could be read.
  std::map<std::string, std::optional<Fingerprint>> takenIn;
  /// Names of processed files that are still in the in-process folder.
  std::map<std::string, Settled> settled;

  bool Empty() const { return takenIn.empty() && settled.empty(); }
};

/// Path of their file, a small INI file in the program folder (given without a trailing "\").
std::string RememberedFilesPath(const std::string& programFolder);

/// Parses that file. A damaged line is skipped.
RememberedFiles ParseRememberedFiles(std::string_view text);
std::string RememberedFilesText(const RememberedFiles& files);

/// Remembers such tickets, across restarts: each change is on the disk on return. The file exists only while
/// there is something to remember. Its failures never stop anything; of consecutive ones only the first goes
/// to the error log.
class RememberedTickets {
 public:
  RememberedTickets(Files& files, Logs& logs, const std::string& programFolder)
      : files_(files), logs_(logs), path_(RememberedFilesPath(programFolder)) {}

  const std::string& Path() const { return path_; }

  /// Reads what earlier runs left behind and writes changes that could not be written so far, until both have
  /// succeeded. Call it on each tick before looking for a ticket. False while the file cannot be read, for at
  /// most ten ticks: then printing goes on without it, and it is not overwritten until it has been read.
  [[nodiscard]] bool Recall();

  const RememberedFiles& Get() const { return remembered_; }

  void TakeIn(const std::string& entry, std::optional<Fingerprint> text);
  void ForgetTakenIn(const std::string& entry);
  /// Forgets entries that are no longer in the list.
  void KeepTakenIn(const TicketListing::SortedList& list);

  void Settle(const std::string& name, const RememberedFiles::Settled& file);
  void ForgetSettled(const std::string& name);

 private:
  void Read();
  void Save();
  bool Attempt(const std::function<void()>& step);

  Files& files_;
  Logs& logs_;
  std::string path_;
  RememberedFiles remembered_;
  int tries_ = 0;          // attempts to read the file
  bool recalled_ = false;  // the file was read or does not exist
  bool unsaved_ = false;   // the file is out of date
  bool told_ = false;      // the current failure is in the error log
};

}  // namespace orvenza
