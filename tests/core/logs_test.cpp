#include "core/logs.h"

#include <gtest/gtest.h>

#include <new>
#include <optional>
#include <stdexcept>
#include <string>

#include "platform/program_end.h"
#include "platform/system_error.h"
#include "simulator/virtual_clock.h"
#include "support/faulty_files.h"
#include "support/memory_files.h"

namespace orvenza::test {
namespace {

constexpr const char* kLog = "C:\\shop\\Log.txt";
constexpr const char* kErr = "C:\\shop\\Err.txt";
constexpr const char* kLogFallback = "C:\\shop\\log.txt";
constexpr const char* kErrFallback = "C:\\shop\\error.txt";

/// The logs at 13:45:10 on 15 November 2026, after the settings were read.
class LogsTest : public ::testing::Test {
 protected:
  LogsTest() {
    paths.LogPath = kLog;
    paths.ErrPath = kErr;
  }

  std::string& Content(const std::string& path) { return memory.content[path]; }

  VirtualClock clock{{2026, 11, 15, 13, 45, 10}};
  MemoryFiles memory;
  FaultyFiles files{memory};
  LogPaths paths;
  Logs logs{files, clock, paths, "C:\\shop"};
};

TEST_F(LogsTest, ALineIsTheTimeADashAndTheMessage) {
  logs.WrLog("Start Rel. 1.0.43");
  EXPECT_EQ(Content(kLog), "15/11/2026 13:45:10 - Start Rel. 1.0.43\r\n");
  EXPECT_EQ(memory.content.size(), 1U);
}

TEST_F(LogsTest, LinesAreAddedAtTheEnd) {
  logs.WrErr("one");
  clock.Advance(std::chrono::seconds(51));
  logs.WrErr("two");
  EXPECT_EQ(Content(kErr), "15/11/2026 13:45:10 - one\r\n15/11/2026 13:46:01 - two\r\n");
}

TEST_F(LogsTest, TheArgumentHoldsTheStampedLineAfterwards) {
  std::string activity = "End";
  logs.WrLog(activity);
  EXPECT_EQ(activity, "15/11/2026 13:45:10 - End");
  std::string error = "Sì";
  logs.WrErr(error);
  EXPECT_EQ(error, "15/11/2026 13:45:10 - Sì");
}

TEST_F(LogsTest, ALogOf250000BytesIsAppendedTo) {
  Content(kLog) = std::string(250000, 'x');
  logs.WrLog("End");
  EXPECT_EQ(Content(kLog).size(), 250000U + 27U);
  EXPECT_FALSE(memory.Exists("C:\\shop\\Log.Bak"));
}

TEST_F(LogsTest, ALogOneByteLongerIsMovedAsideFirst) {
  Content(kLog) = std::string(250001, 'x');
  logs.WrLog("End");
  EXPECT_EQ(Content("C:\\shop\\Log.Bak"), std::string(250001, 'x'));
  EXPECT_EQ(Content(kLog), "15/11/2026 13:45:10 - End\r\n");
}

TEST_F(LogsTest, OnlyOneOlderCopyIsKept) {
  Content("C:\\shop\\Err.Bak") = "older";
  Content(kErr) = std::string(250001, 'e');
  logs.WrErr("new");
  EXPECT_EQ(Content("C:\\shop\\Err.Bak"), std::string(250001, 'e'));
  EXPECT_EQ(Content(kErr), "15/11/2026 13:45:10 - new\r\n");
}

TEST_F(LogsTest, TheCopysNameReplacesExactlyThreeCharacters) {
  paths.LogPath = "C:\\shop\\log.text";
  Content(paths.LogPath) = std::string(250001, 'x');
  logs.WrLog("End");
  EXPECT_TRUE(memory.Exists("C:\\shop\\log.tBak"));
}

TEST_F(LogsTest, ActivityFallsBackBeforeTheSettingsAreRead) {
  paths.LogPath.clear();
  std::string message = "Default INI !";
  logs.WrLog(message);
  EXPECT_EQ(Content(kLogFallback),
            "WrLog : Path/File access error 75 ( 15/11/2026 13:45:10 - Default INI ! )\r\n");
  EXPECT_EQ(message, "15/11/2026 13:45:10 - Default INI !");
  EXPECT_EQ(paths.LogPath, "");
}

TEST_F(LogsTest, ErrorsGoToErrorTxtBeforeTheSettingsAreRead) {
  paths.ErrPath.clear();
  logs.WrErr("one");
  EXPECT_EQ(paths.ErrPath, kErrFallback);
  logs.WrErr("two");
  EXPECT_EQ(Content(kErrFallback), "15/11/2026 13:45:10 - one\r\n15/11/2026 13:45:10 - two\r\n");
}

TEST_F(LogsTest, ErrorTxtIsMovedAsideLikeTheOthers) {
  paths.ErrPath.clear();
  Content(kErrFallback) = std::string(250001, 'e');
  logs.WrErr("new");
  EXPECT_EQ(Content("C:\\shop\\error.Bak"), std::string(250001, 'e'));
  EXPECT_EQ(Content(kErrFallback), "15/11/2026 13:45:10 - new\r\n");
}

TEST_F(LogsTest, AReadOnlyLogGivesTheFallbackLine) {
  files.FailAlways("Append", "Log.txt", error_number::kPermissionDenied);
  std::string message = "Start";
  logs.WrLog(message);
  EXPECT_EQ(Content(kLogFallback),
            "WrLog : Permission denied ( C:\\shop\\Log.txt ) 70 ( 15/11/2026 13:45:10 - Start )\r\n");
  EXPECT_EQ(message, "15/11/2026 13:45:10 - Start");
}

TEST_F(LogsTest, AReadOnlyErrorLogGivesTheFallbackLine) {
  files.FailAlways("Append", "Err.txt", error_number::kPermissionDenied);
  logs.WrErr("bad");
  EXPECT_EQ(Content(kErrFallback),
            "WrErr : Permission denied ( C:\\shop\\Err.txt ) 70 ( 15/11/2026 13:45:10 - bad )\r\n");
}

TEST_F(LogsTest, ALogThatCannotBeCopiedAsideIsKept) {
  Content(kLog) = std::string(250001, 'x');
  files.FailNext("Copy", error_number::kDiskFull);
  logs.WrLog("Start");
  EXPECT_EQ(Content(kLog), std::string(250001, 'x'));
  EXPECT_EQ(Content(kLogFallback), "WrLog : Disk full ( C:\\shop\\Log.txt ) 61 ( Start )\r\n");
}

TEST_F(LogsTest, ALogThatCannotBeRemovedIsTriedAgainWithTheNextLine) {
  Content(kErr) = std::string(250001, 'e');
  files.FailNext("Remove", error_number::kPermissionDenied);
  logs.WrErr("one");
  EXPECT_EQ(Content(kErrFallback), "WrErr : Permission denied ( C:\\shop\\Err.txt ) 70 ( one )\r\n");
  logs.WrErr("two");
  EXPECT_EQ(Content("C:\\shop\\Err.Bak"), std::string(250001, 'e'));
  EXPECT_EQ(Content(kErr), "15/11/2026 13:45:10 - two\r\n");
}

TEST_F(LogsTest, ALogWhoseLengthIsUnknownGivesTheFallbackLine) {
  Content(kLog) = "old";
  files.FailNext("Size", error_number::kPermissionDenied);
  logs.WrLog("Start");
  EXPECT_EQ(Content(kLogFallback), "WrLog : Permission denied ( C:\\shop\\Log.txt ) 70 ( Start )\r\n");
}

TEST_F(LogsTest, AFullDiskReachesNoCaller) {
  files.FailAlways("Append", "", error_number::kDiskFull);
  EXPECT_NO_THROW(logs.WrLog("one"));
  EXPECT_NO_THROW(logs.WrErr("two"));
  EXPECT_TRUE(memory.content.empty());
}

TEST_F(LogsTest, AFailureIsItsLabelItsNumberAndItsDescription) {
  logs.WrFailure("Timer1 - ", 53, "File not found");
  EXPECT_EQ(Content(kErr), "15/11/2026 13:45:10 - Timer1 - 53 - File not found\r\n");
}

TEST_F(LogsTest, AStepThatRunsToItsEndLogsNothing) {
  bool ran = false;
  EXPECT_TRUE(logs.Attempt("Main_Load - ", [&] { ran = true; }));
  EXPECT_TRUE(ran);
  EXPECT_TRUE(memory.content.empty());
}

TEST_F(LogsTest, AStepThatFailsIsLoggedWithNumberAndDescription) {
  EXPECT_FALSE(logs.Attempt("CreateAllDirs ", [] { throw SystemError(76, "Z:\\data"); }));
  EXPECT_EQ(Content(kErr), "15/11/2026 13:45:10 - CreateAllDirs 76 - Path not found ( Z:\\data )\r\n");
}

TEST_F(LogsTest, AStepWithAValueReturnsItOrNothing) {
  EXPECT_EQ(logs.Attempt("Main_Load - ", [] { return std::string("done"); }), "done");
  EXPECT_EQ(logs.Attempt("Main_Load - ", [] { return false; }), std::optional(false));
  EXPECT_TRUE(memory.content.empty());
  EXPECT_EQ(logs.Attempt("Main_Load - ", []() -> int { throw SystemError(61); }), std::nullopt);
  EXPECT_EQ(Content(kErr), "15/11/2026 13:45:10 - Main_Load - 61 - Disk full\r\n");
}

TEST_F(LogsTest, FailuresOfTheLanguagesLibraryAreTrappedToo) {
  EXPECT_FALSE(logs.Attempt("Main_Load - ", [] { throw std::bad_alloc(); }));
  EXPECT_FALSE(logs.Attempt("Main_Load - ", [] { throw std::runtime_error("odd"); }));
  EXPECT_EQ(Content(kErr),
            "15/11/2026 13:45:10 - Main_Load - 7 - Out of memory\r\n"
            "15/11/2026 13:45:10 - Main_Load - 51 - odd\r\n");
}

TEST_F(LogsTest, TheEndOfTheProgramPassesEveryTrap) {
  EXPECT_THROW(logs.Attempt("Timer1 - ", [] { throw ProgramEnd{.unload = true}; }), ProgramEnd);
  EXPECT_TRUE(memory.content.empty());
}

}  // namespace
}  // namespace orvenza::test
