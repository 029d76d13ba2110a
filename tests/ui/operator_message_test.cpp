#include "ui/operator_message.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "ui/fakes.h"

namespace orvenza::test {
namespace {

using Captions = std::vector<std::string>;

struct ButtonSetRow {
  MessageButtons buttons;
  Captions captions;
  std::vector<MessageResult> results;  ///< One per button.
  MessageResult closed;
};

constexpr MessageResult kNone = MessageResult::kNone;
constexpr MessageResult kOk = MessageResult::kOk;
constexpr MessageResult kCancel = MessageResult::kCancel;
constexpr MessageResult kAbort = MessageResult::kAbort;
constexpr MessageResult kRetry = MessageResult::kRetry;
constexpr MessageResult kIgnore = MessageResult::kIgnore;
constexpr MessageResult kYes = MessageResult::kYes;
constexpr MessageResult kNo = MessageResult::kNo;
constexpr MessageResult kConfigure = MessageResult::kConfigure;

const ButtonSetRow kButtonSets[] = {
    {MessageButtons::kOk, {"Ok"}, {kOk}, kOk},
    {MessageButtons::kOkCancel, {"Ok", "Annulla"}, {kOk, kCancel}, kCancel},
    {MessageButtons::kAbortRetryIgnore, {"Termina", "Riprova", "Ignora"}, {kAbort, kRetry, kIgnore}, kNone},
    {MessageButtons::kYesNoCancel, {"Sì", "No", "Annulla"}, {kYes, kNo, kCancel}, kNone},
    {MessageButtons::kYesNo, {"Sì", "No"}, {kYes, kNo}, kNone},
    {MessageButtons::kRetryCancel, {"Riprova", "Annulla"}, {kRetry, kCancel}, kNone},
    {MessageButtons::kRetryCancelConfigure,
     {"Riprova", "Annulla", "Configura"},
     {kRetry, kCancel, kConfigure},
     kNone},
};

MessageContent Build(const std::string& text, MessageStyle style = {}, const std::string& title = {}) {
  return BuildMessage(text, style, title, "Orvenza");
}

TEST(BuildMessage, ShowsTheButtonsOfTheStyle) {
  for (const ButtonSetRow& row : kButtonSets) {
    EXPECT_EQ(Build("Testo", {MessageIcon::kNone, row.buttons}).buttons, row.captions);
  }
}

TEST(MessageResult, IsThatOfThePressedButton) {
  for (const ButtonSetRow& row : kButtonSets) {
    for (std::size_t i = 0; i < row.results.size(); ++i) {
      EXPECT_EQ(ResultOf(row.buttons, static_cast<int>(i) + 1), row.results[i]) << row.captions[i];
    }
  }
}

TEST(MessageResult, OfADialogClosedWithoutAButtonDependsOnTheSet) {
  for (const ButtonSetRow& row : kButtonSets) {
    const int beyond = static_cast<int>(row.captions.size()) + 1;
    for (const std::optional<int> pressed :
         {std::optional<int>(), std::optional(0), std::optional(-1), std::optional(beyond)}) {
      EXPECT_EQ(ResultOf(row.buttons, pressed), row.closed) << row.captions.back();
    }
  }
}

TEST(BuildMessage, ShowsTheIconOfTheStyle) {
  for (const MessageIcon icon : {MessageIcon::kNone, MessageIcon::kStop, MessageIcon::kQuestion,
                                 MessageIcon::kExclamation, MessageIcon::kInformation}) {
    EXPECT_EQ(Build("x", {icon, MessageButtons::kYesNo}).icon, icon);
  }
}

TEST(BuildMessage, KeepsTheFirstButtonFirstWhateverTheDefault) {
  for (const DefaultButton button : {DefaultButton::kFirst, DefaultButton::kSecond, DefaultButton::kThird}) {
    for (const ButtonSetRow& row : kButtonSets) {
      EXPECT_EQ(Build("x", {MessageIcon::kNone, row.buttons, button}).buttons, row.captions);
    }
  }
}

TEST(BuildMessage, NamesTheProgramAndTheTitle) {
  EXPECT_EQ(Build("x").caption, "Orvenza");
  EXPECT_EQ(Build("x", {}, "Attenzione !").caption, "Orvenza - Attenzione !");
}

TEST(BuildMessage, ReplacesAnEmptyMessage) {
  const MessageContent content = Build("");
  EXPECT_EQ(content.text, "\r\nMiss Messagge !!!");
  EXPECT_TRUE(content.centred);
}

TEST(BuildMessage, CentresAMessageOf59CharactersBelowAnEmptyLine) {
  const MessageContent content = Build(std::string(59, 'a'));
  EXPECT_EQ(content.text, "\r\n" + std::string(59, 'a'));
  EXPECT_TRUE(content.centred);
}

TEST(BuildMessage, LeavesAMessageOf60CharactersAtTheLeft) {
  const MessageContent content = Build(std::string(60, 'a'));
  EXPECT_EQ(content.text, std::string(60, 'a'));
  EXPECT_FALSE(content.centred);
}

TEST(BuildMessage, CountsAnAccentedLetterOnce) {
  EXPECT_TRUE(Build(std::string(58, 'a') + "à").centred);
  EXPECT_FALSE(Build(std::string(59, 'a') + "à").centred);
}

TEST(OperatorMessages, ShowsTheMessageAndReturnsTheResultOfItsAnswer) {
  FakeOperator person;
  OperatorMessages messages(person, "Orvenza");
  person.messageAnswers = {3};

  EXPECT_EQ(messages.ShowOperatorMessage("Apertura Porta non Riuscita !",
                                         {MessageIcon::kStop, MessageButtons::kRetryCancelConfigure},
                                         "Attenzione !"),
            kConfigure);

  ASSERT_EQ(person.messages.size(), 1U);
  EXPECT_EQ(person.messages[0].caption, "Orvenza - Attenzione !");
  EXPECT_EQ(person.messages[0].text, "\r\nApertura Porta non Riuscita !");
  EXPECT_EQ(person.messages[0].icon, MessageIcon::kStop);
  EXPECT_EQ(person.messages[0].buttons, (Captions{"Riprova", "Annulla", "Configura"}));
}

TEST(OperatorMessages, ReadsADialogClosedByOtherMeansAsCancel) {
  FakeOperator person;
  OperatorMessages messages(person, "Orvenza");
  EXPECT_EQ(messages.ShowOperatorMessage("x", {MessageIcon::kNone, MessageButtons::kOkCancel}, ""), kCancel);
}

}  // namespace
}  // namespace orvenza::test
