#include "lab/rehearsal/rehearse_command.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "lab/shell/fake_machine.h"
#include "lab/shell/help_page.h"
#include "lab/shell/run_lab.h"
#include "simulator/virtual_clock.h"
#include "simulator/virtual_disk.h"

namespace orvenza::test {
namespace {

constexpr const char* kDay =
    "ticket 1.txt\n"
    "| 29;1;\n"
    "| 31;1;\n"
    "file D:\\cassa\\nota.txt\n"
    "| x\n"
    "at 2s quit\n";

/// The lab with a text console, on a disk in memory whose current folder is C:\work.
class RehearseCommandTest : public ::testing::Test {
 protected:
  RehearseCommandTest() {
    disk.MakeFolder("C:\\work");
    disk.Put("C:\\work\\day.scenario", kDay);
  }

  int Run(const std::vector<std::string>& words) {
    std::vector<std::string> all{"rehearse"};
    all.insert(all.end(), words.begin(), words.end());
    LabSurroundings surroundings{disk.FileSeam(), disk.FolderSeam(), clock,    clock,
                                 machine,         console,           "C:\\lab"};
    return RunLab(all, {RehearseCommand()}, surroundings);
  }

  VirtualClock clock;
  VirtualDisk disk{clock, "C:\\work"};
  std::istringstream in;
  std::ostringstream out;
  std::ostringstream err;
  Console console{in, out, err};
  FakeMachine machine;
};

TEST_F(RehearseCommandTest, PrintsTheTranscript) {
  EXPECT_EQ(Run({"day.scenario"}), 0);
  EXPECT_TRUE(out.str().starts_with("        0  start     16/11/2026 09:00:00\n")) << out.str();
  EXPECT_TRUE(out.str().ends_with("  end\n")) << out.str();
  EXPECT_EQ(err.str(), "");
  EXPECT_EQ(disk.Paths(), std::vector<std::string>{"C:\\work\\day.scenario"});
}

TEST_F(RehearseCommandTest, ReadsTheStandardInput) {
  in.str("at 1s stop\n");
  EXPECT_EQ(Run({"-"}), 2);
  EXPECT_TRUE(err.str().starts_with("orvenza-lab rehearse: standard input:1: expected \"file\","))
      << err.str();
  EXPECT_EQ(out.str(), "");
}

TEST_F(RehearseCommandTest, ReportsEveryBadLine) {
  disk.Put("C:\\work\\day.scenario",
           "at 1s menu\nregister clock fast\nticket 1.txt from none.txt\nlimit 1s\n");
  EXPECT_EQ(Run({"day.scenario"}), 2);
  EXPECT_EQ(err.str(),
            "orvenza-lab rehearse: day.scenario:1: expected an item of the menu: Esci, Utilita', Info or "
            "Configura\n"
            "orvenza-lab rehearse: day.scenario:2: expected seconds ahead, -86400 to 86400\n"
            "orvenza-lab rehearse: day.scenario:3: expected a file that can be read: File not found ( "
            "none.txt )\n");
  EXPECT_EQ(out.str(), "");
}

/// A ticket with the separator of a new installation and a byte that is not printable.
const std::string kTicket("29\1771\177\r\n30\1771\1771\177si\0no\177\r\n31\1771\177\r\n", 29);
constexpr const char* kUsualSeparator = "setting [General] Separator (ascii,max 127) = 127\nuntil printed\n";

TEST_F(RehearseCommandTest, TakesATicketFromAFileBesideTheScenario) {
  disk.Put("C:\\work\\days\\in\\a.txt", kTicket);
  disk.Put("D:\\a.txt", kTicket);
  disk.Put("C:\\work\\days\\day.scenario",
           std::string("ticket 1.txt from in/a.txt\nat 1s ticket 2.txt from D:\\a.txt\n") + kUsualSeparator);
  EXPECT_EQ(Run({"days/day.scenario", "--folder", "shop"}), 0) << err.str();
  EXPECT_EQ(disk.Content("C:\\work\\shop\\storico\\1.txt"), kTicket);
  EXPECT_EQ(disk.Content("C:\\work\\shop\\storico\\2.txt"), kTicket);
  EXPECT_NE(out.str().find("sent      1064011si no"), std::string::npos) << out.str();
}

TEST_F(RehearseCommandTest, TakesATicketFromTheCurrentFolderWhereTheScenarioIsTyped) {
  disk.Put("C:\\work\\a.txt", kTicket);
  in.str(std::string("ticket 1.txt from a.txt\n") + kUsualSeparator);
  EXPECT_EQ(Run({"-", "--folder", "shop"}), 0) << err.str();
  EXPECT_EQ(disk.Content("C:\\work\\shop\\storico\\1.txt"), kTicket);
}

TEST_F(RehearseCommandTest, SaysWhatDidNotComeTrue) {
  disk.Put("C:\\work\\day.scenario", std::string(kDay) + "expect paper PANE\nanswer Ok\n");
  EXPECT_EQ(Run({"day.scenario"}), 1);
  EXPECT_EQ(err.str(),
            "day.scenario: the answer \"Ok\" was never asked for\n"
            "day.scenario: expected \"PANE\" on the paper\n");
}

TEST_F(RehearseCommandTest, RefusesWhatCannotBeRead) {
  EXPECT_EQ(Run({"none.scenario"}), 2);
  EXPECT_EQ(Run({"."}), 2);
  EXPECT_EQ(err.str(),
            "orvenza-lab rehearse: the scenario cannot be read: File not found ( none.scenario )\n"
            "orvenza-lab rehearse: the scenario cannot be read: Path/File access error ( . )\n");
}

TEST_F(RehearseCommandTest, PlaysNothingThatCannotBeKept) {
  disk.MakeFolder("D:\\shop");
  disk.SetFull("D:", true);
  EXPECT_EQ(Run({"day.scenario", "--folder", "D:\\shop"}), 2);
  EXPECT_EQ(Run({"day.scenario", "--folder", "day.scenario\\shop"}), 2);
  EXPECT_EQ(out.str(), "");
  EXPECT_EQ(err.str(),
            "orvenza-lab rehearse: Disk full ( D:\\shop\\trial )\n"
            "orvenza-lab rehearse: File already exists ( day.scenario )\n");
}

TEST_F(RehearseCommandTest, MakesNoFolderForAScenarioThatCannotBeRead) {
  EXPECT_EQ(Run({"none.scenario", "--folder", "shop"}), 2);
  EXPECT_FALSE(disk.FolderSeam().Exists("C:\\work\\shop"));
}

TEST_F(RehearseCommandTest, HasAHelpPageForATerminal) {
  std::istringstream page(HelpPage(RehearseCommand()));
  for (std::string line; std::getline(page, line);) EXPECT_LE(line.size(), 80u) << line;
}

TEST_F(RehearseCommandTest, WantsExactlyOneScenario) {
  EXPECT_EQ(Run({}), 2);
  EXPECT_EQ(Run({"a", "b"}), 2);
  EXPECT_EQ(err.str(),
            "orvenza-lab rehearse: which scenario?\nSee 'orvenza-lab rehearse --help'.\n"
            "orvenza-lab rehearse: one scenario at a time\nSee 'orvenza-lab rehearse --help'.\n");
}

TEST_F(RehearseCommandTest, KeepsTheShopInANewFolderHere) {
  disk.MakeFolder("C:\\work\\rehearsal-1");
  EXPECT_EQ(Run({"day.scenario", "--keep"}), 0);
  EXPECT_TRUE(out.str().ends_with("end\nkept in rehearsal-2\n")) << out.str();
  EXPECT_EQ(disk.Content("C:\\work\\rehearsal-2\\storico\\1.txt"), "29;1;\r\n31;1;\r\n");
  EXPECT_EQ(disk.Content("C:\\work\\rehearsal-2\\drive-D\\cassa\\nota.txt"), "x\r\n");
}

TEST_F(RehearseCommandTest, KeepsNothingOutsideTheFolder) {
  disk.Put("C:\\work\\day.scenario",
           std::string("setting [Database] HistoricTickets = C:\\Orvenza\\..\\..\\..\\storico\n") + kDay);
  EXPECT_EQ(Run({"day.scenario", "--folder", "shop"}), 0) << err.str();
  EXPECT_TRUE(disk.Content("C:\\work\\shop\\drive-C\\storico\\1.txt"));
  for (const std::string& path : disk.Paths()) {
    EXPECT_TRUE(path.starts_with("C:\\work\\shop\\") || path == "C:\\work\\day.scenario") << path;
  }
}

TEST_F(RehearseCommandTest, KeepsTheShopInAFolderOfTheUser) {
  disk.MakeFolder("C:\\work\\shop");
  EXPECT_EQ(Run({"day.scenario", "--folder", "shop"}), 0);
  EXPECT_EQ(Run({"day.scenario", "--folder", "deep/shop"}), 0);
  EXPECT_TRUE(disk.Content("C:\\work\\shop\\Log.txt"));
  EXPECT_TRUE(disk.Content("C:\\work\\deep\\shop\\Log.txt"));
}

TEST_F(RehearseCommandTest, WritesOverNothing) {
  disk.Put("C:\\work\\shop\\a.txt", "");
  EXPECT_EQ(Run({"day.scenario", "--folder", "shop"}), 2);
  EXPECT_EQ(Run({"day.scenario", "--folder", "day.scenario"}), 2);
  EXPECT_EQ(err.str(),
            "orvenza-lab rehearse: 'shop' is neither missing nor an empty folder\n"
            "See 'orvenza-lab rehearse --help'.\n"
            "orvenza-lab rehearse: 'day.scenario' is neither missing nor an empty folder\n"
            "See 'orvenza-lab rehearse --help'.\n");
  EXPECT_EQ(out.str(), "");
}

TEST_F(RehearseCommandTest, WritesAPage) {
  EXPECT_EQ(Run({"day.scenario", "--html", "day.html"}), 0);
  EXPECT_TRUE(out.str().ends_with("  end\n")) << out.str();
  EXPECT_EQ(err.str(), "");
  const std::string page = disk.Content("C:\\work\\day.html").value_or("");
  EXPECT_NE(page.find("<title>Rehearsal of day.scenario</title>"), std::string::npos) << page;
  EXPECT_NE(page.find("DOCUMENTO NON FISCALE"), std::string::npos) << page;
}

TEST_F(RehearseCommandTest, WritesThePageOfARehearsalThatWentWrong) {
  disk.Put("C:\\work\\day.scenario", "second instance\n");
  EXPECT_EQ(Run({"day.scenario", "--html", "day.html"}), 1);
  const std::string page = disk.Content("C:\\work\\day.html").value_or("");
  EXPECT_NE(page.find("<h2>1 problem</h2>"), std::string::npos) << page;
  EXPECT_NE(page.find("Nobody answered."), std::string::npos) << page;
}

TEST_F(RehearseCommandTest, WritesTheSameTranscriptWithAPage) {
  EXPECT_EQ(Run({"day.scenario"}), 0);
  const std::string transcript = out.str();
  EXPECT_EQ(Run({"day.scenario", "--html", "day.html"}), 0);
  EXPECT_EQ(out.str(), transcript + transcript);
}

TEST_F(RehearseCommandTest, SaysThatThePageCannotBeWritten) {
  EXPECT_EQ(Run({"day.scenario", "--html", "none\\day.html"}), 2);
  EXPECT_EQ(err.str(), "orvenza-lab rehearse: Path not found ( none\\day.html )\n");
}

TEST_F(RehearseCommandTest, WritesNoPageOverTheScenario) {
  EXPECT_EQ(Run({"day.scenario", "--html", "day.scenario"}), 2);
  EXPECT_EQ(Run({"day.scenario", "--html", ".\\day.scenario"}), 2);
  EXPECT_EQ(err.str(),
            "orvenza-lab rehearse: day.scenario exists and is no HTML page\n"
            "orvenza-lab rehearse: .\\day.scenario exists and is no HTML page\n");
  EXPECT_EQ(out.str(), "");
  EXPECT_EQ(disk.Content("C:\\work\\day.scenario"), kDay);
}

}  // namespace
}  // namespace orvenza::test
