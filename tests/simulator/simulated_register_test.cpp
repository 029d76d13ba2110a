#include "simulator/simulated_register.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <utility>
#include <vector>

#include "simulator/item_command.h"
#include "simulator/virtual_clock.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;

class SimulatedRegisterTest : public testing::Test {
 protected:
  std::string Run(const std::string& command) { return device.Execute(command); }

  VirtualClock clock;
  PaperRoll paper;
  SimulatedRegister device{clock, paper};
  const std::string bread = ItemCommand("1003", "PANE", 1000, 150);
};

TEST_F(SimulatedRegisterTest, StatusTellsWhetherAReceiptIsOpen) {
  EXPECT_EQ(Run("321701"), "321700");
  EXPECT_FALSE(device.ReceiptOpen());
  EXPECT_EQ(Run(bread), "100300");
  EXPECT_EQ(Run("321701"), "ERR17");
  EXPECT_EQ(Run("321700"), "ERR17");
  EXPECT_TRUE(device.ReceiptOpen());
  EXPECT_EQ(Run("103601000000000"), "103600");
  EXPECT_EQ(Run("321701"), "321700");
}

TEST_F(SimulatedRegisterTest, IdentityCarriesModelAndReleaseAtTheirPlaces) {
  SimulatedRegister tovest(clock, paper, {.model = "  TOVEST 8", .release = "  02.04.00"});
  const std::string reply = tovest.Execute("199900");
  EXPECT_EQ(reply, "199900  TOVEST 8  02.04.00");
  EXPECT_EQ(reply.substr(6, 10), "  TOVEST 8");
  EXPECT_EQ(reply.substr(16, 10), "  02.04.00");
}

TEST_F(SimulatedRegisterTest, ClockStandsInCharacters11To14) {
  clock.Advance(7min + 59s);
  EXPECT_EQ(Run("420100"), "42011611260907");
  EXPECT_EQ(Run("420100").substr(10, 4), "0907");
}

TEST_F(SimulatedRegisterTest, ItsClockIsRightWheneverItIsSwitchedOn) {
  clock.Advance(1h);
  SimulatedRegister later(clock, paper);
  EXPECT_EQ(later.Execute("420100"), "42011611261000");
}

TEST_F(SimulatedRegisterTest, ItsClockRunsByItself) {
  SimulatedRegister ahead(clock, paper, {.clockAhead = 15h});
  EXPECT_EQ(ahead.Execute("420100"), "42011711260000");
  clock.SetTimeOfDay(12, 0, 0);
  clock.Advance(60s);
  EXPECT_EQ(ahead.Execute("420100"), "42011711260001");
}

TEST_F(SimulatedRegisterTest, RefusesWhatIsNoCommand) {
  for (const char* command : {"", "1", "103", "1000", "9999", "abcd", "3 10", "ERR.", "1006"}) {
    EXPECT_EQ(Run(command), "ERR16") << command;
  }
}

TEST_F(SimulatedRegisterTest, RefusesMalformedData) {
  const std::string blanks(40, ' ');
  const std::vector<std::string> commands = {"3217",
                                             "32170",
                                             "3217011",
                                             "3217 1",
                                             "1050011",
                                             "1063011",
                                             "1065011",
                                             "10310100000100",
                                             "10250101000",
                                             "1148011",
                                             "1999010",
                                             ItemCommand("1015", "PANE", 1000, 150) + "ABCDE",
                                             "1149",
                                             "1028",
                                             "10281x",
                                             "1036010000000000",
                                             "10360100000000",
                                             "1036-1000000000",
                                             "1073016CARTA           000000000",
                                             "10450111000000000",
                                             "104501000000000",
                                             "1022010000",
                                             "102201100",
                                             "100401" + blanks + "PANE            0000000100000015001",
                                             "100401" + blanks + "PANE            0001000200000015001",
                                             "100401" + blanks + "PANE            0001000100000015041",
                                             "100401" + blanks + "PANE            0001000100000015000",
                                             "100401" + blanks + "PANE            0001000100000015001ABCDE",
                                             ItemCommand("1003", "PANE", 2000, 150),
                                             ItemCommand("1004", "PANE", 1500, 150),
                                             ItemCommand("1009", "PANE", 2000, 150),
                                             ItemCommand("1010", "PANE", 1500, 150),
                                             ItemCommand("1015", "PANE", 2000, 150),
                                             ItemCommand("1016", "PANE", 1500, 150),
                                             "106601PANE",
                                             "1062011" + std::string(32, 'X') + "00",
                                             "10670106" + std::string(27, 'X'),
                                             "10680131" + std::string(27, 'X'),
                                             "10680101" + std::string(28, 'X'),
                                             "10820100" + std::string(37, 'X'),
                                             "10820101" + std::string(38, 'X'),
                                             "1064014" + std::string(27, 'X'),
                                             "1064010" + std::string(38, 'X'),
                                             "200101*",
                                             "200201",
                                             "20040101",
                                             "3001",
                                             "300102",
                                             "300101*",
                                             "104702",
                                             "1048011",
                                             "10830100000",
                                             "1077011SCONTO          0000",
                                             "405201000" + std::string(112, '0'),
                                             "405201255" + std::string(112, '0'),
                                             "405201001" + std::string(111, '0'),
                                             "405201001" + std::string(111, '0') + "f",
                                             "405201001" + std::string(113, '0'),
                                             "1999001",
                                             "4201"};
  for (const auto& command : commands) EXPECT_EQ(Run(command), "ERR13") << command;
  EXPECT_FALSE(device.ReceiptOpen());
  EXPECT_EQ(paper.Text(), "");
}

