// Mistakes of hosts, disks and people: the program keeps running, no ticket is lost and none is printed
// twice.

#include <gtest/gtest.h>

#include "device/logo_files.h"
#include "platform/utf16.h"
#include "support/shop.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;
using Lines = Shop::Lines;

constexpr const char* kItem = "1;PANE;1,000;150;1;;;1;;";
constexpr const char* kPayment = "2;1;150;;;";
constexpr const char* kAbort = "Abortire la stampa dello scontrino";

struct HarmlessFile {
  const char* what;
  std::string content;
};

class FileWithoutRecords : public testing::TestWithParam<HarmlessFile> {};

TEST_P(FileWithoutRecords, SendsNothingAndIsArchived) {
  Shop shop;
  shop.DropBytes("a.txt", GetParam().content);
  shop.Run(5s);
  EXPECT_EQ(shop.SentForTickets(), Lines{});
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
  EXPECT_EQ(shop.Err(), Lines{});
  EXPECT_EQ(shop.Log()[2], "Start Scontrino");
  EXPECT_EQ(shop.Log()[3], "End Scontrino");
}
INSTANTIATE_TEST_SUITE_P(BadInput, FileWithoutRecords,
                         testing::Values(HarmlessFile{"empty", ""}, HarmlessFile{"line ends", "\r\n\r\n\n\r"},
                                         HarmlessFile{"blanks", "   \r\n \t \r\n"},
                                         HarmlessFile{"old end of file mark", "\x1a"},
                                         HarmlessFile{"NULs", std::string(5000, '\0')}),
                         [](const auto& test) { return "Case" + std::to_string(test.index); });

TEST(BadTicket, BinaryFileIsRefusedLineByLineUntilTheOperatorAborts) {
  Shop shop;
  std::string noise;
  for (int i = 0; i < 100000; ++i) noise += static_cast<char>((i * 7919 + 13) >> 3);
  shop.DropBytes("a.txt", noise);
  shop.Answer(kAbort);
  shop.Run(5s);
  EXPECT_EQ(shop.SentForTickets(), Lines{});
  EXPECT_EQ(shop.folder.Read("data\\abort\\a.txt.abort.txt"), noise);
  EXPECT_EQ(shop.Err().back(), "Risposta Operatore : Abortire la stampa dello scontrino");
}

TEST(BadTicket, LineOf10MegabytesIsRefusedAndItsFileKept) {
  Shop shop;
  shop.DropBytes("a.txt", std::string(10'000'000, 'x'));
  shop.Answer(kAbort);
  shop.Run(5s);
  EXPECT_EQ(shop.folder.Read("data\\abort\\a.txt.abort.txt").size(), 10'000'000U);
  EXPECT_EQ(shop.Err()[0], "Riga non valida : " + std::string(500, 'x') + "...");
}

TEST(BadTicket, LongFieldAmongGoodOnesIsCutToItsWidth) {
  Shop shop;
  shop.Drop("a.txt", {"1;" + std::string(1'000'000, 'A') + ";1,000;150;1;;;1;;", kPayment});
  shop.Run(5s);
  EXPECT_EQ(shop.SentForTickets()[0], "100301" + std::string(40, ' ') + std::string(16, 'A') + "0001000" +
                                          "1" + "000000150" + "01" + "AAAA");
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
}

TEST(BadTicket, LineWithoutTrailingSeparatorLosesItsLastFieldAndIsRejected) {
  Shop shop;
  shop.Drop("a.txt", {"4;5"});
  shop.Answer(kAbort);
  shop.Run(5s);
  EXPECT_EQ(shop.SentForTickets(), Lines{});
  EXPECT_EQ(shop.Err()[0], "Riga non valida : 4;5");
}

TEST(BadTicket, NulsInsideALineReachTheRegisterAsBlanks) {
  Shop shop;
  shop.DropBytes("a.txt", std::string("1;PA\0NE;1,000;150;1;;;1;;\r\n2;1;150;;;\r\n", 40));
  shop.Run(5s);
  EXPECT_EQ(shop.SentForTickets()[0].substr(46, 16), "PA NE           ");
}

