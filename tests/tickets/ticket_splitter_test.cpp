#include "tickets/ticket_splitter.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "platform/failure_of.h"
#include "support/faulty_files.h"
#include "support/memory_files.h"
#include "support/shop.h"

namespace orvenza::test {
namespace {

using Contents = std::map<std::string, std::string>;

const std::string kFirst = "1;first;\r\n2;1;\r\n";
const std::string kSecond = "1;second;\r\n2;1;\r\n";
const std::string kThird = "1;third;\r\n2;1;\r\n";
const std::string kThreeTickets = kFirst + kSecond + kThird;

/// Splits files in memory, with ";" as separator.
class SplitterTest : public ::testing::Test {
 protected:
  SplitterTest() {
    settings.SeparatorChar = ';';
    settings.FileParser = true;
    settings.TicketMask = "*";
    settings.ErrPath = "C:\\shop\\Err.txt";
  }

  bool Split(const std::string& path, const std::string& content) {
    memory.content[path] = content;
    return splitter.SplitTicketFile(path);
  }

  /// The parts of `content`, or `content` itself if it is one ticket.
  Contents PartsOf(const std::string& content) {
    memory.content.clear();
    Split("t.txt", content);
    return memory.content;
  }

  std::string SplitFailure(const std::string& path) {
    return FailureOf([&] { (void)splitter.SplitTicketFile(path); });
  }

  MemoryFiles memory;
  FaultyFiles files{memory};
  AppSettings settings;

 private:
  Shop shop;
  Logs logs{files, shop.clock, settings, "C:\\shop"};
  OperatorMessages messages{shop.person, "Orvenza"};

