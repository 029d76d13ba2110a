// The questions of a shop whose settings ask the operator when a receipt is in doubt.

#include <gtest/gtest.h>

#include <memory>

#include "core/catalogue.h"
#include "core/own_texts.h"
#include "platform/windows/unique_handle.h"
#include "ui/windows/names.h"
#include "windows/person.h"
#include "windows/till.h"

namespace orvenza::test {
namespace {

using namespace control_id;

constexpr const char* kTicket = "1;Pane;1,000;150;1;;;1;;\r\n1;Vino;2,000;550;1;;;1;;\r\n2;1;2000;\r\n";
constexpr const char* kClosure = "21;;;;;;;;;\r\n";
constexpr int kPrinted = 1;
const std::string kAlarm = "Orvenza - " + LoadMessage(MessageId::kCommunicationWarning);
const std::string kAttention = "Orvenza - " + LoadMessage(MessageId::kWarning);

struct AskingShop : Shop {
  explicit AskingShop(const std::string& script) : Shop(script) {
    folder.Write("Orvenza.ini", folder.Read("Orvenza.ini") + "[Safety]\r\nAskInDoubt=1\r\n");
  }

  /// Puts a ticket of 16 November 2026, 10:32 by the PC's clock, into the ticket folder. No program runs.
  void Put(const std::string& name, const std::string& content) const {
    folder.Write("data\\" + name, content);
    const SYSTEMTIME local{2026, 11, 0, 16, 10, 32, 0, 0};
    FILETIME localTime{};
    FILETIME time{};
    SystemTimeToFileTime(&local, &localTime);
    LocalFileTimeToFileTime(&localTime, &time);
    const ObjectHandle file(CreateFileW(folder.Native("data\\" + name).c_str(), FILE_WRITE_ATTRIBUTES, 0,
                                        nullptr, OPEN_EXISTING, 0, nullptr));
    SetFileTime(file.Get(), nullptr, nullptr, &time);
  }

