#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

#include "core/catalogue.h"
#include "core/own_texts.h"

// The operator's manual quotes the questions in doubt to the letter, so that what is on the screen is found
// there.

namespace orvenza::test {
namespace {

TEST(OperatorManual, QuotesTheQuestionsInDoubtToTheLetter) {
  std::ifstream page(ORVENZA_OPERATOR_MANUAL);
  const std::string manual{std::istreambuf_iterator<char>(page), {}};
  const std::string checkPaper = own_text::kCheckPaper;
  const std::string paper = " " + LoadMessage(MessageId::kReplacePaper);
  const std::string quoted[] = {
      LoadMessage(MessageId::kNoReplyMisspelt),
      LoadMessage(MessageId::kStatusNotRead),
      LoadMessage(MessageId::kReceiptPaperOutWarning) + paper,
      LoadMessage(MessageId::kPaperOut),
      checkPaper,
      own_text::kForeignReceipt,
      own_text::kForeignClosed,
      std::string(own_text::kReceiptOf) + " 10:32, " + own_text::kTotal + " 12,50 : 0042.txt",
      own_text::kInterrupted + (" " + checkPaper),
  };
  for (const std::string& line : quoted)
    EXPECT_NE(manual.find("\n> " + line + "\n"), std::string::npos) << line;
  const std::string mentioned[] = {
      LoadMessage(MessageId::kReceiptPrinted), LoadMessage(MessageId::kReprintReceipt),
      LoadMessage(MessageId::kAbortReceipt), LoadMessage(MessageId::kJournalPaperOutWarning) + paper};
  for (const std::string& text : mentioned)
    EXPECT_NE(manual.find("\"" + text + "\""), std::string::npos) << text;
  EXPECT_NE(manual.find("\"" + std::string(own_text::kReportOf) + " 20:01 : "), std::string::npos);
}

bool IsShown(const std::string& text) {
  for (const char* own : {own_text::kForeignReceipt, own_text::kCheckPaper, own_text::kSettingsUnreadable})
    if (std::string(own).find(text) != std::string::npos) return true;
  for (int id = static_cast<int>(MessageId::kDefaultIni); id < 1000; ++id)
    if (LoadMessage(static_cast<MessageId>(id)).find(text) != std::string::npos) return true;
  return false;
}

// The first column of the table of messages holds one or more of them, each in quotes.
TEST(TillCard, QuotesTheMessagesToTheLetter) {
  std::ifstream page(ORVENZA_TILL_CARD);
  int quoted = 0;
  for (std::string line; std::getline(page, line);) {
    if (!line.starts_with("| \"")) continue;
    const std::string cell = line.substr(2, line.find(" |", 2) - 2);
    for (std::size_t begin = 0; (begin = cell.find('"', begin)) != std::string::npos; ++quoted) {
      const std::size_t end = cell.find('"', begin + 1);
      const std::string text = cell.substr(begin + 1, end - begin - 1);
      EXPECT_TRUE(IsShown(text)) << text;
      begin = end + 1;
    }
  }
  EXPECT_GE(quoted, 15);
}

}  // namespace
}  // namespace orvenza::test
