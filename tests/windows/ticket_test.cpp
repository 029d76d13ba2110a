// The processing of tickets with the program and its control, and commands to end.

#include <gtest/gtest.h>

#include <filesystem>

#include "core/catalogue.h"
#include "windows/control.h"
#include "windows/till.h"

namespace orvenza::test {
namespace {

constexpr const char* kCoffee = "1;Caffe' espresso;2,000;120;1;;;1;;\r\n2;1;500;\r\n";

/// The rest of each line that begins with `start`.
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
  till.AwaitArchived("1.txt", kCoffee);
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

TEST(Quit, ComesInManyForms) {
  for (const std::string command : {"QUIT\r\n", "QUIT", "quit\n", "Quit\r", "  QuIt  \r\n",
                                    "quit\r\nnot now\r\n", "", "\r\n", "   ", " \r\nnot now"}) {
    const Shop shop;
    const Till till(shop);
    till.AwaitStart();
    shop.folder.Write("command.txt", command);
    till.ExpectEnd();
    EXPECT_FALSE(shop.folder.Has("command.txt")) << command;
    EXPECT_EQ(shop.Journal("Log.txt").end()[-2], LoadMessage(MessageId::kQuitCommand)) << command;
  }
}

/// Whether the host's command could be replaced, which fails while the program reads it.
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
    // The command is read before the ticket is taken in.
    shop.Drop(std::to_string(++number) + ".txt", kCoffee);
    till.AwaitArchived(std::to_string(number) + ".txt", kCoffee);
    EXPECT_EQ(shop.folder.Read("command.txt"), command);
  }
  till.Await("the command", [&] { return Replaced(shop, "QUIT"); });
  till.ExpectEnd();
}

}  // namespace
}  // namespace orvenza::test
