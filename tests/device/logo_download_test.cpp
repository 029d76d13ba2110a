#include "device/logo_download.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "device/logo_files.h"
#include "platform/system_error.h"
#include "support/device_bench.h"

namespace orvenza::test {
namespace {

constexpr const char* kPath = "C:\\logo.bmp";
constexpr const char* kPrinted = "Scontrino stampato, continuare";
constexpr const char* kReprint = "Ristampare lo scontrino ( annullare automaticamente )";
constexpr const char* kAbort = "Abortire la stampa dello scontrino";
constexpr const char* kAlarm =
    "message \"Orvenza - Attenzione !\" \"\\r\\nControllare alimentazione Cash !\" [Ok] <- Ok";

std::string Repeated(const std::string& text, int count) {
  std::string repeated;
  for (int i = 0; i < count; ++i) repeated += text;
  return repeated;
}

/// Downloads of a bitmap whose top row consists of 01, the next of 02, and so on.
class LogoDownloadTest : public DeviceBench {
 protected:
  void Bitmap(int rows) {
    std::string file = LogoBitmap(static_cast<std::uint32_t>(rows));
    for (int row = rows; row > 0; --row) file += std::string(56, static_cast<char>(row));
    files.content[kPath] = file;
  }
  bool Download(const std::string& number = "05") {
    return download.Download(number, kPath, "25;5;C:\\logo.bmp", [this] { givenUpAt.push_back(Elapsed()); });
  }

  /// The command for a row, from 1, of logo 5.
  static std::string Row(int row) {
    char counter[40];
    std::snprintf(counter, sizeof counter, "405205%03d", row);
    char byte[12];
    std::snprintf(byte, sizeof byte, "%02X", row);
    return counter + Repeated(byte, 56);
  }
  static Lines RowsSent(const std::vector<int>& rows) {
    Lines sent;
    for (const int row : rows) sent.push_back(Row(row));
    return sent;
  }