TEST(BadTicket, TenThousandLinesAreAllSent) {
  Shop shop("capacity 20000\n");
  Lines lines(9999, kItem);
  lines.push_back("2;1;0;;;");
  shop.Drop("a.txt", lines);
  shop.Run(60s);
  EXPECT_EQ(shop.link.SentCount(), 2U + 1U + 10000U);
  ASSERT_EQ(shop.device.Receipts().size(), 1U);
  EXPECT_EQ(shop.device.Receipts()[0].total, 9999 * 150);
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
}

TEST(BadTicket, AccentsOfAnyEncodingReachTheRegisterAsBlanks) {
  Shop shop;
  shop.DropBytes("a.txt", "1;CAFF\xC8;1,000;150;1;;;1;;\r\n2;1;150;;;\r\n");  // Windows-1252
  shop.DropBytes("b.txt",
                 "1;CAFF\xC3\x88;1,000;150;1;;;1;;\r\n2;1;150;;;\r\n");  // UTF-8: two bytes, two blanks
  shop.Run(10s);
  EXPECT_EQ(shop.SentForTickets()[0].substr(46, 16), "CAFF            ");
  EXPECT_EQ(shop.SentForTickets()[2].substr(46, 16), "CAFF            ");
  EXPECT_EQ(shop.device.Receipts().size(), 2U);
}

TEST(BadTicket, AccentsOfAnInvalidLineArriveWholeInLogAndDialog) {
  Shop shop;
  shop.DropBytes("a.txt", "99;CAFF\xC8;\r\n");
  shop.Answer(kAbort);
  shop.Run(5s);
  EXPECT_EQ(shop.Err()[0], "Riga non valida : 99;CAFFÈ;");
  EXPECT_EQ(shop.person.Shown()[0].heading, "Riga non valida : 99;CAFFÈ;");
}

