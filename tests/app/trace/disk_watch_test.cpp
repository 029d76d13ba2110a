#include "app/trace/disk_watch.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/trace/transcript.h"
#include "simulator/virtual_clock.h"

namespace orvenza::test {
namespace {

using Lines = std::vector<std::string>;

class DiskWatchTest : public ::testing::Test {
 protected:
  DiskWatchTest() {
    settings.TicketFolder = "C:\\Orvenza\\data\\";
    settings.InProcessFolder = "C:\\Orvenza\\data\\inproces\\";
    settings.AbortFolder = "C:\\Orvenza\\data\\abort\\";
    settings.HistoricFolder = "D:\\storico\\";
    watch.SetSettings(settings);
  }

  /// The transcript's line for the event: kind, blank, text.
  std::string Told(const DiskEvent& event) {
    watch.OnDisk(event);
    const TranscriptEvent& told = transcript.Events().back();
    return std::string(told.kind) + " " + told.text;
  }

  VirtualClock clock;
  Transcript transcript{clock, {}};
  AppSettings settings;
  DiskWatch watch{transcript, "C:\\Orvenza"};
};

TEST_F(DiskWatchTest, SpeaksOfTickets) {
  const std::string ticket = "C:\\Orvenza\\data\\1.txt";
  const std::string work = "C:\\Orvenza\\data\\inproces\\1.txt";
  const std::string aborted = "C:\\Orvenza\\data\\abort\\1.txt.abort.txt";
  EXPECT_EQ(Told({DiskAct::kMoved, ticket, work}), "taken 1.txt");
  EXPECT_EQ(Told({DiskAct::kCopied, ticket, work}), "taken 1.txt (a copy)");
  EXPECT_EQ(Told({DiskAct::kMoved, work, "D:\\storico\\7.txt"}), "archived 1.txt as D:\\storico\\7.txt");
  EXPECT_EQ(Told({DiskAct::kCopied, work, aborted}),
            "aborted 1.txt as data\\abort\\1.txt.abort.txt (a copy)");
  EXPECT_EQ(Told({DiskAct::kWritten, work}), "split data\\inproces\\1.txt");
  EXPECT_EQ(Told({DiskAct::kRemoved, ticket}), "deleted data\\1.txt");
}

TEST_F(DiskWatchTest, SpeaksOfOtherFilesByTheirPaths) {
  EXPECT_EQ(Told({DiskAct::kWritten, "C:\\Orvenza\\data\\1.txt"}), "written data\\1.txt");
  EXPECT_EQ(Told({DiskAct::kMoved, "C:\\a.txt", "C:\\b.txt"}), "moved C:\\a.txt to C:\\b.txt");
  EXPECT_EQ(Told({DiskAct::kCopied, "C:\\Orvenza\\Log.txt", "C:\\Orvenza\\Log.Bak"}),
            "copied Log.txt to Log.Bak");
  EXPECT_EQ(Told({DiskAct::kAttributesCleared, "C:\\a.txt"}), "file C:\\a.txt made writable");
  EXPECT_EQ(Told({DiskAct::kAppended, "C:\\a.txt", {}, "x\n"}), "file C:\\a.txt longer by \"x<0A>\"");
  EXPECT_EQ(Told({DiskAct::kFolderMade, "C:\\Orvenza\\data"}), "folder data made");
  EXPECT_EQ(Told({DiskAct::kFolderRenamed, "D:\\storico\\", "D:\\storico_1\\"}),
            "folder D:\\storico\\ renamed D:\\storico_1\\");
}

TEST_F(DiskWatchTest, ShowsTheLogsWithoutTheirStamps) {
  const std::string stamp = "16/11/2026 09:00:00 - ";
  EXPECT_EQ(Told({DiskAct::kAppended, "C:\\Orvenza\\Log.txt", {}, stamp + "End\r\n"}), "log End");
  EXPECT_EQ(Told({DiskAct::kAppended, "C:\\Orvenza\\Err.txt", {}, stamp + "ECR\r\n"}), "error ECR");
  EXPECT_EQ(Told({DiskAct::kAppended, "C:\\Orvenza\\error.txt", {}, "WrErr : 1\r\n"}), "error WrErr : 1");
}

}  // namespace
}  // namespace orvenza::test
