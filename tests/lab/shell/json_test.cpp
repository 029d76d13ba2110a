#include "lab/shell/json.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>
#include <string>

namespace orvenza::test {
namespace {

std::string Quoted(std::string_view text) {
  std::ostringstream out;
  JsonWriter(out).Text(text);
  return out.str();
}

TEST(JsonWriter, BreaksTheOuterLevelsIntoLines) {
  std::ostringstream out;
  JsonWriter json(out);
  json.BeginObject();
  json.Member("name", "a");
  json.Key("rows");
  json.BeginArray();
  for (const int number : {1, 2}) {
    json.BeginObject();
    json.NumberMember("number", number);
    json.FlagMember("odd", number % 2 == 1);
    json.Key("values");
    json.BeginArray();
    json.Number(number);
    json.Number(-number);
    json.EndArray();
    json.EndObject();
  }
  json.EndArray();
  json.EndObject();
  EXPECT_EQ(out.str(),
            "{\n"
            "  \"name\": \"a\",\n"
            "  \"rows\": [\n"
            "    {\"number\": 1, \"odd\": true, \"values\": [1, -1]},\n"
            "    {\"number\": 2, \"odd\": false, \"values\": [2, -2]}\n"
            "  ]\n"
            "}\n");
}

TEST(JsonWriter, ClosesEmptyBracketsAtOnce) {
  std::ostringstream out;
  JsonWriter json(out);
  json.BeginObject();
  json.Key("none");
  json.BeginArray();
  json.EndArray();
  json.Key("nothing");
  json.BeginObject();
  json.EndObject();
  json.EndObject();
  EXPECT_EQ(out.str(), "{\n  \"none\": [],\n  \"nothing\": {}\n}\n");
}

TEST(JsonWriter, EscapesTextsToValidUtf8) {
  EXPECT_EQ(Quoted("a\"b\\c/d"), R"("a\"b\\c/d")");
  EXPECT_EQ(Quoted("\r\n\t\x01\x7f"), R"("\r\n\t\u0001\u007f")");
  EXPECT_EQ(Quoted(std::string_view("a\0b", 3)), R"("a\u0000b")");
  EXPECT_EQ(Quoted("Caff\xC3\xA8"), "\"Caff\xC3\xA8\"");
  EXPECT_EQ(Quoted("Caff\xE8"), "\"Caff\xC3\xA8\"");
}

TEST(JsonWriter, WritesTheLargestNumbers) {
  std::ostringstream out;
  JsonWriter(out).Number(std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(out.str(), "-9223372036854775808");
}

}  // namespace
}  // namespace orvenza::test
