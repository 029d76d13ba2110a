#include "tickets/outcomes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>

#include "support/shop.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;
using Lines = Shop::Lines;

const Lines kReceipt{"1;PANE;1,000;150;1;;;1;;", "2;1;500;"};
const Lines kOther{"1;LATTE;1,000;129;1;;;1;;", "2;1;500;"};

/// Ends the connector at once, as a power cut does. Only the disk's content survives.
struct PowerCut {};

/// A shop whose host asks for outcomes.
class OutcomesTest : public testing::TestWithParam<bool> {
 protected:
  void Open(const std::string& script = "") {
    shop.emplace(script);
    shop->Configure("Host", "Outcomes", shop->folder.Path("esiti"));
    if (GetParam()) shop->Configure("Safety", "AskInDoubt", "1");
  }

  std::string Value(const std::string& name, const std::string& key) const {
    const std::string text = "\r\n" + shop->folder.Read("esiti\\" + name);
    const std::size_t at = text.find("\r\n" + key + "=");
    if (at == std::string::npos) return "(missing)";
    const std::size_t start = at + key.size() + 3;
    return text.substr(start, text.find("\r\n", start) - start);
  }
  /// "State Receipt Reason Attempts".
  std::string Said(const std::string& name = "0042.txt.ini") const {
    return Value(name, "State") + " " + Value(name, "Receipt") + " " + Value(name, "Reason") + " " +
           Value(name, "Attempts");
  }

  /// Starts the connector and cuts the power before the `n`-th write of a file whose path contains `part`.
  void CutPowerAtWrite(
      const std::string& part, int n,
      const std::function<void(const std::string& path)>& before = [](const auto&) {}) {
    int count = 0;
    shop->files.Before("Write", [&](const std::string& path) {
      before(path);
      if (path.find(part) != std::string::npos && ++count == n) throw PowerCut{};
    });
    EXPECT_THROW(shop->RunToItsEnd(), PowerCut);
    shop->files.Heal();
    shop->link.SetPortOpen(false);
    shop->person.SetMenuHandler({});
  }

  Lines OutcomeErrors() const {
    Lines lines = shop->Err();
    std::erase_if(lines, [](const std::string& line) { return !line.starts_with("Outcomes - "); });
    return lines;
  }

  std::optional<Shop> shop;
};

INSTANTIATE_TEST_SUITE_P(BothWays, OutcomesTest, testing::Bool(),
                         [](const auto& way) { return std::string(way.param ? "AskInDoubt" : "Contract"); });

TEST_P(OutcomesTest, SayWhatBecameOfATicket) {
  Open();
  shop->Drop("0042.txt", kReceipt);
  shop->Run();
  EXPECT_EQ(Said(), "done yes printed 1");
  EXPECT_EQ(Value("0042.txt.ini", "Ticket"), "0042.txt");
  EXPECT_EQ(Value("0042.txt.ini", "Filed"), shop->Spelled("storico\\1.txt"));
  EXPECT_EQ(Value("0042.txt.ini", "Line") + Value("0042.txt.ini", "Command"), "");
  EXPECT_EQ(shop->Names("esiti"), Lines{"0042.txt.ini"});
}

TEST_P(OutcomesTest, SayThatAPrintedTicketWasRemoved) {
  Open();
  shop->Configure("Database", "HistoricTickets", "");
  shop->Drop("0042.txt", kReceipt);
  shop->Run();
  EXPECT_EQ(Said(), "done yes printed 1");
  EXPECT_EQ(Value("0042.txt.ini", "Filed"), "");
}

TEST_P(OutcomesTest, AreWrittenThreeTimesAtMost) {
  Open();
  shop->Drop("0042.txt", kReceipt);
  Lines said;
  const auto note = [&](const std::string& path) {
    if (path.ends_with("0042.txt.ini")) said.push_back(Said());
  };
  shop->files.Before("Write", note);
  shop->Run();
  said.push_back(Said());
  EXPECT_EQ(said, (Lines{"(missing) (missing) (missing) (missing)", "started no  1", "started doubtful  1",
                         "done yes printed 1"}));
}

