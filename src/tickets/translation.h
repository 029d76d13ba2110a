#pragma once

#include <string>
#include <string_view>

#include "core/logs.h"
#include "core/settings.h"
#include "device/register_identity.h"
#include "platform/files.h"
#include "tickets/noted_fields.h"
#include "tickets/record.h"

namespace orvenza {

/// The translation of a valid logo record: not a command but a logo to download.
inline constexpr char kLongRunningMark = '*';

/// Whether a translation is a long-running command: a report ("20..") or a fiscal closure ("3001", "3002")
/// with its mark. Other commands may end in a text with that character.
bool IsLongRunning(std::string_view translation);

/// Translates the records of ticket lines into the register's command texts, according to the register's
/// model and the current settings.
class RecordTranslator {
 public:
  /// `files` is used to check logo bitmaps; invalid ones are reported to `logs`. All must outlive the
  /// translator.
  RecordTranslator(const RegisterIdentity& identity, const AppSettings& settings, const FileReader& files,
                   Logs& logs);

  /// The command of a record: code, values and fixed characters without gaps, followed by kLongRunningMark
  /// for long-running ones; kLogoMarker for a logo record; "" when the record is invalid. If `notes` is
  /// given, adds the use of each field that was read.
  std::string TranslateRecord(const RecordFields& fields, TranslationNotes* notes = nullptr) const;

 private:
  const RegisterIdentity& identity_;
  const AppSettings& settings_;
  const FileReader& files_;
  Logs& logs_;
};

/// How the translation uses the fields of a record, independent of the register and the settings. No file is
/// checked: any path counts as a bitmap's.
TranslationNotes NotesOf(const RecordFields& fields);

}  // namespace orvenza
