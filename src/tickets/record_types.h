#pragma once

#include <span>
#include <string>
#include <string_view>

#include "tickets/noted_fields.h"

namespace orvenza {

class FileReader;
class Logs;
struct AppSettings;
struct RegisterIdentity;

/// Everything besides the record that affects its translation.
struct TranslationContext {
  const RegisterIdentity& identity;
  const AppSettings& settings;
  const FileReader* files;  ///< Null: bitmaps are not checked, any path is accepted.
  Logs* logs;               ///< Receives reports of invalid bitmaps; null only without files.
};

/// The properties of a type that matter for whole tickets.
struct RecordRoles {
  /// In a file of several tickets, another one begins after it ...
  bool closesTicket = false;
  /// ... but not with a line of this type, nor with another one that closes.
  bool followsClosing = false;
  /// After it a receipt or a document is open.
  bool opens = false;
  /// After it no receipt or document needs to be open.
  bool endsReceipt = false;
  /// It completes something on paper: its ticket must not be printed again without a question. A long-running
  /// command always does.
  bool completes = false;
  /// It is a closure or a report: it must not overtake an older ticket.
  bool reports = false;
  /// It is not part of a receipt or a document.
  bool standsAlone = false;
};

struct RecordType {
  std::string_view type;  ///< Compared as text: "01" is not type 1.
  /// The command of a record; "" for an invalid one; see RecordTranslator.
  std::string (*translate)(const NotedFields& fields, const TranslationContext& context);
  RecordRoles roles{};
};

/// The line that closes the first part of a receipt that is too long: payment 01 of zero. Its separator is
/// always 127, whatever is configured.
inline constexpr std::string_view kReceiptSplitLine =
    "2\x7f"
    "1\x7f"
    "0\x7f\x7f\x7f\x7f\x7f\x7f\x7f\x7f";

/// All record types, in ascending order of their numbers.
std::span<const RecordType> RecordTypes();

/// The record type of this name; null when there is none. An empty type is not known here.
const RecordType* FindRecordType(std::string_view type);

/// Whether records of this type have a role, such as `&RecordRoles::completes`.
bool HasRole(std::string_view type, bool RecordRoles::*role);

/// Whether a record of this type completes something on paper: a receipt, a document, a closure, a report.
bool MayComplete(std::string_view type);

}  // namespace orvenza
