#include <string>

#include "tickets/translation_world.h"

// Each value of each record type, at its limits. "#" in a line is the place of the value.

namespace orvenza::test {
namespace {

class ValuesTest : public TranslationTest {
 protected:
  std::string TranslateWith(std::string line, const std::string& value) const {
    return Translate(line.replace(line.find('#'), 1, value));
  }
  /// The two digits after the command's code.
  std::string NumberSent(const std::string& line, const std::string& value) const {
    const std::string command = TranslateWith(line, value);
    return command.size() < 6 ? command : command.substr(4, 2);
  }
};

// Lines with a number that is sent after the command's code.
const char* const kNumbered[] = {
    "0;#;",
    "1;Pane;1000;150;3;;;#;",
    "1;1;#;;500;;;;-1;",
    "1;1;#;;500;SCONTO;1;;-1;",
    "1;2;#;;1500;;;;-1;",
    "1;3;#;;1500;;;;-1;",
    "2;#;1250;",
    "2;#;1250;5;CARTA;",
    "3;Pane;150;3;;;#;;1000;",
    "4;#;",
    "5;0;#;;;700;",
    "5;2;#;;;700;",
    "5;2;#;RESO;1;700;",
    "6;2;#;1500;",
    "6;3;#;1500;",
    "7;1;#;500;",
    "7;1;#;500;SCONTO;1;",
    "8;#;-1;",
    "8;#;0;",
    "9;Pane;150;3;;#;;;1000;",
    "14;700;#;3;;0;",
    "14;700;#;3;RESO;1;",
    "15;#;700;",
    "20;#;",
    "27;#;700;",
    "28;#;Cassa 3;",
    "29;#;",
    "30;#;2;Testo;",
    "31;#;",
    "32;#;1;",
    "32;#;2;1;",
    "32;#;3;1;",
    "32;#;4;1;",
    "32;#;5;",
    "32;#;6;1;",
    "32;#;7;",
    "32;#;8;1;",
    "32;#;9;1;",
    "32;#;10;1;",
    "32;#;11;",
    "32;#;12;1;",
    "36;#;700;",
    "37;#;",
    "38;#;9;Sconto socio;15;",
    "39;#;9;Sconto socio;15;",
    "40;#;",
    "41;#;",
    "42;#;250;",
    "43;#;0;100;250;3;Tessera punti;",
};

// The same, but anything that is not a number is replaced by 01.
const char* const kNumberedOr01[] = {
    "17;;7;A;#;",  "23;Grazie;#;", "24;A;#;",     "25;;3;A;#;",
    "34;0;700;#;", "34;1;700;#;",  "35;0;700;#;", "35;1;700;#;",
};

TEST_F(ValuesTest, NumbersAreTwoDigitsUpTo20) {
  const auto expectClamped = [&](const char* line) {
    EXPECT_EQ(NumberSent(line, "0"), "00") << line;
    EXPECT_EQ(NumberSent(line, "19"), "19") << line;
    EXPECT_EQ(NumberSent(line, "21"), "20") << line;
    EXPECT_EQ(NumberSent(line, "105"), "05") << line;
  };
  for (const char* line : kNumbered) expectClamped(line);
  for (const char* line : kNumberedOr01) expectClamped(line);
}

TEST_F(ValuesTest, ALineWithoutItsNumberIsInvalid) {
  for (const char* line : kNumbered) {
    for (const char* number : {"", "x", "-1"}) EXPECT_EQ(TranslateWith(line, number), "") << line << number;
  }
}

TEST_F(ValuesTest, SomeLinesSend01ForWhatIsNoNumber) {
  for (const char* line : kNumberedOr01) {
    for (const char* number : {"", "x", "-1"}) EXPECT_EQ(NumberSent(line, number), "01") << line << number;
  }
}

/// A value that makes its line invalid, and one that does not.
struct Value {
  const char* line;
  const char* accepted;
  const char* refused;
};

const Value kValues[] = {
    // Texts.
    {"1;#;1000;150;3;;;2;", "A", ""},
    {"1;1;2;;500;#;1;;-1;", "A", ""},
    {"3;#;150;3;;;2;;1000;", "A", ""},
    {"5;2;3;#;1;700;", "A", ""},
    {"7;1;2;500;#;1;", "A", ""},
    {"9;#;150;3;;2;;;1000;", "A", ""},
    {"14;700;1;3;#;1;", "A", ""},
    {"17;;7;#;2;", "A", ""},
    {"23;#;2;", "A", ""},
    {"24;#;2;", "A", ""},
    {"25;;3;#;2;", "A", ""},
    {"28;1;#;", "A", ""},
    {"30;1;2;#;", "A", ""},
    {"38;1;9;#;15;", "A", ""},
    {"39;1;9;#;15;", "A", ""},
    {"43;1;0;100;250;3;#;", "A", ""},
    // Amounts.
    {"1;Pane;1000;#;3;;;2;", "700", "7,00"},
    {"1;1;2;;#;;;;-1;", "700", "7,00"},
    {"1;1;2;;#;SCONTO;1;;-1;", "700", "7,00"},
    {"2;1;#;", "700", "7,00"},
    {"2;1;#;5;CARTA;", "700", "7,00"},
    {"3;Pane;#;3;;;2;;1000;", "700", "7,00"},
    {"7;1;2;#;", "700", "7,00"},
    {"7;1;2;#;SCONTO;1;", "700", "7,00"},
    {"9;Pane;#;3;;2;;;1000;", "700", "7,00"},
    {"14;#;1;3;;0;", "700", "7,00"},
    {"14;#;1;3;RESO;1;", "700", "7,00"},
    {"15;1;#;", "700", "7,00"},
    {"27;1;#;", "700", "7,00"},
    {"34;0;#;2;", "700", "7,00"},
    {"34;1;#;2;", "700", "7,00"},
    {"35;0;#;2;", "700", "7,00"},
    {"35;1;#;2;", "700", "7,00"},
    {"36;1;#;", "700", "7,00"},
    // Quantities.
    {"1;Pane;#;150;3;;;2;", "1000", "1"},
    {"3;Pane;150;3;;;2;;#;", "1000", "1"},
    {"9;Pane;150;3;;2;;;#;", "1000", "1"},
    // Classes.
    {"1;Pane;1000;150;#;;;2;", "41", "x"},
    {"3;Pane;150;#;;;2;;1000;", "41", "x"},
    {"9;Pane;150;#;;2;;;1000;", "41", "x"},
    {"14;700;1;#;;0;", "11", "x"},
    {"14;700;1;#;RESO;1;", "11", "x"},
    {"43;1;0;100;250;#;Punti;", "41", "x"},
    // Values of four or five digits, and values with a limit.
    {"1;2;2;;#;;;;-1;", "9999", "10000"},
    {"1;3;2;;#;;;;-1;", "9999", "10000"},
    {"5;#;3;;;700;", "10", "11"},
    {"5;#;3;RESO;1;700;", "10", "11"},
    {"6;2;1;#;", "9999", "10000"},
    {"6;3;1;#;", "9999", "10000"},
    {"17;;#;A;2;", "30", "31"},
    {"25;;#;A;2;", "5", "6"},
    {"30;1;#;A;", "5", "6"},
    {"38;1;#;A;15;", "9", "10"},
    {"38;1;9;A;#;", "9999", "10000"},
    {"39;1;#;A;15;", "9", "10"},
    {"39;1;9;A;#;", "9999", "10000"},
    {"42;1;#;", "9999", "10000"},
    {"43;1;#;100;250;3;Punti;", "3", "4"},
    {"43;1;0;#;250;3;Punti;", "200", "201"},
    {"43;1;0;100;#;3;Punti;", "9999", "10000"},
};

TEST_F(ValuesTest, OneRefusedValueMakesTheLineInvalid) {
  for (const Value& value : kValues) {
    EXPECT_NE(TranslateWith(value.line, value.accepted), "") << value.line;
    EXPECT_EQ(TranslateWith(value.line, value.refused), "") << value.line;
  }
}

/// The result for a value that is never refused for its size.
struct Limit {
  const char* line;
  const char* value;
  const char* command;
};

TEST_F(ValuesTest, Type32SendsLargerParametersAsTheLimit) {
  const Limit limits[] = {
      {"32;1;2;#;", "10", "20020110*"},      {"32;1;2;#;", "11", "20020110*"},
      {"32;1;8;#;", "10", "20080110*"},      {"32;1;8;#;", "11", "20080110*"},
      {"32;1;3;#;", "40", "20030140*"},      {"32;1;3;#;", "41", "20030140*"},
      {"32;1;9;#;", "40", "20090140*"},      {"32;1;9;#;", "41", "20090140*"},
      {"32;1;4;#;", "1260", "2004011260*"},  {"32;1;4;#;", "1261", "2004011260*"},
      {"32;1;10;#;", "1260", "2010011260*"}, {"32;1;10;#;", "1261", "2010011260*"},
      {"32;1;6;#;", "20", "20060120*"},      {"32;1;6;#;", "21", "20060120*"},
      {"32;1;12;#;", "20", "20120120*"},     {"32;1;12;#;", "21", "20120120*"},
      {"32;1;2;#;", "9", "20020109*"},       {"32;1;3;#;", "39", "20030139*"},
      {"32;1;10;#;", "1259", "2010011259*"}, {"32;1;12;#;", "19", "20120119*"},
      {"32;1;4;#;", "0", "2004010000*"},     {"32;1;6;#;", "0", "20060100*"},
  };
  for (const Limit& limit : limits) {
    EXPECT_EQ(TranslateWith(limit.line, limit.value), limit.command) << limit.line << limit.value;
  }
}

TEST_F(ValuesTest, Type14SendsWhatIsNot1To10As10) {
  const Limit limits[] = {
      {"14;700;1;#;;0;", "1", "10460101000000700"},
      {"14;700;1;#;;0;", "10", "10460110000000700"},
      {"14;700;1;#;;0;", "11", "10460110000000700"},
      {"14;700;1;#;RESO;1;", "0", "10710110RESO            000000700"},
      {"14;700;1;#;RESO;1;", "1", "10710101RESO            000000700"},
      {"14;700;1;#;RESO;1;", "11", "10710110RESO            000000700"},
  };
  for (const Limit& limit : limits) {
    EXPECT_EQ(TranslateWith(limit.line, limit.value), limit.command) << limit.line << limit.value;
  }
}

TEST_F(ValuesTest, ItemClassesAre1To40) {
  for (const char* line : {"1;Pane;1000;150;#;;;2;", "3;Pane;150;#;;;2;;1000;", "9;Pane;150;#;;2;;;1000;"}) {
    const auto classSent = [&](const char* value) { return TranslateWith(line, value).substr(79); };
    EXPECT_EQ(classSent("1"), "01") << line;
    EXPECT_EQ(classSent("39"), "39") << line;
    EXPECT_EQ(classSent("41"), "40") << line;
    EXPECT_EQ(classSent("0"), "40") << line;
  }
}

TEST_F(ValuesTest, ChoicesAreComparedAsTexts) {
  const struct {
    const char* line;
    const char* command;  ///< The command if no alternative is chosen.
  } rows[] = {
      {"1;#;2;;500;;;;-1;", ""},
      {"1;1;2;;500;SCONTO;#;;-1;", "102102000000500"},
      {"5;2;3;RESO;#;700;", "10450302000000700"},
      {"6;#;1;1500;", ""},
      {"7;#;2;500;", ""},
      {"7;1;2;500;SCONTO;#;", "102402000000500"},
      {"8;1;#;", ""},
      {"14;700;1;3;RESO;#;", "10710103RESO            000000700"},
      {"32;1;#;1;", ""},
      {"34;#;700;2;", "103202000000700"},
      {"35;#;700;2;", "104002000000700"},
  };
  for (const auto& row : rows) {
    for (const char* alike :
         {"01", "00", " 1", "1 ", "1.0", " 0", "0 ", "02", " 2", "3 ", "-01", "-1 ", " "}) {
      EXPECT_EQ(TranslateWith(row.line, alike), row.command) << row.line << alike;
    }
  }
}

TEST_F(ValuesTest, Type39SendsOneDigit) {
  EXPECT_EQ(Translate("39;1;9;Sconto socio;15;"), "1078019Sconto socio    0015");
  EXPECT_EQ(Translate("39;1;0;Sconto socio;9999;"), "1078010Sconto socio    9999");
}

TEST_F(ValuesTest, Type43HasItsLowestAndItsHighestValues) {
  EXPECT_EQ(Translate("43;0;0;0;1;1;A;"), "10840000000000101A" + Blanks(39));
  EXPECT_EQ(Translate("43;20;3;200;9999;40;A;"), "10842030200999940A" + Blanks(39));
}

}  // namespace
}  // namespace orvenza::test
