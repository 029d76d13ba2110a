#include "platform/windows/console_buffer.h"

#include <windows.h>

#include "platform/windows/wide.h"

namespace orvenza {
namespace {

/// In bytes; far below the most that a console accepts at once.
constexpr std::size_t kMost = 4096;

bool EndsACharacter(char last) { return (static_cast<unsigned char>(last) & 0x80) == 0; }

bool WriteAll(HANDLE console, std::wstring_view text) {
  while (!text.empty()) {
    DWORD written = 0;
    if (!::WriteConsoleW(console, text.data(), static_cast<DWORD>(text.size()), &written, nullptr) ||
        written == 0)
      return false;
    text.remove_prefix(written);
  }
  return true;
}

}  // namespace

ConsoleBuffer::int_type ConsoleBuffer::overflow(int_type character) {
  if (traits_type::eq_int_type(character, traits_type::eof())) return traits_type::not_eof(character);
  pending_ += traits_type::to_char_type(character);
  const bool full = pending_.size() >= kMost && EndsACharacter(pending_.back());
  return full && sync() != 0 ? traits_type::eof() : character;
}

int ConsoleBuffer::sync() {
  if (pending_.empty()) return 0;
  const std::wstring text = ToWide(pending_);
  pending_.clear();
  return WriteAll(console_, text) ? 0 : -1;
}

}  // namespace orvenza