 protected:
  RememberedTickets remembered{files, logs, "C:\\shop"};
  TicketWitnesses witnesses;
  TicketArchive archive{files, shop.folders, settings, logs, messages, remembered, witnesses};
  TicketSplitter splitter{files, settings, logs, archive, witnesses};
};

TEST_F(SplitterTest, ReplacesAFileOfThreeTicketsByThreeNumberedFiles) {
  EXPECT_TRUE(Split("C:\\in\\ticket.txt", kThreeTickets));
  EXPECT_EQ(memory.content, (Contents{{"C:\\in\\ticket1.txt", kFirst},
                                      {"C:\\in\\ticket2.txt", kSecond},
                                      {"C:\\in\\ticket3.txt", kThird}}));
}

TEST_F(SplitterTest, LeavesAFileOfOneTicketUntouched) {
  const char* const oneTicket[] = {"",
                                   "\r\n\r\n",
                                   "1;a;\r\n1;b;\r\n",
                                   "1;a;\n\n2;1;\n",
                                   "2;1;\r\n",
                                   "1;a;\r\n2;1;\r\n4;1;\r\n5;1;\r\n15;1;\r\n14;1;\r\n2;1;",
                                   "14;1;\r\n1;a;\r\n",
                                   "1;a;\r\n2;1;\r\n\r\n\x1a"};
  for (const char* content : oneTicket) {
    EXPECT_FALSE(Split("t.txt", content)) << content;
    EXPECT_EQ(memory.content, (Contents{{"t.txt", content}}));
  }
}

TEST_F(SplitterTest, LeavesTheFileAloneWhenItIsOff) {
  settings.FileParser = false;
  EXPECT_FALSE(Split("t.txt", kThreeTickets));
  EXPECT_EQ(memory.content, (Contents{{"t.txt", kThreeTickets}}));
}

TEST_F(SplitterTest, EachClosingTypeEndsATicket) {
  for (const std::string type : {"2", "4", "5", "15"}) {
    EXPECT_EQ(PartsOf("1;a;\n" + type + ";1;\n1;b;\n"),
              (Contents{{"t1.txt", "1;a;\r\n" + type + ";1;\r\n"}, {"t2.txt", "1;b;\r\n"}}))
        << type;
  }
}

TEST_F(SplitterTest, NoOtherTypeEndsATicket) {
  for (const std::string type : {"", "0", "1", "3", "14", "20", "21", "25", "02", " 2", "2 ", "x"}) {
    const std::string content = "1;a;\n" + type + ";1;\n1;b;\n";
    EXPECT_EQ(PartsOf(content), (Contents{{"t.txt", content}})) << type;
  }
}

TEST_F(SplitterTest, ALineWithoutSeparatorIsATypeOfItsOwn) {
  EXPECT_EQ(PartsOf("1;a;\n2\nx\n"), (Contents{{"t1.txt", "1;a;\r\n2\r\n"}, {"t2.txt", "x\r\n"}}));
}

TEST_F(SplitterTest, ClosingRecordsAnd14GoOnWithTheClosingSection) {
  const std::string first = "1;a;\r\n2;1;\r\n14;1;\r\n5;1;\r\n14;1;\r\n15;1;\r\n4;1;\r\n";
  EXPECT_EQ(PartsOf(first + "20;1;\r\n1;b;\r\n"),
            (Contents{{"t1.txt", first}, {"t2.txt", "20;1;\r\n1;b;\r\n"}}));
}

TEST_F(SplitterTest, A14BeforeAnyClosingRecordIsAnOrdinaryLine) {
  EXPECT_EQ(PartsOf("14;1;\r\n1;a;\r\n2;1;\r\n1;b;\r\n"),
            (Contents{{"t1.txt", "14;1;\r\n1;a;\r\n2;1;\r\n"}, {"t2.txt", "1;b;\r\n"}}));
}

TEST_F(SplitterTest, DropsEmptyLinesAndKeepsTheOthersAsTheyAre) {
  EXPECT_EQ(PartsOf("\r\n1;\xe0 \x01; tail\n\n2;1;\r\n \t\r\n\x1a\n 1;b;\r\n\r\n"),
            (Contents{{"t1.txt", "1;\xe0 \x01; tail\r\n2;1;\r\n"}, {"t2.txt", " 1;b;\r\n"}}));
}

TEST_F(SplitterTest, KeepsEveryByteOfALine) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) {
    if (byte != '\r' && byte != '\n') bytes += static_cast<char>(byte);
  }
  EXPECT_EQ(PartsOf("1;" + bytes + "\n2;1;" + bytes + "\n" + bytes + ";\n"),
            (Contents{{"t1.txt", "1;" + bytes + "\r\n2;1;" + bytes + "\r\n"}, {"t2.txt", bytes + ";\r\n"}}));
}

TEST_F(SplitterTest, TakesALineOfNulsAsEmpty) {
  const std::string nuls(3, '\0');
  EXPECT_EQ(PartsOf(nuls + "\n1;a;\n2;1;\n" + nuls + "\n" + nuls + "2;1;\n"),
            (Contents{{"t1.txt", "1;a;\r\n2;1;\r\n"}, {"t2.txt", nuls + "2;1;\r\n"}}));
}

TEST_F(SplitterTest, SplitsALineOf10Megabytes) {
  const std::string line = "1;" + std::string(10'000'000, 'x') + ";\r\n";
  EXPECT_TRUE(Split("t.txt", kFirst + line));
  EXPECT_EQ(memory.content.size(), 2U);
  EXPECT_EQ(memory.content["t1.txt"], kFirst);
  EXPECT_TRUE(memory.content["t2.txt"] == line) << "not shown: it is too long";
}

TEST_F(SplitterTest, SplitsTicketsOfTenThousandLines) {
  std::string ticket;
  for (int line = 1; line < 10000; ++line) ticket += "1;" + std::to_string(line) + ";\r\n";
  ticket += "2;1;\r\n";
  const Contents parts = PartsOf(ticket + ticket + kThird);
  EXPECT_EQ(parts, (Contents{{"t1.txt", ticket}, {"t2.txt", ticket}, {"t3.txt", kThird}}));
}

