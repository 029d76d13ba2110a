#include "platform/windows/console_buffer.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <ostream>

#include "platform/windows/unique_handle.h"
#include "platform/windows/wide.h"

namespace orvenza::test {
namespace {

/// A hidden console screen buffer. If the tests have no console, one is created.
class ConsolePage {
 public:
  ConsolePage() {
    if (Make()) return;
    ::FreeConsole();
    ::AllocConsole();
    Make();
  }
  ConsolePage(const ConsolePage&) = delete;
  ConsolePage& operator=(const ConsolePage&) = delete;

  HANDLE Handle() const { return page_.Get(); }

  std::string Line(SHORT number, DWORD length) const {
    std::wstring line(length, L' ');
    DWORD read = 0;
    ::ReadConsoleOutputCharacterW(Handle(), line.data(), length, {0, number}, &read);
    return ToUtf8(line.substr(0, read));
  }

 private:
  bool Make() {
    page_ = FileHandle(::CreateConsoleScreenBuffer(GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                                   CONSOLE_TEXTMODE_BUFFER, nullptr));
    return page_.Valid();
  }

  FileHandle page_;
};

TEST(ConsoleBuffer, WritesEachCharacterOnce) {
  const ConsolePage page;
  ASSERT_NE(page.Handle(), INVALID_HANDLE_VALUE);
  ConsoleBuffer buffer(page.Handle());
  std::ostream out(&buffer);
  out << "perch\u00E9 caff\u00E8 ?\r\n"
      << "\u00E0" << std::flush;
  EXPECT_TRUE(out.good());
  EXPECT_EQ(page.Line(0, 16), "perch\u00E9 caff\u00E8 ?  ");
  EXPECT_EQ(page.Line(1, 3), "\u00E0  ");
}

TEST(ConsoleBuffer, TakesTextsOfAnyLength) {
  const ConsolePage page;
  ConsoleBuffer buffer(page.Handle());
  std::ostream out(&buffer);
  // 4093 bytes: the second of the letters after them crosses the limit of what is buffered.
  out << "\r";
  for (int i = 0; i < 1364; ++i) out << "xy\r";
  out << "\u00E8\u00E8\u00E8\u00E8 fine" << std::flush;
  EXPECT_TRUE(out.good());
  EXPECT_EQ(page.Line(0, 10), "\u00E8\u00E8\u00E8\u00E8 fine ");
}

TEST(ConsoleBuffer, FailsItsStreamWhereNothingCanBeWritten) {
  ConsoleBuffer buffer(INVALID_HANDLE_VALUE);
  std::ostream out(&buffer);
  out << "x" << std::flush;
  EXPECT_FALSE(out.good());
}

}  // namespace
}  // namespace orvenza::test
