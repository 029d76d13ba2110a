#include "lab/doctor/program_findings.h"

#include "lab/shell/shop_bench.h"
#include "platform/system_error.h"
#include "support/faulty_files.h"

namespace orvenza::test {
namespace {

class ProgramFindings : public ShopBench {};

TEST_F(ProgramFindings, KnowARunningConnector) {
  machine.served = true;
  EXPECT_EQ(Said(), "note instance.running: The connector runs on this folder; a second start is refused.\n");
}

TEST_F(ProgramFindings, ReadTheCommandFile) {
  const struct {
    const char* content;
    bool served;
    const char* said;
  } kCases[] = {
      {" quit \r\n", false,
       "error command.quit: command.txt is there, which ends the connector right after its next start.\n"},
      {"", false,
       "error command.quit: command.txt is there, which ends the connector right after its next start.\n"},
      {"QUIT", true,
       "note instance.running: The connector runs on this folder; a second start is refused.\n"
       "warning command.quit: command.txt asks the running connector to end.\n"},
      {"PRINT\n", false,
       "note command.other: command.txt is there, but does not ask the connector to end; it is left "
       "alone.\n"},
  };
  for (const auto& [content, served, said] : kCases) {
    machine.served = served;
    disk.Put(At("command.txt"), content);
    EXPECT_EQ(Said(), said) << content;
  }
}

TEST_F(ProgramFindings, ReportACommandFileThatCannotBeRead) {
  disk.Put(At("command.txt"), "QUIT");
  disk.Hold(At("command.txt"), FileHold::kWriting);
  EXPECT_EQ(Said(), "warning command.unreadable: command.txt cannot be read.\n");
}

TEST_F(ProgramFindings, ReportFilesThatCannotEvenBeChecked) {
  FaultyFiles files(disk.FileSeam());
  FaultyFolders folders(disk.FolderSeam());
  for (const char* name : {"command.txt", "ErrDesc.ini", "error.txt", "Err.txt"}) {
    files.FailAlways("Exists", name, error_number::kDeviceError);
  }
  folders.FailAlways("Exists", "data", error_number::kDeviceError);
  machine.readOnly = {At("data\\")};
  const LabSurroundings lab{files, folders, clock, clock, machine, console, At("")};
  std::string said;
  for (const Finding& finding : Diagnose(LookAt(lab, {"C:\\Orvenza", "Orvenza"}))) {
    if (finding.severity >= Severity::kWarning) said += finding.fact + "\n";
  }
  EXPECT_EQ(said,
            "command.txt cannot be read.\n"
            "Err.txt cannot be read.\n"
            "The ticket folder C:\\Orvenza\\data\\ cannot be written to.\n");
}

TEST_F(ProgramFindings, ReportReadOnlyFiles) {
  disk.Put(At("Log.txt"), "");
  machine.readOnly = {At("Log.txt"), At("Orvenza.ini")};
  EXPECT_EQ(Said(),
            "warning settings.readonly: Orvenza.ini cannot be written to: the port dialog and repairs have "
            "no effect.\n"
            "warning log.readonly: Log.txt cannot be written to.\n");
}

TEST_F(ProgramFindings, ReportLogsThatCannotBeMade) {
  disk.Put(At("Log.txt"), "");
  machine.readOnly = {At("")};
  EXPECT_EQ(Said(),
            "warning log.readonly: Err.txt is missing and cannot be made.\n"
            "error folder.readonly: The program folder C:\\Orvenza\\ cannot be written to.\n");
  EXPECT_EQ(InOrder().find("log.ok"), std::string::npos);
}

TEST_F(ProgramFindings, WarnOfAFolderThatIsNoInstallation) {
  disk.Delete(At("Orvenza.ini"));
  disk.Delete(At("ErrDesc.ini"));
  EXPECT_NE(Said().find("warning folder.foreign: Nothing in C:\\Orvenza tells of an installation"),
            std::string::npos)
      << Said();
  for (const char* sign : {"Orvenza", "orvenza.exe", "Log.txt", "Err.txt", "ErrDesc.ini"}) {
    disk.Put(At(sign), "");
    EXPECT_EQ(Said().find("folder.foreign"), std::string::npos) << sign;
    disk.Delete(At(sign));
  }
  disk.Put(At("Cassa.ini"), "[Version]\r\nVersion=1.06\r\n");
  EXPECT_EQ(Said().find("folder.foreign"), std::string::npos);
}

TEST_F(ProgramFindings, TakeNoOtherIniFileForSettings) {
  disk.Delete(At("Orvenza.ini"));
  disk.Put(At("desktop.ini"), "[.ShellClassInfo]\r\nVersion=1\r\n");
  disk.Put(At("Held.ini"), "[Version]\r\n");
  disk.Hold(At("Held.ini"), FileHold::kWriting);
  EXPECT_EQ(Said().find("settings.other"), std::string::npos) << Said();
  disk.Put(At("Old.ini"), "[com settings]\r\nComPort=2\r\n");
  EXPECT_NE(Said().find("note settings.other: There is Old.ini, "), std::string::npos) << Said();
}

TEST_F(ProgramFindings, ReportSettingsOfAnotherName) {
  disk.Put(At("Cassa.ini"), *disk.Content(At("Orvenza.ini")));
  EXPECT_EQ(Said(), "");
  disk.Delete(At("Orvenza.ini"));
  EXPECT_EQ(
      Said(),
      "note settings.new: Orvenza.ini is missing; the next start writes it with the defaults and asks for "
      "the port.\n"
      "note settings.other: There is Cassa.ini, which a connector of that name reads (--name Cassa).\n");
}

TEST_F(ProgramFindings, ReportMissingTexts) {
  disk.Delete(At("ErrDesc.ini"));
  EXPECT_EQ(Said(), "note texts.missing: ErrDesc.ini is missing; the next start writes it.\n");
}

TEST_F(ProgramFindings, ReportALogAboutToBeMovedAside) {
  disk.Put(At("Log.txt"), std::string(225'000, 'x'));
  EXPECT_EQ(Said(), "");
  disk.Put(At("Log.txt"), std::string(225'001, 'x'));
  EXPECT_EQ(Said(),
            "note log.rotation: Log.txt has 225.0 kB; above 250.0 kB it becomes Log.Bak, and what was there "
            "is gone.\n");
}

TEST_F(ProgramFindings, CountTheErrorsOfToday) {
  disk.Put(At("Err.txt"),
           "15/11/2026 21:00:00 - Timer1 - 53 - File not found\r\n"
           "16/11/2026 08:59:00 - ECR Error : 10\r\n"
           "16/11/2026 21:00:00 - ECR Error : 11\r\n");
  EXPECT_EQ(Said(), "warning log.errors-today: 2 lines of today in Err.txt.\n");
}

TEST_F(ProgramFindings, ReportAnErrorLogThatCannotBeRead) {
  disk.Put(At("Err.txt"), "");
  disk.Hold(At("Err.txt"), FileHold::kWriting);
  EXPECT_EQ(Said(), "warning log.unreadable: Err.txt cannot be read.\n");
}

TEST_F(ProgramFindings, ReportErrorsThatWentElsewhere) {
  disk.Put(At("error.txt"), "x");
  EXPECT_EQ(
      Said(),
      "note log.fallback: error.txt holds errors from before the settings were read, or that Err.txt did not "
      "take.\n");
}

}  // namespace
}  // namespace orvenza::test