TEST(BadTicket, StarsAtTheEndOfATextAreText) {
  Shop shop;
  shop.Drop("a.txt",
            {"1;TORTA DELLA NONNA **;1,000;150;1;;;1;;", "28;1;***************************;", kPayment});
  shop.Run(5s);
  EXPECT_EQ(shop.SentForTickets()[0].substr(81), "A **");
  EXPECT_EQ(shop.SentForTickets()[1], "105801" + std::string(27, '*'));
  ASSERT_EQ(shop.device.Receipts().size(), 1U);
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST(BadTicket, ThatStaysUnreadableDoesNotHoldUpTheOthers) {
  Shop shop;
  shop.Drop("inproces\\stuck.txt", {kItem, kPayment});
  shop.Drop("a.txt", {kItem, kPayment});
  shop.files.FailAlways("OpenForReading", "stuck.txt", 70);
  shop.After(100s, [&] { shop.files.Heal(); });
  shop.Run(200s);
  EXPECT_EQ(shop.device.Receipts().size(), 2U);
  EXPECT_EQ(shop.Names("storico"), (Lines{"1.txt", "2.txt"}));
  EXPECT_LT(shop.Err().size(), 15U);
}

TEST(BadRegister, ThatTakesEveryVoidInVainIsLeftToTheOperator) {
  Shop shop("on 3217 #2 x11 reply ERR17\non 1028 x20 reply 1028\n");
  shop.Drop("a.txt", {kItem, kPayment});
  shop.Answer("No");
  shop.Run(60s);
  EXPECT_EQ(shop.DialogTexts(), Lines{"Impossibile annullare lo scontrino in corso !\r\nSi desidera chiudere "
                                      "automaticamente lo scontrino ?"});
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
}

TEST(BadRegister, WhoseQueryIsAnsweredTooLateDoesNotPassForThePaymentsReply) {
  Shop shop("on 3217 #2 late 16000\non 1036 silence\n");
  shop.Drop("a.txt", {kItem, kPayment});
  shop.Answer(kAbort);
  shop.Run(90s);
  EXPECT_EQ(shop.Names("data\\abort"), Lines{"a.txt.abort.txt"});
}

TEST(BadTicket, VanishedBeforeItsLinesAreReadEndsSilently) {
  Shop shop;
  shop.Drop("a.txt", {kItem, kPayment});
  shop.link.SetObserver([&](LineEvent, const std::string&) { shop.folder.Remove("data\\inproces\\a.txt"); });
  shop.Run(5s);
  EXPECT_EQ(shop.SentForTickets(), Lines{});
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST(BadTicket, VanishedWhileItIsPrintedIsPrintedOnceAndNamedInTheErrorLog) {
  Shop shop;
  shop.Drop("a.txt", {kItem, kPayment});
  shop.link.SetObserver([&](LineEvent, const std::string& text) {
    if (text.starts_with("1036")) shop.folder.Remove("data\\inproces\\a.txt");
  });
  shop.Run(5s);
  EXPECT_EQ(shop.device.Receipts().size(), 1U);
  EXPECT_EQ(shop.LogForTickets(), (Lines{"Start Scontrino", "End Scontrino"}));
  EXPECT_EQ(shop.Err(), Lines{"Scontrino stampato ma non archiviato : a.txt"});
}

TEST(BadTicket, LockedByAnotherProgramIsPrintedOnceItIsReleased) {
  Shop shop;
  shop.Drop("a.txt", {kItem, kPayment});
  shop.files.FailAlways("OpenForReading", "inproces", 70);
  shop.After(3s, [&] { shop.files.Heal(); });
  shop.Run(10s);
  EXPECT_EQ(shop.device.Receipts().size(), 1U);
  EXPECT_EQ(shop.Err()[0], "Trasmissione 70 - Permission denied ( " + SettingsPath(shop.folder.Path()) +
                               "\\data\\inproces\\a.txt )");
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
}

TEST(BadTicket, LostInTheMiddleOfReadingIsPrintedOnceFromItsStart) {
  Shop shop;
  std::string ticket = std::string(kItem) + "\r\n";
  while (ticket.size() < 70000) ticket += "\r\n";
  ticket += std::string(kItem) + "\r\n2;1;300;;;\r\n";
  shop.DropBytes("a.txt", ticket);
  shop.files.FailReadAfter(65536, 57);
  shop.After(1s, [&] { shop.files.Heal(); });
  shop.Run(20s);
  std::vector<std::int64_t> totals;
  for (const PrintedReceipt& receipt : shop.device.Receipts()) {
    if (!receipt.voided) totals.push_back(receipt.total);
  }
  EXPECT_EQ(totals, std::vector<std::int64_t>{300});
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
}

TEST(BadSettings, GarbageCountsAsAnUnknownVersion) {
  Shop shop;
  shop.folder.Write("Orvenza.ini", std::string("\0\xff[[[==\r\n]]\n;\n=\n", 17) + std::string(2000, '='));
  shop.Answer("Ok");
  shop.RunToItsEnd();
  EXPECT_EQ(shop.DialogTexts(), Lines{"Versione File INI Errata !\r\nApplicazione Terminata."});
}

TEST(BadSettings, InUtf16AreReadAndStayInIt) {
  Shop shop;
  shop.Configure("Com Settings", "ComPort", "17");
  const std::string text = shop.folder.Read("Orvenza.ini");
  shop.folder.Write("Orvenza.ini", "\xFF\xFE" + Utf16FromUtf8(text, false));
  shop.Drop("a.txt", {kItem, kPayment});
  shop.Run(5s);
  EXPECT_EQ(shop.device.Receipts().size(), 1U) << "with the separator of the file";
  const std::string after = shop.folder.Read("Orvenza.ini");
  ASSERT_TRUE(after.starts_with("\xFF\xFE"));
  EXPECT_NE(Utf8FromUtf16(after.substr(2), false).find("ComPort=1\r\n"), std::string::npos);
}

TEST(BadSettings, LockedByAnotherProgramEndTheStartAndStayUnchanged) {
  Shop shop;
  const std::string before = shop.folder.Read("Orvenza.ini");
  shop.files.FailAlways("OpenForReading", "Orvenza.ini", 70);
  shop.Answer("Ok");
  shop.RunToItsEnd();
  ASSERT_EQ(shop.DialogTexts().size(), 1U);
  EXPECT_TRUE(shop.DialogTexts()[0].starts_with("Impossibile leggere il file INI :\r\n"));
  EXPECT_EQ(shop.folder.Read("Orvenza.ini"), before);
  EXPECT_EQ(shop.Sent(), Lines{});
}

TEST(BadSettings, MissingSectionsTakeTheirDefaults) {
  Shop shop;
  shop.folder.Write("Orvenza.ini", "[Version]\r\nVersion=1.06\r\n[Com Settings]\r\nSettings=19200,O,7,1\r\n");
  shop.folder.Write("data\\a.txt",
                    "40\x7f"
                    "1\x7f\r\n");
  shop.Run(5s);
  EXPECT_EQ(shop.SentForTickets(), Lines{"104901"});
  EXPECT_EQ(shop.Err()[0], "Numero Porta Errato ! Default 1 !");
}

TEST(BadSettings, HistoricFolderThatIsPolledArchivesNothingAndPrintsEachTicketOnce) {
  for (const char* name : {"data\\inproces\\", "data\\", "DATA\\INPROCES", "\\data\\inproces\\",
                           "data\\..\\data\\", ".\\data\\x\\..\\inproces"}) {
    Shop shop;
    shop.Configure("Database", "HistoricTickets", shop.folder.Path() + "\\" + name);
    shop.Drop("inproces\\leftover.txt", {kItem, kPayment});
    shop.Drop("a.txt", {kItem, kPayment});
    shop.Run(20s);
    EXPECT_EQ(shop.device.Receipts().size(), 2U) << name;
    EXPECT_EQ(shop.Names("data\\inproces"), Lines{}) << name;
    EXPECT_EQ(shop.Err().size(), 1U) << name;
  }
}

TEST(BadSettings, OverlongValueIsCutAt99Characters) {
  Shop shop;
  const std::string folder =
      shop.folder.Path() + "\\" + std::string(120 - shop.folder.Path().size(), 'd') + "\\";
  shop.Configure("Database", "HistoricTickets", folder);
  shop.Drop("a.txt", {"40;1;"});
  shop.Run(5s);
  EXPECT_TRUE(shop.folder.Has(std::string(98 - shop.folder.Path().size(), 'd') + "\\1.txt"));
}

TEST(BadSettings, OverlongTicketFilesAreCutAt99Characters) {
  Shop shop;
  const std::string room(97 - shop.folder.Path().size(), 'd');
  shop.Configure("Database", "TicketFiles", shop.folder.Path(room + "\\*.txt"));
  shop.folder.Write(room + "\\a.txt", "40;1;\r\n");
  shop.Run(5s);
  EXPECT_TRUE(shop.folder.Has(room + "\\inproces"));
  EXPECT_EQ(shop.SentForTickets(), Lines{}) << "nothing is left of the mask";
}

TEST(BadSettings, SerialTextWithoutCommasIsAlarmedUntilItIsConfigured) {
  Shop shop;
  shop.Configure("Com Settings", "Settings", "19200");
  shop.Answer("Configura");
  shop.Answer("COM2 9600 Odd 7 1");
  shop.Run(5s);
  EXPECT_EQ(shop.Err(), (Lines{"EcrLinkX1 - 5 - Invalid procedure call or argument ( Settings=19200 )",
                               "Apertura Porta non Riuscita ! ( COM1 )"}));
  EXPECT_EQ(shop.link.Property(LinkProperty::kBaudRate), 9600);
}

TEST(BadFolder, TicketFolderThatGoesAndComesBackLosesNothing) {
  Shop shop;
  shop.After(2s, [&] { shop.folder.RenameFolder("data", "elsewhere"); });
  shop.After(4s, [&] {
    shop.folder.RenameFolder("elsewhere", "data");
    shop.Drop("a.txt", {kItem, kPayment});
  });
  shop.Run(10s);
  EXPECT_EQ(shop.Err()[0],
            "Timer1 - 76 - Path not found ( " + SettingsPath(shop.folder.Path()) + "\\data\\ )");
  EXPECT_EQ(shop.device.Receipts().size(), 1U);
}

TEST(BadFolder, HistoricDriveThatGoesAndComesBackIsUsedAgain) {
  Shop shop;
  shop.After(2s, [&] { shop.folders.TakeDriveAway("storico"); });
  shop.After(3s, [&] { shop.Drop("a.txt", {kItem, kPayment}); });
  shop.After(10s, [&] {
    shop.folders.Heal();
    shop.Drop("b.txt", {kItem, kPayment});
  });
  shop.Answer("Ok");
  shop.Run(20s);
  EXPECT_EQ(shop.DialogTexts(), Lines{"Drive non disponibile : Z:"});
  EXPECT_EQ(shop.Err(),
            (Lines{"Scontrino stampato ma non archiviato : a.txt", "Drive non disponibile : Z:"}));
  EXPECT_EQ(shop.Names("data\\abort"), Lines{"a.txt.abort.txt"});
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
  EXPECT_EQ(shop.device.Receipts().size(), 2U);
}

TEST(BadFolder, ReadOnlyTicketFolderPrintsEachTicketOnce) {
  Shop shop;
  shop.Drop("a.txt", {kItem, kPayment});
  shop.Drop("b.txt", {kItem, kPayment});
  for (const char* operation : {"Move", "Remove"}) {
    shop.files.FailAlways(operation, "data\\a.txt", 75);
    shop.files.FailAlways(operation, "data\\b.txt", 75);
  }
  shop.Run(30s);
  EXPECT_EQ(shop.device.Receipts().size(), 2U);
  EXPECT_EQ(shop.Names("data"), (Lines{"a.txt", "b.txt"}));
  EXPECT_EQ(shop.Err().size(), 2U);
}

TEST(BadFolder, TicketChangedByTheHostWhileItCouldNotBeRemovedIsATicketOfItsOwn) {
  Shop shop;
  shop.Drop("a.txt", {kItem, kPayment});
  shop.files.FailAlways("Move", "data\\a.txt", 75);
  shop.files.FailAlways("Remove", "data\\a.txt", 75);
  shop.After(3s, [&] {
    shop.files.Heal();
    shop.Drop("a.txt", {kItem, kItem, "2;1;300;;;"});
  });
  shop.Run(10s);
  ASSERT_EQ(shop.device.Receipts().size(), 2U);
  EXPECT_EQ(shop.device.Receipts()[1].total, 300);
}

/// A full disk for one kind of write, during the first five seconds of a run with one ticket.
struct FullDisk {
  const char* operation;
  std::vector<const char*> paths;
  const char* archivedIn;  ///< The folder where the ticket ends up.
};

class FullDiskAt : public testing::TestWithParam<FullDisk> {};

TEST_P(FullDiskAt, PrintsTheTicketOnceAndKeepsIt) {
  Shop shop;
  shop.files.FailAlways("Move", "", 75);  // folders on different volumes
  for (const char* path : GetParam().paths) shop.files.FailAlways(GetParam().operation, path, 61);
  shop.After(5s, [&] { shop.files.Heal(); });
  shop.Drop("a.txt", {kItem, kPayment});
  shop.Run(20s);
  EXPECT_EQ(shop.device.Receipts().size(), 1U);
  EXPECT_EQ(shop.Names(GetParam().archivedIn).size(), 1U);
  EXPECT_EQ(shop.Names("data"), Lines{});
  EXPECT_EQ(shop.Names("data\\inproces"), Lines{});
}
INSTANTIATE_TEST_SUITE_P(BadInput, FullDiskAt,
                         testing::Values(FullDisk{"Append", {"Log.txt"}, "storico"},
                                         FullDisk{"Append", {"Err.txt"}, "storico"},
                                         FullDisk{"Append", {""}, "storico"},           // every log
                                         FullDisk{"Copy", {"inproces"}, "storico"},     // taking it in
                                         FullDisk{"Copy", {"storico"}, "data\\abort"},  // archiving it
                                         FullDisk{"Copy", {"storico", "abort"}, "data\\abort"},
                                         FullDisk{"Write", {"ErrDesc"}, "storico"}),  // error texts
                         [](const auto& test) { return "Case" + std::to_string(test.index); });

TEST(FullDiskAtTheAbortCopy, AsksTheOperatorOnceAndKeepsTheTicket) {
  Shop shop;
  shop.files.FailAlways("Move", "", 75);
  shop.files.FailAlways("Copy", "abort", 61);
  shop.After(5s, [&] {
    EXPECT_EQ(shop.Names("data\\inproces"), Lines{"a.txt"});
    shop.files.Heal();
  });
  shop.Drop("a.txt", {"99;x;"});
  shop.Answer(kAbort);
  shop.Run(20s);
  EXPECT_EQ(shop.Err().back(), "Trasmissione 61 - Disk full ( " + shop.Spelled("data\\inproces\\a.txt )"));
  EXPECT_EQ(shop.folder.Read("data\\abort\\a.txt.abort.txt"), "99;x;\r\n");
  EXPECT_EQ(shop.Names("data\\inproces"), Lines{});
}

TEST(FullDiskAtThePortDialog, TheChoiceHoldsForThisRun) {
  Shop shop;
  const std::string before = shop.folder.Read("Orvenza.ini");
  shop.files.FailAlways("Write", "Orvenza.ini", 61);
  shop.Answer("COM4 38400 Even 8 2");
  shop.After(2s, [&] { shop.UseMenu(MenuItem::kConfigure); });
  shop.After(3s, [&] { shop.Drop("a.txt", {kItem, kPayment}); });
  shop.Run(20s);
  EXPECT_EQ(shop.link.Property(LinkProperty::kPortNumber), 4);
  EXPECT_EQ(shop.link.Property(LinkProperty::kBaudRate), 38400);
  EXPECT_EQ(shop.folder.Read("Orvenza.ini"), before);
  EXPECT_EQ(shop.device.Receipts().size(), 1U);
}

TEST(FullDiskEverywhere, AfterPrintingKeepsTheTicketInPlaceAndPrintsItNoMore) {
  Shop shop;
  shop.Drop("inproces\\a.txt", {kItem, kPayment});
  shop.files.FailAlways("Move", "inproces", 75);
  shop.files.FailAlways("Copy", "inproces\\a.txt", 61);
  shop.Run(60s);
  EXPECT_EQ(shop.device.Receipts().size(), 1U);
  EXPECT_EQ(shop.Names("data\\inproces"), Lines{"a.txt"});
  EXPECT_EQ(shop.Err().back(), "Scontrino stampato ma non archiviato : a.txt");
}

TEST(FullDiskEverywhere, ClosureRequestThatCannotBeWrittenIsLogged) {
  Shop shop;
  shop.files.FailAlways("Write", "zzzz", 61);
  for (const char* answer : {"Chiusura Fiscale", "Sì", "Esci"}) shop.Answer(answer);
  shop.After(2s, [&] { shop.UseMenu(MenuItem::kUtilities); });
  shop.Run(10s);
  EXPECT_EQ(shop.Err(), Lines{"Orv_Uti - 61 - Disk full ( " + SettingsPath(shop.folder.Path()) +
                              "\\data\\zzzzzzzzzzzzzzzz.txt )"});
}

/// A file that is not a logo for the register.
struct RefusedBitmap {
  const char* what;
  std::string content;
};

class BadBitmap : public testing::TestWithParam<RefusedBitmap> {};

TEST_P(BadBitmap, IsLoggedAndTheLineRefused) {
  Shop shop;
  shop.folder.Write("logo.bmp", GetParam().content);
  shop.Drop("a.txt", {"33;1;" + shop.folder.Path("logo.bmp") + ";"});
  shop.Answer(kAbort);
  shop.Run(5s);
  EXPECT_EQ(shop.Err()[0], "File BMP non valido ! ( " + shop.folder.Path("logo.bmp") + " )");
  EXPECT_EQ(shop.DialogTexts(), Lines{"Riga scontrino non valida !"});
  EXPECT_EQ(shop.SentForTickets(), Lines{});
  EXPECT_EQ(shop.Names("data\\abort"), Lines{"a.txt.abort.txt"});
}
INSTANTIATE_TEST_SUITE_P(BadInput, BadBitmap,
                         testing::Values(RefusedBitmap{"Truncated", LogoBitmap(1).substr(0, 29)},
                                         RefusedBitmap{"Huge", LogoBitmap(0x7FFFFFFF)},
                                         RefusedBitmap{"NegativeHeight", LogoBitmap(0xFFFFFFFF)},
                                         RefusedBitmap{"NotABitmap", LogoBitmap(1, 448, 62, 1, "GI")}),
                         [](const auto& test) { return std::string(test.param.what); });

TEST(BitmapWithoutAllItsRows, IsNotSentAndItsTicketAborted) {
  Shop shop;
  shop.folder.Write("logo.bmp", LogoBitmap(2) + std::string(2 * 56 - 1, '\0'));
  shop.Drop("a.txt", {"33;1;" + shop.folder.Path("logo.bmp") + ";"});
  shop.Answer("Ok");
  shop.Run(5s);
  EXPECT_EQ(shop.Err(), (Lines{"Trasmissione 57 - Device I/O error ( " + shop.Spelled("logo.bmp )"),
                               "Abort stampa scontrino. " + shop.Spelled("data\\inproces\\a.txt")}));
  EXPECT_EQ(shop.DialogTexts(), Lines{"Controllare alimentazione Cash !"});
  EXPECT_EQ(shop.SentForTickets(), Lines{});
  EXPECT_EQ(shop.Names("data\\abort"), Lines{"a.txt.abort.txt"});
}

}  // namespace
}  // namespace orvenza::test
