// `orvenza-lab hand-over` as a program, with a connector beside it that prints.

#include <gtest/gtest.h>

#include <string>

#include "program/running_program.h"
#include "program/shop_folder.h"

namespace orvenza::test {
namespace {

/// A shop that writes outcomes, twenty times as fast as usual, and the files of its host.
struct HostShop : Shop {
  HostShop() {
    folder.Write("Orvenza.ini",
                 folder.Read("Orvenza.ini") + "[Host]\r\nOutcomes=" + folder.Path() + "/esiti\r\n");
    folder.Write("register.script", "speed instant\npace 20\n");
    folder.Write("host/good.txt",
                 "1\x7FPane\x7F"
                 "1,000\x7F"
                 "150\x7F"
                 "1\x7F\x7F\x7F"
                 "1\x7F\n2\x7F"
                 "1\x7F"
                 "200\x7F\n");
    folder.Write("host/bad.txt", "1;Pane;1;150;1;;;1;;\n2;1;200;\n");
  }

  Lines HandOver(const std::string& file, const std::string& further) const {
    return {ORVENZA_LAB, "hand-over", "--folder", folder.Path(), further, folder.Path() + "/host/" + file};
  }
};

TEST(HandOverProgram, SaysThatATicketIsPrinted) {
  const HostShop shop;
  RunningProgram connector(shop.Command());
  ASSERT_TRUE(connector.Shows("in funzione"));
  RunningProgram lab(shop.HandOver("good.txt", "--wait=20"));
  EXPECT_EQ(lab.ExitStatus(), 0) << lab.Shown();
  EXPECT_TRUE(lab.Shown().starts_with(shop.folder.Path() + "/host/good.txt: handed over as good.txt\n"
                                                           "good.txt: printed, filed as "))
      << lab.Shown();
  EXPECT_TRUE(connector.Shows("SCONTRINO N. 1"));
  EXPECT_TRUE(shop.folder.Has("storico\\1.txt"));
}

TEST(HandOverProgram, WaitsForTheOperator) {
  const HostShop shop;
  RunningProgram connector(shop.Command());
  ASSERT_TRUE(connector.Shows("in funzione"));
  RunningProgram refused(shop.HandOver("bad.txt", "--wait=20"));
  EXPECT_EQ(refused.ExitStatus(), 1);
  EXPECT_FALSE(shop.folder.Has("data\\bad.txt"));
  RunningProgram lab({ORVENZA_LAB, "hand-over", "--folder", shop.folder.Path(), "--anyway", "--wait=20",
                      shop.folder.Path() + "/host/bad.txt"});
  ASSERT_TRUE(connector.Shows("Numero + Invio"));
  connector.Enter("3");
  EXPECT_EQ(lab.ExitStatus(), 1);
  EXPECT_NE(
      lab.Shown().find("bad.txt: not printed (operator-gave-up), line 1: 1;Pane;1;150;1;;;1;;, filed as "),
      std::string::npos)
      << lab.Shown();
}

TEST(HandOverProgram, EndsWhenTheTimeIsOver) {
  const HostShop shop;
  RunningProgram lab(shop.HandOver("good.txt", "--wait=1"));
  EXPECT_EQ(lab.ExitStatus(), 3);
  EXPECT_NE(lab.Shown().find("no connector is running in " + shop.folder.Path()), std::string::npos);
  EXPECT_TRUE(lab.Shown().ends_with("good.txt: not done, it waits in the ticket folder\n")) << lab.Shown();
}

}  // namespace
}  // namespace orvenza::test
