#include <string>

#include "tickets/translation_world.h"

namespace orvenza::test {
namespace {

// The same item in the three layouts: description, quantity, price 150, class 3, number 2.
constexpr const char* kType1 = "1;Pane casereccio al;2,000;150;3;;;2;";
constexpr const char* kType3 = "3;Pane casereccio al;150;3;;;2;;2,000;";
constexpr const char* kType9 = "9;Pane casereccio al;150;3;;2;;;2,000;";

TEST_F(TranslationTest, Type1Item) {
  EXPECT_EQ(Translate(kType1), "100402" + Blanks(40) + "Pane casereccio 0002000100000015003al");
}

TEST_F(TranslationTest, Type3Item) {
  EXPECT_EQ(Translate(kType3), "101602" + Blanks(40) + "Pane casereccio 0002000100000015003al");
}

TEST_F(TranslationTest, Type9Item) {
  EXPECT_EQ(Translate(kType9), "101002" + Blanks(40) + "Pane casereccio 0002000100000015003al");
}

TEST_F(TranslationTest, ItemDescriptionIsSplitAround) {
  EXPECT_EQ(Translate("1;ABCDEFGHIJKLMNOPQRSTUVWXY;1000;150;3;;;2;"),
            "100302" + Blanks(40) + "ABCDEFGHIJKLMNOP" + "0001000" + "1" + "000000150" + "03" + "QRST");
}

TEST_F(TranslationTest, ItemDescriptionOf16CharactersHasNoTail) {
  EXPECT_EQ(Translate("1;ABCDEFGHIJKLMNOP;1000;150;3;;;2;"),
            "100302" + Blanks(40) + "ABCDEFGHIJKLMNOP0001000100000015003");
}

TEST_F(TranslationTest, ItemDescriptionOf17CharactersHasATailOfOne) {
  EXPECT_EQ(Translate("1;ABCDEFGHIJKLMNOPQ;1000;150;3;;;2;"),
            "100302" + Blanks(40) + "ABCDEFGHIJKLMNOP0001000100000015003Q");
}

TEST_F(TranslationTest, AccentedLettersBecomeBlanks) {
  EXPECT_EQ(Translate("1;Caff\xE8 t\xE8 \x80;1000;150;3;;;2;"),
            "100302" + Blanks(40) + "Caff  t         0001000100000015003");
  EXPECT_EQ(Translate("23;Perch\xC3\xA9;2;"), "1062020Perch                           00");
}

TEST_F(TranslationTest, AnItemClassOutOfRangeIsSentAs40) {
  EXPECT_EQ(Translate("1;Pane;1000;150;0;;;2;"),
            "100302" + Blanks(40) + "Pane            0001000100000015040");
}

TEST_F(TranslationTest, ItemsNeedEveryValue) {
  for (const char* line :
       {"1;;1000;150;3;;;2;", "1;Pane;;150;3;;;2;", "1;Pane;1000;;3;;;2;", "1;Pane;1000;150;;;;2;",
        "1;Pane;1000;150;3;;;;", "1;Pane;1;150;3;;;2;", "1;Pane;1000;1,50;3;;;2;"}) {
    EXPECT_EQ(Translate(line), "") << line;
  }
}

/// The codes of one item record for the quantities one, two, and two and a half.
struct CodeCase {
  const char* before;
  const char* after;
  std::string one;
  std::string whole;
  std::string decimals;
};

TEST_F(TranslationTest, QuantityChangesTheCode) {
  const CodeCase cases[] = {{"1;Pane;", ";150;3;;;2;", "1003", "1004", "1005"},
                            {"3;Pane;150;3;;;2;;", ";", "1015", "1016", "1017"},
                            {"9;Pane;150;3;;2;;;", ";", "1009", "1010", "1011"}};
  for (const CodeCase& item : cases) {
    const auto codeFor = [&](const char* quantity) {
      return Translate(std::string(item.before) + quantity + item.after).substr(0, 4);
    };
    EXPECT_EQ(codeFor("1,0"), item.one);
    EXPECT_EQ(codeFor("1000"), item.one);
    EXPECT_EQ(codeFor("2,0"), item.whole);
    EXPECT_EQ(codeFor("0,0"), item.whole);
    EXPECT_EQ(codeFor("12345,0"), item.whole);
    EXPECT_EQ(codeFor("2,5"), item.decimals);
    EXPECT_EQ(codeFor("1,001"), item.decimals);
    EXPECT_EQ(codeFor("0,100"), item.decimals);
  }
}

TEST_F(TranslationTest, SingleQuantitySendsOneAsWholeForTypes1And9Only) {
  settings.SingleQuantity = true;
  EXPECT_EQ(Translate("1;Pane;1,0;150;3;;;2;").substr(0, 4), "1004");
  EXPECT_EQ(Translate("3;Pane;150;3;;;2;;1,0;").substr(0, 4), "1015");
  EXPECT_EQ(Translate("9;Pane;150;3;;2;;;1,0;").substr(0, 4), "1010");
}

TEST_F(TranslationTest, SingleQuantityLeavesOtherQuantitiesAlone) {
  settings.SingleQuantity = true;
  EXPECT_EQ(Translate("1;Pane;2,5;150;3;;;2;").substr(0, 4), "1005");
  EXPECT_EQ(Translate("1;Pane;2,0;150;3;;;2;").substr(0, 4), "1004");
  EXPECT_EQ(Translate("9;Pane;150;3;;2;;;2,5;").substr(0, 4), "1011");
}

TEST_F(TranslationTest, Type1IsAnItemUnlessF8IsExactlyMinus1) {
  for (const char* f8 : {"0", "1", "-1 ", "-01", "x"}) {
    EXPECT_EQ(Translate(std::string("1;Pane;1000;150;3;;;2;") + f8 + ";").substr(0, 4), "1003") << f8;
  }
}

TEST_F(TranslationTest, Type1WithoutItemKind1WithoutText) {
  EXPECT_EQ(Translate("1;1;2;;500;;;;-1;"), "102102000000500");
  EXPECT_EQ(Translate("1;1;2;;500;SCONTO;0;;-1;"), "102102000000500");
  EXPECT_EQ(Translate("1;1;2;;;;;;-1;"), "");
}

TEST_F(TranslationTest, Type1WithoutItemKind1WithText) {
  EXPECT_EQ(Translate("1;1;2;;500;SCONTO SOCIO;1;;-1;"), "106902SCONTO SOCIO    000000500");
  EXPECT_EQ(Translate("1;1;2;;500;;1;;-1;"), "");
}

TEST_F(TranslationTest, Type1WithoutItemKind2) {
  EXPECT_EQ(Translate("1;2;2;;1500;;;;-1;"), "1022021500");
  EXPECT_EQ(Translate("1;2;2;;0;;;;-1;"), "");
}

TEST_F(TranslationTest, Type1WithoutItemKind3) {
  EXPECT_EQ(Translate("1;3;2;;1500;;;;-1;"), "1023021500");
  EXPECT_EQ(Translate("1;3;2;;0;;;;-1;"), "");
}

TEST_F(TranslationTest, Type1WithoutItemAndKindTakesTheFirst) {
  EXPECT_EQ(Translate("1;;2;;500;;;;-1;"), "102102000000500");
  EXPECT_EQ(Translate("1;;2;;500;SCONTO SOCIO;1;;-1;"), "106902SCONTO SOCIO    000000500");
}

TEST_F(TranslationTest, Type1WithoutItemOfAnotherKindIsInvalid) {
  for (const char* kind : {"0", "4", "01", "Pane"}) {
    EXPECT_EQ(Translate(std::string("1;") + kind + ";2;;500;;;;-1;"), "") << kind;
  }
}

}  // namespace
}  // namespace orvenza::test
