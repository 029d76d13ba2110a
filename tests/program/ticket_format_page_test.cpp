#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "core/text.h"
#include "simulator/commands.h"
#include "tickets/record_types.h"
#include "tickets/translation_world.h"

// The ticket format page lists every record type and shows the commands of its example lines: they must be
// the connector's.

namespace orvenza::test {
namespace {

constexpr std::string_view kPage = "docs/ticket-format.md";

std::vector<std::string> LinesOfPage() {
  std::ifstream page(ORVENZA_TICKET_FORMAT_PAGE);
  std::vector<std::string> lines;
  for (std::string line; std::getline(page, line);) lines.push_back(line);
  return lines;
}

/// The types in the first column of the table "Record types at a glance", where "38, 39" means two.
std::vector<std::string> TypesAtAGlance() {
  std::vector<std::string> types;
  bool inTable = false;
  for (const std::string& line : LinesOfPage()) {
    if (line.starts_with("## ")) inTable = line == "## Record types at a glance";
    if (!inTable || !line.starts_with("| ") || line.starts_with("| Type ")) continue;
    std::istringstream column(line.substr(2, line.find(" |", 2) - 2));
    for (std::string type; std::getline(column, type, ',');) types.emplace_back(Trim(type));
  }
  return types;
}

/// "10, 11 and 13" for the numbers below `highest` that are not types.
std::string MissingBelow(int highest) {
  std::vector<std::string> missing;
  for (int number = 0; number < highest; ++number) {
    if (FindRecordType(std::to_string(number)) == nullptr) missing.push_back(std::to_string(number));
  }
  std::string text;
  for (std::size_t i = 0; i < missing.size(); ++i) {
    text += (i == 0 ? "" : i + 1 < missing.size() ? ", " : " and ") + missing[i];
  }
  return text;
}

class TicketFormatPageTest : public TranslationTest {
 protected:
  TicketFormatPageTest() { files.content["C:\\shop\\logo.bmp"] = LogoBitmap(254); }

  /// A line's command in the form of the page, with each blank as a dot.
  std::string Shown(const std::string& line) const {
    std::string shown;
    for (const char c : Translate(line)) shown += c == ' ' ? std::string("·") : std::string(1, c);
    return shown;
  }
};

TEST_F(TicketFormatPageTest, ShowsTheCommandsOfTheConnector) {
  std::string line;
  std::map<std::string, int, std::less<>> commands;  // by record type
  for (const std::string& text : LinesOfPage()) {
    if (text.starts_with("## ")) identity = {};
    if (text == "## Differences between models") Register("TOVEST ETH", "1.00");
    if (text.starts_with("line     ")) line = text.substr(9);
    if (!text.starts_with("command  ")) continue;
    EXPECT_EQ(Shown(line), text.substr(9)) << line;
    ++commands[line.substr(0, line.find(';'))];
  }
  for (const RecordType& row : RecordTypes()) {
    EXPECT_GT(commands[std::string(row.type)], 0)
        << "there is a record type " << row.type << ": show one of its lines in " << kPage
        << ", \"line     ...\", with its command below, \"command  ...\"";
  }
}

TEST_F(TicketFormatPageTest, ListsEveryRecordTypeAtAGlance) {
  std::vector<std::string> types;
  for (const RecordType& row : RecordTypes()) types.emplace_back(row.type);
  EXPECT_EQ(TypesAtAGlance(), types) << "every record type has its row in \"Record types at a glance\" of "
                                     << kPage << ", in the order of their numbers";
}

TEST_F(TicketFormatPageTest, SaysWhichTypesDoNotExist) {
  const int highest = LeadingInteger(RecordTypes().back().type);
  const std::string beginning = "Types " + MissingBelow(highest) + ", numbers above " +
                                std::to_string(highest) + " and any other text ";
  const std::vector<std::string> lines = LinesOfPage();
  EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                          [&](const std::string& line) { return line.starts_with(beginning); }),
            1)
      << "\"What does not exist\" of " << kPage << " must begin with: " << beginning;
}

// Every line of a ticket can be tried on the simulated register.
TEST_F(TicketFormatPageTest, ShowsCommandsThatTheSimulatedRegisterKnows) {
  for (const std::string& text : LinesOfPage()) {
    if (!text.starts_with("command  ") || text == "command  BMP") continue;
    const std::string code = text.substr(9, 4);
    EXPECT_NE(FindRegisterCommand(code), nullptr)
        << "the simulated register does not know " << code << ": it needs a row in simulator/commands.cpp";
  }
}

}  // namespace
}  // namespace orvenza::test
