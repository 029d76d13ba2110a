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

/// The translation of a valid logo record: no command, but a logo to download.
inline constexpr std::string_view kLogoMarker = "BMP";

/// Ends the translation of a long-running command. It is not sent.
inline constexpr char kLongRunningMark = '*';

/// Whether a translation is a long-running command: a report ("20..") or a fiscal closure ("3001", "3002")
/// with its mark. Any other command may end in a text that ends in that character.
bool IsLongRunning(std::string_view translation);

/// What a logo record asks for.
struct LogoRequest {
  /// The number in F1, a fraction rounded (a half up), as the download sends it: in two digits, "00" where F1
  /// begins with none, more digits above 99.
  std::string number;
  std::string path;  ///< F2, with "\" between its levels.
};
LogoRequest LogoRequestOf(const RecordFields& fields);

/// Turns the records of ticket lines into the register's command texts, by the register's model and the
/// settings as they stand at each call.
class RecordTranslator {
 public:
  /// `files` is asked about logo bitmaps, `logs` hears of wrong ones. All must outlive the translator.
  RecordTranslator(const RegisterIdentity& identity, const AppSettings& settings, const Files& files,
                   Logs& logs);

  /// The command of a record: code, values and fixed characters with nothing between them, long-running ones
  /// followed by kLongRunningMark; kLogoMarker for a logo record; "" when the record is invalid. Adds to
  /// `notes`, where given, what became of each field that was asked for.
  std::string TranslateRecord(const RecordFields& fields, TranslationNotes* notes = nullptr) const;

 private:
  const RegisterIdentity& identity_;
  const AppSettings& settings_;
  const Files& files_;
  Logs& logs_;
};

}  // namespace orvenza
