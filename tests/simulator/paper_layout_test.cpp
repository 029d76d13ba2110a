#include "simulator/paper_layout.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace orvenza {
namespace {

TEST(PaperLayout, WritesAmountsTheItalianWay) {
  const struct {
    std::int64_t cents;
    const char* text;
  } cases[] = {{0, "0,00"},
               {5, "0,05"},
               {-5, "-0,05"},
               {123, "1,23"},
               {99999, "999,99"},
               {100000, "1.000,00"},
               {-123456, "-1.234,56"},
               {99999999, "999.999,99"},
               {123456789012, "1.234.567.890,12"}};
  for (const auto& [cents, text] : cases) EXPECT_EQ(FormatCents(cents), text);
}

TEST(PaperLayout, WritesQuantitiesWithTheDecimalsTheyHave) {
  EXPECT_EQ(FormatQuantity(2000), "2");
  EXPECT_EQ(FormatQuantity(125), "0,125");
  EXPECT_EQ(FormatQuantity(10050), "10,050");
}

TEST(PaperLayout, SpreadsALineFromEdgeToEdge) {
  EXPECT_EQ(Spread("PANE", "1,50"), "PANE                                1,50");
  EXPECT_EQ(Spread("", "EURO"), "                                    EURO");
}

TEST(PaperLayout, CutsTheLeftTextWhereTheLineIsTooShort) {
  EXPECT_EQ(Spread(std::string(50, 'X'), "1,50"), std::string(35, 'X') + " 1,50");
}

TEST(PaperLayout, CentresATextAndCutsALongOne) {
  EXPECT_EQ(Centred("PROVA"), std::string(17, ' ') + "PROVA");
  EXPECT_EQ(Centred(std::string(41, 'X')), std::string(40, 'X'));
}

}  // namespace
}  // namespace orvenza
