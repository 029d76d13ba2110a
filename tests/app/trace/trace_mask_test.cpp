#include "app/trace/trace_mask.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orvenza::test {
namespace {

using Lines = std::vector<std::string>;

TEST(MaskCommand, LeavesNumbersAndMasksTexts) {
  const std::string item =
      std::string(40, ' ') + "Pane 2 kg       " + "0001000" + "1" + "000000150" + "01" + "Rosa";
  const std::string masked =
      std::string(40, ' ') + "Xxxx 9 xx       " + "0001000" + "1" + "000000150" + "01" + "Xxxx";
  EXPECT_EQ(MaskCommand("100301" + item), "100301" + masked);
  EXPECT_EQ(MaskCommand("106201"
                        "0"
                        "Anna Rossi 3                    "
                        "00"),
            "106201"
            "0"
            "Xxxx Xxxxx 9                    "
            "00");
  EXPECT_EQ(MaskCommand("103601000000500"), "103601000000500");
}

TEST(MaskCommand, MasksWhateverHasNoKnownForm) {
  EXPECT_EQ(MaskCommand("777701Anna12"), "777799Xxxx99");
  EXPECT_EQ(MaskCommand("103601000000500Anna"), "103601000000500Xxxx");
  EXPECT_EQ(MaskCommand("1036Anna"), "1036Xxxx");
  EXPECT_EQ(MaskCommand("10"), "10");
  EXPECT_EQ(MaskCommand(""), "");
}

TEST(MaskCommand, LeavesTheRowsOfALogo) {
  const std::string row = "405201001" + std::string(112, 'A');
  EXPECT_EQ(MaskCommand(row), row);
}

TEST(MaskQuotes, MasksTheTicketLineThatALogQuotes) {
  EXPECT_EQ(MaskQuotes("Riga non valida : 2;1;50 EURO;Città;", ';'), "Riga non valida : 2;1;99 XXXX;Xxxxx;");
  EXPECT_EQ(MaskQuotes("File BMP non valido ! ( Anna 12 )", ';'), "File BMP non valido ! ( Xxxx 99 )");
  EXPECT_EQ(MaskQuotes("Il programma sarà terminato.", ';'), "Il programma sarà terminato.");
}

TEST(MaskQuotes, MasksALineWhoseSeparatorsAreNotShown) {
  EXPECT_EQ(MaskQuotes("Riga non valida : 2 1 50 EURO Anna", '\x7F'), "Riga non valida : 9 9 99 XXXX Xxxx");
}

TEST(ContentLines, HaveTheFormOfAScenario) {
  EXPECT_EQ(ContentLines("1;Caff\xE8 <3;1,000;\r\n\r\nx\x01", nullptr),
            (Lines{"1;Caffè <3C>3;1,000;", "", "x<01>"}));
  const char separator = ';';
  EXPECT_EQ(ContentLines("23;Anna Rossi;1;\n4;1;\r\n", &separator), (Lines{"23;Xxxx Xxxxx;1;", "4;1;"}));
}

}  // namespace
}  // namespace orvenza::test
