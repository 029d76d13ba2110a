#include "ui/choice_dialog.h"

#include <gtest/gtest.h>

#include <optional>

#include "ui/fakes.h"

namespace orvenza::test {
namespace {

struct Case {
  bool frameVisible;
  std::optional<int> answer;
  int choice;
};

constexpr Case kCases[] = {
    {true, 1, 2},  {true, 2, 3},  {true, 3, 4},  {true, 0, 0},  {true, std::nullopt, 0},
    {false, 1, 1}, {false, 2, 2}, {false, 3, 3}, {false, 0, 0}, {false, std::nullopt, 0},
};

TEST(ShowChoiceDialog, CountsFromTwoWhenTheOptionsAreVisible) {
  for (const Case& row : kCases) {
    FakeOperator person;
    person.choiceAnswers = {row.answer};
    ChoiceContent content;
    content.frameVisible = row.frameVisible;
    EXPECT_EQ(ShowChoiceDialog(person, content), row.choice) << row.frameVisible << row.answer.value_or(-1);
  }
}

TEST(ShowChoiceDialog, ShowsTheContentAsItIs) {
  FakeOperator person;
  EXPECT_EQ(ShowChoiceDialog(person, {"Orvenza", "Titolo", "Testo", true, {"Uno", "Due"}, 2, "&Ok"}), 0);
  ASSERT_EQ(person.choices.size(), 1U);
  EXPECT_EQ(person.choices[0].heading, "Titolo");
  EXPECT_EQ(person.choices[0].text, "Testo");
  EXPECT_EQ(person.choices[0].selected, 2);
  EXPECT_EQ(person.choices[0].button, "&Ok");
}

}  // namespace
}  // namespace orvenza::test
