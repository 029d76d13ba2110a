#include "device/link_dialogs.h"

#include <gtest/gtest.h>

#include "support/device_bench.h"

namespace orvenza::test {
namespace {

using LinkDialogsTest = DeviceBench;

TEST_F(LinkDialogsTest, OnlyAClearYesToTheEndGivesUp) {
  Answer("Annulla", "Sì");
  EXPECT_FALSE(dialogs.AskRetry("Guasto"));
  EXPECT_EQ(Shown(), (Lines{RetryQuestion("Guasto", "Annulla"), EndQuestion("Sì")}));
  EXPECT_EQ(Errors(), (Lines{"Guasto", "Collegamento Annullato dall'Operatore"}));
}

TEST_F(LinkDialogsTest, EveryOtherAnswerTriesAgain) {
  const Lines answers[] = {
      {"Riprova"}, {"close"}, {"Annulla", "No"}, {"Annulla", "close"}, {"Configura", "close"}};
  for (const auto& row : answers) {
    for (const auto& answer : row) Answer(answer);
    EXPECT_TRUE(dialogs.AskRetry("Guasto")) << row[0];
  }
  EXPECT_EQ(person.AnswersLeft(), 0U);
  EXPECT_EQ(Errors(), Lines(5, "Guasto"));
}

}  // namespace
}  // namespace orvenza::test
