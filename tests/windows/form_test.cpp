// The forms alone: every way to answer them, at every resolution, with every text.

#include "windows/form_bench.h"

#include "core/catalogue.h"
#include "core/text.h"
#include "ui/layout.h"
#include "ui/operator_message.h"
#include "ui/windows/names.h"
#include "windows/person.h"

namespace orvenza::test {
namespace {

using namespace control_id;

/// None below the screen's own, whose title bars do not shrink.
std::vector<int> Resolutions() {
  std::vector<int> resolutions{96, 120, 144, 192};
  std::erase_if(resolutions, [](int dpi) { return dpi < ScreenDpi(); });
  return resolutions;
}

struct ButtonSetCase {
  MessageButtons buttons;
  std::vector<MessageResult> results;  ///< One per button, in order.
  MessageResult closed;
};

std::vector<ButtonSetCase> ButtonSets() {
  using enum MessageResult;
  return {
      {MessageButtons::kOk, {kOk}, kOk},
      {MessageButtons::kOkCancel, {kOk, kCancel}, kCancel},
      {MessageButtons::kAbortRetryIgnore, {kAbort, kRetry, kIgnore}, kNone},
      {MessageButtons::kYesNoCancel, {kYes, kNo, kCancel}, kNone},
      {MessageButtons::kYesNo, {kYes, kNo}, kNone},
      {MessageButtons::kRetryCancel, {kRetry, kCancel}, kNone},
      {MessageButtons::kRetryCancelConfigure, {kRetry, kCancel, kConfigure}, kNone},
  };
}

struct MessageFormTest : FormBench {
  MessageResult Ask(MessageStyle style, const std::function<void(HWND)>& answer) {
    WhenShown(answer);
    return messages.ShowOperatorMessage("Sei sicuro ?", style, "");
  }
  MessageResult Ask(MessageButtons buttons, const std::function<void(HWND)>& answer) {
    return Ask({MessageIcon::kNone, buttons}, answer);
  }

