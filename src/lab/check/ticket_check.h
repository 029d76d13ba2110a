#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/logs.h"
#include "core/settings.h"
#include "device/register_identity.h"
#include "lab/check/line_findings.h"
#include "lab/check/receipt_watch.h"
#include "lab/shell/no_files.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "tickets/ticket_boundary.h"
#include "tickets/translation.h"

namespace orvenza {

/// By what tickets are checked: the settings that count (separator, "Single Quantity", "File Parser") and the
/// register.
struct CheckRules {
  AppSettings settings;
  RegisterIdentity identity;
  std::string settingsNote = {};  ///< What is to be said of where the settings come from; mostly "".
};

/// Reads the lines of ticket files as the connector does, and says what becomes of each.
class TicketCheck {
 public:
  /// `files` is asked about logo bitmaps; nothing is written.
  TicketCheck(CheckRules rules, const Files& files, Clock& clock);
  TicketCheck(const TicketCheck&) = delete;
  TicketCheck& operator=(const TicketCheck&) = delete;

  /// The next line is the first of a file.
  void BeginFile();

  /// Takes the next line of the file. Its command, as the connector translates it; "" where it is none.
  const std::string& Check(std::string_view line, TicketFindings& findings);

  /// Takes the next line of the file, of which nothing but the beginning is known.
  void Skip(std::string_view beginning, TicketFindings& findings);

  /// Whether any line of the file so far is more than an empty one.
  bool HoldsRecord() const { return holdsRecord_; }

  /// The file is over.
  void EndFile(TicketFindings& findings) { watch_.End("the file ends", findings); }

 private:
  void FollowParser(std::string_view line, TicketFindings& findings);
  void FindHiddenType(std::string_view line, bool begins, TicketFindings& findings);
  void FindNoFields(std::string_view line, TicketFindings& findings) const;
  std::string KnownTypes() const;
  std::string TypeMeant() const;
  bool IsType(std::string_view type) const;
  bool IsUnknownType() const;

  CheckRules rules_;
  NoFiles noFiles_;
  Logs silence_;
  RecordTranslator translator_;
  std::string knownTypes_;
  TicketBoundary boundary_;
  TicketBoundary meant_;          // by the types that the translation reads
  std::uint64_t lines_ = 0;       // of the file, so far
  std::uint64_t lastHidden_ = 0;  // the last of them with a closing type that is not seen as one
  bool holdsRecord_ = false;
  ReceiptWatch watch_;
  RecordFields fields_;
  TranslationNotes notes_;
  std::string command_;
};

}  // namespace orvenza