TEST_P(OutcomesTest, TakeTheNextFreeNumberForANameUsedAgain) {
  Open();
  for (const char* const taken : {"0042.txt.ini", "0042.txt.1.ini", "0042.txt.2.ini", "0042.txt.3.ini"})
    shop->folder.Write("esiti\\" + std::string(taken), "[Outcome]\r\n");
  shop->Drop("0042.txt", kReceipt);
  shop->Run();
  EXPECT_EQ(Said("0042.txt.4.ini"), "done yes printed 1");
  EXPECT_EQ(shop->folder.Read("esiti\\0042.txt.ini"), "[Outcome]\r\n");
}

TEST_P(OutcomesTest, CostNothingWithoutTheSetting) {
  Open();
  shop->Configure("Host", "Outcomes", "");
  shop->Drop("0042.txt", kReceipt);
  shop->Run();
  EXPECT_EQ(shop->Names("esiti"), Lines{});
}

TEST_P(OutcomesTest, ContinueAfterAPowerCutBeforeThePayment) {
  Open();
  shop->Drop("0042.txt", kReceipt);
  CutPowerAtWrite("0042.txt.ini", 2);
  EXPECT_EQ(Said(), "started no  1");
  shop->Answer("Ok");  // the receipt that is open is voided
  shop->Run();
  EXPECT_EQ(Said(), "done yes printed 2");
  EXPECT_EQ(shop->Names("esiti"), Lines{"0042.txt.ini"});
}

TEST_P(OutcomesTest, ClaimNothingAfterAPowerCutWithThePaymentUnderWay) {
  Open();
  shop->Drop("0042.txt", kReceipt);
  // The evidence is written when the ticket begins, before the payment and after it.
  CutPowerAtWrite("Evidence.ini", 3);
  EXPECT_EQ(Said(), "started doubtful  1");
  EXPECT_EQ(Value("0042.txt.ini", "Line"), "2");
  EXPECT_EQ(Value("0042.txt.ini", "Command"), "103601000000500");
  if (GetParam()) shop->Answer("Ristampare lo scontrino ( annullare automaticamente )");
  shop->Run();
  EXPECT_EQ(Said(), "done doubtful interrupted 2");
  EXPECT_EQ(Value("0042.txt.ini", "Command"), "103601000000500");
}

TEST_P(OutcomesTest, ClaimNothingIfOnlyTheEvidenceKnowsOfThePayment) {
  Open();
  shop->Drop("0042.txt", kReceipt);
  int outcomes = 0;
  CutPowerAtWrite("Evidence.ini", 3, [&](const std::string& path) {
    if (path.ends_with("0042.txt.ini") && ++outcomes == 2) throw SystemError(error_number::kDiskFull, path);
  });
  EXPECT_EQ(shop->Names("esiti"), Lines{});
  if (GetParam()) shop->Answer("Ristampare lo scontrino ( annullare automaticamente )");
  shop->Run();
  EXPECT_EQ(Said(), "done doubtful interrupted 2");
}

TEST_P(OutcomesTest, ClaimNothingIfAnEarlierAttemptOfTheEarlierRunHadComeToThePayment) {
  Open("on 1036 lose-reply\n");
  shop->Drop("0042.txt", kReceipt);
  shop->Answer("Ristampare lo scontrino ( annullare automaticamente )");
  // Before the payment of the second attempt: the evidence knows only that attempt.
  CutPowerAtWrite("Evidence.ini", 4);
  EXPECT_EQ(Said(), "started doubtful  2");
  shop->Answer("Ok");  // the receipt that is open is voided
  shop->Run();
  EXPECT_EQ(Said(), "done doubtful interrupted 3");
  EXPECT_EQ(Value("0042.txt.ini", "Answers"), "print-again");
}

TEST_P(OutcomesTest, ClaimNothingIfTheStartedOutcomeCannotBeFound) {
  Open();
  shop->Drop("0042.txt", kReceipt);
  CutPowerAtWrite("0042.txt.ini", 2);
  shop->folders.FailAlways("ListFolder", "esiti", error_number::kPathFileAccess);
  shop->Answer("Ok");  // the receipt that is open is voided
  shop->Run();
  EXPECT_EQ(Said("0042.txt.1.ini"), "done doubtful interrupted 2");
}

TEST_P(OutcomesTest, ClaimNothingAboutALeftoverWithoutAnyTrace) {
  Open();
  shop->folder.Write("data\\inproces\\0042.txt", Shop::Joined(kReceipt));
  if (GetParam()) shop->Answer("Ristampare lo scontrino ( annullare automaticamente )");
  shop->Run();
  EXPECT_EQ(Said(), "done doubtful interrupted 2");
}