TEST_F(SplitterTest, UsesTheConfiguredSeparator) {
  settings.SeparatorChar = 127;
  EXPECT_FALSE(Split("t.txt", kThreeTickets));
  EXPECT_EQ(PartsOf("1\x7f;\n2\x7f\n1\x7f\n"),
            (Contents{{"t1.txt", "1\x7f;\r\n2\x7f\r\n"}, {"t2.txt", "1\x7f\r\n"}}));
}

TEST_F(SplitterTest, PutsTheNumberBeforeTheExtension) {
  const Contents partNames = {
      {"C:\\in\\ticket", "C:\\in\\ticket1"},     {"C:\\in\\a.b.c.txt", "C:\\in\\a.b.c1.txt"},
      {"C:\\in.d\\ticket", "C:\\in.d\\ticket1"}, {"C:\\in\\.txt", "C:\\in\\1.txt"},
      {"C:\\in\\ticket.", "C:\\in\\ticket1."},   {"C:\\in\\7.TXT", "C:\\in\\71.TXT"}};
  for (const auto& [source, part] : partNames) {
    memory.content.clear();
    EXPECT_TRUE(Split(source, kFirst + kSecond)) << source;
    EXPECT_EQ(memory.content.size(), 2U) << source;
    EXPECT_EQ(memory.content[part], kFirst) << source;
  }
}

TEST_F(SplitterTest, PutsTheNumberBeforeTheNameWhereTheMaskFitsOnlyThat) {
  settings.TicketMask = "*_fin.txt";
  EXPECT_TRUE(Split("C:\\in\\0001_fin.txt", kThreeTickets));
  EXPECT_EQ(memory.content, (Contents{{"C:\\in\\10001_fin.txt", kFirst},
                                      {"C:\\in\\20001_fin.txt", kSecond},
                                      {"C:\\in\\30001_fin.txt", kThird}}));
}

TEST_F(SplitterTest, NamesAllPartsInOneWay) {
  settings.TicketMask =
      "*1.txt";  // matches the first part with its number after the name, but not the second
  EXPECT_TRUE(Split("a1.txt", kFirst + kSecond));
  EXPECT_EQ(memory.content, (Contents{{"1a1.txt", kFirst}, {"2a1.txt", kSecond}}));
}

TEST_F(SplitterTest, LeavesAFileWhosePartsTheMaskWouldNotFit) {
  settings.TicketMask = "????.txt";
  const std::string path = "C:\\in\\0001.txt";
  EXPECT_FALSE(Split(path, kThreeTickets));
  EXPECT_EQ(memory.content[path], kThreeTickets);
  EXPECT_EQ(memory.content.size(), 2U) << "the file and the error log";
  EXPECT_EQ(memory.content[settings.ErrPath],
            "16/11/2026 09:00:00 - Timer1 - 52 - Bad file name or number ( C:\\in\\00011.txt )\r\n");
}

TEST_F(SplitterTest, SaysNothingOfAFileOfOneTicketUnderSuchAMask) {
  settings.TicketMask = "????.txt";
  EXPECT_FALSE(Split("0001.txt", kFirst));
  EXPECT_EQ(memory.content, (Contents{{"0001.txt", kFirst}}));
}

TEST_F(SplitterTest, PassesOverForeignFilesAlsoWithTheNumberBeforeTheName) {
  settings.TicketMask = "*_fin.txt";
  memory.content = {{"1a_fin.txt", kThird}};
  EXPECT_TRUE(Split("a_fin.txt", kFirst + kSecond));
  EXPECT_EQ(memory.content,
            (Contents{{"1a_fin.txt", kThird}, {"2a_fin.txt", kFirst}, {"3a_fin.txt", kSecond}}));
}

std::string Tickets(int count) {
  std::string content;
  for (int ticket = 1; ticket <= count; ++ticket) content += "1;" + std::to_string(ticket) + ";\r\n2;1;\r\n";
  return content;
}

