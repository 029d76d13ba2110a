// Other programs that use the program's files.

#include <windows.h>
// Requires <windows.h>.
#include <gtest/gtest.h>

#include "core/catalogue.h"
#include "platform/windows/unique_handle.h"
#include "platform/windows/wide.h"
#include "ui/windows/names.h"
#include "windows/person.h"
#include "windows/till.h"

namespace orvenza::test {
namespace {

using namespace control_id;

constexpr int kUtilities = 2;
constexpr const char* kCoffee = "1;Caffe' espresso;2,000;120;1;;;1;;\r\n2;1;500;\r\n";
constexpr const char* kBread = "1;Pane;1,000;250;1;;;1;;\r\n2;1;250;\r\n";

/// A file opened by another program, by default for reading; `sharing` is what it permits others.
class HeldFile {
 public:
  HeldFile(const Shop& shop, const std::string& name, DWORD sharing, DWORD access = GENERIC_READ)
      : handle_(CreateFileW(ToWide(shop.folder.Path(name)).c_str(), access, sharing, nullptr, OPEN_EXISTING,
                            FILE_FLAG_BACKUP_SEMANTICS, nullptr)) {
    EXPECT_TRUE(handle_.Valid()) << name;
  }
  void LetGo() { handle_ = FileHandle(); }