TEST_P(OutcomesTest, EndTheStartedOutcomeOfATicketThatIsNowhere) {
  Open();
  shop->Drop("0042.txt", kReceipt);
  CutPowerAtWrite("0042.txt.ini", 2);
  shop->folder.Remove("data\\inproces\\0042.txt");
  shop->Drop("0042.txt", kOther);
  if (GetParam()) shop->Answer("No");  // nobody knows whose receipt is open
  shop->Answer("Ok");                  // it is voided
  shop->Run();
  EXPECT_EQ(Said(), "done no interrupted 1");
  EXPECT_EQ(Value("0042.txt.1.ini", "State"), "done");
}

TEST_P(OutcomesTest, EndTheOutcomeOfATicketThatWasArchivedBeforeAPowerCut) {
  Open();
  shop->Drop("0042.txt", kReceipt);
  CutPowerAtWrite("0042.txt.ini", 3);
  EXPECT_EQ(Said(), "started doubtful  1");
  EXPECT_EQ(shop->Names("storico"), Lines{"1.txt"});
  shop->Run();
  EXPECT_EQ(Said(), "done doubtful interrupted 1");
  EXPECT_EQ(Value("0042.txt.ini", "Filed"), "");
}

TEST_P(OutcomesTest, DoNotContinueThatOfAnotherText) {
  Open();
  shop->Drop("0042.txt", kReceipt);
  CutPowerAtWrite("0042.txt.ini", 2);
  shop->folder.Write("data\\inproces\\0042.txt", Shop::Joined(kOther));
  shop->Answer("Ok");  // the receipt that is open is voided
  if (GetParam()) shop->Answer("Ristampare lo scontrino ( annullare automaticamente )");
  shop->Run();
  EXPECT_EQ(Said(), "started no  1");
  EXPECT_EQ(Value("0042.txt.1.ini", "State"), "done");
}

TEST(OutcomeFilesTest, KeepAThousandForLater) {
  Shop shop;
  AppSettings settings;
  Logs logs(shop.files, shop.clock, settings, shop.folder.Path());
  OutcomeFiles files(shop.files, shop.folders, logs);
  files.Open(shop.folder.Path("esiti\\"));
  shop.files.FailAlways("Write", "esiti", error_number::kDiskFull);
  for (int i = 0; i <= 1000; ++i) {
    const auto file = std::make_shared<OutcomeFile>();
    file->outcome.ticket = std::to_string(i) + ".txt";
    files.Save(file);
  }
  shop.files.Heal();
  shop.clock.Advance(10s);
  files.SaveLate();
  EXPECT_EQ(shop.Names("esiti").size(), 1000U);
  EXPECT_FALSE(shop.folder.Has("esiti\\0.txt.ini"));
}

TEST_P(OutcomesTest, AreWrittenLaterIfTheDiskIsFullAtAnyWrite) {
  for (int write = 1; write <= 3; ++write) {
    SCOPED_TRACE(write);
    Open();
    int count = 0;
    shop->files.Before("Write", [&](const std::string& path) {
      if (path.find("esiti") != std::string::npos && ++count == write)
        throw SystemError(error_number::kDiskFull, path);
    });
    shop->Drop("0042.txt", kReceipt);
    shop->Run();
    EXPECT_EQ(Said(), "done yes printed 1");
    EXPECT_EQ(shop->Names("esiti"), Lines{"0042.txt.ini"});
    EXPECT_EQ(OutcomeErrors().size(), 1U);
    EXPECT_EQ(shop->Names("storico"), Lines{"1.txt"});
  }
}

TEST_P(OutcomesTest, NeverStopATicketWhileTheirDiskFails) {
  Open();
  shop->files.FailAlways("Write", "esiti", error_number::kDiskFull);
  shop->files.FailAlways("Exists", "esiti", error_number::kPathFileAccess);
  for (const char* const name : {"0042.txt", "0043.txt", "0044.txt"}) shop->Drop(name, kReceipt);
  shop->After(100s, [&] { shop->files.Heal(); });
  shop->Run(150s);
  EXPECT_EQ(shop->Names("storico"), (Lines{"1.txt", "2.txt", "3.txt"}));
  // One line at first, another one after a minute.
  EXPECT_EQ(OutcomeErrors().size(), 2U);
  EXPECT_EQ(shop->Names("esiti"), (Lines{"0042.txt.ini", "0043.txt.ini", "0044.txt.ini"}));
  for (const std::string& name : shop->Names("esiti")) EXPECT_EQ(Said(name), "done yes printed 1");
}

