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

/// The basis of a check: the relevant settings (separator, "Single Quantity", "File Parser") and the
/// register.
struct CheckRules {
  AppSettings settings;
  RegisterIdentity identity;
  std::string settingsNote = {};  ///< A note on the source of the settings; usually "".
};

/// Reads the lines of ticket files like the connector, and reports what becomes of each.
class TicketCheck {
 public:
  /// `files` is only used to look for logo bitmaps; nothing is written.
  TicketCheck(CheckRules rules, const FileReader& files, Clock& clock);
  TicketCheck(const TicketCheck&) = delete;
  TicketCheck& operator=(const TicketCheck&) = delete;

  /// The next line is the first of a file.
  void BeginFile();

  /// Processes the next line of the file. Returns its command as the connector translates it; "" if invalid.
  const std::string& Check(std::string_view line, TicketFindings& findings);

  /// Processes the next line of the file, given only its beginning.
  void Skip(std::string_view beginning, TicketFindings& findings);

  /// The fields of the line processed last. Without fields after Skip.
  const RecordFields& Fields() const { return fields_; }

  /// Whether "File Parser" splits the file before the line processed last.
  bool BeganTicket() const { return beganTicket_; }

  /// Whether any line of the file so far was not blank.
  bool HoldsRecord() const { return holdsRecord_; }

  void EndFile(TicketFindings& findings) { watch_.End("the file ends", findings); }

  /// All record types: "0 to 9, 14, 15".
  static std::string KnownTypes();

 private:
  void FollowParser(std::string_view line, TicketFindings& findings);
  void FindHiddenType(std::string_view line, bool begins, TicketFindings& findings);
  void FindNoFields(std::string_view line, TicketFindings& findings) const;
  std::string TypeMeant() const;
  bool IsUnknownType() const;

  CheckRules rules_;
  NoFiles noFiles_;
  Logs silence_;
  RecordTranslator translator_;
  TicketBoundary boundary_;
  TicketBoundary meant_;          // the same for the types as the translation reads them
  std::uint64_t lines_ = 0;       // of the file so far
  std::uint64_t lastHidden_ = 0;  // number of the last line whose closing type the parser does not recognise
  bool holdsRecord_ = false;
  bool beganTicket_ = false;
  ReceiptWatch watch_;
  RecordFields fields_;
  TranslationNotes notes_;
  std::string command_;
};

}  // namespace orvenza