TEST_F(SimulatedRegisterTest, RefusesWhatNeedsAReceiptWhileNoneIsOpen) {
  const std::vector<std::string> commands = {"103601000000000",
                                             "104401000000100",
                                             "10450101000000000",
                                             "10460101000000000",
                                             "10710101BUONO           000000000",
                                             "10720101BUONO           000000000",
                                             "1073010CARTA           000000000",
                                             "102800",
                                             "105001",
                                             "102101000000010",
                                             "1022010100",
                                             "1023010100",
                                             "102401000000010",
                                             "1025010100",
                                             "1026010100",
                                             "106901SCONTO          000000010",
                                             "107001SCONTO          000000010",
                                             ItemCommand("1015", "PANE", 1000, 150),
                                             ItemCommand("1016", "PANE", 2000, 150),
                                             ItemCommand("1017", "PANE", 1500, 150),
                                             ItemCommand("1009", "PANE", 1000, 150),
                                             ItemCommand("1010", "PANE", 2000, 150),
                                             ItemCommand("1011", "PANE", 1500, 150),
                                             "1064010" + std::string(27, 'X'),
                                             "106501"};
  for (const auto& command : commands) EXPECT_EQ(Run(command), "ERR11") << command;
  EXPECT_EQ(paper.Text(), "");
}

TEST_F(SimulatedRegisterTest, RefusesWhatMustWaitForTheReceiptToClose) {
  Run(bread);
  const std::vector<std::string> commands = {"300101",          "300201",          "200101",
                                             "20080105",        "20030105",        "2004010001",
                                             "103101000000100", "104001000000100", "106301"};
  for (const auto& command : commands) EXPECT_EQ(Run(command), "ERR17") << command;
}

TEST_F(SimulatedRegisterTest, TakesEverySettingAndPrintsNothing) {
  const std::vector<std::string> commands = {"104701",
                                             "104801000000100",
                                             "104901",
                                             "105101",
                                             "105501",
                                             "105601",
                                             "107501000000100",
                                             "107601",
                                             "1077011SCONTO          0100",
                                             "1078011SCONTO          0100",
                                             "10830109999",
                                             "114801"};
  for (const auto& command : commands) EXPECT_EQ(Run(command), command.substr(0, 4) + "00");
  EXPECT_EQ(paper.Text(), "");
}

TEST_F(SimulatedRegisterTest, PrintsTextsAndCashMovementsOutsideReceipts) {
  EXPECT_EQ(Run("106601BUONGIORNO      "), "106600");
  EXPECT_EQ(Run("10840100100020002" + std::string(40, '7')), "108400");
  EXPECT_EQ(Run("103101000012345"), "103100");
  EXPECT_EQ(Run("104001000000100"), "104000");
  EXPECT_FALSE(device.ReceiptOpen());
  EXPECT_EQ(paper.Text(),
            "BUONGIORNO\n"
            "7777777777777777777777777777777777777777\n"
            "             CASSA CONTANTI\n"
            "VERSAMENTO                        123,45\n"
            "16/11/2026 09:00                        \n"
            "----------------------------------------\n"
            "             CASSA ASSEGNI\n"
            "PRELIEVO                            1,00\n"
            "16/11/2026 09:00                        \n"
            "----------------------------------------\n");
}

