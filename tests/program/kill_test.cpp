// Kills the finished program for real, while the register beside it stays switched on.

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "program/running_program.h"
#include "program/shop_folder.h"

namespace orvenza::test {
namespace {

constexpr int kKilled = 128 + SIGKILL;

/// A shop whose register outlives the program, with one ticket. The parameter is the line of the paper at
/// which the program is killed.
struct KillTest : testing::TestWithParam<const char*> {
  KillTest() {
    shop.Drop("0001.txt", "1;PANE;1,000;150;1;;;1;;\r\n1;LATTE;2,000;129;1;;;1;;\r\n2;1;500;\r\n");
  }

  /// The script of the next start, with these further lines.
  void SetRegister(const std::string& lines) const {
    shop.folder.Write("register.script", "speed instant\npaper carta.txt\n" + lines);
  }

  void StartAndKill() const {
    RunningProgram program(shop.Command());
    ASSERT_TRUE(program.Shows(GetParam())) << program.Shown();
    program.Send(SIGKILL);
    ASSERT_EQ(program.ExitStatus(), kKilled);
  }

  /// Starts the program again and lets it print the receipt with this title. The operator confirms the
  /// dialogs with these texts.
  void FinishTheDay(const std::string& title, const Lines& dialogs) const {
    RunningProgram program(shop.Command());
    for (const std::string& dialog : dialogs) {
      ASSERT_TRUE(program.Shows(dialog) && program.Shows("Numero + Invio")) << program.Shown();
      program.Enter("");
    }
    ASSERT_TRUE(program.Shows(title)) << program.Shown();
    shop.Quit();
    ASSERT_EQ(program.ExitStatus(), 0);
    EXPECT_TRUE(shop.folder.Has("storico\\1.txt"));
  }

  /// The paper without the dates.
  std::string Paper() const {
    std::istringstream in(shop.folder.Read("carta.txt"));
    std::string paper;
    for (std::string line; std::getline(in, line);) {
      const std::size_t title = line.find("SCONTRINO ");
      paper += (title == std::string::npos ? line : line.substr(title)) + "\n";
    }
    return paper;
  }

  Shop shop;
};

const std::string kOneItem =
    "            NEGOZIO DI PROVA\n"
    "         REGISTRATORE SIMULATO\n"
    "                                    EURO\n"
    "PANE                                1,50\n";

const std::string kBothItems = kOneItem +
                               "  2 x 1,29\n"
                               "LATTE                               2,58\n";

const std::string kCut = "----------------------------------------\n";

/// The whole receipt with its number to follow.
const std::string kReceipt = kBothItems +
                             "TOTALE COMPLESSIVO                  4,08\n"
                             "CONTANTI                            5,00\n"
                             "RESTO                               0,92\n"
                             "SCONTRINO N. ";

struct KilledAmongItems : KillTest {};

TEST_P(KilledAmongItems, TheReceiptStaysOpenInTheRegisterAndIsVoidedAndPrintedAgain) {
  SetRegister("on 1036 silence\n");
  StartAndKill();
  SetRegister("pace 20\n");
  FinishTheDay("SCONTRINO N. 1", {"Invio Annullo in corso"});
  const std::string rest = "SCONTRINO ANNULLATO\n" + kCut + kReceipt + "1\n" + kCut;
  const std::string paper = Paper();
  // The kill may come before the register has taken the second item.
  if (paper != kOneItem + "ANNULLO                            -1,50\n" + rest) {
    EXPECT_EQ(paper, kBothItems + "ANNULLO                            -4,08\n" + rest);
  }
}

INSTANTIATE_TEST_SUITE_P(Lines, KilledAmongItems,
                         testing::Values("NEGOZIO", "EURO", "PANE", "2 x 1,29", "LATTE"));

struct KilledAtThePayment : KillTest {};

TEST_P(KilledAtThePayment, TheReceiptStaysPaidInTheRegister) {
  SetRegister("on 1036 lose-reply\n");
  StartAndKill();
  SetRegister("pace 20\n");
  FinishTheDay("SCONTRINO N. 2", {});
  EXPECT_EQ(Paper(), kReceipt + "1\n" + kCut + kReceipt + "2\n" + kCut);
}

INSTANTIATE_TEST_SUITE_P(Lines, KilledAtThePayment,
                         testing::Values("TOTALE", "CONTANTI", "RESTO", "SCONTRINO N. 1", "----"));

}  // namespace
}  // namespace orvenza::test