  OperatorMessages messages{person, "Orvenza"};
};

TEST_F(MessageFormTest, EveryButtonIsClicked) {
  for (const auto& [buttons, results, closed] : ButtonSets()) {
    for (std::size_t i = 0; i < results.size(); ++i) {
      const int id = kCommand0 + 1 + static_cast<int>(i);
      EXPECT_EQ(Ask(buttons, [&](HWND form) { Click(form, id); }), results[i]) << results.size() << " " << id;
    }
  }
}

TEST_F(MessageFormTest, EveryButtonIsReachedByTabAndPressedByEnter) {
  for (const auto& [buttons, results, closed] : ButtonSets()) {
    for (std::size_t i = 0; i < results.size(); ++i) {
      const auto answer = [&](HWND) {
        for (std::size_t n = 0; n < i; ++n) Press(VK_TAB);
        Press(VK_RETURN);
      };
      EXPECT_EQ(Ask(buttons, answer), results[i]) << results.size() << " " << i;
    }
  }
}

TEST_F(MessageFormTest, EveryButtonIsReachedByArrowsAndPressedBySpace) {
  for (const auto& [buttons, results, closed] : ButtonSets()) {
    for (std::size_t i = 0; i < results.size(); ++i) {
      const auto answer = [&](HWND) {
        // The last one is reached backwards from the first.
        if (i == 2) Press(VK_LEFT);
        if (i == 1) Press(VK_RIGHT);
        Press(VK_SPACE);
      };
      EXPECT_EQ(Ask(buttons, answer), results[i]) << results.size() << " " << i;
    }
  }
}

TEST_F(MessageFormTest, EscAndTheCrossCloseItWithoutAnAnswer) {
  for (const auto& [buttons, results, closed] : ButtonSets()) {
    EXPECT_EQ(Ask(buttons, [](HWND) { Press(VK_ESCAPE); }), closed) << results.size();
    EXPECT_EQ(Ask(buttons, CloseByCross), closed) << results.size();
  }
}

TEST_F(MessageFormTest, TheFocusIsOnTheFirstButtonWhateverTheStyleWants) {
  using enum MessageButtons;
  const MessageStyle styles[] = {{MessageIcon::kNone, kYesNo, DefaultButton::kFirst},
                                 {MessageIcon::kNone, kYesNo, DefaultButton::kSecond},
                                 {MessageIcon::kNone, kYesNoCancel, DefaultButton::kThird},
                                 {MessageIcon::kNone, kAbortRetryIgnore, DefaultButton::kSecond}};
  for (const MessageStyle& style : styles) {
    Ask(style, [&](HWND form) {
      EXPECT_EQ(FocusedId(form), kCommand0 + 1) << static_cast<int>(style.defaultButton);
      CloseByCross(form);
    });
  }
}

TEST_F(MessageFormTest, ShowsTheIconOfTheStyle) {
  int image = 0;
  for (const MessageIcon icon :
       {MessageIcon::kStop, MessageIcon::kQuestion, MessageIcon::kExclamation, MessageIcon::kInformation}) {
    Ask({icon}, [&](HWND form) {
      for (int i = 0; i < 4; ++i) EXPECT_EQ(GetDlgItem(form, kImage + i) != nullptr, i == image) << image;
      CloseByCross(form);
    });
    ++image;
  }
}

TEST_F(MessageFormTest, HasItsButtonsInARowOfFixedPlacesAtEveryResolution) {
  Ask(MessageButtons::kRetryCancelConfigure, [&](HWND form) {
    for (const int dpi : Resolutions()) {
      ChangeDpi(form, dpi);
      RECT client{};
      GetClientRect(form, &client);
      for (int i = 1; i <= 3; ++i) {
        const RECT button = PlaceOf(form, kCommand0 + i);
        EXPECT_EQ(button.top, Pixels(980, dpi)) << dpi;
        EXPECT_EQ(button.bottom - button.top, Pixels(375, dpi)) << dpi;
        EXPECT_NEAR(button.right - button.left, Pixels(1275, dpi), 1) << dpi;
        EXPECT_NEAR(2 * button.left, client.right + (2 * i - 5) * Pixels(1275, dpi), 3) << dpi;
      }
    }
    CloseByCross(form);
  });
}

/// Every text of the catalogue, some combined as the program shows them, and the longest texts that the shop
/// or a ticket can cause.
std::vector<std::string> Texts() {
  using enum MessageId;
  std::vector<std::string> texts{
      LoadMessage(MessageId::kInvalidLine) + " 1;" + std::string(57, 'n') + "...",
      LoadMessage(MessageId::kInvalidLine) +
          " 1;Una riga con piu' parole che non finisce;999999999;9999,9...",
  };
  for (const auto& [first, second] : {std::pair(kNoReceiptsAfterEnd, kAreYouSure),
                                      {kTicketsWaiting, kConfirmClosure},
                                      {kReceiptNotVoided, kCloseReceiptQuestion},
                                      {kSendingVoid, kCheckKey},
                                      {kWrongIniVersion, kProgramEnded}}) {
    texts.push_back(LoadMessage(first) + std::string(kLineBreak) + LoadMessage(second));
  }
  for (int number = 101; number <= 531; ++number) {
    if (!LoadMessage(MessageId{number}).empty()) texts.push_back(LoadMessage(MessageId{number}));
  }
  return texts;
}

void ExpectShownInFullAtEveryResolution(HWND form) {
  for (const int dpi : Resolutions()) {
    ChangeDpi(form, dpi);
    EXPECT_TRUE(ShowsEverything(form, dpi)) << dpi;
  }
  CloseByCross(form);
}

TEST_F(MessageFormTest, ShowsEveryTextInFull) {
  const std::string lineBreak(kLineBreak);
  std::vector<std::string> texts = Texts();
  texts.push_back(LoadMessage(MessageId::kWrongPath) + lineBreak + "C:\\" + std::string(250, 'm') + "\\" +
                  lineBreak + lineBreak + LoadMessage(MessageId::kProgramWillEnd));
  for (const std::string& text : texts) {
    WhenShown(ExpectShownInFullAtEveryResolution);
    messages.ShowOperatorMessage(text, {MessageIcon::kInformation, MessageButtons::kRetryCancelConfigure},
                                 LoadMessage(MessageId::kCommunicationWarning));
  }
}

using FormTest = DialogBench;

TEST_F(FormTest, ChoicesShowEveryTextInFull) {
  for (const std::string& text : Texts()) {
    ChoiceContent content = kChoice;
    content.heading = text;
    WhenShown(ExpectShownInFullAtEveryResolution);
    person.ShowChoice(content);
  }
}

TEST_F(FormTest, ShowsAllOfEveryDialogAtEveryResolution) {
  ShowAll([](HWND form) {
    for (const int dpi : Resolutions()) {
      ChangeDpi(form, dpi);
      EXPECT_TRUE(ShowsEverything(form, dpi)) << dpi;
    }
    CloseByCross(form);
  });
}

TEST_F(FormTest, TabLeadsThroughEveryDialogAndBack) {
  std::vector<std::vector<int>> expected{
      {kCommand + 1},
      {kOption1 + 2, kCommand + 1},
      {kCombo + 1, kCombo + 2, kCombo + 3, kCombo + 4, kCombo + 5, kCommand + 1},
      {kCommand + 1, kCommand + 2, kCommand + 3},
  };
  std::size_t dialog = 0;
  ShowAll([&](HWND form) {
    const std::vector<int>& order = expected[dialog++];
    const auto hasFocus = [&](int id) { Await("the focus", [&] { return FocusedId(form) == id; }); };
    for (const int id : order) {
      hasFocus(id);
      Press(VK_TAB);
    }
    hasFocus(order.front());
    for (auto id = order.rbegin(); id != order.rend(); ++id) {
      PressWith(VK_SHIFT, VK_TAB);
      hasFocus(*id);
    }
    CloseByCross(form);
  });
}

}  // namespace
}  // namespace orvenza::test
