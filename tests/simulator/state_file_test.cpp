#include "simulator/state_file.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "simulator/script_line.h"

namespace orvenza {
namespace {

using namespace std::chrono_literals;

constexpr const char* kNew =
    "Orvenza simulated register 1\n"
    "daily-total 0\n"
    "daily-receipts 0\n"
    "fiscal-closures 0\n"
    "logo-rows 0\n"
    "clock-ahead 0\n"
    "lines-printed 0\n"
    "paper-out none\n"
    "command-held no\n"
    "document-open no\n"
    "receipt-open no\n"
    "paper-size 0\n"
    "end\n";

constexpr const char* kFull =
    "Orvenza simulated register 1\n"
    "daily-total 4210\n"
    "daily-receipts 3\n"
    "fiscal-closures 2\n"
    "logo-rows 24\n"
    "clock-ahead -90\n"
    "lines-printed 77\n"
    "paper-out receipt\n"
    "command-held yes\n"
    "line-held |UNO\n"
    "line-held |\n"
    "document-open yes\n"
    "foot-line 1 |GRAZIE \n"
    "foot-line 30 | \\5C \\00 \\0A \\7F è\n"
    "receipt-open yes\n"
    "receipt-total 300\n"
    "receipt-last-item 100\n"
    "receipt-paid 250\n"
    "receipt-item-open yes\n"
    "receipt-paying yes\n"
    "receipt-entries 2\n"
    "receipt-line |PANE\n"
    "receipt-line |LATTE\n"
    "paper-size 1234\n"
    "printed |LATTE\n"
    "end\n";

StateFile Full() {
  StateFile file;
  file.state.receipt = Receipt({.total = 300,
                                .lastItem = 100,
                                .paid = 250,
                                .itemOpen = true,
                                .paying = true,
                                .entries = 2,
                                .lines = {"PANE", "LATTE"}});
  file.state.documentOpen = true;
  file.state.foot = {{1, "GRAZIE "}, {30, std::string(" \\ \0 \n \x7f è", 11)}};
  file.state.paperOut = Paper::kReceipt;
  file.state.commandHeld = true;
  file.state.linesHeld = {"UNO", ""};
  file.state.linesPrinted = 77;
  file.state.dailyTotal = 4210;
  file.state.dailyReceipts = 3;
  file.state.fiscalClosures = 2;
  file.state.logoRows = 24;
  file.state.clockAhead = -90s;
  file.printed = {"LATTE"};
  file.paperSize = 1234;
  return file;
}

/// The message for a text that cannot be read; empty for one that can.
std::string Refusal(const std::string& text) {
  try {
    ParseStateFile("carta.txt.state", text);
    return {};
  } catch (const ScriptError& error) {
    return error.what();
  }
}

TEST(StateFile, HasALineForEachThingRemembered) {
  EXPECT_EQ(StateFileText({}), kNew);
  EXPECT_EQ(StateFileText(Full()), kFull);
}

TEST(StateFile, IsReadAsItWasWritten) {
  EXPECT_EQ(ParseStateFile("", kNew), StateFile{});
  EXPECT_EQ(ParseStateFile("", kFull), Full());
}

TEST(StateFile, IsRefusedWhereverItIsCut) {
  const std::string full = kFull;
  for (std::size_t size = 0; size < full.size(); ++size) {
    const std::string refusal = Refusal(full.substr(0, size));
    EXPECT_TRUE(refusal.starts_with("carta.txt.state:")) << "after " << size << " bytes: " << refusal;
  }
}

TEST(StateFile, IsRefusedWithoutAnyOfItsLines) {
  for (const char* line : {"daily-total", "clock-ahead", "paper-out", "document-open", "receipt-open",
                           "receipt-paying", "paper-size", "end"}) {
    std::string text = kFull;
    const std::size_t start = text.find(std::string("\n") + line) + 1;
    text.erase(start, text.find('\n', start) + 1 - start);
    EXPECT_NE(Refusal(text).find(std::string("expected \"") + line + "\""), std::string::npos) << line;
  }
}

TEST(StateFile, NamesTheLineThatIsDamaged) {
  const struct {
    std::string text, damage, refusal;
  } cases[] = {
      {"register 1", "register 2", "1: expected \"Orvenza simulated register 1\""},
      {"total 4210", "total", "2: expected \"daily-total\""},
      {"total 4210", "total ", "2: expected \"daily-total\""},
      {"total 4210", "total 42x", "2: expected \"daily-total\""},
      {"total 4210", "total 4210 ", "2: expected \"daily-total\""},
      {"total 4210", "total -1", "2: expected \"daily-total\""},
      {"total 4210", "total 1000000000000001", "2: expected \"daily-total\""},
      {"total 4210", "total 99999999999999999999", "2: expected \"daily-total\""},
      {"daily-receipts 3", "daily-receipts 1000000001", "3: expected \"daily-receipts\""},
      {"ahead -90", "ahead -9000000000", "6: expected \"clock-ahead\""},
      {"paper-out receipt", "paper-out foot", "8: expected \"paper-out\""},
      {"command-held yes", "command-held 1", "9: expected \"command-held\""},
      {"line-held |UNO", "line-held UNO", "10: expected \"line-held\""},
      {"line-held |UNO", "line-held |\\5", "10: expected \"line-held\""},
      {"line-held |UNO", "line-held |\\5c", "10: expected \"line-held\""},
      {"line-held |UNO", "line-hold |UNO", "10: expected \"document-open\""},
      {"foot-line 1 |", "foot-line 0 |", "13: expected \"foot-line\""},
      {"foot-line 1 |", "foot-line 31 |", "13: expected \"foot-line\""},
      {"foot-line 1 |GRAZIE ", "foot-line 1", "13: expected \"foot-line\""},
      {"foot-line 1 |", "foot-line |", "13: expected \"foot-line\""},
      {"receipt-total 300", "receipt-total 100000000", "16: expected \"receipt-total\""},
      {"end\n", "end\r\n", "26: expected \"end\""},
      {"end\n", "end\nend\n", "27: expected \"nothing more\""},
  };
  for (const auto& [part, damage, refusal] : cases) {
    std::string text = kFull;
    text.replace(text.find(part), part.size(), damage);
    EXPECT_EQ(Refusal(text), "carta.txt.state:" + refusal) << damage;
  }
}

TEST(StateFile, ForeignFilesAreRefused) {
  for (const std::string& text : {std::string(), std::string("\n"), std::string("end\n"),
                                  std::string(100, '\0'), std::string("[General]\r\nCapCode=1\r\n")}) {
    EXPECT_EQ(Refusal(text), "carta.txt.state:1: expected \"Orvenza simulated register 1\"");
  }
}

}  // namespace
}  // namespace orvenza
