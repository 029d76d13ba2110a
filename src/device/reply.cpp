#include "device/reply.h"

#include <utility>

#include "core/text.h"

namespace orvenza {
namespace {

constexpr std::string_view kError = "ERR";

Reply::Kind KindOf(std::string_view text, std::string_view code) {
  if (text.empty()) return Reply::Kind::kSilence;
  if (text.starts_with(kError)) {
    const std::string_view error = Right(text, 2);
    if (text.starts_with("ERR-")) return Reply::Kind::kLinkError;
    if (error == "01" || error == "02") return Reply::Kind::kPaperOut;
    return error == "**" ? Reply::Kind::kInvalidLine : Reply::Kind::kRefused;
  }
  return text.starts_with(code) ? Reply::Kind::kDone : Reply::Kind::kGarbled;
}

}  // namespace

Reply::Reply(std::string text, std::string_view code) : text_(std::move(text)), kind_(KindOf(text_, code)) {}

bool Reply::IsError() const { return text_.starts_with(kError); }

bool Reply::IsError(std::string_view code) const { return IsError() && Code() == code; }

bool Reply::IsReceiptTooLong() const { return IsError() && Middle(text_, 6, 2) == "23"; }

std::string_view Reply::Code() const { return Right(text_, 2); }

std::string Reply::FirstCode() const { return std::string(Middle(text_, 4, 2)); }

}  // namespace orvenza
