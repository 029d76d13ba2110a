#include "device/serial_settings.h"

#include <gtest/gtest.h>

#include <ostream>

namespace orvenza {

void PrintTo(const SerialSettings& s, std::ostream* out) {
  *out << s.speed << "," << s.parity << "," << s.dataBits << "," << s.stopBits;
}

namespace {

TEST(SerialSettings, AreReadByTheirPlacesBehindTheFirstComma) {
  struct {
    const char* text;
    SerialSettings settings;
  } const rows[] = {
      {"19200,O,7,1", {19200, 1, 7, 1}},
      {"9600,e,8,1", {9600, 2, 8, 1}},
      {"9600,N,8,1.5", {9600, 0, 8, 1}},
      {"9600.7,N,8,2", {9600, 0, 8, 2}},
      {"19200,O,71", {19200, 1, 7, 0}},
      {"19200,Odd,7,1", {19200, 1, 0, 7}},
      {"57600, O,7,1", {57600, 0, 0, 0}},
      {"1200,O;8;2", {1200, 1, 8, 2}},
      {"19200,È,7,1", {19200, 0, 7, 1}},
      {"19200,O€7€1", {19200, 1, 7, 1}},
      {"fast,O,7,1", {0, 1, 7, 1}},
      {",S,8,2", {0, 4, 8, 2}},
      {"9600,M", {9600, 3, 0, 0}},
      {"9600,", {9600, 0, 0, 0}},
      {",", {0, 0, 0, 0}},
  };
  for (const auto& row : rows) EXPECT_EQ(SplitSerialSettings(row.text), row.settings) << row.text;
}

TEST(SerialSettings, ParityHasACodeForFiveLetters) {
  struct {
    const char* text;
    int code;
  } const rows[] = {
      {"1,N", 0}, {"1,O", 1}, {"1,E", 2}, {"1,M", 3}, {"1,S", 4},    {"1,n", 0}, {"1,o", 1},    {"1,e", 2},
      {"1,m", 3}, {"1,s", 4}, {"1,X", 0}, {"1,1", 0}, {"1,,7,1", 0}, {"1,", 0},  {"1,\xC8", 0},
  };
  for (const auto& row : rows) EXPECT_EQ(SplitSerialSettings(row.text)->parity, row.code) << row.text;
}

TEST(SerialSettings, ATextWithoutACommaIsNone) {
  for (const char* text : {"", "19200", "19200 O 7 1", "19200;O;7;1"}) {
    EXPECT_EQ(SplitSerialSettings(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace orvenza
