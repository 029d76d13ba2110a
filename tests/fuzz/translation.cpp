// A ticket line for any register. Properties: it becomes nothing, a logo, or a command of ASCII characters
// that begins with its code; the notes and the ticket check agree with it.

#include "tickets/translation.h"

#include <algorithm>

#include "choices.h"
#include "core/text.h"
#include "lab/check/check_rules.h"
#include "lab/check/ticket_check.h"
#include "memory_shop.h"
#include "targets.h"
#include "tickets/logo_request.h"

namespace orvenza::fuzz {
namespace {

constexpr std::string_view kModels[] = {"",           "  TOVEST 8", "TOVEST ETH", "  315 KV  ",
                                        "QUARNIS  A", "  MELDANO ", " 40 ZAFRON"};
constexpr std::string_view kReleases[] = {"", "1.00.00", "  2.04.00", "2.03.99", "9999999999", "x"};
constexpr char kSeparators[] = {';', 127, ',', ' ', '1', 0};
constexpr std::size_t kCodeLength = 4;

/// With another separator, 127 is an ordinary character.
bool IsAscii(char c) { return c >= ' ' && static_cast<unsigned char>(c) <= 127; }

}  // namespace

void FuzzTranslation(std::string_view input) {
  Choices choices(input);
  MemoryShop shop;
  shop.disk.Put("C:\\logo.bmp", "BM");
  const RegisterIdentity identity =
      IdentityOf(std::string(choices.Of(kModels)), std::string(choices.Of(kReleases)));
  shop.settings.SeparatorChar = choices.Of(kSeparators);
  shop.settings.SingleQuantity = choices.Yes();
  const std::string_view line = choices.Rest();

  const RecordTranslator translator(identity, shop.settings, shop.disk.FileSeam(), shop.logs);
  RecordFields fields;
  SplitRecord(line, shop.settings.SeparatorChar, fields);
  const std::string command = translator.TranslateRecord(fields);
  if (!command.empty() && command != kLogoMarker) {
    Require(command.size() >= kCodeLength && OnlyDigits(std::string_view(command).substr(0, kCodeLength)),
            "a command begins with its code");
    Require(std::all_of(command.begin(), command.end(), IsAscii),
            "a command is ASCII without control characters");
  }
  TranslationNotes notes;
  Require(translator.TranslateRecord(fields, &notes) == command, "notes change nothing");
  TicketFindings findings;
  CheckRules rules{shop.settings, identity};
  TicketCheck check(rules, shop.disk.FileSeam(), shop.clock);
  check.BeginFile();
  Require(check.Check(line, findings) == command, "the checker of tickets translates in the same way");
}

}  // namespace orvenza::fuzz
