#include <string>

#include "tickets/logo_request.h"
#include "tickets/translation_world.h"

namespace orvenza::test {
namespace {

class LogoRecordTest : public TranslationTest {
 protected:
  LogoRecordTest() { files.content["C:\\logo.bmp"] = LogoBitmap(100); }
};

TEST_F(LogoRecordTest, AValidBitmapGivesTheMarker) {
  EXPECT_EQ(Translate("33;1;C:\\logo.bmp;"), "BMP");
  EXPECT_EQ(ErrorLog(), "");
}

TEST_F(LogoRecordTest, AMissingBitmapIsInvalidAndLogged) {
  EXPECT_EQ(Translate("33;1;C:\\none.bmp;"), "");
  EXPECT_EQ(ErrorLog(), "now - File BMP non valido ! ( C:\\none.bmp )\r\n");
}

TEST_F(LogoRecordTest, ABitmapOfAnotherShapeIsInvalidAndLogged) {
  files.content["C:\\big.bmp"] = LogoBitmap(255);
  EXPECT_EQ(Translate("33;1;C:\\big.bmp;"), "");
  EXPECT_EQ(ErrorLog(), "now - File BMP non valido ! ( C:\\big.bmp )\r\n");
}

TEST_F(LogoRecordTest, ARecordWithoutFileIsInvalidAndLogged) {
  EXPECT_EQ(Translate("33;1;;"), "");
  EXPECT_EQ(ErrorLog(), "now - File BMP non valido ! (  )\r\n");
}

TEST_F(LogoRecordTest, AVeryLongFileNameIsCutInTheLog) {
  EXPECT_EQ(Translate("33;1;" + std::string(1000, 'x') + ";"), "");
  EXPECT_EQ(ErrorLog(), "now - File BMP non valido ! ( " + std::string(260, 'x') + "... )\r\n");
}

TEST_F(LogoRecordTest, AValidBitmapIsALogoWhateverItsNumber) {
  for (const char* number : {"99", "1,5", "0", "-1", "", "x", "0.4", "99.5", "100", "99999999999999999999"}) {
    EXPECT_EQ(Translate(std::string("33;") + number + ";C:\\logo.bmp;"), "BMP") << number;
  }
  EXPECT_EQ(ErrorLog(), "");
}

TEST_F(LogoRecordTest, ABitmapOfHeight0IsValid) {
  files.content["C:\\none.bmp"] = LogoBitmap(0);
  EXPECT_EQ(Translate("33;1;C:\\none.bmp;"), "BMP");
  EXPECT_EQ(ErrorLog(), "");
}

TEST_F(LogoRecordTest, TheRequestCarriesNumberAndPath) {
  RecordFields fields;
  SplitRecord("33; 7 ;C:\\logo.bmp;", ';', fields);
  const LogoRequest logo = LogoRequestOf(fields);
  EXPECT_EQ(logo.number, "07");
  EXPECT_EQ(logo.path, "C:\\logo.bmp");
}

TEST_F(LogoRecordTest, TheNumberIsSentInTwoDigitsOrMore) {
  struct {
    const char* text;
    const char* number;
  } const rows[] = {
      {"1.4", "01"}, {"1.5", "02"}, {"2.5", "03"},          {"98.9", "99"},
      {"1,9", "01"}, {"0.9", "01"}, {"0.4", "00"},          {"-0.4", "00"},
      {"", "00"},    {"x", "00"},   {"99.5", "100"},        {" 1 2 3", "123"},
      {"-7", "-07"}, {"007", "07"}, {"1234567", "1234567"}, {"99999999999999999999", "999999999"}};
  for (const auto& row : rows) {
    RecordFields fields;
    SplitRecord(std::string("33;") + row.text + ";C:\\logo.bmp;", ';', fields);
    EXPECT_EQ(LogoRequestOf(fields).number, row.number) << row.text;
  }
}

}  // namespace
}  // namespace orvenza::test
