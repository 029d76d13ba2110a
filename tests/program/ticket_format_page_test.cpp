#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "tickets/translation_world.h"

// The ticket format page shows the commands of its example lines: they must be the connector's.

namespace orvenza::test {
namespace {

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
  std::ifstream page(ORVENZA_TICKET_FORMAT_PAGE);
  std::string line;
  int commands = 0;
  for (std::string text; std::getline(page, text);) {
    if (text.starts_with("## ")) identity = {};
    if (text == "## Differences between models") Register("TOVEST ETH", "1.00");
    if (text.starts_with("line     ")) line = text.substr(9);
    if (!text.starts_with("command  ")) continue;
    EXPECT_EQ(Shown(line), text.substr(9)) << line;
    ++commands;
  }
  EXPECT_EQ(commands, 66);
}

}  // namespace
}  // namespace orvenza::test
