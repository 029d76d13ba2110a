#include "ui/terminal/text_box.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/text.h"

namespace orvenza {
namespace {

struct Case {
  const char* text;
  std::vector<std::string> rows;
};

TEST(WrapText, BreaksAtBlanksAndKeepsLineEnds) {
  const Case cases[] = {
      {"", {""}},
      {"dieci10car", {"dieci10car"}},
      {"uno due tre", {"uno due", "tre"}},
      {"dieci10car due", {"dieci10car", "due"}},
      {"uno due345 tre", {"uno due345", "tre"}},
      {"uno   due      tre", {"uno   due", "tre"}},
      {"undici11car+", {"undici11ca", "r+"}},
      {"   undici11car", {"   undici1", "1car"}},
      {"uno\r\ndue\ntre", {"uno", "due", "tre"}},
      {"\r\nuno", {"", "uno"}},
      {"uno\r\n", {"uno", ""}},
      {"perché così", {"perché", "così"}},
      {"àèìòùàèìòù", {"àèìòùàèìòù"}},
      {"àèìòùàèìòùé", {"àèìòùàèìòù", "é"}},
  };
  for (const Case& row : cases) EXPECT_EQ(WrapText(row.text, 10), row.rows) << row.text;
}

TEST(WrapText, LetsNoCharacterSteerTheTerminal) {
  EXPECT_EQ(WrapText("a\x1B[2Jb\tc\x7F"
                     "d",
                     20),
            std::vector<std::string>{"a [2Jb c d"});
  EXPECT_EQ(WrapText("a\xC2\x9D"
                     "b\xC2\xA0"
                     "c",
                     20),
            std::vector<std::string>{"a b\xC2\xA0"
                                     "c"});
}

std::vector<std::string> RowsOf(const TextBox& box) {
  std::vector<std::string> rows = WrapText(box.Draw(), 200);
  EXPECT_EQ(rows.back(), "");
  rows.pop_back();
  return rows;
}

TEST(TextBox, FramesItsRowsAtTheSameWidthWhateverTheLetters) {
  TextBox box("Titolo è qui");
  box.AddText("Sì, perché no ?", true);
  box.AddText(std::string(100, 'a'));
  box.AddRule();
  box.AddColumns({"[1] Sì", "[2] No"});
  for (const std::string& row : RowsOf(box)) EXPECT_EQ(CountCharacters(row), TextBox::kWidth) << row;
}

TEST(TextBox, FitsANarrowTerminal) {
  for (const std::size_t width : {24U, 40U, 71U}) {
    TextBox box("Configurazione Parametri Porta COM", width);
    box.AddText("Sì, perché no ?", true);
    box.AddText(std::string(100, 'a'));
    box.AddColumns({"[1] " + std::string(30, 'b'), "[2] " + std::string(30, 'c'), "[3] d"});
    for (const std::string& row : RowsOf(box)) EXPECT_EQ(CountCharacters(row), width) << row;
  }
}

TEST(TextBox, IsNeitherTooNarrowNorTooWide) {
  EXPECT_EQ(CountCharacters(RowsOf(TextBox("x", 1))[0]), TextBox::kLeastWidth);
  EXPECT_EQ(CountCharacters(RowsOf(TextBox("x", 500))[0]), TextBox::kWidth);
}

TEST(TextBox, CentresARow) {
  TextBox box("x");
  box.AddText("abcd", true);
  EXPECT_EQ(RowsOf(box)[3], "| " + std::string(32, ' ') + "abcd" + std::string(32, ' ') + " |");
}

TEST(TextBox, PutsItemsSideBySideAsLongAsTheyFit) {
  TextBox box("x");
  const std::string wide(20, 'a');
  box.AddColumns({wide, "b", "c", "d"});
  const std::vector<std::string> rows = RowsOf(box);
  ASSERT_EQ(rows.size(), 6U);
  EXPECT_EQ(rows[3], "| " + wide + "   b                      c" + std::string(21, ' ') + " |");
  EXPECT_EQ(rows[4], "| d" + std::string(67, ' ') + " |");
}

TEST(TextBox, StartsANewRowForAnItemThatDoesNotFit) {
  TextBox fits("x");
  fits.AddColumns({std::string(32, 'a'), std::string(32, 'b')});
  EXPECT_EQ(RowsOf(fits).size(), 5U);
  TextBox tooWide("x");
  tooWide.AddColumns({std::string(33, 'a'), "[2] " + std::string(29, 'b')});
  EXPECT_EQ(RowsOf(tooWide)[4], "| [2] " + std::string(29, 'b') + std::string(35, ' ') + " |");
}

}  // namespace
}  // namespace orvenza
