#include "simulator/command_fields.h"

namespace orvenza {
namespace {

std::string WithoutTrailingBlanks(std::string_view text) {
  return std::string(text.substr(0, text.find_last_not_of(' ') + 1));
}

}  // namespace

std::int64_t CommandFields::Digits(std::size_t count) {
  std::int64_t number = 0;
  for (const char c : Take(count)) {
    if (c < '0' || c > '9') fits_ = false;
    number = number * 10 + (c - '0');
  }
  NoteValue(count);
  return fits_ ? number : 0;
}

std::int64_t CommandFields::DigitsBetween(std::size_t count, std::int64_t least, std::int64_t most) {
  const std::int64_t number = Digits(count);
  if (number < least || number > most) fits_ = false;
  return fits_ ? number : 0;
}

std::string CommandFields::Text(std::size_t count) { return WithoutTrailingBlanks(Take(count)); }

std::string CommandFields::Remaining(std::size_t most) {
  if (rest_.size() > most) fits_ = false;
  return fits_ ? Text(rest_.size()) : std::string();
}

void CommandFields::Literal(std::string_view text) {
  if (Take(text.size()) != text) fits_ = false;
  NoteValue(text.size());
}

void CommandFields::NoteValue(std::size_t count) {
  if (values_ != nullptr && fits_) values_->push_back({size_ - rest_.size() - count, count});
}

std::string_view CommandFields::Take(std::size_t count) {
  if (rest_.size() < count) fits_ = false;
  if (!fits_) return {};
  const auto taken = rest_.substr(0, count);
  rest_.remove_prefix(count);
  return taken;
}

}  // namespace orvenza