 private:
  FileHandle handle_;
};

TEST(HeldFile, InTheTicketFolderIsTakenOnceItIsLetGo) {
  const Shop shop;
  shop.folder.Write("data\\0001.txt", kCoffee);
  HeldFile held(shop, "data\\0001.txt", 0);
  const Till till(shop);
  till.Await("the failure", [&] { return !shop.Journal("Err.txt").empty(); });
  EXPECT_FALSE(shop.folder.Has("storico\\1.txt"));
  held.LetGo();
  till.AwaitArchived("1.txt", kCoffee);
  EXPECT_FALSE(shop.folder.Has("data\\0001.txt"));
}

TEST(HeldFile, ThatMayOnlyBeReadIsPrintedOnce) {
  const Shop shop;
  shop.folder.Write("data\\0001.txt", kCoffee);
  HeldFile held(shop, "data\\0001.txt", FILE_SHARE_READ);
  const Till till(shop);
  till.AwaitArchived("1.txt", kCoffee);
  shop.Drop("0002.txt", kBread);
  till.AwaitArchived("2.txt", kBread);
  held.LetGo();
  till.Await("the ticket to go", [&] { return !shop.folder.Has("data\\0001.txt"); });
  EXPECT_FALSE(shop.folder.Has("storico\\3.txt"));
}

TEST(HeldFile, InTheInProcessFolderIsPrintedOnceItIsLetGo) {
  const Shop shop;
  shop.folder.Write("data\\inproces\\0001.txt", kCoffee);
  HeldFile held(shop, "data\\inproces\\0001.txt", 0);
  const Till till(shop);
  till.Await("the failure", [&] { return !shop.Journal("Err.txt").empty(); });
  held.LetGo();
  till.AwaitArchived("1.txt", kCoffee);
}

TEST(HeldFile, ThatCannotLeaveTheInProcessFolderIsPrintedOnce) {
  const Shop shop;
  shop.folder.Write("data\\inproces\\0001.txt", kCoffee);
  HeldFile held(shop, "data\\inproces\\0001.txt", FILE_SHARE_READ);
  const Till till(shop);
  till.AwaitArchived("1.txt", kCoffee);
  shop.Drop("0002.txt", kBread);
  till.AwaitArchived("2.txt", kBread);
  EXPECT_TRUE(shop.folder.Has("data\\inproces\\0001.txt"));
  held.LetGo();
  till.Await("the ticket to go", [&] { return !shop.folder.Has("data\\inproces\\0001.txt"); });
  EXPECT_FALSE(shop.folder.Has("storico\\3.txt"));
}

TEST(HeldFile, InTheHistoricFolderIsLeftAlone) {
  const Shop shop;
  shop.folder.Write("storico\\1.txt", kBread);
  const HeldFile held(shop, "storico\\1.txt", 0);
  const Till till(shop);
  till.AwaitStart();
  shop.Drop("0001.txt", kCoffee);
  till.AwaitArchived("2.txt", kCoffee);
}

TEST(HeldFolder, HoldsUpItsRenamingAtTheStart) {
  const Shop shop;
  shop.folder.Write("storico\\1.txt", kBread);
  shop.folder.SetModified("storico\\1.txt", 1709467200);  // 3 March 2024
  HeldFile held(shop, "storico", FILE_SHARE_READ);
  const Till till(shop);
  till.Await("the failure", [&] { return !shop.Journal("Err.txt").empty(); });
  EXPECT_EQ(shop.Journal("Err.txt").front(), "Main - " + LoadMessage(MessageId::kRenamingHistoricFolder) +
                                                 " " + shop.folder.Path("storico\\"));
  held.LetGo();
  till.AwaitStart();
  EXPECT_EQ(shop.folder.Read("storico_20240303\\1.txt"), kBread);
}

/// Answers that the ticket is to be given up.
void GiveUp(const Till& till) {
  const HWND form = till.Form(window_class::kOrvInfo);
  Click(form, kOption1 + 3);
  Click(form, kCommand + 1);
  till.Gone(form);
}

TEST(HeldFile, ThatIsGivenUpIsCopiedToTheAbortFolderOnce) {
  const Shop shop("on 1004 reply ERR08\n");
  shop.folder.Write("data\\inproces\\0001.txt", kCoffee);
  HeldFile held(shop, "data\\inproces\\0001.txt", FILE_SHARE_READ);
  const Till till(shop);
  GiveUp(till);
  till.Await("the copy", [&] { return shop.folder.Read("data\\abort\\0001.txt.abort.txt") == kCoffee; });
  shop.Drop("0002.txt", kBread);
  till.AwaitArchived("1.txt", kBread);
  EXPECT_TRUE(shop.folder.Has("data\\inproces\\0001.txt"));
  held.LetGo();
  till.Await("the ticket to go", [&] { return !shop.folder.Has("data\\inproces\\0001.txt"); });
  EXPECT_FALSE(shop.folder.Has("data\\abort\\0001.txt.abort.1.txt"));
}

TEST(HeldFile, InTheAbortFolderKeepsItsName) {
  const Shop shop("on 1004 reply ERR08\n");
  shop.folder.Write("data\\abort\\0001.txt.abort.txt", kBread);
  HeldFile held(shop, "data\\abort\\0001.txt.abort.txt", 0);
  shop.Drop("0001.txt", kCoffee);
  const Till till(shop);
  GiveUp(till);
  till.Await("the copy", [&] { return shop.folder.Read("data\\abort\\0001.txt.abort.1.txt") == kCoffee; });
  till.Await("the ticket to go", [&] { return !shop.folder.Has("data\\inproces\\0001.txt"); });
  held.LetGo();
  EXPECT_EQ(shop.folder.Read("data\\abort\\0001.txt.abort.txt"), kBread);
}

TEST(HeldFile, OfSeveralTicketsIsSplitAndPrintedOnceItIsLetGo) {
  const Shop shop;
  shop.folder.Write("Orvenza.ini", shop.folder.Read("Orvenza.ini") + "File Parser=1\r\n");
  shop.folder.Write("data\\inproces\\0001.txt", std::string(kCoffee) + kBread);
  HeldFile held(shop, "data\\inproces\\0001.txt", FILE_SHARE_READ);
  const Till till(shop);
  till.Await("the failure", [&] { return !shop.Journal("Err.txt").empty(); });
  EXPECT_FALSE(shop.folder.Has("storico\\1.txt"));
  held.LetGo();
  till.AwaitArchived("1.txt", kCoffee);
  till.AwaitArchived("2.txt", kBread);
  shop.Drop("0002.txt", kCoffee);
  till.AwaitArchived("3.txt", kCoffee);
}

TEST(HeldLog, IsReadByTheLabWhileItIsWritten) {
  const Shop shop;
  shop.folder.Write("Err.txt", "old line\r\n");
  const HeldFile held(shop, "Err.txt", FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, GENERIC_WRITE);
  const std::string findings = RunProgram("doctor --folder \"" + shop.folder.Path() + "\"", kLab).output;
  EXPECT_NE(findings.find("The logs can be written; no error of today."), std::string::npos) << findings;
}

TEST(HeldCommand, IsFollowedOnceItIsLetGo) {
  const Shop shop;
  shop.folder.Write("command.txt", "QUIT\r\n");
  HeldFile held(shop, "command.txt", 0);
  const Till till(shop);
  till.Await("the failure", [&] { return !shop.Journal("Err.txt").empty(); });
  shop.Drop("0001.txt", kCoffee);
  till.AwaitArchived("1.txt", kCoffee);
  held.LetGo();
  till.ExpectEnd();
  EXPECT_FALSE(shop.folder.Has("command.txt"));
}

TEST(HeldCommand, ThatCannotBeRemovedIsFollowed) {
  const Shop shop("on 3217 link-error 1\n");
  shop.folder.Write("command.txt", "QUIT\r\n");
  const HeldFile held(shop, "command.txt", FILE_SHARE_READ);
  const Till till(shop);
  till.Form(window_class::kOrvMsg);  // the program is still running and can be asked for its icon
  till.AwaitIcon();
  Press(VK_RETURN);
  till.ExpectEnd();
  EXPECT_EQ(shop.Journal("Err.txt").back(),
            "Timer1 - 70 - Permission denied ( " + shop.folder.Path("command.txt") + " )");
}

TEST(HeldClosureRequest, IsLoggedAndLeavesTheUtilitiesOpen) {
  const Shop shop;
  const Till till(shop);
  till.AwaitStart();
  till.Menu(kUtilities);
  const HWND form = till.Form(window_class::kOrvUti);
  shop.folder.Write("data\\zzzzzzzzzzzzzzzz.txt", kBread);
  HeldFile held(shop, "data\\zzzzzzzzzzzzzzzz.txt", FILE_SHARE_READ);
  PressWithAlt('C');
  for (int question = 1; question <= 2; ++question) {  // the second one because a ticket is waiting
    const HWND message = till.Form(window_class::kOrvMsg);
    Click(message, kCommand0 + 1);
    till.Gone(message);
  }
  till.Await("the failure", [&] { return !shop.Journal("Err.txt").empty(); });
  EXPECT_EQ(shop.Journal("Err.txt").front(), "Orv_Uti - 75 - Path/File access error ( " +
                                                 shop.folder.Path("data\\zzzzzzzzzzzzzzzz.txt") + " )");
  EXPECT_EQ(till.Form(window_class::kOrvUti), form);
  held.LetGo();
  Press(VK_ESCAPE);
  till.AwaitArchived("1.txt", kBread);
}

}  // namespace
}  // namespace orvenza::test
