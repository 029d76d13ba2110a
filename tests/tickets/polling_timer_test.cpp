#include <gtest/gtest.h>

#include "support/device_bench.h"
#include "support/faulty_files.h"
#include "support/virtual_folder.h"
#include "tickets/ticket_polling.h"

// The effect of a tick on `Timer1`.

namespace orvenza::test {
namespace {

/// The polling alone, with an empty ticket folder.
class PollingTimerTest : public DeviceBench {
 protected:
  PollingTimerTest() {
    settings.TicketFolder = folder.Path() + "\\";
    settings.TicketMask = "*.txt";
    settings.InProcessFolder = folder.Path("inproces\\");
    settings.CommandFilePath = "C:\\shop\\command.txt";
    timer.SetEnabled(true);
  }

  VirtualDisk disk{clock};
  VirtualFolder folder{disk};
  FaultyFolders folders{disk.FolderSeam()};
  LogoDownload logo{link, settings, recovery, files, logs, messages};
  RecordTranslator translator{queries.Identity(), settings, files, logs};
  Evidence evidence{files, logs, folder.Path()};
  TicketWitnesses witnesses;
  RememberedTickets remembered{files, logs, folder.Path()};
  TicketArchive archive{files, folders, settings, logs, messages, remembered, witnesses};
  TicketSplitter splitter{files, settings, logs, archive, witnesses};
  LineSender sender{link, settings, cash, recovery, logo, translator, logs, witnesses};
  TicketProcessor processor{files,    settings, logs,    loop,     cash,
                            recovery, sender,   archive, evidence, witnesses};
  RepeatedFailures failures{logs};
  CommandFile commandFile{files, settings, logs, loop, link};
  TicketFolders ticketFolders{files, folders, settings, logs, loop, archive, remembered};
  TicketQueue queue{files,         settings, logs,      failures, commandFile,
                    ticketFolders, splitter, processor, archive};
  ClockCheck clockCheck{settings, queries, correction};
  TicketPolling polling{timer, failures, commandFile, ticketFolders, queue, clockCheck};
};

TEST_F(PollingTimerTest, IsOffDuringATickAndOnAfterIt) {
  std::vector<bool> enabled;
  folders.Before("ListFolder", [&](const std::string&) { enabled.push_back(timer.Enabled()); });
  polling.Tick();
  EXPECT_EQ(enabled, (std::vector<bool>{false, false})) << "both folders are listed";
  EXPECT_TRUE(timer.Enabled());
  EXPECT_EQ(timer.TimeLeft(), PollTimer::kInterval);
}

TEST_F(PollingTimerTest, IsOffWhileTheRegisterIsAskedForItsClock) {
  settings.PcTimeCorrection = 0.1;
  control.Always("3217", "321700");
  std::vector<bool> enabled;
  faulty.Before("Send", [&](const std::string&) { enabled.push_back(timer.Enabled()); });
  polling.Tick();
  EXPECT_EQ(Sent(), (Lines{"321700", "420100"}));
  EXPECT_EQ(enabled, (std::vector<bool>{false, false}));
  EXPECT_TRUE(timer.Enabled());
}

TEST_F(PollingTimerTest, IsOnAgainAfterATickInWhichEverythingFailed) {
  folders.FailAlways("ListFolder", "", error_number::kPathFileAccess);
  polling.Tick();
  EXPECT_TRUE(timer.Enabled());
  EXPECT_EQ(Errors().size(), 2U);
}

TEST_F(PollingTimerTest, StaysOffWhenTheHostEndsTheProgram) {
  files.content["C:\\shop\\command.txt"] = "QUIT";
  EXPECT_THROW(polling.Tick(), ProgramEnd);
  EXPECT_FALSE(timer.Enabled());
}

}  // namespace
}  // namespace orvenza::test
