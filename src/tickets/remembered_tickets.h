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

/// What a text is recognised by: its length in bytes and a digest of them.
struct Fingerprint {
  std::uint64_t size = 0;
  std::uint64_t digest = 0;
  bool operator==(const Fingerprint&) const = default;
};

Fingerprint FingerprintOf(std::string_view text);

/// Tickets whose files are still there although they must not be printed (again).
struct RememberedFiles {
  struct Settled {
    bool copied = false;  ///< A copy lies in the historic or the abort folder: only the removal is left.
    Fingerprint text;
    bool operator==(const Settled&) const = default;
  };

  /// Entries of the ticket folder (see TicketListing) that were copied but could not be removed, with their
  /// text where it could be read.
  std::map<std::string, std::optional<Fingerprint>> takenIn;
  /// Names of files in the in-process folder whose processing is over.
  std::map<std::string, Settled> settled;

  bool Empty() const { return takenIn.empty() && settled.empty(); }
};

/// Where they are kept: a small file in INI form below the program folder (without a trailing "\").
std::string RememberedFilesPath(const std::string& programFolder);

/// The content of that file. A line that is damaged is passed over.
RememberedFiles ParseRememberedFiles(std::string_view text);
std::string RememberedFilesText(const RememberedFiles& files);

/// Remembers such tickets, also for the next start: each change is on the disk when a call returns. There is
/// no file while there is nothing to remember. Its failures never stop anything; of several in a row the
/// first is written to the error log.
class RememberedTickets {
 public:
  RememberedTickets(Files& files, Logs& logs, const std::string& programFolder)
      : files_(files), logs_(logs), path_(RememberedFilesPath(programFolder)) {}

  const std::string& Path() const { return path_; }

  /// Reads what earlier runs have left, and writes what could not be written so far; does nothing once both
  /// are done. To be called on each tick before a ticket is looked at. False while the file cannot be read,
  /// but for ten ticks at most: printing goes on without it then, and it is not overwritten before it was
  /// read.
  bool Recall();

  const RememberedFiles& Get() const { return remembered_; }

  void TakeIn(const std::string& entry, std::optional<Fingerprint> text);
  void ForgetTakenIn(const std::string& entry);
  /// Forgets entries that are not in the list any more.
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
  int tries_ = 0;          // to read the file
  bool recalled_ = false;  // the file was read, or there was none
  bool unsaved_ = false;   // the file holds something else
  bool told_ = false;      // the error log tells of the failure that lasts
};

}  // namespace orvenza
