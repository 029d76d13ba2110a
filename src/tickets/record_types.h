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

/// What a translation depends on besides the record.
struct TranslationContext {
  const RegisterIdentity& identity;
  const AppSettings& settings;
  const FileReader* files;  ///< Null: no bitmap is looked at, any path will do.
  Logs* logs;               ///< Hears of wrong bitmaps; null only without files.
};

/// What the handling of whole tickets depends on.
struct RecordRoles {
  /// In a file of several tickets, another one begins behind it ...
  bool closesTicket = false;
  /// ... but not with such a line, nor with another one that closes.
  bool followsClosing = false;
  /// After it no receipt or document need be open any more.
  bool endsReceipt = false;
  /// It leaves something on paper for good: its ticket must not be printed again unasked. A long-running
  /// command always does.
  bool completes = false;
  /// It carries out a closure or a report: it must not overtake an older ticket.
  bool reports = false;
};

/// One record type.
struct RecordType {
  std::string_view type;  ///< Compared exactly: "01" is not type 1.
  /// The command of a record, "" for an invalid one; see RecordTranslator.
  std::string (*translate)(const NotedFields& fields, const TranslationContext& context);
  RecordRoles roles{};
};

/// All record types, in ascending order of their numbers.
std::span<const RecordType> RecordTypes();

/// The record type of this name; null when there is none. An empty type is none here.
const RecordType* FindRecordType(std::string_view type);

/// Whether records of this type have a role, such as `&RecordRoles::completes`.
bool HasRole(std::string_view type, bool RecordRoles::*role);

}  // namespace orvenza
