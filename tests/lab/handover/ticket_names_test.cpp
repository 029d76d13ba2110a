#include "lab/handover/ticket_names.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "support/memory_files.h"

namespace orvenza::test {
namespace {

class TicketNamesTest : public ::testing::Test {
 protected:
  TicketNamesTest() {
    settings.TicketFolder = "D:\\t\\";
    settings.InProcessFolder = "D:\\t\\inproces\\";
    settings.AbortFolder = "D:\\t\\abort\\";
    settings.TicketMask = "*.txt";
  }

  std::string Refusal(const std::string& path) {
    try {
      return "accepted: " + names.NameFor(path);
    } catch (const std::runtime_error& refused) {
      return refused.what();
    }
  }

  MemoryFiles files;
  AppSettings settings;
  TicketNames names{files, settings};
};

TEST_F(TicketNamesTest, KeepTheNameOfTheFile) {
  EXPECT_EQ(names.NameFor("C:\\x\\0042.txt"), "0042.txt");
  EXPECT_EQ(names.NameFor("x/0043.TXT"), "0043.TXT");
}

TEST_F(TicketNamesTest, NumberANameThatIsTaken) {
  settings.OutcomesFolder = "D:\\esiti\\";
  for (const char* path : {"D:\\t\\a.txt", "D:\\t\\inproces\\b.txt", "D:\\t\\abort\\c.txt.abort.txt",
                           "D:\\esiti\\d.txt.ini", "D:\\t\\e.txt", "D:\\t\\e-2.txt"}) {
    files.content[path] = "";
  }
  EXPECT_EQ(names.NameFor("a.txt"), "a-2.txt");
  EXPECT_EQ(names.NameFor("b.txt"), "b-2.txt");
  EXPECT_EQ(names.NameFor("c.txt"), "c-2.txt");
  EXPECT_EQ(names.NameFor("d.txt"), "d-2.txt");
  EXPECT_EQ(names.NameFor("e.txt"), "e-3.txt");
}

TEST_F(TicketNamesTest, NeverChooseANameTwice) {
  EXPECT_EQ(names.NameFor("a.txt"), "a.txt");
  EXPECT_EQ(names.NameFor("x\\A.TXT"), "A-2.TXT");
  EXPECT_EQ(names.NameFor("a.txt"), "a-3.txt");
}

TEST_F(TicketNamesTest, FitTheMask) {
  EXPECT_EQ(names.NameFor("ticket.sale"), "ticket.txt");
  EXPECT_EQ(names.NameFor("x.y\\sale"), "sale.txt");
  settings.TicketMask = "*_fin.txt";
  files.content["D:\\t\\b_fin.txt"] = "";
  EXPECT_EQ(names.NameFor("a.txt"), "a_fin.txt");
  EXPECT_EQ(names.NameFor("b.txt"), "2-b_fin.txt");
}

TEST_F(TicketNamesTest, RefuseWhatTheMaskDoesNotFit) {
  settings.TicketMask = "scontrino.txt";
  EXPECT_EQ(Refusal("a.txt"),
            "the mask \"scontrino.txt\" of the settings does not fit the name \"a.txt\"; rename the file");
  EXPECT_EQ(Refusal("scontrino.txt"), "accepted: scontrino.txt");
  EXPECT_EQ(Refusal("scontrino.txt"),
            "\"scontrino.txt\" is taken, and no numbered name is free that the mask \"scontrino.txt\" of the "
            "settings fits");
  settings.TicketMask = "*-?.txt";
  EXPECT_EQ(Refusal("a.txt"),
            "the mask \"*-?.txt\" of the settings does not fit the name \"a.txt\"; rename the file");
}

TEST(TicketOrder, FollowsTheConnector) {
  EXPECT_TRUE(ComesBefore("9.txt", "10.txt"));
  EXPECT_FALSE(ComesBefore("10.txt", "9.txt"));
  EXPECT_TRUE(ComesBefore("a.txt", "B.txt"));
  EXPECT_FALSE(ComesBefore("a.txt", "a.txt"));
}

}  // namespace
}  // namespace orvenza::test
