#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "core/journals.h"
#include "core/poll_timer.h"
#include "core/settings.h"
#include "device/clock_correction.h"
#include "device/device_link.h"
#include "device/register_queries.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "tickets/ticket_archive.h"
#include "tickets/ticket_processor.h"
#include "tickets/ticket_splitter.h"
#include "ui/utilities_dialog.h"

namespace orvenza {

/// Whether the first line of the host's command file, which exists, asks the program to end: "QUIT", or
/// nothing at all. Throws SystemError.
bool AsksToQuit(const Files& files, const std::string& commandFile);

/// The polling loop's work on each tick of `Timer1`: the host's command file, then at most one ticket, then
/// the clock.
class TicketPolling : public WaitingTickets {
 public:
  /// The files of a folder, oldest first and by name within one second: letter case ignored, and numbers in
  /// names by their value, so that the tenth part of a split file comes behind its ninth. An entry is the 14
  /// digits "yyyymmddhhmmss" of the modification time followed by the name.
  using SortedList = std::vector<std::string>;

  TicketPolling(Files& files, Folders& folders, const AppSettings& settings, Journals& journals,
                PollTimer& timer, DeviceLink& link, RegisterQueries& queries,
                ClockCorrection& clockCorrection, TicketSplitter& splitter, TicketProcessor& processor,
                TicketArchive& archive);

  /// One tick, with polling switched off meanwhile. Throws ProgramEnd when the host asks for the end.
  void Tick();

  /// Reads `List1`, the new tickets, again. Throws SystemError; the list is then empty.
  void RefreshNewList();

  /// Reads `List2`, the tickets taken in, again, making their folder where it has gone. Throws SystemError;
  /// the list is then empty.
  void RefreshInProcessList();

  /// Reads the new tickets again and counts those still to be printed.
  std::size_t CountWaitingTickets() override;
  void PutLast(const std::string& name) override;

 private:
  SortedList ReadList(const std::string& folder) const;
  /// The command file and the journals where they lie in `folder`, in capitals: no mask makes tickets of
  /// them.
  std::vector<std::string> OwnNames(const std::string& folder) const;
  bool QuitAsked();
  [[noreturn]] void Quit();
  void ProcessOneTicket();
  void ChooseFile(std::string& file);
  std::string FirstInProcess();
  std::string TakeInNext();
  void TakeIn(const std::string& entry, const std::string& file);
  bool IsTakenIn(const std::string& entry);
  void RemoveSource(const std::string& entry);
  void CorrectClock();

  Files& files_;
  Folders& folders_;
  const AppSettings& settings_;
  Journals& journals_;
  PollTimer& timer_;
  DeviceLink& link_;
  RegisterQueries& queries_;
  ClockCorrection& clockCorrection_;
  TicketSplitter& splitter_;
  TicketProcessor& processor_;
  TicketArchive& archive_;

  SortedList list1_;
  SortedList list2_;
  std::map<std::string, int>
      left_;  // files that could not be read, with their tries and the ticks passed over
  std::map<std::string, int> refused_;  // the same for entries of new tickets that could not be taken in
  /// Entries of new tickets whose file could not be removed after the copy, and their text where it could be
  /// read.
  std::map<std::string, std::optional<std::string>> takenIn_;
};

}  // namespace orvenza
