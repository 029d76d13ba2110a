#include <gtest/gtest.h>

#include <stdexcept>

#include "support/shop.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;
using Lines = Shop::Lines;

TEST(Menu, ExitConfirmedEndsTheProgram) {
  Shop shop;
  shop.Answer("Sì");
  shop.After(5s, [&] { shop.UseMenu(MenuItem::kExit); });
  shop.RunToItsEnd();
  const ShownDialog& question = shop.person.Shown().at(0);
  EXPECT_EQ(question.caption, "Orvenza - Richiesta di Fine Collegamento");
  EXPECT_EQ(question.text,
            "Chiudendo l'applicazione non sara' più possibile stampare gli scontrini\r\nSei sicuro ?");
  EXPECT_EQ(question.icon, MessageIcon::kExclamation);
  EXPECT_EQ(question.buttons, (Lines{"Sì", "No"}));
  EXPECT_EQ(shop.Log().back(), "End");
  EXPECT_EQ(shop.Log().at(2), "Applicazione terminata dall'Operatore");
  EXPECT_EQ(shop.icon.Tip(), std::nullopt);
}

class ExitDeclined : public testing::TestWithParam<const char*> {};

TEST_P(ExitDeclined, LeavesTheProgramRunningAndLogsNothing) {
  Shop shop;
  shop.Answer(GetParam());
  shop.After(2s, [&] { shop.UseMenu(MenuItem::kExit); });
  shop.Drop("later.txt", {"40;1;"});
  shop.Run(10s);
  EXPECT_EQ(shop.Log(), (Lines{"Start Rel. 1.0.0", "Dati Cash : 00ORVSIM  01  01.00.00", "Start Scontrino",
                               "End Scontrino", "Quit Command !", "End"}));
}
INSTANTIATE_TEST_SUITE_P(Menu, ExitDeclined, testing::Values("No", "close"));