  /// Whether the reply to a command that may have completed something is missing.
  bool IsUnderWay() const { return folder.Read("Evidence.ini").find("State=under-way") != std::string::npos; }
};

void Choose(const Till& till, HWND form, int option) {
  Click(form, kOption1 + option);
  Click(form, kCommand + 1);
  till.Gone(form);
}

TEST(Doubt, AGarbledReplyIsAskedAboutUntilAnOptionIsChosen) {
  const AskingShop shop("on 1036 reply 9Z!\n");
  shop.Put("0042.txt", kTicket);
  const Till till(shop);
  HWND form = till.Form(window_class::kOrvInfo);
  EXPECT_EQ(TextOf(form, kLabel1), "Attenzione ! Errore ECR :");
  EXPECT_EQ(TextOf(form, kLabel2), "Nessuna riposta dal Dispositivo !");
  CloseByCross(form);
  till.Gone(form);
  form = till.Form(window_class::kOrvInfo);
  Choose(till, form, kPrinted);
  till.AwaitArchived("1.txt", kTicket);
}

TEST(Doubt, AStatusThatCannotBeReadIsAskedAbout) {
  const AskingShop shop("pace 10\non 321701 x10 reply ERR08\n");
  shop.Put("0042.txt", kTicket);
  const Till till(shop);
  const HWND form = till.Form(window_class::kOrvMsg, kAlarm);
  EXPECT_EQ(TextOf(form, kText1), "\r\nImpossibile leggere stato Cash !");
  EXPECT_EQ(TextOf(form, kCommand0 + 1), "Riprova");
  EXPECT_EQ(TextOf(form, kCommand0 + 2), "Annulla");
  EXPECT_EQ(TextOf(form, kCommand0 + 3), "Configura");
  Press(VK_RETURN);
  till.AwaitArchived("1.txt", kTicket);
}

TEST(Doubt, AStatusThatCannotBeReadForLackOfPaperIsAskedAboutAsThat) {
  const AskingShop shop("pace 10\non 321701 paper-out receipt\n");
  shop.Put("0042.txt", kTicket);
  const Till till(shop);
  const HWND form = till.Form(window_class::kOrvMsg, kAlarm);
  EXPECT_EQ(TextOf(form, kText1),
            "Attenzione ! Carta Scontrino Esaurita ! Ripristinare la carta e confermare");
  Press(VK_RETURN);
  till.AwaitArchived("1.txt", kTicket);
}

TEST(Doubt, APaymentAtWhichThePaperRanOutIsAskedAboutOnceThereIsPaper) {
  const AskingShop shop("on 1036 paper-out receipt\n");
  shop.Put("0042.txt", kTicket);
  const Till till(shop);
  const HWND paper = till.Form(window_class::kOrvInfo);
  EXPECT_EQ(TextOf(paper, kLabel1), "Attenzione ! Carta Scontrino Esaurita !");
  Press(VK_RETURN);
  till.Gone(paper);
  const HWND form = till.Form(window_class::kOrvInfo);
  EXPECT_EQ(TextOf(form, kLabel1), "Carta Esaurita !");
  EXPECT_EQ(TextOf(form, kLabel2), "Controllare la carta : è stato stampato tutto ?");
  Choose(till, form, kPrinted);
  till.AwaitArchived("1.txt", kTicket);
}

TEST(Doubt, AReceiptKeyedInAtTheRegisterIsNotVoidedUnasked) {
  const AskingShop shop("on 321701 reply ERR17\n");
  shop.Put("0042.txt", kTicket);
  const Till till(shop);
  const HWND form = till.Form(window_class::kOrvMsg, kAttention);
  EXPECT_EQ(TextOf(form, kText1),
            "Alla cassa risulta aperto un altro scontrino.\r\n"
            "È stato chiuso alla cassa ? ( No : viene annullato )");
  EXPECT_EQ(TextOf(form, kCommand0 + 1), "Sì");
  EXPECT_EQ(TextOf(form, kCommand0 + 2), "No");
  Click(form, kCommand0 + 1);
  till.AwaitArchived("1.txt", kTicket);
  EXPECT_EQ(shop.Journal("Err.txt"), Lines{own_text::kForeignReceipt});
}

/// The program is killed while the reply to a command is missing, and started again.
struct InterruptedTest : testing::Test {
  HWND AskedAbout(const AskingShop& shop) {
    {
      const Till killed(shop);
      killed.Await("the command", [&] { return shop.IsUnderWay(); });
    }
    till = std::make_unique<Till>(shop);
    return till->Form(window_class::kOrvInfo);
  }

  std::unique_ptr<Till> till;
};

TEST_F(InterruptedTest, AReceiptIsAskedAboutByItsTimeTotalAndFile) {
  const AskingShop shop("on 1036 lose-reply\n");
  shop.Put("0042.txt", kTicket);
  const HWND form = AskedAbout(shop);
  EXPECT_EQ(TextOf(form, kLabel1), "Scontrino delle 10:32, totale 12,50 : 0042.txt");
  EXPECT_EQ(TextOf(form, kLabel2),
            "La stampa è stata interrotta. Controllare la carta : è stato stampato tutto ?");
  Choose(*till, form, kPrinted);
  till->AwaitArchived("1.txt", kTicket);
}

TEST_F(InterruptedTest, AClosureIsAskedAboutAsOne) {
  const AskingShop shop("on 3001 lose-reply\n");
  shop.Put("zzzzzzzzzzzzzzzz.txt", kClosure);
  const HWND form = AskedAbout(shop);
  EXPECT_EQ(TextOf(form, kLabel1), "Chiusura o rapporto delle 10:32 : zzzzzzzzzzzzzzzz.txt");
  Choose(*till, form, kPrinted);
  till->AwaitArchived("1.txt", kClosure);
}

}  // namespace
}  // namespace orvenza::test
