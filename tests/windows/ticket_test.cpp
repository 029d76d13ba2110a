// Tickets on their way, with the program and its control, and with other programs at the files.

#include <windows.h>
// After <windows.h>.
#include <gtest/gtest.h>

#include <filesystem>

#include "core/catalogue.h"
#include "platform/windows/unique_handle.h"
#include "platform/windows/wide.h"
#include "windows/control.h"
#include "windows/till.h"

namespace orvenza::test {
namespace {

constexpr const char* kCoffee = "1;Caffe' espresso;2,000;120;1;;;1;;\r\n2;1;500;\r\n";
constexpr const char* kBread = "1;Pane;1,000;250;1;;;1;;\r\n2;1;250;\r\n";

/// A file that another program has open for reading, and lets others do with it as `sharing` says.
class HeldFile {
 public:
  HeldFile(const Shop& shop, const std::string& name, DWORD sharing)
      : handle_(CreateFileW(ToWide(shop.folder.Path(name)).c_str(), GENERIC_READ, sharing, nullptr,
                            OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr)) {
    EXPECT_TRUE(handle_.Valid()) << name;
  }
  void LetGo() { handle_ = FileHandle(); }

 private:
  FileHandle handle_;
};

void AwaitArchived(const Till& till, const Shop& shop, const std::string& name, const std::string& content) {
  till.Await(name.c_str(), [&] { return shop.folder.Read("storico\\" + name) == content; });
}

/// The rest of the lines that begin with `start`.
Lines LinesOf(const std::string& text, const std::string& start) {
  Lines lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) {
    if (line.starts_with(start)) lines.push_back(line.substr(start.size()));
  }
  return lines;
}

TEST(Ticket, IsPrintedThroughTheControl) {
  const Shop shop;
  const Control control(shop.folder);
  const Till till(shop, Till::Link::kControl);
  till.AwaitStart();
  shop.Drop("0001.txt", kCoffee);
  AwaitArchived(till, shop, "1.txt", kCoffee);
  const std::string log = shop.folder.Read("standin.log");
  EXPECT_EQ(LinesOf(log, "sent "),
            (Lines{"321700", "199900", "321701",
                   "100401                                        Caffe' espresso 0002000100000012001",
                   "103601000000500"}));
  EXPECT_EQ(LinesOf(log, "printed "),
            (Lines{"            NEGOZIO DI PROVA", "         REGISTRATORE SIMULATO",
                   "                                    EURO", "  2 x 1,20",
                   "Caffe' espresso                     2,40", "TOTALE COMPLESSIVO                  2,40",
                   "CONTANTI                            5,00", "RESTO                               2,60",
                   "16/11/2026 09:00          SCONTRINO N. 1", std::string(40, '-')}));
  shop.Quit();
  till.ExpectEnd();
}

TEST(HeldFile, InTheTicketFolderIsTakenOnceItIsLetGo) {
  const Shop shop;
  shop.folder.Write("data\\0001.txt", kCoffee);
  HeldFile held(shop, "data\\0001.txt", 0);
  const Till till(shop);
  till.Await("the failure", [&] { return !shop.Journal("Err.txt").empty(); });
  EXPECT_FALSE(shop.folder.Has("storico\\1.txt"));
  held.LetGo();
  AwaitArchived(till, shop, "1.txt", kCoffee);
  EXPECT_FALSE(shop.folder.Has("data\\0001.txt"));
}

TEST(HeldFile, ThatMayOnlyBeReadIsPrintedOnce) {
  const Shop shop;
  shop.folder.Write("data\\0001.txt", kCoffee);
  HeldFile held(shop, "data\\0001.txt", FILE_SHARE_READ);
  const Till till(shop);
  AwaitArchived(till, shop, "1.txt", kCoffee);
  shop.Drop("0002.txt", kBread);
  AwaitArchived(till, shop, "2.txt", kBread);
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
  AwaitArchived(till, shop, "1.txt", kCoffee);
}

TEST(HeldFile, ThatCannotLeaveTheInProcessFolderIsPrintedOnce) {
  const Shop shop;
  shop.folder.Write("data\\inproces\\0001.txt", kCoffee);
  HeldFile held(shop, "data\\inproces\\0001.txt", FILE_SHARE_READ);
  const Till till(shop);
  AwaitArchived(till, shop, "1.txt", kCoffee);
  shop.Drop("0002.txt", kBread);
  AwaitArchived(till, shop, "2.txt", kBread);
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
  AwaitArchived(till, shop, "2.txt", kCoffee);
}

TEST(HeldFolder, HoldsUpItsRenamingAtTheStart) {
  const Shop shop;
  shop.folder.Write("storico\\1.txt", kBread);
  shop.folder.SetModified("storico\\1.txt", 1709467200);  // 3 March 2024
  HeldFile held(shop, "storico", FILE_SHARE_READ);
  const Till till(shop);
  till.Await("the failure", [&] { return !shop.Journal("Err.txt").empty(); });
  EXPECT_EQ(shop.Journal("Err.txt").front(),
            "Main - " + LoadMessage(194) + " " + shop.folder.Path("storico\\"));
  held.LetGo();
  till.AwaitStart();
  EXPECT_EQ(shop.folder.Read("storico_20240303\\1.txt"), kBread);
}

TEST(Quit, ComesInManyForms) {
  for (const std::string command : {"QUIT\r\n", "QUIT", "quit\n", "Quit\r", "  QuIt  \r\n",
                                    "quit\r\nnot now\r\n", "", "\r\n", "   ", " \r\nnot now"}) {
    const Shop shop;
    const Till till(shop);
    till.AwaitStart();
    shop.folder.Write("command.txt", command);
    till.ExpectEnd();
    EXPECT_FALSE(shop.folder.Has("command.txt")) << command;
    EXPECT_EQ(shop.Journal("Log.txt").end()[-2], LoadMessage(104)) << command;
  }
}

/// Whether the host's command could be replaced: not while the program reads it.
bool Replaced(const Shop& shop, const std::string& command) {
  std::error_code failed;
  shop.folder.Write("command.tmp", command);
  std::filesystem::rename(shop.folder.Native("command.tmp"), shop.folder.Native("command.txt"), failed);
  return !failed;
}

TEST(Quit, IsNothingElse) {
  const Shop shop;
  const Till till(shop);
  till.AwaitStart();
  int number = 0;
  for (const std::string command : {"QUIT NOW\r\n", "QUI\r\nQUIT\r\n", "x", "\"QUIT\"", "QUIT;"}) {
    till.Await("the command", [&] { return Replaced(shop, command); });
    // The command is read before the ticket is taken.
    shop.Drop(std::to_string(++number) + ".txt", kCoffee);
    AwaitArchived(till, shop, std::to_string(number) + ".txt", kCoffee);
    EXPECT_EQ(shop.folder.Read("command.txt"), command);
  }
  till.Await("the command", [&] { return Replaced(shop, "QUIT"); });
  till.ExpectEnd();
}

}  // namespace
}  // namespace orvenza::test