TEST(Menu, InfoDoesNothing) {
  Shop shop;
  shop.After(2s, [&] { shop.UseMenu(MenuItem::kInfo); });
  shop.Run(5s);
  EXPECT_TRUE(shop.person.Shown().empty());
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST(Menu, NoTicketIsTakenWhileTheUtilitiesAreOpen) {
  Shop shop;
  shop.person.Answer("Esci", 5s);
  std::size_t sentMeanwhile = 0;
  shop.After(2s, [&] {
    shop.Drop("a.txt", {"40;1;"});
    shop.UseMenu(MenuItem::kUtilities);
  });
  shop.After(6s, [&] { sentMeanwhile = shop.link.SentCount(); });
  shop.Run(10s);
  EXPECT_EQ(sentMeanwhile, 2U);  // the start's status and identity queries
  EXPECT_EQ(shop.SentAt("104901"), std::vector<std::int64_t>{7500}) << "polling begins anew after the dialog";
}

TEST(Menu, NoTicketIsTakenWhileThePortDialogIsOpen) {
  Shop shop;
  shop.person.Answer("&Ok", 5s);
  std::size_t sentMeanwhile = 0;
  shop.After(2s, [&] {
    shop.Drop("a.txt", {"40;1;"});
    shop.UseMenu(MenuItem::kConfigure);
  });
  shop.After(6s, [&] { sentMeanwhile = shop.link.SentCount(); });
  shop.Run(10s);
  EXPECT_EQ(sentMeanwhile, 2U);
  EXPECT_EQ(shop.SentAt("104901"), std::vector<std::int64_t>{7500}) << "polling begins anew after the dialog";
}

TEST(Menu, ConfiguredPortTakesEffectAtOnce) {
  Shop shop;
  shop.Answer("COM4 38400 Even 8 2");
  shop.After(2s, [&] { shop.UseMenu(MenuItem::kConfigure); });
  std::optional<int> port;
  shop.After(3s, [&] { port = shop.link.Property(LinkProperty::kPortNumber); });
  shop.Run(5s);
  EXPECT_EQ(port, 4);
  EXPECT_EQ(shop.link.Property(LinkProperty::kParity), 2);
}

TEST(Menu, ConfiguringDuringAnExchangeLeavesItsPortOpen) {
  Shop shop("on 1049 late 3000\n");
  shop.Drop("a.txt", {"40;1;"});
  shop.Answer("COM4 38400 Even 8 2");
  shop.After(1s, [&] { shop.UseMenu(MenuItem::kConfigure); });
  shop.Run(10s);
  EXPECT_EQ(shop.Err(), Lines{});
  EXPECT_EQ(shop.SentForTickets(), Lines{"104901"});
  EXPECT_EQ(shop.link.Property(LinkProperty::kPortNumber), 4);
}

struct MenuUse {
  const char* item;    ///< The operator's answer that chooses it.
  const char* answer;  ///< The answer to the dialog that opens.
  DialogKind opened;
};

class MenuAction : public testing::TestWithParam<MenuUse> {};

TEST_P(MenuAction, ClosesAPendingMessageFirst) {
  Shop shop("absent 2\n");
  shop.Answer(GetParam().item);
  shop.Answer(GetParam().answer);
  shop.Answer("Ok");  // to the second alarm
  shop.Run(5s);
  ASSERT_EQ(shop.person.Shown().size(), 3U);
  EXPECT_EQ(shop.DialogTexts()[0], "Dispositivo Spento o Non Collegato !");
  EXPECT_EQ(shop.person.Shown()[0].answer, GetParam().item) << "no button of it was pressed";
  EXPECT_EQ(shop.person.Shown()[1].kind, GetParam().opened);
  EXPECT_EQ(shop.person.Shown()[1].answer, GetParam().answer);
  EXPECT_EQ(shop.Log().back(), "End");
}
INSTANTIATE_TEST_SUITE_P(Menu, MenuAction,
                         testing::Values(MenuUse{"menu Esci", "No", DialogKind::kMessage},
                                         MenuUse{"menu Utilita'", "Esci", DialogKind::kUtilities},
                                         MenuUse{"menu Configura", "&Ok", DialogKind::kPortSettings}),
                         [](const auto& test) { return "Item" + std::to_string(test.index); });

TEST(Menu, ExitIsAskedAboutAgainWhereAnotherItemHasClosedItsQuestion) {
  Shop shop;
  for (const char* answer : {"menu Utilita'", "menu Esci", "Sì"}) shop.Answer(answer);
  shop.After(2s, [&] { shop.UseMenu(MenuItem::kExit); });
  shop.Run(60s);
  ASSERT_EQ(shop.person.Shown().size(), 3U);
  EXPECT_EQ(shop.person.Shown()[2].text, shop.person.Shown()[0].text);
  EXPECT_EQ(shop.Log().at(2), "Applicazione terminata dall'Operatore");
}

TEST(Menu, LinkThatCannotBeReopenedIsLoggedEvenIfNoMessageCanBeShown) {
  Shop shop("after 1000 port-fails 1000\n");
  shop.Answer("COM4");
  shop.person.SetObserver([](const ShownDialog& dialog, std::string_view) {
    if (dialog.kind == DialogKind::kMessage) throw std::runtime_error("no screen");
  });
  shop.After(2s, [&] { shop.UseMenu(MenuItem::kConfigure); });
  shop.Run(10s);
  EXPECT_EQ(shop.Err(), (Lines{"Apertura Porta non Riuscita ! ( COM4 )", "Main - 51 - no screen"}));
  EXPECT_EQ(shop.Log().back(), "End");
}

TEST(Menu, DialogInTheMiddleOfATickDoesNotStartASecondTick) {
  Shop shop("on 1003 reply ERR08\n");
  shop.Drop("a.txt", {"1;PANE;1,000;150;1;;;1;;", "2;1;150;;;"});
  shop.Drop("b.txt", {"40;1;"});
  shop.Answer("menu Utilita'");
  shop.Answer("Esci");
  shop.person.Answer("Abortire la stampa dello scontrino", 5s);
  shop.Run(20s);
  // The open receipt of the ticket given up is voided before the next ticket, which waited for the operator.
  EXPECT_EQ(shop.Names("data\\abort"), Lines{"a.txt.abort.txt"});
  EXPECT_EQ(shop.SentForTickets().back(), "104901");
}

TEST(Menu, ExitWhileAChoiceWaitsKeepsTheTicketForTheNextStart) {
  Shop shop("on 1003 reply ERR08\n");
  shop.Drop("a.txt", {"1;PANE;1,000;150;1;;;1;;", "2;1;150;;;"});
  shop.Answer("menu Esci");
  shop.Answer("Sì");
  shop.RunToItsEnd();
  EXPECT_EQ(shop.Names("data\\inproces"), Lines{"a.txt"});
  EXPECT_EQ(shop.Log().back(), "End");
}

TEST(Menu, ExitWhileAReceiptPrintsCompletesIt) {
  Shop shop("on 1003 late 2000\n");
  shop.Drop("a.txt", {"1;PANE;1,000;150;1;;;1;;", "2;1;150;;;"});
  shop.Answer("Sì");
  shop.After(1s, [&] { shop.UseMenu(MenuItem::kExit); });
  shop.RunToItsEnd();
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
  ASSERT_EQ(shop.device.Receipts().size(), 1U);
  EXPECT_EQ(shop.device.Receipts()[0].total, 150);
  EXPECT_EQ(shop.Log().back(), "End");
}

TEST(Menu, ExitEndsTheAlarmsOfAnAbsentRegister) {
  Shop shop("absent 1000\n");
  shop.Answer("Ok");
  shop.Answer("menu Esci");
  shop.Answer("Sì");
  shop.RunToItsEnd();
  EXPECT_EQ(shop.Log(), (Lines{"Start Rel. 1.0.0", "Applicazione terminata dall'Operatore", "End"}));
}

TEST(Menu, ADialogThatFailsIsLoggedAndDisturbsNoReceipt) {
  for (const MenuItem item : {MenuItem::kExit, MenuItem::kUtilities, MenuItem::kConfigure}) {
    Shop shop("on 1003 late 2000\n");
    shop.Drop("a.txt", {"1;PANE;1,000;150;1;;;1;;", "2;1;150;;;"});
    shop.person.SetObserver(
        [](const ShownDialog&, std::string_view) { throw SystemError(error_number::kOutOfMemory, "Orv"); });
    shop.After(1s, [&] { shop.UseMenu(item); });
    shop.Run(10s);
    EXPECT_EQ(shop.Err(), Lines{"Main - 7 - Out of memory ( Orv )"});
    EXPECT_EQ(shop.LogForTickets(), (Lines{"Start Scontrino", "End Scontrino"}));
    EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
  }
}

TEST(Menu, FiscalClosureIsPrintedAfterEveryWaitingTicket) {
  Shop shop;
  shop.Answer("Chiusura Fiscale");
  shop.Answer("Sì");
  shop.Answer("Sì");
  shop.After(500ms, [&] {
    shop.Drop("a.txt", {"40;1;"});
    shop.Drop("b.txt", {"40;2;"});
    shop.UseMenu(MenuItem::kUtilities);
  });
  shop.Run(20s);
  EXPECT_EQ(shop.SentForTickets(), (Lines{"104901", "104902", "300101"}));
  EXPECT_EQ(shop.device.FiscalClosures(), 1);
  EXPECT_EQ(
      shop.DialogTexts().at(2),
      "Attenzione, ci sono ancora scontrini da stampare !\r\nConfermi la Richiesta di Chiusura Fiscale ?");
}

TEST(Menu, FiscalClosureWithoutWaitingTicketsIsAskedOnce) {
  Shop shop;
  shop.Answer("Chiusura Fiscale con Finanziario");
  shop.Answer("Sì");
  shop.After(2s, [&] { shop.UseMenu(MenuItem::kUtilities); });
  shop.Run(20s);
  EXPECT_EQ(shop.SentForTickets(), Lines{"300201"});
  EXPECT_EQ(shop.person.Shown().size(), 2U);
}

}  // namespace
}  // namespace orvenza::test