TEST_F(SimulatedRegisterTest, RefusesACashMovementThatIsTooLarge) {
  EXPECT_EQ(Run("103101100000000"), "ERR20");
  EXPECT_EQ(Run("103101099999999"), "103100");
}

TEST_F(SimulatedRegisterTest, PrintsANonFiscalDocument) {
  EXPECT_EQ(Run("106301"), "106300");
  EXPECT_EQ(Run("321701"), "ERR17");
  EXPECT_EQ(Run(bread), "ERR11");
  EXPECT_EQ(Run("106301"), "ERR17");
  EXPECT_EQ(Run("1064010Tessera fedelta: 12 punti  "), "106400");
  EXPECT_EQ(Run("106501"), "106500");
  EXPECT_EQ(Run("321701"), "321700");
  EXPECT_EQ(paper.Text(),
            "            NEGOZIO DI PROVA\n"
            "         REGISTRATORE SIMULATO\n"
            "                                    EURO\n"
            "         DOCUMENTO NON FISCALE\n"
            "Tessera fedelta: 12 punti\n"
            "16/11/2026 09:00          FINE DOCUMENTO\n"
            "----------------------------------------\n");
  EXPECT_TRUE(device.Receipts().empty());
}

TEST_F(SimulatedRegisterTest, VoidsANonFiscalDocument) {
  Run("106301");
  EXPECT_EQ(Run("102800"), "102800");
  EXPECT_FALSE(device.ReceiptOpen());
  EXPECT_TRUE(device.Receipts().empty());
}

TEST_F(SimulatedRegisterTest, FiscalClosurePrintsTheDayAndBeginsAnother) {
  Run(bread);
  Run("103601000000000");
  Run(bread);
  Run("102800");
  EXPECT_EQ(device.DailyTotal(), 150);
  EXPECT_EQ(device.DailyReceipts(), 1);
  clock.Advance(10h);
  const std::size_t before = paper.Lines().size();
  EXPECT_EQ(Run("300101"), "300100");
  const std::vector<std::string> printed(paper.Lines().begin() + static_cast<std::ptrdiff_t>(before),
                                         paper.Lines().end());
  EXPECT_EQ(printed,
            (std::vector<std::string>{
                "         CHIUSURA FISCALE N. 1", "SCONTRINI                              1",
                "TOTALE DEL GIORNO                   1,50", "16/11/2026 19:00                        ",
                "----------------------------------------"}));
  EXPECT_EQ(device.DailyTotal(), 0);
  EXPECT_EQ(device.DailyReceipts(), 0);
  Run(bread);
  Run("103601000000000");
  EXPECT_EQ(device.Receipts().back().number, 1);
}

TEST_F(SimulatedRegisterTest, ClosureWithTheFinancialReportPrintsItFirst) {
  EXPECT_EQ(Run("300201"), "300200");
  EXPECT_EQ(device.FiscalClosures(), 1);
  EXPECT_EQ(paper.Lines()[0], "          RAPPORTO FINANZIARIO");
  EXPECT_EQ(paper.Lines()[3], "         CHIUSURA FISCALE N. 1");
}

TEST_F(SimulatedRegisterTest, PrintsEveryReport) {
  const std::vector<std::pair<std::string, std::string>> reports = {
      {"2001", ""}, {"2002", "10"}, {"2003", "40"}, {"2004", "1260"}, {"2005", ""}, {"2006", "20"},
      {"2007", ""}, {"2008", "10"}, {"2009", "40"}, {"2010", "1260"}, {"2011", ""}, {"2012", "20"}};
  for (const auto& [code, data] : reports) {
    const std::size_t before = paper.Lines().size();
    EXPECT_EQ(Run(code + "01" + data), code + "00");
    EXPECT_EQ(paper.Lines()[before], "             RAPPORTO " + code);
  }
}

TEST_F(SimulatedRegisterTest, CountsLogoRows) {
  EXPECT_EQ(Run("405201001" + std::string(112, '0')), "405200");
  EXPECT_EQ(Run("405201254" + std::string(56, '0') + std::string(56, 'F')), "405200");
  EXPECT_EQ(device.LogoRows(), 2u);
  EXPECT_EQ(paper.Text(), "");
}

}  // namespace
}  // namespace orvenza::test
