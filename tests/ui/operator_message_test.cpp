#include "ui/operator_message.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ui/fakes.h"

namespace orvenza::test {
namespace {

using Captions = std::vector<std::string>;

struct ButtonSetRow {
  int style;
  Captions captions;
  std::vector<int> results;  ///< Of the buttons in turn.
  int closed;
};

const ButtonSetRow kButtonSets[] = {
    {0, {"Ok"}, {1}, 1},
    {1, {"Ok", "Annulla"}, {1, 2}, 2},
    {2, {"Termina", "Riprova", "Ignora"}, {3, 4, 5}, 0},
    {3, {"Sì", "No", "Annulla"}, {6, 7, 2}, 0},
    {4, {"Sì", "No"}, {6, 7}, 0},
    {5, {"Riprova", "Annulla"}, {4, 2}, 0},
    {6, {"Riprova", "Annulla", "Configura"}, {4, 2, 8}, 0},
    {7, {"Ok"}, {1}, 1},
    {12, {"Ok"}, {1}, 1},
    {15, {"Ok"}, {1}, 1},
};

TEST(BuildMessage, ShowsTheButtonsOfTheStyle) {
  for (const ButtonSetRow& row : kButtonSets) {
    EXPECT_EQ(BuildMessage("Testo", row.style, "", "Orvenza").buttons, row.captions) << row.style;
  }
}

TEST(MessageResult, IsThatOfThePressedButton) {
  for (const ButtonSetRow& row : kButtonSets) {
    for (std::size_t i = 0; i < row.results.size(); ++i) {
      EXPECT_EQ(MessageResult(row.style, static_cast<int>(i) + 1), row.results[i]) << row.style;
    }
  }
}

TEST(MessageResult, OfADialogClosedWithoutAButtonDependsOnTheSet) {
  for (const ButtonSetRow& row : kButtonSets) {
    EXPECT_EQ(MessageResult(row.style, 0), row.closed) << row.style;
    EXPECT_EQ(MessageResult(row.style, static_cast<int>(row.captions.size()) + 1), row.closed) << row.style;
    EXPECT_EQ(MessageResult(row.style, -1), row.closed) << row.style;
  }
}

TEST(MessageResult, LooksAtTheButtonSetAlone) {
  EXPECT_EQ(MessageResult(message_style::kYesNo + 48 + 256, 1), message_result::kYes);
  EXPECT_EQ(MessageResult(message_style::kOkCancel + 64 + 512, 0), message_result::kCancel);
}

TEST(BuildMessage, ShowsTheIconOfTheStyle) {
  const std::pair<int, MessageIcon> icons[] = {
      {0, MessageIcon::kNone},          {16, MessageIcon::kStop},        {32, MessageIcon::kQuestion},
      {48, MessageIcon::kExclamation},  {64, MessageIcon::kInformation}, {308, MessageIcon::kExclamation},
      {324, MessageIcon::kInformation}, {80, MessageIcon::kNone},        {128 + 16, MessageIcon::kStop}};
  for (const auto& [style, icon] : icons) EXPECT_EQ(BuildMessage("x", style, "", "Orvenza").icon, icon);
}

TEST(BuildMessage, KeepsTheFirstButtonFirstWhateverTheDefaultBits) {
  for (const int bits : {0, message_style::kSecondDefault, message_style::kThirdDefault}) {
    EXPECT_EQ(BuildMessage("x", 2 + bits, "", "Orvenza").buttons.front(), "Termina") << bits;
    EXPECT_EQ(BuildMessage("x", 3 + bits, "", "Orvenza").buttons.front(), "Sì") << bits;
    EXPECT_EQ(BuildMessage("x", 4 + bits, "", "Orvenza").buttons.front(), "Sì") << bits;
  }
}

TEST(BuildMessage, NamesTheProgramAndTheTitle) {
  EXPECT_EQ(BuildMessage("x", 0, "", "Orvenza").caption, "Orvenza");
  EXPECT_EQ(BuildMessage("x", 0, "Attenzione !", "Orvenza").caption, "Orvenza - Attenzione !");
}

TEST(BuildMessage, ReplacesAnEmptyMessage) {
  const MessageContent content = BuildMessage("", 0, "", "Orvenza");
  EXPECT_EQ(content.text, "\r\nMiss Messagge !!!");
  EXPECT_TRUE(content.centred);
}

TEST(BuildMessage, CentresAMessageOf59CharactersBelowAnEmptyLine) {
  const MessageContent content = BuildMessage(std::string(59, 'a'), 0, "", "Orvenza");
  EXPECT_EQ(content.text, "\r\n" + std::string(59, 'a'));
  EXPECT_TRUE(content.centred);
}

TEST(BuildMessage, LeavesAMessageOf60CharactersAtTheLeft) {
  const MessageContent content = BuildMessage(std::string(60, 'a'), 0, "", "Orvenza");
  EXPECT_EQ(content.text, std::string(60, 'a'));
  EXPECT_FALSE(content.centred);
}

TEST(BuildMessage, CountsAnAccentedLetterOnce) {
  EXPECT_TRUE(BuildMessage(std::string(58, 'a') + "à", 0, "", "Orvenza").centred);
  EXPECT_FALSE(BuildMessage(std::string(59, 'a') + "à", 0, "", "Orvenza").centred);
}

TEST(OperatorMessages, ShowsTheMessageAndReturnsTheResultOfItsAnswer) {
  FakeOperator person;
  OperatorMessages messages(person, "Orvenza");
  person.messageAnswers = {3};

  EXPECT_EQ(messages.ShowOperatorMessage("Apertura Porta non Riuscita !", 22, "Attenzione !"), 8);

  ASSERT_EQ(person.messages.size(), 1U);
  EXPECT_EQ(person.messages[0].caption, "Orvenza - Attenzione !");
  EXPECT_EQ(person.messages[0].text, "\r\nApertura Porta non Riuscita !");
  EXPECT_EQ(person.messages[0].icon, MessageIcon::kStop);
  EXPECT_EQ(person.messages[0].buttons, (Captions{"Riprova", "Annulla", "Configura"}));
}

TEST(OperatorMessages, ReadsADialogClosedByOtherMeansAsCancel) {
  FakeOperator person;
  OperatorMessages messages(person, "Orvenza");
  EXPECT_EQ(messages.ShowOperatorMessage("x", message_style::kOkCancel, ""), message_result::kCancel);
}

}  // namespace
}  // namespace orvenza::test
