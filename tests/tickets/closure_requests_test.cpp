#include "tickets/closure_requests.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "platform/system_error.h"
#include "simulator/virtual_clock.h"
#include "simulator/virtual_disk.h"
#include "support/faulty_files.h"

namespace orvenza::test {
namespace {

const std::string kFolder = "C:\\Orvenza\\data\\";
const std::string kRequest = kFolder + "zzzzzzzzzzzzzzzz.txt";

class ClosureRequestsTest : public ::testing::Test {
 protected:
  ClosureRequestsTest() {
    disk.MakeFolder("C:\\Orvenza\\data");
    settings.TicketFolder = kFolder;
    settings.TicketMask = "*.txt";
    settings.SeparatorChar = '|';
    settings.ErrPath = "C:\\Orvenza\\Err.txt";
  }

  std::string ContentOf(const std::string& path) { return disk.Content(path).value_or("(no file)"); }

  /// The modification time of a file in the ticket folder.
  LocalTime Modified(const std::string& name) {
    return disk.FolderSeam().ListFolder(kFolder + name)[0].modified;
  }

  VirtualClock clock;
  VirtualDisk disk{clock};
  FaultyFiles files{disk.FileSeam()};
  AppSettings settings;
  Logs logs{files, clock, settings, "C:\\Orvenza"};
  RememberedTickets remembered{files, logs, "C:\\Orvenza"};
  ClosureRequests requests{files, disk.FolderSeam(), settings, logs, remembered};
};

TEST_F(ClosureRequestsTest, WritesTheRecordTypeOfTheKindAndNineSeparators) {
  const std::pair<int, const char*> cases[] = {
      {0, "21|||||||||\r\n"}, {1, "22|||||||||\r\n"}, {2, "21|||||||||\r\n"}, {-1, "21|||||||||\r\n"}};
  for (const auto& [kind, line] : cases) {
    EXPECT_TRUE(requests.WriteClosureRequest(kind));
    EXPECT_EQ(ContentOf(kRequest), line) << kind;
  }
}

TEST_F(ClosureRequestsTest, WritesTheSeparatorOfTheSettings) {
  settings.SeparatorChar = 127;
  requests.WriteClosureRequest(1);
  EXPECT_EQ(ContentOf(kRequest), "22\x7F\x7F\x7F\x7F\x7F\x7F\x7F\x7F\x7F\r\n");
}

TEST_F(ClosureRequestsTest, NamesTheRequestAfterTheMask) {
  const std::pair<const char*, const char*> cases[] = {
      {"*.txt", "zzzzzzzzzzzzzzzz.txt"},
      {"*.dat", "zzzzzzzzzzzzzzzz.dat"},
      {"*.*", "zzzzzzzzzzzzzzzz."},
      {"sc*.txt", "sczzzzzzzzzzzzzzzz.txt"},
      {"", "zzzzzzzzzzzzzzzz"},
      {"sc*_*.txt", "sczzzzzzzzzzzzzzzz_.txt"},
      {"sc????.txt", "sczzzz.txt"},
      {"scontrino.txt", "scontrino.txt"},
      {"*?.txt", "zzzzzzzzzzzzzzzzz.txt"},
      {"*_??.txt", "zzzzzzzzzzzzzzzz_zz.txt"},
  };
  for (const auto& [mask, name] : cases) {
    settings.TicketMask = mask;
    std::string written;
    files.Before("Write", [&](const std::string& path) { written = path; });
    requests.WriteClosureRequest(0);
    EXPECT_EQ(written, kFolder + name) << mask;
  }
}

TEST_F(ClosureRequestsTest, ReplacesNoWaitingTicketWhereAllHaveOneName) {
  settings.TicketMask = "scontrino.txt";
  disk.Put(kFolder + "scontrino.txt", "2|1|0|\r\n");
  EXPECT_FALSE(requests.WriteClosureRequest(0));
  EXPECT_EQ(ContentOf(kFolder + "scontrino.txt"), "2|1|0|\r\n");
  EXPECT_EQ(
      ContentOf(settings.ErrPath),
      "16/11/2026 09:00:00 - Orv_Uti - 58 - File already exists ( C:\\Orvenza\\data\\scontrino.txt )\r\n");
}

TEST_F(ClosureRequestsTest, GivesTheRequestTheTimeOfTheYoungestTicket) {
  const LocalTime later{2026, 11, 16, 10, 0, 0};
  disk.Put(kFolder + "a.txt", "", later);
  disk.Put(kFolder + "b.txt", "");
  EXPECT_TRUE(requests.WriteClosureRequest(0));
  EXPECT_EQ(Modified("zzzzzzzzzzzzzzzz.txt"), later);
}

TEST_F(ClosureRequestsTest, KeepsItsOwnTimeBehindOlderTickets) {
  disk.Put(kFolder + "a.txt", "", LocalTime{2026, 11, 16, 8, 0, 0});
  EXPECT_TRUE(requests.WriteClosureRequest(0));
  EXPECT_EQ(Modified("zzzzzzzzzzzzzzzz.txt"), clock.Now());
}

TEST_F(ClosureRequestsTest, StandsThoughItCannotBePutLast) {
  disk.Put(kFolder + "a.txt", "", LocalTime{2026, 11, 16, 10, 0, 0});
  files.FailNext("CopyModified", error_number::kPermissionDenied);
  EXPECT_TRUE(requests.WriteClosureRequest(0));
  EXPECT_EQ(ContentOf(kRequest), "21|||||||||\r\n");
  EXPECT_EQ(ContentOf(settings.ErrPath),
            "16/11/2026 09:00:00 - Orv_Uti - 70 - Permission denied ( C:\\Orvenza\\data\\a.txt )\r\n");
}

TEST_F(ClosureRequestsTest, LogsARequestThatCannotBeWritten) {
  files.FailNext("Write", error_number::kDiskFull);
  EXPECT_FALSE(requests.WriteClosureRequest(0));
  EXPECT_EQ(ContentOf(settings.ErrPath),
            "16/11/2026 09:00:00 - Orv_Uti - 61 - Disk full ( C:\\Orvenza\\data\\zzzzzzzzzzzzzzzz.txt )\r\n");
}

TEST_F(ClosureRequestsTest, CountsTheTicketsThatAreYetToBePrinted) {
  EXPECT_EQ(requests.CountWaitingTickets(), 0U);
  for (const char* name : {"a.txt", "b.txt", "c.dat"}) disk.Put(kFolder + name, "");
  EXPECT_EQ(requests.CountWaitingTickets(), 2U);
  remembered.TakeIn("20261116090000a.txt", {});
  EXPECT_EQ(requests.CountWaitingTickets(), 1U) << "a copy of a.txt is printed";
}

TEST_F(ClosureRequestsTest, CannotCountTicketsOfAFolderThatIsAway) {
  disk.SetAway("C:", true);
  EXPECT_THROW(requests.CountWaitingTickets(), SystemError);
}

}  // namespace
}  // namespace orvenza::test
