// Each dialog on the screen, and every way to answer it.

#include <gtest/gtest.h>

#include <memory>

#include "core/catalogue.h"
#include "ui/windows/names.h"
#include "windows/person.h"
#include "windows/till.h"

namespace orvenza::test {
namespace {

using namespace control_id;

constexpr int kUtilities = 2;
constexpr int kConfigure = 4;
constexpr const char* kTicket = "1;Caffe' espresso;2,000;120;1;;;1;;\r\n2;1;500;\r\n";
const std::string kAlarm = "Orvenza - " + LoadMessage(MessageId::kCommunicationWarning);

/// The first status query fails: a message with three buttons asks the operator.
struct MessageTest : testing::Test {
  MessageTest() : form(till.Form(window_class::kOrvMsg, kAlarm)) {}

  /// Waits until the retry identifies the register.
  void ExpectsRetry() {
    till.Gone(form);
    till.Await("the identity", [&] { return shop.Journal("Log.txt").size() == 2; });
  }

  const Shop shop{"on 3217 link-error 1\n"};
  const Till till{shop};
  const HWND form;
};

TEST_F(MessageTest, ShowsItsContent) {
  EXPECT_EQ(TextOf(form, kText1), "\r\n" + LoadMessage(MessageId::kCommunicationError) + " ERR-1");
  EXPECT_EQ(TextOf(form, kCommand0 + 1), LoadMessage(MessageId::kRetry));
  EXPECT_EQ(TextOf(form, kCommand0 + 2), LoadMessage(MessageId::kCancel));
  EXPECT_EQ(TextOf(form, kCommand0 + 3), LoadMessage(MessageId::kConfigure));
  EXPECT_EQ(GetDlgItem(form, kCommand0 + 4), nullptr);
  EXPECT_NE(GetDlgItem(form, kImage + 3), nullptr);
}

TEST_F(MessageTest, StandsInTheMiddleInFrontOfEverything) {
  RECT place{};
  GetWindowRect(form, &place);
  EXPECT_NEAR(place.left + place.right, GetSystemMetrics(SM_CXSCREEN), 1);
  EXPECT_NEAR(place.top + place.bottom, GetSystemMetrics(SM_CYSCREEN), 1);
  EXPECT_NE(GetWindowLongPtrW(form, GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
}

TEST_F(MessageTest, HasItsButtonsInARowOfFixedPlaces) {
  const auto px = [dpi = ScreenDpi()](int units) { return (units * dpi + 720) / 1440; };
  RECT client{};
  GetClientRect(form, &client);
  for (int i = 1; i <= 3; ++i) {
    const RECT button = PlaceOf(form, kCommand0 + i);
    EXPECT_EQ(button.top, px(980));
    EXPECT_EQ(button.bottom, px(980) + px(375));
    EXPECT_NEAR(button.right - button.left, px(1275), 1);
    EXPECT_NEAR(button.left, client.right / 2 - px(1275) * 3 / 2 + (i - 1) * px(1275), 2);
  }
  EXPECT_LE(PlaceOf(form, kText1).bottom, px(980));
}

TEST_F(MessageTest, GivesTheFirstButtonTheFocus) { EXPECT_EQ(FocusedId(form), kCommand0 + 1); }

TEST_F(MessageTest, ItsTextHandsTheFocusToTheFirstButton) {
  Press(VK_TAB);
  till.Await("the focus on the second button", [&] { return FocusedId(form) == kCommand0 + 2; });
  Click(form, kText1);
  till.Await("the focus on the first button", [&] { return FocusedId(form) == kCommand0 + 1; });
}

TEST_F(MessageTest, IsAnsweredByAClickOnTheFirstButton) {
  Click(form, kCommand0 + 1);
  ExpectsRetry();
}

TEST_F(MessageTest, IsAnsweredByAClickOnTheSecondButton) {
  Click(form, kCommand0 + 2);
  const HWND question = till.Form(window_class::kOrvMsg, "Orvenza - " + LoadMessage(MessageId::kEndRequest));
  EXPECT_NE(GetDlgItem(question, kImage), nullptr);
  Press(VK_RETURN);
  EXPECT_EQ(till.ExitCode(), 0U);
  EXPECT_EQ(shop.Journal("Err.txt").back(), LoadMessage(MessageId::kLinkCancelled));
}

TEST_F(MessageTest, IsAnsweredByAClickOnTheThirdButton) {
  Click(form, kCommand0 + 3);
  till.Gone(form);
  Press(VK_ESCAPE);
  const HWND conf = till.Form(window_class::kOrvConf);
  Press(VK_ESCAPE);
  till.Gone(conf);
  till.AwaitIcon();
}

TEST_F(MessageTest, EnterPressesTheButtonWithTheFocus) {
  Press(VK_TAB);
  Press(VK_RETURN);
  till.Form(window_class::kOrvMsg, "Orvenza - " + LoadMessage(MessageId::kEndRequest));
}

TEST_F(MessageTest, SpacePressesTheButtonWithTheFocus) {
  Press(VK_RIGHT);
  till.Await("the focus on the second button", [&] { return FocusedId(form) == kCommand0 + 2; });
  Press(VK_SPACE);
  till.Form(window_class::kOrvMsg, "Orvenza - " + LoadMessage(MessageId::kEndRequest));
}

TEST_F(MessageTest, EscClosesItWithoutAnAnswer) {
  Press(VK_ESCAPE);
  ExpectsRetry();
}

TEST_F(MessageTest, TheCrossClosesItWithoutAnAnswer) {
  CloseByCross(form);
  ExpectsRetry();
}

TEST(LongMessage, IsShownInFull) {
  Shop shop;
  std::string settings = shop.folder.Read("Orvenza.ini");
  const std::string folder = "Q:\\una cartella che non esiste\\" + std::string(50, 'w') + "\\data\\";
  settings.replace(settings.find("TicketFiles=") + 12, shop.folder.Path().size() + 6, folder);
  shop.folder.Write("Orvenza.ini", settings);
  const Till till(shop);
  const HWND form = till.Form(window_class::kOrvMsg);
  const std::string text = LoadMessage(MessageId::kWrongPath) + "\r\n" + folder + "\r\n\r\n" +
                           LoadMessage(MessageId::kProgramWillEnd);
  EXPECT_EQ(TextOf(form, kText1), text);
  const HWND edit = GetDlgItem(form, kText1);
  const auto last = static_cast<WPARAM>(text.size() - 2);  // "à" counts once
  const auto bottomOfLast = HIWORD(SendMessageW(edit, EM_POSFROMCHAR, last, 0));
  RECT client{};
  GetClientRect(edit, &client);
  EXPECT_LT(bottomOfLast, client.bottom - 10);
  EXPECT_LT(PlaceOf(form, kText1).bottom, PlaceOf(form, kCommand0 + 1).top);
  Press(VK_RETURN);
  EXPECT_EQ(till.ExitCode(), 5U);
}

/// The register rejects a line: the operator chooses what to do.
struct ChoiceTest : testing::Test {
  ChoiceTest() {
    shop.Drop("0001.txt", kTicket);
    till = std::make_unique<Till>(shop);
    form = till->Form(window_class::kOrvInfo);
  }

  bool Checked(int option) const {
    return SendDlgItemMessageW(form, kOption1 + option, BM_GETCHECK, 0, 0) == 1;
  }

  void ExpectsAnswer(MessageId message) {
    till->Gone(form);
    const std::string answer = LoadMessage(MessageId::kOperatorAnswer) + " " + LoadMessage(message);
    till->Await(answer.c_str(), [&] { return shop.Journal("Err.txt").back() == answer; });
  }

  /// The ticket continues with its next line, and no answer is logged.
  void ExpectsNoAnswer() {
    till->Gone(form);
    till->Await("the archive", [&] { return shop.folder.Has("storico\\1.txt"); });
    const Lines errors = shop.Journal("Err.txt");
    EXPECT_EQ(errors.front(), LoadMessage(MessageId::kEcrError) + " " + LoadMessage(EcrErrorMessage(8)));
    for (const std::string& line : errors)
      EXPECT_FALSE(line.starts_with(LoadMessage(MessageId::kOperatorAnswer))) << line;
  }

  const Shop shop{"on 1004 reply ERR08\n"};
  std::unique_ptr<Till> till;
  HWND form = nullptr;
};

TEST_F(ChoiceTest, ShowsItsContent) {
  EXPECT_EQ(TextOf(form), "Orvenza");
  EXPECT_EQ(TextOf(form, kLabel1), LoadMessage(MessageId::kEcrErrorWarning));
  EXPECT_EQ(TextOf(form, kLabel2), LoadMessage(EcrErrorMessage(8)));
  EXPECT_EQ(TextOf(form, kOption1 + 1), LoadMessage(MessageId::kReceiptPrinted));
  EXPECT_EQ(TextOf(form, kOption1 + 2), LoadMessage(MessageId::kReprintReceipt));
  EXPECT_EQ(TextOf(form, kOption1 + 3), LoadMessage(MessageId::kAbortReceipt));
  EXPECT_EQ(TextOf(form, kCommand + 1), "&Ok");
  EXPECT_TRUE(!Checked(1) && Checked(2) && !Checked(3));
}

TEST_F(ChoiceTest, EnterConfirmsTheOptionThatWasSelected) {
  Press(VK_RETURN);
  ExpectsAnswer(MessageId::kReprintReceipt);
}

TEST_F(ChoiceTest, ArrowsSelectAnotherOption) {
  Press(VK_DOWN);
  till->Await("the third option", [&] { return Checked(3); });
  Press(VK_RETURN);
  ExpectsAnswer(MessageId::kAbortReceipt);
  till->Await("the abort copy", [&] { return shop.folder.Has("data\\abort\\0001.txt.abort.txt"); });
}

TEST_F(ChoiceTest, ClicksSelectAndConfirm) {
  Click(form, kOption1 + 1);
  Click(form, kCommand + 1);
  ExpectsAnswer(MessageId::kReceiptPrinted);
}

TEST_F(ChoiceTest, TheButtonsLetterConfirms) {
  PressWithAlt('O');
  ExpectsAnswer(MessageId::kReprintReceipt);
}

TEST_F(ChoiceTest, EscClosesItWithoutAnAnswer) {
  Press(VK_ESCAPE);
  ExpectsNoAnswer();
}

TEST_F(ChoiceTest, TheCrossClosesItWithoutAnAnswer) {
  CloseByCross(form);
  ExpectsNoAnswer();
}

TEST(PaperOut, HasNoOptions) {
  const Shop shop("on 1004 paper-out receipt\n");
  shop.Drop("0001.txt", kTicket);
  const Till till(shop);
  const HWND form = till.Form(window_class::kOrvInfo);
  EXPECT_EQ(TextOf(form, kLabel1), LoadMessage(MessageId::kReceiptPaperOutWarning));
  EXPECT_EQ(TextOf(form, kLabel2), LoadMessage(MessageId::kReplacePaper));
  EXPECT_EQ(GetDlgItem(form, kOption1 + 1), nullptr);
  EXPECT_EQ(GetDlgItem(form, kFrame1), nullptr);
  EXPECT_EQ(FocusedId(form), kCommand + 1);
  Press(VK_SPACE);
  till.Gone(form);
}

TEST(PaperOut, IsOverHoweverTheDialogIsAnswered) {
  const std::function<void(HWND)> kWays[] = {[](HWND form) { Click(form, kCommand + 1); },
                                             [](HWND) { Press(VK_RETURN); }, [](HWND) { PressWithAlt('O'); },
                                             [](HWND) { Press(VK_ESCAPE); }, CloseByCross};
  for (const auto& answer : kWays) {
    const Shop shop("on 1004 paper-out receipt\n");
    shop.Drop("0001.txt", kTicket);
    const Till till(shop);
    const HWND form = till.Form(window_class::kOrvInfo);
    answer(form);
    till.Gone(form);
    EXPECT_EQ(shop.Journal("Err.txt").front(), LoadMessage(MessageId::kReceiptPaperOut));
  }
}

TEST(PaperOut, OfTheJournalIsSettledWithTheTicketPrintedAgain) {
  const Shop shop("on 1004 paper-out journal\n");
  shop.Drop("0001.txt", kTicket);
  const Till till(shop);
  EXPECT_EQ(TextOf(till.Form(window_class::kOrvInfo), kLabel1),
            LoadMessage(MessageId::kJournalPaperOutWarning));
  Press(VK_RETURN);
  till.Await("the ticket", [&] { return shop.folder.Read("storico\\1.txt") == kTicket; });
  EXPECT_EQ(shop.Journal("Err.txt"),
            (Lines{LoadMessage(MessageId::kJournalPaperOut), LoadMessage(MessageId::kResumedAfterPaperOut)}));
}

/// The port dialog, opened from the menu.
struct PortTest : testing::Test {
  PortTest() {
    till.AwaitStart();
    till.Menu(kConfigure);
    form = till.Form(window_class::kOrvConf);
  }

  std::string Entry(int list) const { return TextOf(form, kCombo + list); }
  bool Saved(const std::string& line) const {
    return shop.folder.Read("Orvenza.ini").find(line + "\r\n") != std::string::npos;
  }

  const Shop shop;
  const Till till{shop};
  HWND form = nullptr;
};

TEST_F(PortTest, ShowsTheCurrentSettings) {
  EXPECT_EQ(TextOf(form), LoadMessage(MessageId::kPortSettings));
  EXPECT_EQ(TextOf(form, kFrame1), LoadMessage(MessageId::kPortSettings));
  const char* const entries[] = {"COM1", "19200", "Odd", "7", "1"};
  const int counts[] = {16, 7, 3, 2, 2};
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(TextOf(form, kLabel + i), LoadMessage(MessageId{NumberOf(MessageId::kPort) + i}));
    EXPECT_EQ(Entry(i + 1), entries[i]);
    EXPECT_EQ(SendDlgItemMessageW(form, kCombo + i + 1, CB_GETCOUNT, 0, 0), counts[i]);
  }
}

TEST_F(PortTest, IsFilledInAndConfirmedByTheKeyboardAlone) {
  Press(VK_DOWN);
  Press(VK_DOWN);
  Press(VK_TAB);
  Press('9');
  Press(VK_TAB);
  Press('N');
  till.Await("None", [&] { return Entry(3) == "None"; });
  EXPECT_EQ(Entry(1), "COM3");
  EXPECT_EQ(Entry(2), "9600");
  Press(VK_RETURN);
  till.Gone(form);
  till.Await("the settings", [&] { return Saved("ComPort=3") && Saved("Settings=9600,N,7,1"); });
}

TEST_F(PortTest, EnterInAnOpenListOnlyClosesTheList) {
  Press(VK_F4);
  till.Await("the open list",
             [&] { return SendDlgItemMessageW(form, kCombo + 1, CB_GETDROPPEDSTATE, 0, 0) != 0; });
  Press(VK_DOWN);
  Press(VK_RETURN);
  till.Await("the closed list",
             [&] { return SendDlgItemMessageW(form, kCombo + 1, CB_GETDROPPEDSTATE, 0, 0) == 0; });
  EXPECT_EQ(Entry(1), "COM2");
  Click(form, kCommand + 1);
  till.Gone(form);
  till.Await("the settings", [&] { return Saved("ComPort=2"); });
}

TEST_F(PortTest, IsConfirmedByItsButtonItsLetterAndEnter) {
  const std::function<void()> kWays[] = {[&] { Click(form, kCommand + 1); }, [] { PressWithAlt('O'); },
                                         [] { Press(VK_RETURN); }};
  int port = 1;
  for (const auto& confirm : kWays) {
    Press(VK_DOWN);
    const std::string next = "COM" + std::to_string(++port);
    till.Await(next.c_str(), [&] { return Entry(1) == next; });
    confirm();
    till.Gone(form);
    till.Await("the settings", [&] { return Saved("ComPort=" + std::to_string(port)); });
    till.Menu(kConfigure);
    form = till.Form(window_class::kOrvConf);
    EXPECT_EQ(Entry(1), next);
  }
}

TEST_F(PortTest, ClosedOtherwiseItSavesNothing) {
  const auto list = [&] { return GetDlgItem(form, kCombo + 1); };
  // Sent as messages, since a key press would go to the window that has the focus by then.
  const std::function<void()> kWays[] = {[&] { CloseByCross(form); },
                                         [&] { PostMessageW(list(), WM_KEYDOWN, VK_ESCAPE, 0); }};
  for (const auto& leave : kWays) {
    SendMessageW(list(), CB_SETCURSEL, 1, 0);
    EXPECT_EQ(Entry(1), "COM2");
    leave();
    till.Gone(form);
    till.Menu(kConfigure);
    form = till.Form(window_class::kOrvConf);
    EXPECT_EQ(Entry(1), "COM1");
  }
  EXPECT_TRUE(Saved("ComPort=1"));
}

/// The utilities dialog, opened from the menu.
struct UtilitiesTest : testing::Test {
  UtilitiesTest() {
    till.AwaitStart();
    till.Menu(kUtilities);
    form = till.Form(window_class::kOrvUti);
  }

  HWND Question() const {
    return till.Form(window_class::kOrvMsg, "Orvenza - " + LoadMessage(MessageId::kClosureRequest));
  }
  std::string AwaitFile(const std::string& name) const {
    till.Await(name.c_str(), [&] { return !shop.folder.Read(name).empty(); });
    return shop.folder.Read(name);
  }
  void AwaitClosure(const std::string& record) const {
    till.Await("the closure", [&] { return shop.folder.Read("storico\\1.txt") == record + ";;;;;;;;;\r\n"; });
  }

  const Shop shop;
  const Till till{shop};
  HWND form = nullptr;
};

TEST_F(UtilitiesTest, ShowsItsButtons) {
  EXPECT_EQ(TextOf(form), LoadMessage(MessageId::kUtilities));
  EXPECT_EQ(TextOf(form, kCommand + 1), "&Esci");
  EXPECT_EQ(TextOf(form, kCommand + 2), "&Chiusura Fiscale");
  EXPECT_EQ(TextOf(form, kCommand + 3), "Chiusura &Fiscale con Finanziario");
  EXPECT_EQ(FocusedId(form), kCommand + 1);
}

TEST_F(UtilitiesTest, LeavesByItsButtonItsLetterEscAndTheCross) {
  const std::function<void()> kWays[] = {[&] { Click(form, kCommand + 1); }, [] { PressWithAlt('E'); },
                                         [] { Press(VK_ESCAPE); }, [&] { CloseByCross(form); },
                                         [] { Press(VK_RETURN); }};
  for (const auto& leave : kWays) {
    leave();
    till.Gone(form);
    till.Menu(kUtilities);
    form = till.Form(window_class::kOrvUti);
  }
}

TEST_F(UtilitiesTest, PrintsAClosureOnceConfirmed) {
  PressWithAlt('C');
  const HWND question = Question();
  EXPECT_FALSE(IsWindowEnabled(form));
  EXPECT_EQ(TextOf(question, kText1), "\r\n" + LoadMessage(MessageId::kConfirmClosure));
  Press(VK_RETURN);
  till.Gone(form);
  AwaitClosure("21");
}

TEST_F(UtilitiesTest, PrintsAClosureWithItsReport) {
  Click(form, kCommand + 3);
  Question();
  Click(Question(), kCommand0 + 1);
  till.Gone(form);
  AwaitClosure("22");
}

TEST_F(UtilitiesTest, StaysWhenTheClosureIsNotConfirmed) {
  Press(VK_TAB);
  Press(VK_RETURN);
  const HWND question = Question();
  Press(VK_TAB);
  Press(VK_RETURN);
  till.Gone(question);
  EXPECT_EQ(till.Form(window_class::kOrvUti), form);
  EXPECT_EQ(FocusedId(form), kCommand + 2);
}

TEST_F(UtilitiesTest, AsksTwiceWhileTicketsWaitAndTakesNone) {
  int archived = 0;
  for (const auto& [letter, record] : {std::pair<WORD, std::string>('C', "21"), {'F', "22"}}) {
    shop.Drop("0001.txt", kTicket);
    PressWithAlt(letter);
    const HWND first = Question();
    Press(VK_RETURN);
    till.Gone(first);
    EXPECT_EQ(TextOf(Question(), kText1),
              LoadMessage(MessageId::kTicketsWaiting) + "\r\n" + LoadMessage(MessageId::kConfirmClosure));
    Press(VK_RETURN);
    till.Gone(form);
    const auto archive = [&] { return "storico\\" + std::to_string(++archived) + ".txt"; };
    EXPECT_EQ(AwaitFile(archive()), kTicket);
    EXPECT_EQ(AwaitFile(archive()), record + ";;;;;;;;;\r\n");
    till.Menu(kUtilities);
    form = till.Form(window_class::kOrvUti);
  }
}

TEST_F(UtilitiesTest, WritesNothingWhenTheSecondQuestionIsNotConfirmed) {
  shop.Drop("0001.txt", kTicket);
  const std::function<void()> kWays[] = {[&] { Click(Question(), kCommand0 + 2); }, [] { Press(VK_ESCAPE); },
                                         [&] { CloseByCross(Question()); }};
  for (const auto& refuse : kWays) {
    PressWithAlt('F');
    const HWND first = Question();
    Press(VK_RETURN);
    till.Gone(first);
    const HWND second = Question();
    refuse();
    till.Gone(second);
    EXPECT_EQ(till.Form(window_class::kOrvUti), form);
  }
  EXPECT_FALSE(shop.folder.Has("data\\zzzzzzzzzzzzzzzz.txt"));
}

}  // namespace
}  // namespace orvenza::test
