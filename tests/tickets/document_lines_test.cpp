#include "tickets/document_lines.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace orvenza::test {
namespace {

/// A ticket of lines that consist of their type; "" is an empty line.
std::string Ticket(const std::vector<std::string>& types) {
  std::string text;
  for (const std::string& type : types) text += type.empty() ? "\r\n" : type + ";\r\n";
  return text;
}

const std::string kDocuments =
    Ticket({"26", "1", "2", "14", "26", "1", "4", "", "34", "29", "30", "31", "33", "21"});

TEST(DocumentLines, ADocumentEndsWithItsLastPayment) {
  const std::size_t through[] = {1, 4, 4, 4, 5, 7, 7, 9, 9, 12, 12, 12, 13, 14};
  for (std::size_t number = 1; number <= std::size(through); ++number) {
    if (number == 8) continue;  // An empty line is never sent.
    EXPECT_EQ(LinesThroughDocument(kDocuments, number, ';'), through[number - 1]) << number;
  }
  EXPECT_EQ(LinesThroughDocument(Ticket({"1", "2", "2", "", "14", "1"}), 1, ';'), 5U);
  EXPECT_EQ(LinesThroughDocument(Ticket({"1", "28", "1"}), 1, ';'), 3U);
  EXPECT_EQ(LinesThroughDocument(Ticket({"1", "2", "28", "2"}), 1, ';'), 2U);
}

TEST(DocumentLines, ACommandThatItsLineDoesNotCompleteIsThePaymentInFrontOfIt) {
  EXPECT_EQ(LinesThroughCommand(kDocuments, 3, ';'), 4U);
  EXPECT_EQ(LinesThroughCommand(kDocuments, 9, ';'), 9U);
  EXPECT_EQ(LinesThroughCommand(kDocuments, 14, ';'), 14U);
  EXPECT_EQ(LinesThroughCommand(kDocuments, 12, ';'), 12U);
  for (const std::size_t number : {1U, 2U, 6U, 11U})
    EXPECT_EQ(LinesThroughCommand(kDocuments, number, ';'), number - 1) << number;
}

TEST(DocumentLines, LinesThatLeaveNothingOnPaperAreNoDocuments) {
  const std::optional<std::size_t> before[] = {1, 1, 2, 3, 5, 5, 6, 8, 8, 9, 10, 11, 13, 13};
  for (std::size_t count = 0; count < std::size(before); ++count)
    EXPECT_EQ(LinesBeforeDocument(kDocuments, count, ';'), before[count]) << count;
  EXPECT_EQ(LinesBeforeDocument(kDocuments, 14, ';'), std::nullopt);
  EXPECT_EQ(LinesBeforeDocument(Ticket({"26", "", "33"}), 0, ';'), std::nullopt);
  EXPECT_EQ(LinesBeforeDocument("", 0, ';'), std::nullopt);
}

TEST(DocumentLines, APaymentIsCompleteUnlessAnotherOneFollowsInTheText) {
  const struct {
    std::vector<std::string> types;
    DocumentProgress progress;
    std::size_t complete;
  } rows[] = {
      {{"1", "2"}, {0, 2}, 2},
      {{"1", "2", ""}, {0, 2}, 2},
      {{"1", "2", "1"}, {0, 2}, 2},
      {{"1", "2", "", "34"}, {0, 2}, 2},
      {{"1", "2", "14"}, {0, 2}, 0},
      {{"1", "2", "", "2"}, {0, 2}, 0},
      {{"1", "2", "1", "2", "2"}, {2, 4}, 2},
      {{"1", "2", "1", "2"}, {2, 0}, 2},
      {{"1", "2"}, {0, 0}, 0},
  };
  for (const auto& row : rows) EXPECT_EQ(CompleteLines(Ticket(row.types), row.progress, ';'), row.complete);
}

TEST(DocumentLines, OnlyEmptyLinesAreNothing) {
  const std::string text = Ticket({"1", "", "2", "", ""});
  EXPECT_TRUE(AnythingBehind(text, 0, ';'));
  EXPECT_TRUE(AnythingBehind(text, 1, ';'));
  EXPECT_TRUE(AnythingBehind(text, 2, ';'));
  EXPECT_FALSE(AnythingBehind(text, 3, ';'));
  EXPECT_FALSE(AnythingBehind(text, 9, ';'));
  EXPECT_FALSE(AnythingBehind("", 0, ';'));
}

TEST(DocumentLines, TextsBeginAlikeIfTheirFirstLinesAreTheSame) {
  const std::string text = "1;a;\r\n2;\r\n3;\r\n";
  EXPECT_TRUE(BeginAlike(text, "x", 0));
  EXPECT_TRUE(BeginAlike(text, "1;a;\r\n2;\r\nx", 2));
  EXPECT_FALSE(BeginAlike(text, "1;a;\r\n2;\r\nx", 3));
  EXPECT_FALSE(BeginAlike(text, "1;b;\r\n2;\r\n", 2));
  EXPECT_FALSE(BeginAlike(text, "1;a;\r\n", 2));
  EXPECT_FALSE(BeginAlike("1;a;\r\n", text, 2));
}

}  // namespace
}  // namespace orvenza::test
