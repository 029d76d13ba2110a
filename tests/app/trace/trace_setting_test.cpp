#include "app/trace/trace_setting.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/ini_text.h"

namespace orvenza::test {
namespace {

TraceSetting Read(const std::string& value) {
  const IniText content(
      "[Database]\nTicketFiles=D:\\cassa\\*.txt\nHistoricTickets=E:\\storico\n[Host]\nTrace=" + value + "\n");
  return ReadTraceSetting(content, {"C:\\Orvenza", "Orvenza"});
}

TEST(TraceSetting, IsOffWithoutAValue) {
  EXPECT_EQ(ReadTraceSetting(IniText("[Host]\n"), {"C:\\Orvenza", "Orvenza"}).path, "");
  EXPECT_EQ(Read("  ").path, "");
  EXPECT_EQ(Read("").refused, "");
}

TEST(TraceSetting, LiesInTheProgramFolderUnlessItIsWhole) {
  EXPECT_EQ(Read("trace.txt").path, "C:\\Orvenza\\trace.txt");
  EXPECT_EQ(Read("log/spur").path, "C:\\Orvenza\\log\\spur");
  EXPECT_EQ(Read("F:\\spur\\t.log").path, "F:\\spur\\t.log");
  EXPECT_EQ(Read("/var/log/spur").path, "\\var\\log\\spur");
}

TEST(TraceSetting, RefusesWhatMayNotBeWrittenTo) {
  for (const char* value :
       {"log\\", "C:trace.txt", "a?b.txt", "..", "\\\\server\\share\\t.txt", "Orvenza.ini", "LOG.TXT",
        "err.bak", "Err.txt", "command.txt", "Remembered.ini", "D:\\cassa\\t.txt",
        "d:\\CASSA\\.\\inproces\\t.txt", "D:\\cassa\\abort\\t.txt", "E:\\storico\\t.txt"}) {
    EXPECT_EQ(Read(value).refused, value);
    EXPECT_EQ(Read(value).path, "") << value;
  }
}

}  // namespace
}  // namespace orvenza::test