TEST_F(SplitterTest, MakesAHundredParts) {
  const Contents parts = PartsOf(Tickets(100));
  EXPECT_EQ(parts.size(), 100U);
  EXPECT_EQ(parts.at("t1.txt"), "1;1;\r\n2;1;\r\n");
  EXPECT_EQ(parts.at("t100.txt"), "1;100;\r\n2;1;\r\n");
  EXPECT_FALSE(splitter.SplitTicketFile("t100.txt"));
}

TEST_F(SplitterTest, LeavesWhatIsBeyondAHundredPartsInTheLastOne) {
  const Contents parts = PartsOf(Tickets(102));
  EXPECT_EQ(parts.size(), 100U);
  EXPECT_EQ(parts.at("t99.txt"), "1;99;\r\n2;1;\r\n");
  EXPECT_EQ(parts.at("t100.txt"), "1;100;\r\n2;1;\r\n1;101;\r\n2;1;\r\n1;102;\r\n2;1;\r\n");
}

TEST_F(SplitterTest, SplitsTheLastPartAgainInItsTurn) {
  PartsOf(Tickets(102));
  EXPECT_TRUE(splitter.SplitTicketFile("t100.txt"));
  EXPECT_EQ(memory.content.size(), 102U);
  EXPECT_FALSE(memory.Exists("t100.txt"));
  EXPECT_EQ(memory.content["t1001.txt"], "1;100;\r\n2;1;\r\n");
  EXPECT_EQ(memory.content["t1003.txt"], "1;102;\r\n2;1;\r\n");
}

TEST_F(SplitterTest, AFullDiskLeavesTheSourceAndNoPart) {
  for (const int part : {1, 2, 3}) {
    memory.content = {{"t.txt", kThreeTickets}};
    files.FailNth("Write", part, error_number::kDiskFull);
    EXPECT_EQ(SplitFailure("t.txt"), "61 Disk full ( t" + std::to_string(part) + ".txt )");
    EXPECT_EQ(memory.content, (Contents{{"t.txt", kThreeTickets}}));
    files.Heal();
  }
}

TEST_F(SplitterTest, ASourceThatCannotBeRemovedLeavesNoPart) {
  memory.content = {{"t.txt", kThreeTickets}};
  files.FailNext("Remove", error_number::kPermissionDenied);
  EXPECT_EQ(SplitFailure("t.txt"), "70 Permission denied ( t.txt )");
  EXPECT_EQ(memory.content, (Contents{{"t.txt", kThreeTickets}}));
}

TEST_F(SplitterTest, MakesAReadOnlySourceWritableBeforeItIsRemoved) {
  memory.content = {{"t.txt", kThreeTickets}};
  files.FailAlways("Remove", "t.txt", error_number::kPermissionDenied);
  files.Before("ClearAttributes", [&](const std::string&) { files.Heal(); });
  EXPECT_TRUE(splitter.SplitTicketFile("t.txt"));
  EXPECT_EQ(memory.content.size(), 3U);
}

TEST_F(SplitterTest, AReadFailureInTheMiddleLeavesTheSourceAndNoPart) {
  memory.content = {{"t.txt", kThreeTickets}};
  files.FailReadAfter(40, error_number::kDeviceError);
  EXPECT_EQ(SplitFailure("t.txt"), "57 Device I/O error ( t.txt )");
  EXPECT_EQ(memory.content, (Contents{{"t.txt", kThreeTickets}}));
}

TEST_F(SplitterTest, AReadFailureInTheSecondPassLeavesTheSourceAndNoPart) {
  memory.content = {{"t.txt", kThreeTickets}};
  files.FailNth("Read", 3, error_number::kDeviceError);
  EXPECT_EQ(SplitFailure("t.txt"), "57 Device I/O error ( t.txt )");
  EXPECT_EQ(memory.content, (Contents{{"t.txt", kThreeTickets}}));
}