  std::vector<double> givenUpAt;  ///< Milliseconds.
  LogoDownload download{link, settings, recovery, files, logs, messages};
};

TEST_F(LogoDownloadTest, AllRowsAreSentFromTheTop) {
  Bitmap(254);
  control.Always("4052", "4052");
  EXPECT_TRUE(Download());
  ASSERT_EQ(Sent().size(), 254U);
  for (int row = 1; row <= 254; ++row) EXPECT_EQ(Sent().at(static_cast<std::size_t>(row - 1)), Row(row));
  EXPECT_EQ(Sent().at(0).substr(0, 13), "4052050010101");
  EXPECT_EQ(Sent().at(253).substr(0, 13), "405205254FEFE");
  EXPECT_EQ(Shown(), Lines{});
  EXPECT_EQ(Errors(), Lines{});
  EXPECT_EQ(control.calls, Lines{});
  EXPECT_EQ(Elapsed(), 0);
}

TEST_F(LogoDownloadTest, TheLogosNumberIsSentAsItIsGiven) {
  Bitmap(1);
  control.Always("4052", "4052");
  Download("01");
  Download("123");
  EXPECT_EQ(Sent().at(0).substr(0, 9), "405201001");
  EXPECT_EQ(Sent().at(1).substr(0, 10), "4052123001");
}

TEST_F(LogoDownloadTest, ABitmapWithoutRowsSendsNothing) {
  Bitmap(0);
  EXPECT_TRUE(Download());
  EXPECT_EQ(Sent(), Lines{});
  EXPECT_EQ(Shown(), Lines{});
}

TEST_F(LogoDownloadTest, ARowIsUpperCaseHexadecimal) {
  Bitmap(1);
  files.content[kPath].replace(62, 4, "\x0F\xA5\xFF\x10");
  EXPECT_EQ(ReadLogoRows(files, kPath), Lines{"0FA5FF10" + Repeated("01", 52)});
}

TEST_F(LogoDownloadTest, WhatFollowsTheLastRowDoesNotCount) {
  Bitmap(2);
  files.content[kPath] += "more";
  EXPECT_EQ(ReadLogoRows(files, kPath), (Lines{Repeated("01", 56), Repeated("02", 56)}));
}

TEST_F(LogoDownloadTest, ARowTheOperatorCallsPrintedIsLeftBehind) {
  Bitmap(3);
  for (const char* reply : {"4052", "ERR08", "4052"}) control.Reply(reply);
  Answer(kPrinted);
  EXPECT_TRUE(Download());
  EXPECT_EQ(Sent(), RowsSent({1, 2, 3}));
  EXPECT_EQ(control.calls, (Lines{"open 0", "open 1"}));
  EXPECT_EQ(Elapsed(), 1000);
}

TEST_F(LogoDownloadTest, AReprintBeginsAgainWithTheFirstRow) {
  Bitmap(2);
  for (const char* reply : {"4052", "ERR08", "4052", "4052"}) control.Reply(reply);
  Answer(kReprint);
  EXPECT_TRUE(Download());
  EXPECT_EQ(Sent(), RowsSent({1, 2, 1, 2}));
  EXPECT_EQ(givenUpAt, std::vector<double>{});
}

TEST_F(LogoDownloadTest, AnAbortedDownloadWarnsAboutThePower) {
  Bitmap(3);
  for (const char* reply : {"4052", "ERR08"}) control.Reply(reply);
  Answer(kAbort, "Ok");
  EXPECT_FALSE(Download());
  EXPECT_EQ(givenUpAt, std::vector<double>{0});
  EXPECT_EQ(Elapsed(), 1000);
  EXPECT_EQ(Sent(), RowsSent({1, 2}));
  EXPECT_EQ(Last(Shown()), kAlarm);
  EXPECT_EQ(Dialog(person.Shown().size() - 1).icon, MessageIcon::kExclamation);
  EXPECT_EQ(control.calls, (Lines{"open 0", "open 1"}));
}

TEST_F(LogoDownloadTest, AFormClosedWithoutAChoiceSendsTheRowAgain) {
  Bitmap(2);
  for (const char* reply : {"4052", "ERR08", "4052"}) control.Reply(reply);
  Answer("close");
  EXPECT_TRUE(Download());
  EXPECT_EQ(Sent(), RowsSent({1, 2, 2}));
}

TEST_F(LogoDownloadTest, SilenceAndLinkErrorsAreAskedAboutToo) {
  for (const char* reply : {"", "ERR-1", "ERR-2", "ERR-3"}) {
    Bitmap(1);
    control.sent.clear();
    if (*reply == '\0') {
      control.NoReply();
    } else {
      control.Reply(reply);
    }
    control.Reply("4052");
    Answer("close");
    EXPECT_TRUE(Download()) << reply;
    EXPECT_EQ(Sent(), RowsSent({1, 1})) << reply;
    EXPECT_EQ(Dialog(person.Shown().size() - 1).text, "Nessuna riposta dal Dispositivo !");
  }
}

TEST_F(LogoDownloadTest, PaperOutIsSettledAndTheRowSentAgain) {
  Bitmap(1);
  for (const char* reply : {"ERR01", "1149", "3217", "4052"}) control.Reply(reply);
  Answer("&Ok");
  EXPECT_TRUE(Download());
  EXPECT_EQ(Sent(), (Lines{Row(1), "114900", "321701", Row(1)}));
}

TEST_F(LogoDownloadTest, ARegisterThatGoesOnRefusingInSilenceIsGivenUp) {
  Bitmap(2);
  control.Always("4052", "ERR11");
  control.Always("1028", "1028");
  Answer("Ok");
  EXPECT_FALSE(Download());
  EXPECT_EQ(Sent(), (Lines{Row(1), "102800", Row(1), "102800", Row(1), "102800", Row(1), "102800"}));
  EXPECT_EQ(Shown(), Lines{kAlarm});
  EXPECT_EQ(givenUpAt, std::vector<double>{});
}

TEST_F(LogoDownloadTest, EachRowMayBeRefusedThreeTimes) {
  Bitmap(2);
  control.Always("1028", "1028");
  for (int row = 0; row < 2; ++row) {
    for (const char* reply : {"ERR11", "1028", "ERR11", "1028", "ERR11", "1028", "4052"})
      control.Reply(reply);
  }
  EXPECT_TRUE(Download());
  EXPECT_EQ(Shown(), Lines{});
}

TEST_F(LogoDownloadTest, NothingIsSentToAnAbsentRegister) {
  Bitmap(2);
  control.presence = {true, false, true};
  control.Always("4052", "4052");
  Answer("Ok");
  EXPECT_TRUE(Download());
  EXPECT_EQ(Shown(), Lines{AbsentAlarm()});
  EXPECT_EQ(Sent(), RowsSent({1, 2}));
}

TEST_F(LogoDownloadTest, AnErrorNamesTheTicketLine) {
  Bitmap(1);
  control.Reply("ERR**");
  control.Reply("4052");
  Answer("close");
  Download();
  EXPECT_EQ(Errors(), Lines{"Riga non valida : 25;5;C:\\logo.bmp"});
}

TEST_F(LogoDownloadTest, APictureCutShortIsNotSentAtAll) {
  Bitmap(10);
  files.content[kPath].pop_back();
  Answer("Ok");
  EXPECT_FALSE(Download());
  EXPECT_EQ(Errors(), Lines{"Trasmissione 57 - Device I/O error ( C:\\logo.bmp )"});
  EXPECT_EQ(Shown(), Lines{kAlarm});
  EXPECT_EQ(Sent(), Lines{});
}

TEST_F(LogoDownloadTest, APictureThatIsGoneIsNotSent) {
  Answer("Ok");
  EXPECT_FALSE(Download());
  EXPECT_EQ(Errors(), Lines{"Trasmissione 53 - File not found ( C:\\logo.bmp )"});
  EXPECT_EQ(Shown(), Lines{kAlarm});
}

TEST_F(LogoDownloadTest, APictureThatCannotBeOpenedAnyMoreIsNotSent) {
  Bitmap(2);
  // The file is opened for its headers and then for its rows.
  for (const bool headersStillRead : {false, true}) {
    files.content["C:\\shop\\Err.txt"].clear();
    FaultyFiles locked(files);
    if (headersStillRead) {
      locked.FailNth("OpenForReading", 2, error_number::kPermissionDenied);
    } else {
      locked.FailAlways("OpenForReading", kPath, error_number::kPermissionDenied);
    }
    Answer("Ok");
    LogoDownload downloadOfLocked(link, settings, recovery, locked, logs, messages);
    EXPECT_FALSE(downloadOfLocked.Download("05", kPath, "", [] {}));
    EXPECT_EQ(Errors(), Lines{"Trasmissione 70 - Permission denied ( C:\\logo.bmp )"});
    EXPECT_EQ(Last(Shown()), kAlarm);
  }
  EXPECT_EQ(Sent(), Lines{});
}

TEST_F(LogoDownloadTest, APictureOfAnotherShapeIsNotSent) {
  files.content[kPath] = LogoBitmap(255) + std::string(255 * 56, '\0');
  Answer("Ok");
  EXPECT_FALSE(Download());
  EXPECT_EQ(Errors(), Lines{"Trasmissione 57 - Device I/O error ( C:\\logo.bmp )"});
}

}  // namespace
}  // namespace orvenza::test
