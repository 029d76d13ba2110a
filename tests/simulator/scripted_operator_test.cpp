#include "simulator/scripted_operator.h"

#include <gtest/gtest.h>

#include <chrono>
#include <sstream>
#include <string>
#include <vector>

#include "support/test_clock.h"

namespace orvenza {
namespace {

using namespace std::chrono_literals;

class ScriptedOperatorTest : public testing::Test {
 protected:
  test::TestClock clock;
  EventLoop loop{clock, clock};
  ScriptedOperator person{loop};

  const MessageContent question{
      "Orvenza - Attenzione !", "\r\nSei sicuro ?", true, MessageIcon::kStop, {"Sì", "No"}};
  const ChoiceContent choice{"Orvenza", "Errore", "13", true, {"Continuare", "Ristampare", "Abortire"},
                             2,         "&Ok"};
  const PortContent port{
      "Porta",
      {"Porta COM", "Velocita'", "Parita'", "Data Bit", "Stop Bit"},
      {{{"COM1", "COM2", "COM3"}, {"9600", "19200"}, {"Odd", "Even", "None"}, {"7", "8"}, {"1", "2"}}},
      {0, 1, 0, 0, -1},
      "&Ok"};
  const UtilitiesContent utilities{"Utilita'",
                                   {"&Esci", "&Chiusura Fiscale", "Chiusura &Fiscale con Finanziario"}};
};

TEST_F(ScriptedOperatorTest, PressesTheButtonThatIsNamed) {
  const struct {
    const char* answer;
    std::optional<int> button;
  } cases[] = {{"Sì", 1}, {"No", 2}, {"no", 2}, {"&No", 2}, {"close", std::nullopt}};
  for (const auto& [answer, button] : cases) {
    person.Answer(answer);
    EXPECT_EQ(person.ShowMessage(question), button) << answer;
  }
}

TEST_F(ScriptedOperatorTest, AnswersAreTakenInTheirOrder) {
  person.Answer("No");
  person.Answer("Sì");
  EXPECT_EQ(person.AnswersLeft(), 2u);
  EXPECT_EQ(person.ShowMessage(question), 2);
  EXPECT_EQ(person.ShowMessage(question), 1);
  EXPECT_EQ(person.AnswersLeft(), 0u);
}

TEST_F(ScriptedOperatorTest, AsksAJudgementOnceTheListIsEmpty) {
  person.SetJudgement([](const ShownDialog& dialog) { return dialog.buttons.back(); });
  person.Answer("Sì");
  EXPECT_EQ(person.ShowMessage(question), 1);
  EXPECT_EQ(person.ShowMessage(question), 2);
  person.SetJudgement([](const ShownDialog&) { return std::string(); });
  EXPECT_THROW(person.ShowMessage(question), UnansweredDialog);
}

TEST_F(ScriptedOperatorTest, AJudgementMayTakeTime) {
  person.SetJudgement(
      [](const ShownDialog&) { return ScriptedOperator::PlannedAnswer("No", std::chrono::seconds(3)); });
  const auto before = clock.Uptime();
  EXPECT_EQ(person.ShowMessage(question), 2);
  EXPECT_EQ(clock.Uptime() - before, std::chrono::seconds(3));
}

TEST_F(ScriptedOperatorTest, ADialogWithoutAnswerEndsTheRun) {
  try {
    person.ShowMessage(question);
    FAIL() << "the dialog returned";
  } catch (const UnansweredDialog& error) {
    EXPECT_EQ(error.dialog.text, "\r\nSei sicuro ?");
    EXPECT_EQ(error.dialog.answer, "");
  }
}

TEST_F(ScriptedOperatorTest, AnAnswerThatFitsNothingEndsTheRun) {
  person.Answer("Forse");
  try {
    person.ShowMessage(question);
    FAIL() << "the dialog returned";
  } catch (const BadAnswer& error) {
    EXPECT_EQ(error.answer, "Forse");
    EXPECT_EQ(error.dialog.text, "\r\nSei sicuro ?");
  }
}

TEST_F(ScriptedOperatorTest, EveryKindOfDialogRefusesAnAnswerThatFitsNothing) {
  for (int i = 0; i < 3; ++i) person.Answer("Forse");
  EXPECT_THROW(person.ShowChoice(choice), BadAnswer);
  EXPECT_THROW(person.ShowPortSettings(port), BadAnswer);
  EXPECT_THROW(person.ShowUtilities(utilities, [](int) { return true; }), BadAnswer);
}

TEST_F(ScriptedOperatorTest, ChoosesAnOptionOrConfirmsTheSelectedOne) {
  const struct {
    const char* answer;
    std::optional<int> chosen;
  } cases[] = {{"Continuare", 1}, {"Ristampare", 2}, {"Abortire", 3}, {"ok", 2}, {"close", std::nullopt}};
  for (const auto& [answer, chosen] : cases) {
    person.Answer(answer);
    EXPECT_EQ(person.ShowChoice(choice), chosen) << answer;
  }
}

TEST_F(ScriptedOperatorTest, OptionsBehindTheHiddenFrameCannotBeChosen) {
  ChoiceContent paperOut = choice;
  paperOut.frameVisible = false;
  paperOut.selected = 0;
  person.Answer("Ok");
  EXPECT_EQ(person.ShowChoice(paperOut), 0);
  person.Answer("Continuare");
  EXPECT_THROW(person.ShowChoice(paperOut), BadAnswer);
}

TEST_F(ScriptedOperatorTest, SelectsPortEntriesAndConfirms) {
  const struct {
    const char* answer;
    std::array<int, 5> selected;
  } cases[] = {{"COM3 9600 None 8 1", {2, 0, 2, 1, 0}},
               {"COM2", {1, 1, 0, 0, -1}},
               {"Even 2", {0, 1, 1, 0, 1}},
               {"Ok", {0, 1, 0, 0, -1}}};
  for (const auto& [answer, selected] : cases) {
    person.Answer(answer);
    EXPECT_EQ(person.ShowPortSettings(port), selected) << answer;
  }
}

TEST_F(ScriptedOperatorTest, RefusesPortEntriesThatAreInNoFurtherList) {
  for (const char* answer : {"COM4", "9600 COM2", "COM1 COM2", "9600 19200", "8 1 1"}) {
    person.Answer(answer);
    EXPECT_THROW(person.ShowPortSettings(port), BadAnswer) << answer;
  }
}

TEST_F(ScriptedOperatorTest, ClosesThePortDialogByOtherMeans) {
  person.Answer("close");
  EXPECT_EQ(person.ShowPortSettings(port), std::nullopt);
}

TEST_F(ScriptedOperatorTest, UtilitiesStayOpenUntilAButtonClosesThem) {
  person.Answer("Chiusura Fiscale");
  person.Answer("Chiusura Fiscale con Finanziario");
  person.Answer("Esci");
  std::vector<int> pressed;
  person.ShowUtilities(utilities, [&](int button) {
    pressed.push_back(button);
    return button == 1;
  });
  EXPECT_EQ(pressed, (std::vector<int>{2, 3, 1}));
  EXPECT_EQ(person.Shown().back().answer, "Chiusura Fiscale, Chiusura Fiscale con Finanziario, Esci");
}

TEST_F(ScriptedOperatorTest, UtilitiesCanBeClosedByOtherMeans) {
  person.Answer("close");
  person.ShowUtilities(utilities, [](int) {
    ADD_FAILURE() << "no button was pressed";
    return true;
  });
  EXPECT_EQ(person.AnswersLeft(), 0u);
}

TEST_F(ScriptedOperatorTest, TheMenuIsUsedWhileADialogWaits) {
  std::vector<MenuItem> used;
  person.SetMenuHandler([&](MenuItem item) { used.push_back(item); });
  for (const char* answer : {"menu Esci", "menu utilita'", "menu Info", "menu Configura", "No"}) {
    person.Answer(answer);
  }
  EXPECT_EQ(person.ShowMessage(question), 2);
  EXPECT_EQ(used, (std::vector<MenuItem>{MenuItem::kExit, MenuItem::kUtilities, MenuItem::kInfo,
                                         MenuItem::kConfigure}));
}

TEST_F(ScriptedOperatorTest, TheMenuCanCloseTheMessageThatWaits) {
  MessageContent confirm = question;
  confirm.text = "Chiudere ?";
  person.SetMenuHandler([&](MenuItem) {
    person.CloseMessage();
    EXPECT_EQ(person.ShowMessage(confirm), 2);
  });
  person.Answer("menu Esci");
  person.Answer("No");
  EXPECT_EQ(person.ShowMessage(question), std::nullopt);
  ASSERT_EQ(person.Shown().size(), 2u);
  EXPECT_EQ(person.Shown()[0].answer, "menu Esci");
  EXPECT_EQ(person.Shown()[1].answer, "No");
}

TEST_F(ScriptedOperatorTest, ClosingReachesEveryMessageThatWaitsButNoLaterOne) {
  person.SetMenuHandler([&](MenuItem item) {
    if (item == MenuItem::kExit) {
      EXPECT_EQ(person.ShowMessage(question), std::nullopt);
    } else {
      person.CloseMessage();
    }
  });
  for (const char* answer : {"menu Esci", "menu Info", "No"}) person.Answer(answer);
  EXPECT_EQ(person.ShowMessage(question), std::nullopt);
  EXPECT_EQ(person.ShowMessage(question), 2);
}

TEST_F(ScriptedOperatorTest, AMenuItemThatDoesNotExistEndsTheRun) {
  person.SetMenuHandler([](MenuItem) {});
  person.Answer("menu Stampa");
  EXPECT_THROW(person.ShowMessage(question), BadAnswer);
}

TEST_F(ScriptedOperatorTest, WithoutAMenuNoItemCanBeUsed) {
  person.Answer("menu Esci");
  EXPECT_THROW(person.ShowMessage(question), BadAnswer);
}

TEST_F(ScriptedOperatorTest, TheEndOfTheProgramEndsADialog) {
  person.SetMenuHandler([&](MenuItem) { loop.RequestEnd({.unload = true}); });
  person.Answer("menu Esci");
  person.Answer("No");
  EXPECT_THROW(person.ShowMessage(question), ProgramEnd);
  EXPECT_EQ(person.AnswersLeft(), 1u);
}

TEST_F(ScriptedOperatorTest, TheEndOfTheProgramEndsTheUtilitiesEvenWhenTheyClose) {
  person.Answer("Esci");
  const auto end = [&](int) {
    loop.RequestEnd({.unload = true});
    return true;
  };
  EXPECT_THROW(person.ShowUtilities(utilities, end), ProgramEnd);
}

TEST_F(ScriptedOperatorTest, LetsEventsThroughBeforeItAnswers) {
  clock.After(0ms, [&] { person.CloseMessage(); });
  person.Answer("No");
  EXPECT_EQ(person.ShowMessage(question), std::nullopt);
  EXPECT_EQ(person.AnswersLeft(), 1u);
}

TEST_F(ScriptedOperatorTest, TakesItsTimeToAnswer) {
  person.Answer("No", 2345ms);
  EXPECT_EQ(person.ShowMessage(question), 2);
  EXPECT_EQ(clock.Uptime(), 2345ms);
}

TEST_F(ScriptedOperatorTest, AMessageClosedBeforeTheAnswerLeavesItToTheNext) {
  clock.After(1s, [&] { person.CloseMessage(); });
  person.Answer("No", 5s);
  EXPECT_EQ(person.ShowMessage(question), std::nullopt);
  EXPECT_EQ(clock.Uptime(), 1s);
  EXPECT_EQ(person.ShowMessage(question), 2);
}

TEST_F(ScriptedOperatorTest, ADialogOnTopTakesTheAnswer) {
  clock.After(1s, [&] { EXPECT_EQ(person.ShowMessage(question), 1); });
  person.Answer("Sì", 2s);
  person.Answer("No", 4s);
  EXPECT_EQ(person.ShowMessage(question), 2);
  // One second until the dialog on top appeared, two for its answer, one for the rest of the wait below it,
  // four for the second answer.
  EXPECT_EQ(clock.Uptime(), 8s);
}

TEST_F(ScriptedOperatorTest, ShowsADialogOnOneLine) {
  person.Answer("Abortire");
  person.ShowChoice(choice);
  std::ostringstream text;
  text << person.Shown().back();
  EXPECT_EQ(text.str(),
            "choice \"Orvenza\" \"Errore\" \"13\" (Continuare|Ristampare|Abortire) [&Ok] <- Abortire");
}

TEST_F(ScriptedOperatorTest, RemembersWhatWasShown) {
  person.Answer("No");
  person.ShowMessage(question);
  person.Answer("Ok");
  person.ShowPortSettings(port);
  ASSERT_EQ(person.Shown().size(), 2u);
  EXPECT_EQ(person.Shown()[0].kind, DialogKind::kMessage);
  EXPECT_EQ(person.Shown()[0].icon, MessageIcon::kStop);
  EXPECT_EQ(person.Shown()[0].text, "\r\nSei sicuro ?");
  EXPECT_EQ(person.Shown()[0].buttons, (std::vector<std::string>{"Sì", "No"}));
  EXPECT_EQ(person.Shown()[1].kind, DialogKind::kPortSettings);
}

TEST_F(ScriptedOperatorTest, TellsAnObserverOfDialogsAndAnswers) {
  std::vector<std::string> told;
  person.SetObserver([&](const ShownDialog& dialog, std::string_view answer) {
    told.push_back(dialog.caption + ":" + std::string(answer));
  });
  person.Answer("No");
  person.ShowMessage(question);
  EXPECT_EQ(told, (std::vector<std::string>{"Orvenza - Attenzione !:", "Orvenza - Attenzione !:No"}));
}

}  // namespace
}  // namespace orvenza