TEST_F(SplitterTest, DoesAnInterruptedSplitAgainWithoutDoublingTickets) {
  memory.content = {{"t1.txt", kFirst}, {"t2.txt", kSecond}};
  EXPECT_TRUE(Split("t.txt", kThreeTickets));
  EXPECT_EQ(memory.content, (Contents{{"t1.txt", kFirst}, {"t2.txt", kSecond}, {"t3.txt", kThird}}));
}

TEST_F(SplitterTest, PartsThatCouldNotBeDiscardedAreUsedByTheNextAttempt) {
  memory.content = {{"t.txt", kThreeTickets}};
  files.FailNth("Write", 3, error_number::kDiskFull);
  files.FailAlways("Remove", "t1.txt", error_number::kPermissionDenied);
  EXPECT_EQ(SplitFailure("t.txt"), "61 Disk full ( t3.txt )");
  EXPECT_EQ(memory.content, (Contents{{"t.txt", kThreeTickets}, {"t1.txt", kFirst}}));
  files.Heal();
  EXPECT_TRUE(splitter.SplitTicketFile("t.txt"));
  EXPECT_EQ(memory.content, (Contents{{"t1.txt", kFirst}, {"t2.txt", kSecond}, {"t3.txt", kThird}}));
}

TEST_F(SplitterTest, PassesOverForeignFilesOfAPartsName) {
  const std::string sameLength(kSecond.size(), 'x');
  const std::string sameBeginning = kFirst + kSecond;
  memory.content = {{"t1.txt", sameBeginning}, {"t3.txt", sameLength}};
  EXPECT_TRUE(Split("t.txt", kThreeTickets));
  EXPECT_EQ(memory.content, (Contents{{"t1.txt", sameBeginning},
                                      {"t2.txt", kFirst},
                                      {"t3.txt", sameLength},
                                      {"t4.txt", kSecond},
                                      {"t5.txt", kThird}}));
}

TEST_F(SplitterTest, PassesOverAPrintedTicketOfTheSameContent) {
  memory.content = {{"t1.txt", kFirst}};
  files.FailNext("Remove", error_number::kPermissionDenied);
  archive.Archive("t1.txt", kFirst);
  ASSERT_TRUE(archive.IsSettled("t1.txt"));
  EXPECT_TRUE(Split("t.txt", kFirst + kSecond));
  EXPECT_EQ(memory.content["t2.txt"], kFirst);
  EXPECT_EQ(memory.content["t3.txt"], kSecond);
}

TEST(PartNames, FitTheMaskWhereANumberFindsRoom) {
  const std::pair<const char*, const char*> rows[] = {{"a.txt", "*.txt"},   {"A.TXT", "*.txt"},
                                                      {"ticket", "t*"},     {"a", "*.*"},
                                                      {"x.txt", "?*.txt"},  {"0001_fin.txt", "*_fin.txt"},
                                                      {"a.html", "*.html"}, {"t.txt", "t*.*"}};
  for (const auto& [name, mask] : rows) EXPECT_TRUE(CanNameParts(name, mask)) << name << " " << mask;
}

TEST(PartNames, DoNotFitAMaskWithoutRoom) {
  const std::pair<const char*, const char*> rows[] = {{"scontrino.txt", "scontrino.txt"},
                                                      {"0001.txt", "????.txt"},
                                                      {"t1_fin.txt", "t*_fin.txt"},
                                                      {"a.txt", ""}};
  for (const auto& [name, mask] : rows) EXPECT_FALSE(CanNameParts(name, mask)) << name << " " << mask;
}

TEST_F(SplitterTest, PassesOnThatTheFileIsMissing) {
  EXPECT_EQ(SplitFailure("t.txt"), "53 File not found ( t.txt )");
}

}  // namespace
}  // namespace orvenza::test
