#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simulator/item_command.h"
#include "simulator/paper_layout.h"
#include "simulator/simulated_register.h"
#include "simulator/virtual_clock.h"

namespace orvenza::test {
namespace {

class ReceiptsTest : public testing::Test {
 protected:
  std::string Run(const std::string& command) { return device.Execute(command); }
  std::string Sell(int price) { return Run(ItemCommand("1003", "PANE", 1000, price)); }
  std::string Close() { return Run("103601000000000"); }

  VirtualClock clock;
  PaperRoll paper;
  SimulatedRegister device{clock, paper, {.receiptCapacity = 5}};
};

TEST_F(ReceiptsTest, PrintsAReceiptThatAddsUp) {
  Run(ItemCommand("1003", "PANE", 1000, 150));
  Run(ItemCommand("1004", "LATTE", 2000, 129));
  Run(ItemCommand("1005", "MELE", 1255, 199) + "GIAL");
  Run("102101000000050");
  EXPECT_EQ(Run("103601000001000"), "103600");
  EXPECT_EQ(paper.Text(),
            "            NEGOZIO DI PROVA\n"
            "         REGISTRATORE SIMULATO\n"
            "                                    EURO\n"
            "PANE                                1,50\n"
            "  2 x 1,29\n"
            "LATTE                               2,58\n"
            "  1,255 x 1,99\n"
            "MELE            GIAL                2,50\n"
            "SCONTO                             -0,50\n"
            "TOTALE COMPLESSIVO                  6,08\n"
            "CONTANTI                           10,00\n"
            "RESTO                               3,92\n"
            "16/11/2026 09:00          SCONTRINO N. 1\n"
            "----------------------------------------\n");
}

TEST_F(ReceiptsTest, RemembersWhatItPrinted) {
  Sell(150);
  Close();
  Sell(200);
  Run("102800");
  Sell(300);
  Close();
  ASSERT_EQ(device.Receipts().size(), 3u);
  EXPECT_EQ(device.Receipts()[0].number, 1);
  EXPECT_EQ(device.Receipts()[0].total, 150);
  EXPECT_EQ(device.Receipts()[0].lines.size(), 8u);
  EXPECT_EQ(device.Receipts()[0].lines[3], "PANE                                1,50");
  EXPECT_FALSE(device.Receipts()[0].voided);
  EXPECT_EQ(device.Receipts()[1].number, 0);
  EXPECT_EQ(device.Receipts()[1].total, 200);
  EXPECT_TRUE(device.Receipts()[1].voided);
  EXPECT_EQ(device.Receipts()[2].number, 2);
  EXPECT_EQ(device.DailyTotal(), 450);
  EXPECT_EQ(device.DailyReceipts(), 2);
}

TEST_F(ReceiptsTest, PrintsAVoidedReceipt) {
  Sell(150);
  EXPECT_EQ(Run("102800"), "102800");
  EXPECT_EQ(paper.Text(),
            "            NEGOZIO DI PROVA\n"
            "         REGISTRATORE SIMULATO\n"
            "                                    EURO\n"
            "PANE                                1,50\n"
            "ANNULLO                            -1,50\n"
            "16/11/2026 09:00     SCONTRINO ANNULLATO\n"
            "----------------------------------------\n");
  EXPECT_EQ(Run("102800"), "ERR11");
}

TEST_F(ReceiptsTest, TakesBackCorrectionsAndReturns) {
  const struct {
    const char* code;
    int quantity;
    const char* title;
    int total;
  } cases[] = {{"1015", 1000, "STORNO", 900}, {"1016", 2000, "STORNO", 800}, {"1017", 1500, "STORNO", 850},
               {"1009", 1000, "RESO", 900},   {"1010", 2000, "RESO", 800},   {"1011", 1500, "RESO", 850}};
  for (const auto& [code, quantity, title, total] : cases) {
    Sell(1000);
    EXPECT_EQ(Run(ItemCommand(code, "PANE", quantity, 100)), std::string(code) + "00");
    Close();
    EXPECT_EQ(device.Receipts().back().total, total) << code;
    EXPECT_EQ(device.Receipts().back().lines[4], title) << code;
    EXPECT_NE(paper.Text().find(Spread("PANE", FormatCents(total - 1000))), std::string::npos) << code;
  }
}

TEST_F(ReceiptsTest, TakesBackNoMoreThanWasSold) {
  Sell(1000);
  EXPECT_EQ(Run(ItemCommand("1015", "PANE", 1000, 1001)), "ERR20");
  EXPECT_EQ(Run(ItemCommand("1015", "PANE", 1000, 1000)), "101500");
}

TEST_F(ReceiptsTest, ChangesPricesByAmountAndPercent) {
  const struct {
    const char* command;
    const char* line;
    int total;
  } cases[] = {
      {"102101000000050", "SCONTO                             -0,50", 1450},
      {"106901SOCI            000000050", "SOCI                               -0,50", 1450},
      {"1022011000", "SCONTO 10,00%                      -0,50", 1450},
      {"1023011250", "MAGGIORAZIONE 12,50%                0,63", 1563},
      {"102401000000050", "SCONTO                             -0,50", 1450},
      {"107001SOCI            000000050", "SOCI                               -0,50", 1450},
      {"1025011000", "SCONTO 10,00%                      -1,50", 1350},
      {"1026011250", "MAGGIORAZIONE 12,50%                1,88", 1688},
  };
  for (const auto& [command, line, total] : cases) {
    Sell(1000);
    Sell(500);
    EXPECT_EQ(Run(command), std::string(command, 4) + "00");
    EXPECT_EQ(paper.Lines().back(), line);
    Close();
    EXPECT_EQ(device.Receipts().back().total, total) << command;
  }
}

TEST_F(ReceiptsTest, DiscountsNoMoreThanTheBase) {
  Sell(1000);
  Sell(500);
  EXPECT_EQ(Run("102101000000501"), "ERR20");
  EXPECT_EQ(Run("102401000001501"), "ERR20");
  EXPECT_EQ(Run("102101000000500"), "102100");
  EXPECT_EQ(Run("102401000001000"), "102400");
}

TEST_F(ReceiptsTest, ASubtotalEndsTheItem) {
  Sell(1000);
  EXPECT_EQ(Run("105001"), "105000");
  EXPECT_EQ(paper.Lines().back(), "SUBTOTALE                          10,00");
  EXPECT_EQ(Run("102101000000001"), "ERR11");
}

TEST_F(ReceiptsTest, ADiscountOnTheTotalShowsTheSubtotal) {
  Sell(1000);
  Run("102401000000100");
  EXPECT_EQ(paper.Lines()[4], "SUBTOTALE                          10,00");
}

TEST_F(ReceiptsTest, TakesEveryPayment) {
  const struct {
    const char* command;
    const char* line;
  } cases[] = {{"103601000000000", "CONTANTI                            5,00"},
               {"104401000000500", "ASSEGNI                             5,00"},
               {"10450100000000000", "CREDITO 0                           5,00"},
               {"10450110000000000", "CREDITO 10                          5,00"},
               {"10460103000000500", "BUONO 3                             5,00"},
               {"10710103BUONO PASTO     000000500", "BUONO PASTO                         5,00"},
               {"10720103CARTA CREDITO   000000500", "CARTA CREDITO                       5,00"},
               {"1073015BANCOMAT        000000500", "BANCOMAT                            5,00"}};
  for (const auto& [command, line] : cases) {
    Sell(500);
    EXPECT_EQ(Run(command), std::string(command, 4) + "00");
    EXPECT_EQ(device.Receipts().back().lines[5], line);
    EXPECT_EQ(device.Receipts().back().lines.size(), 8u) << command;
  }
}

TEST_F(ReceiptsTest, IsPaidInParts) {
  Sell(1000);
  EXPECT_EQ(Run("103601000000300"), "103600");
  EXPECT_EQ(paper.Lines().back(), "DA PAGARE                           7,00");
  EXPECT_EQ(Run("321701"), "ERR17");
  EXPECT_EQ(Run("10460101000000500"), "104600");
  EXPECT_EQ(Run("103601000000300"), "103600");
  const std::vector<std::string>& lines = device.Receipts().back().lines;
  EXPECT_EQ(std::vector<std::string>(lines.begin() + 4, lines.end() - 2),
            (std::vector<std::string>{
                "TOTALE COMPLESSIVO                 10,00", "CONTANTI                            3,00",
                "DA PAGARE                           7,00", "BUONO 1                             5,00",
                "DA PAGARE                           2,00", "CONTANTI                            3,00",
                "RESTO                               1,00"}));
}

TEST_F(ReceiptsTest, CanOnlyBePaidOnceAPaymentWasMade) {
  Sell(1000);
  Run("103601000000300");
  EXPECT_EQ(Sell(100), "ERR11");
  EXPECT_EQ(Run(ItemCommand("1015", "PANE", 1000, 100)), "ERR11");
  EXPECT_EQ(Run("105001"), "ERR11");
  EXPECT_EQ(Run("102401000000001"), "ERR11");
  EXPECT_EQ(Run("102800"), "ERR11");
  EXPECT_EQ(Run("103611000000000"), "103600");
  EXPECT_EQ(device.DailyTotal(), 1000);
}

TEST_F(ReceiptsTest, AReceiptOfNothingIsClosedByNothing) {
  Sell(0);
  EXPECT_EQ(Close(), "103600");
  EXPECT_EQ(device.Receipts().back().total, 0);
}

TEST_F(ReceiptsTest, RefusesAmountsThatAreTooLarge) {
  EXPECT_EQ(Sell(100000000), "ERR20");
  EXPECT_FALSE(device.ReceiptOpen());
  EXPECT_EQ(paper.Text(), "");
  EXPECT_EQ(Sell(99999999), "100300");
  EXPECT_EQ(Sell(1), "ERR20");
  EXPECT_EQ(Run("103601100000000"), "ERR20");
  EXPECT_EQ(Run("103601099999999"), "103600");
}

TEST_F(ReceiptsTest, AFullReceiptTakesOnlyItsPayment) {
  for (int i = 0; i < 5; ++i) EXPECT_EQ(Sell(100), "100300");
  const std::string reply = Sell(100);
  EXPECT_EQ(reply, "ERR2323");
  EXPECT_EQ(reply.substr(5, 2), "23");
  EXPECT_EQ(Run(ItemCommand("1015", "PANE", 1000, 100)), "ERR2323");
  EXPECT_EQ(Run("102101000000001"), "ERR2323");
  EXPECT_EQ(Run("102401000000001"), "ERR2323");
  EXPECT_EQ(Run("105001"), "ERR2323");
  EXPECT_EQ(Run("106601BUONGIORNO      "), "ERR2323");
  EXPECT_EQ(Run("1064010BUONGIORNO      "), "ERR2323");
  EXPECT_EQ(Close(), "103600");
  EXPECT_EQ(device.Receipts().back().total, 500);
  EXPECT_EQ(Sell(100), "100300");
}

TEST_F(ReceiptsTest, AFullReceiptCanBeVoided) {
  for (int i = 0; i < 5; ++i) Sell(100);
  EXPECT_EQ(Run("102800"), "102800");
}

TEST_F(ReceiptsTest, EveryEntryCounts) {
  Sell(100);
  Run("102101000000001");
  Run("105001");
  Run("106601BUONGIORNO      ");
  Run("1064010BUONGIORNO      ");
  EXPECT_EQ(Sell(100), "ERR2323");
}

TEST_F(ReceiptsTest, PrintsTextsWhereTheyCome) {
  const struct {
    std::string command;
    const char* line;
  } cases[] = {{"105801Sconto fedelta             ", "Sconto fedelta"},
               {"1062010Riga larga                      00", "Riga larga"},
               {"106601Riga stretta    ", "Riga stretta"},
               {"108101Riga media                 ", "Riga media"}};
  Sell(100);
  for (const auto& [command, line] : cases) {
    EXPECT_EQ(Run(command), command.substr(0, 4) + "00");
    EXPECT_EQ(paper.Lines().back(), line);
  }
  EXPECT_EQ(Run("102101000000001"), "ERR2323");
}

TEST_F(ReceiptsTest, ATextDoesNotEndTheItem) {
  Sell(100);
  Run("106601Riga stretta    ");
  EXPECT_EQ(Run("102101000000001"), "102100");
}

TEST_F(ReceiptsTest, PrintsFootLinesInTheirOrderOnce) {
  EXPECT_EQ(Run("10680102Seconda                    "), "106800");
  EXPECT_EQ(Run("10820101Prima                                "), "108200");
  EXPECT_EQ(Run("10670105Cortesia                   "), "106700");
  EXPECT_EQ(paper.Text(), "");
  Sell(100);
  Close();
  const std::vector<std::string>& lines = device.Receipts().back().lines;
  EXPECT_EQ(std::vector<std::string>(lines.begin() + 6, lines.end() - 2),
            (std::vector<std::string>{"Cortesia", "Prima", "Seconda"}));
  Sell(100);
  Close();
  EXPECT_EQ(device.Receipts().back().lines.size(), 8u);
}

TEST_F(ReceiptsTest, AVoidedReceiptHasNoFootLines) {
  Run("10680102Seconda                    ");
  Sell(100);
  Run("102800");
  EXPECT_EQ(device.Receipts().back().lines.size(), 7u);
}

TEST_F(ReceiptsTest, ForgetsFarOlderReceipts) {
  for (std::size_t i = 0; i < 2 * SimulatedRegister::kReceiptsKept + 1; ++i) {
    Sell(1);
    Close();
  }
  EXPECT_EQ(device.Receipts().size(), SimulatedRegister::kReceiptsKept + 1);
  EXPECT_EQ(device.Receipts().back().number, 20001);
  EXPECT_EQ(device.DailyTotal(), 20001);
}

}  // namespace
}  // namespace orvenza::test
