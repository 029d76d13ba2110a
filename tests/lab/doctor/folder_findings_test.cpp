#include "lab/doctor/folder_findings.h"

#include "lab/shell/shop_bench.h"

namespace orvenza::test {
namespace {

class FolderFindings : public ShopBench {};

TEST_F(FolderFindings, NameEachFolderThatCanBeUsed) {
  const std::string inOrder = InOrder();
  EXPECT_NE(
      inOrder.find("ok folder.ok: Can be written to: program folder, ticket folder, in-process folder, abort "
                   "folder, historic folder.\n"
                   "ok space.ok: There is 80.0 GB free for all folders.\n"),
      std::string::npos)
      << inOrder;
}

TEST_F(FolderFindings, ReportFoldersThatTheConnectorMakes) {
  disk.Delete(At("data"));
  EXPECT_EQ(Said(),
            "note folder.missing: The ticket folder C:\\Orvenza\\data\\ is missing; the connector makes it.\n"
            "note folder.missing: The in-process folder C:\\Orvenza\\data\\inproces\\ is missing; the "
            "connector makes "
            "it.\n"
            "note folder.missing: The abort folder C:\\Orvenza\\data\\abort\\ is missing; the connector "
            "makes it.\n");
}

TEST_F(FolderFindings, ReportFoldersThatCannotBeWrittenTo) {
  machine.readOnly = {At("data\\"), At("storico\\")};
  disk.Delete(At("data\\abort"));
  EXPECT_EQ(
      Said(),
      "error folder.readonly: The ticket folder C:\\Orvenza\\data\\ cannot be written to.\n"
      "error folder.readonly: The abort folder C:\\Orvenza\\data\\abort\\ is missing and cannot be made in "
      "C:\\Orvenza\\data\\.\n"
      "error folder.readonly: The historic folder C:\\Orvenza\\storico\\ cannot be written to.\n");
}

TEST_F(FolderFindings, ReportADriveThatIsAway) {
  Edit("C:\\Orvenza\\storico\\", "E:\\storico\\");
  EXPECT_EQ(Said(),
            "error folder.drive: The historic folder E:\\storico\\ is on a drive that cannot be reached.\n");
}

TEST_F(FolderFindings, ReportAFileWhereAFolderIsToBe) {
  disk.Delete(At("storico"));
  disk.Put(At("storico"), "a file");
  EXPECT_EQ(Said(),
            "error folder.file: The historic folder C:\\Orvenza\\storico\\ cannot be made: "
            "C:\\Orvenza\\storico is a "
            "file.\n");
}

TEST_F(FolderFindings, ReportAMaskThatTakesFilesOfTheProgram) {
  Edit("C:\\Orvenza\\data\\*.txt", "c:\\orvenza\\*.txt");
  disk.Put(At("inproces\\x"), "");
  disk.Delete(At("inproces\\x"));
  disk.MakeFolder(At("abort"));
  disk.Put(At("ding.wav"), "");
  disk.Put(At("Log.txt"), "");
  EXPECT_EQ(Said().find("folder.program"), std::string::npos) << Said();
  disk.Put(At("License.txt"), "");
  EXPECT_NE(Said().find("takes 1 file of the program for tickets, such as License.txt.\n"), std::string::npos)
      << Said();
  disk.Delete(At("License.txt"));
  Edit("c:\\orvenza\\*.txt", "c:\\orvenza\\*.*");
  EXPECT_NE(
      Said().find("warning folder.program: The ticket folder is the program folder, and the mask *.* takes 3 "
                  "files of the program for tickets, such as ding.wav.\n"),
      std::string::npos)
      << Said();
}

TEST_F(FolderFindings, ReportFoldersOnOtherVolumes) {
  machine.volumes = {{At("data\\abort\\"), "2"}, {At("storico\\"), "3"}};
  EXPECT_EQ(Said(),
            "warning folder.volume: The abort folder is on another volume than the ticket folder; tickets "
            "are copied "
            "instead of moved.\n"
            "note folder.volume: The historic folder is on another volume than the ticket folder; printed "
            "tickets are "
            "copied there instead of moved.\n");
}

TEST_F(FolderFindings, ReportTheFreeSpace) {
  machine.volumes = {{At("storico\\"), "3"}};
  machine.free = {{At(""), 19'999'999}, {At("storico\\"), 199'999'999}};
  EXPECT_EQ(Said(),
            "note folder.volume: The historic folder is on another volume than the ticket folder; printed "
            "tickets are "
            "copied there instead of moved.\n"
            "error space.low: There is 20.0 MB free for program folder, ticket folder, in-process "
            "folder, abort "
            "folder.\n"
            "warning space.low: There is 200.0 MB free for historic folder.\n");
}

}  // namespace
}  // namespace orvenza::test
