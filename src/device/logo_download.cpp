#include "device/logo_download.h"

#include <algorithm>
#include <cstdio>
#include <optional>

#include "core/catalogue.h"
#include "device/doubt_policy.h"
#include "device/logo_check.h"
#include "platform/system_error.h"

namespace orvenza {
namespace {

/// How often a row is sent again without a question to the operator.
constexpr int kSilentRepeats = 3;

std::string Hexadecimal(std::string_view bytes) {
  constexpr const char* kDigits = "0123456789ABCDEF";
  std::string text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
  }
  return text;
}

std::string RowCommand(const std::string& number, std::size_t counter, const std::string& row) {
  char digits[24];
  std::snprintf(digits, sizeof digits, "%03zu", counter);
  return "4052" + number + digits + row;
}

}  // namespace

std::vector<std::string> ReadLogoRows(const FileReader& files, const std::string& path) {
  const std::optional<std::uint32_t> count = LogoRows(files, path);
  const std::size_t length = kLogoDataOffset + count.value_or(0) * kLogoRowBytes;
  const std::string bytes = ReadWhole(files, path, length);
  if (!count || bytes.size() < length) throw SystemError(error_number::kDeviceError, path);
  std::vector<std::string> rows;
  for (std::size_t row = *count; row-- > 0;) {
    rows.push_back(
        Hexadecimal(std::string_view(bytes).substr(kLogoDataOffset + row * kLogoRowBytes, kLogoRowBytes)));
  }
  return rows;
}

bool LogoDownload::Download(const std::string& number, const std::string& path,
                            const std::string& commandLine, const std::function<void()>& givenUp) {
  const auto rows = logs_.Attempt("Trasmissione ", [&] { return ReadLogoRows(files_, path); });
  if (rows && SendRows(number, *rows, commandLine, givenUp)) return true;
  messages_.ShowOperatorMessage(LoadMessage(MessageId::kCheckPower), {MessageIcon::kExclamation},
                                LoadMessage(MessageId::kWarning));
  return false;
}

bool LogoDownload::SendRows(const std::string& number, const std::vector<std::string>& rows,
                            const std::string& commandLine, const std::function<void()>& givenUp) {
  int silentRepeats = 0;
  for (std::size_t row = 0; row < rows.size();) {
    const std::string command = RowCommand(number, row + 1, rows[row]);
    const Reply reply = link_.Exchange(command);
    if (!reply.Is(Reply::Kind::kDone) && OnTrouble) OnTrouble(command, reply);
    if (PolicyOf(settings_).IsDone(CommandUse::kOther, reply)) {
      ++row;
      silentRepeats = 0;
      continue;
    }
    const Decision decision = recovery_.DecodeDeviceError(reply, commandLine, Choices::kOffered);
    if (decision == Decision::kAbort) givenUp();
    link_.Bounce();
    switch (decision) {
      case Decision::kPrinted: ++row; break;
      case Decision::kReprint: row = 0; break;
      case Decision::kAbort: return false;
      case Decision::kNothing:
        if (++silentRepeats > kSilentRepeats) return false;
        break;
      case Decision::kGoOn: break;
    }
  }
  return true;
}

}  // namespace orvenza