TEST_P(OutcomesTest, DoNotTryAgainForAMinuteAfterASlowFailure) {
  Open();
  int tries = 0;
  shop->files.Before("Write", [&](const std::string& path) {
    if (path.find("esiti") == std::string::npos) return;
    ++tries;
    shop->clock.Advance(20s);
    throw SystemError(error_number::kPathFileAccess, path);
  });
  for (const char* const name : {"0042.txt", "0043.txt", "0044.txt"}) shop->Drop(name, kReceipt);
  shop->Run(50s);
  EXPECT_EQ(tries, 1);
  EXPECT_EQ(shop->Names("storico"), (Lines{"1.txt", "2.txt", "3.txt"}));
}

TEST_P(OutcomesTest, MakeTheirFolderAgain) {
  Open();
  shop->After(300ms, [&] { shop->disk.Delete(shop->folder.Path("esiti")); });
  shop->Drop("0042.txt", kReceipt);
  shop->Run();
  EXPECT_EQ(Said(), "done yes printed 1");
  EXPECT_EQ(OutcomeErrors(), Lines{});
}

TEST_P(OutcomesTest, AreRefusedInFoldersThatHoldTickets) {
  for (const char* const folder : {"data", "data\\esiti", "data\\inproces\\", "data\\abort\\x", "storico",
                                   "STORICO\\.\\esiti", "", "data\\..\\."}) {
    SCOPED_TRACE(folder);
    Open();
    shop->Configure("Host", "Outcomes", shop->folder.Path(folder));
    shop->Drop("0042.txt", kReceipt);
    shop->Run();
    const Lines errors = shop->Err();
    EXPECT_EQ(std::count_if(errors.begin(), errors.end(),
                            [](const std::string& line) {
                              return line.starts_with("Esiti disattivati, cartella non ammessa : ");
                            }),
              1);
    EXPECT_EQ(shop->Names("storico"), Lines{"1.txt"});
    const auto& paths = shop->disk.Paths();
    EXPECT_TRUE(std::none_of(paths.begin(), paths.end(),
                             [](const std::string& path) { return path.ends_with(".txt.ini"); }));
  }
}

TEST_P(OutcomesTest, NameTheSourceOfAPartEvenAfterAPowerCut) {
  Open();
  shop->Configure("General", "File Parser", "1");
  Lines both = kReceipt;
  both.insert(both.end(), kOther.begin(), kOther.end());
  shop->Drop("a.txt", both);
  CutPowerAtWrite("a2.txt.ini", 2);
  shop->Answer("Ok");  // the receipt that is open is voided
  shop->Run();
  EXPECT_EQ(Said("a.txt.ini"), "done none split 0");
  EXPECT_EQ(Value("a.txt.ini", "Parts"), "2");
  EXPECT_EQ(Said("a1.txt.ini"), "done yes printed 1");
  EXPECT_EQ(Said("a2.txt.ini"), "done yes printed 2");
  EXPECT_EQ(Value("a2.txt.ini", "Source") + Value("a2.txt.ini", "Part"), "a.txt2");
  EXPECT_EQ(shop->Names("esiti"), (Lines{"a.txt.ini", "a1.txt.ini", "a2.txt.ini"}));
}

TEST_P(OutcomesTest, ArePreparedOnceIfASourceCannotBeRemoved) {
  Open();
  shop->Configure("General", "File Parser", "1");
  Lines both = kReceipt;
  both.insert(both.end(), kOther.begin(), kOther.end());
  shop->Drop("a.txt", both);
  shop->files.FailAlways("Remove", "inproces\\a.txt", error_number::kPermissionDenied);
  int writes = 0;
  shop->files.Before("Write", [&](const std::string& path) { writes += path.ends_with("a1.txt.ini"); });
  shop->After(3s, [&] {
    EXPECT_EQ(writes, 1);
    shop->files.Heal();
  });
  shop->Run();
  EXPECT_EQ(Said("a.txt.ini"), "done none split 0");
  EXPECT_EQ(shop->Names("esiti"), (Lines{"a.txt.ini", "a1.txt.ini", "a2.txt.ini"}));
}

}  // namespace
}  // namespace orvenza::test
