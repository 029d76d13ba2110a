#include "lab/check/check_command.h"

#include <gtest/gtest.h>

#include "core/text.h"
#include "lab/check/file_check.h"
#include "lab/shell/lab_bench.h"
#include "lab/shell/run_lab.h"
#include "platform/failure_of.h"
#include "support/faulty_files.h"
#include "support/temp_folder.h"

namespace orvenza::test {
namespace {

constexpr const char* kGood = "24;Cassa 3;1;\r\n4;1;\r\n";
constexpr const char* kBad = "4;x;\n\n4;25;\n";

/// The command on files in memory, with ";" as separator.
class CheckCommandTest : public ::testing::Test {
 protected:
  int Check(std::vector<std::string> words) {
    words.insert(words.begin(), {"check", "--separator", ";"});
    return lab.Run(words);
  }

  LabBench lab;
};

TEST_F(CheckCommandTest, ShowsTheCommandsOfAFile) {
  lab.files.content["good.txt"] = kGood;
  EXPECT_EQ(Check({"good.txt"}), 0);
  EXPECT_EQ(lab.out.str(),
            "good.txt\n"
            "    1  106601Cassa\xC2\xB7"
            "3\xC2\xB7\xC2\xB7\xC2\xB7\xC2\xB7\xC2\xB7\xC2\xB7\xC2\xB7\xC2\xB7\xC2\xB7\n"
            "    2  102801\n"
            "2 lines, 0 errors, 0 warnings\n");
  EXPECT_EQ(lab.err.str(), "");
}

constexpr const char* kBadFindings[] = {
    "bad.txt:1:1: error: 'x' holds other characters than digits; accepted: digits, 0 to 20; others are sent "
    "as 20 "
    "[not-digits]\n",
    "bad.txt:3:1: warning: '25' is sent as '20': outside 0 to 20 [clamped]\n",
};

TEST_F(CheckCommandTest, ReportsAFileWithoutRecords) {
  for (const char* content : {"", "\r\n", " \x1A"}) {
    lab.files.content["empty.txt"] = content;
    lab.out.str("");
    EXPECT_EQ(Check({"--quiet", "empty.txt"}), 0);
    EXPECT_EQ(
        lab.out.str().substr(0, lab.out.str().find('\n')),
        "empty.txt:1: warning: no line of the file is a record: nothing is printed, and the file is filed "
        "as printed [no-record]");
  }
}

TEST_F(CheckCommandTest, PutsAFindingBelowItsCommand) {
  lab.files.content["bad.txt"] = kBad;
  EXPECT_EQ(Check({"bad.txt"}), 1);
  EXPECT_EQ(lab.out.str(), std::string("bad.txt\n") + kBadFindings[0] + "    3  102820\n" + kBadFindings[1] +
                               "3 lines, 1 error, 1 warning\n");
}

TEST_F(CheckCommandTest, ShowsFindingsOnlyWhenQuiet) {
  lab.files.content["good.txt"] = kGood;
  lab.files.content["bad.txt"] = kBad;
  EXPECT_EQ(Check({"--quiet", "good.txt", "bad.txt"}), 1);
  EXPECT_EQ(lab.out.str(),
            std::string(kBadFindings[0]) + kBadFindings[1] + "2 files, 5 lines, 1 error, 1 warning\n");
}

TEST_F(CheckCommandTest, CallsWarningsAlonesClean) {
  lab.files.content["a.txt"] = "4;25;";
  EXPECT_EQ(Check({"--quiet", "a.txt"}), 0);
  EXPECT_EQ(
      lab.out.str(),
      "a.txt:1:1: warning: '25' is sent as '20': outside 0 to 20 [clamped]\n1 line, 0 errors, 1 warning\n");
}

constexpr const char* kItem = "1;Pane;1,0;1000;1;;;1;;\n";

TEST_F(CheckCommandTest, ChecksEachFileSeparately) {
  lab.files.content["open.txt"] = std::string(kItem) + "\n\n";
  lab.files.content["paid.txt"] = std::string(kItem) + "2;1;1000;\n";
  EXPECT_EQ(Check({"--quiet", "paid.txt", "open.txt", "paid.txt"}), 0);
  EXPECT_EQ(
      lab.out.str(),
      "open.txt:1: warning: the file ends, but its receipt is not closed by a payment (type 2, 5, 14 or 15) "
      "[receipt-open]\n3 files, 7 lines, 0 errors, 1 warning\n");
}

TEST_F(CheckCommandTest, ShowsACommandsOnlyControlCharacterAsAQuestionMark) {
  lab.files.content["a.txt"] = "24;a\x7F;1;";
  Check({"a.txt"});
  EXPECT_EQ(lab.out.str().substr(0, 22), "a.txt\n    1  106601a?\xC2");
}

TEST_F(CheckCommandTest, PutsTheFindingsOfALineInTheOrderOfItsFields) {
  lab.files.content["a.txt"] = "14;x;25;0;A;";
  Check({"--json", "a.txt"});
  const std::string json = lab.out.str();
  EXPECT_LT(json.find("\"field\": 1"), json.find("\"field\": 2"));
  EXPECT_LT(json.find("\"field\": 2"), json.find("\"field\": 3"));
}

constexpr const char* kJson = R"JSON({
  "schema": 1,
  "separator": 59,
  "singleQuantity": false,
  "fileParser": false,
  "model": "  MELDANO ",
  "release": "2.04",
  "results": [
    {"file": "bad.txt", "line": 1, "field": 1, "severity": "error", "code": "not-digits", "text": "'x' holds other characters than digits; accepted: digits, 0 to 20; others are sent as 20"},
    {"file": "bad.txt", "line": 3, "command": "102820"},
    {"file": "bad.txt", "line": 3, "field": 1, "severity": "warning", "code": "clamped", "text": "'25' is sent as '20': outside 0 to 20"},
    {"file": "bad.txt", "line": 4, "command": "100301                                        Caff            0001000100000010001"},
    {"file": "bad.txt", "line": 4, "field": 1, "severity": "warning", "code": "blanked", "text": "'Caffè' is printed as 'Caff ': 1 byte that is not printable ASCII becomes a blank"},
    {"file": "bad.txt", "line": 4, "severity": "warning", "code": "receipt-open", "text": "the file ends, but its receipt is not closed by a payment (type 2, 5, 14 or 15)"},
    {"file": "none.txt", "severity": "error", "code": "unreadable", "text": "File not found ( none.txt )"}
  ],
  "totals": {
    "files": 1,
    "unreadable": 1,
    "lines": 4,
    "errors": 1,
    "warnings": 3
  }
}
)JSON";

TEST_F(CheckCommandTest, WritesJson) {
  lab.files.content["bad.txt"] = std::string(kBad) + "1;Caff\xE8;1,0;100;1;;;1;\n";
  EXPECT_EQ(Check({"--json", "--model", "MELDANO", "--release", "2.04", "bad.txt", "none.txt"}), 2);
  EXPECT_EQ(lab.out.str(), kJson);
}

TEST_F(CheckCommandTest, ReadsStandardInput) {
  lab.in.str("4;5;\n4;x;\n");
  EXPECT_EQ(Check({"--quiet", "-"}), 1);
  EXPECT_EQ(lab.out.str().substr(0, 13), "-:2:1: error:");
}

TEST_F(CheckCommandTest, GoesOnAfterAFileThatCannotBeRead) {
  lab.files.content["bad.txt"] = kBad;
  EXPECT_EQ(Check({"--quiet", "none.txt", "bad.txt"}), 2);
  EXPECT_EQ(lab.out.str(), "none.txt: error: File not found ( none.txt ) [unreadable]\n" +
                               std::string(kBadFindings[0]) + kBadFindings[1] +
                               "3 lines, 1 error, 1 warning; 1 file could not be read\n");
}

TEST_F(CheckCommandTest, SaysWhereReadingEnded) {
  MemoryFiles memory;
  memory.content["a.txt"] = "4;5;\n4;6;\n";
  FaultyFiles faulty(memory);
  faulty.FailReadAfter(6, error_number::kDeviceError);
  LabSurroundings surroundings{faulty, lab.folders, lab.clock, lab.clock, lab.machine, lab.console, "home"};
  EXPECT_EQ(RunLab({"check", "--separator=59", "a.txt"}, Commands(), surroundings), 2);
  EXPECT_EQ(lab.out.str(),
            "a.txt\n    1  102805\na.txt: error: Device I/O error ( a.txt ) [unreadable]\n"
            "1 line, 0 errors, 0 warnings; 1 file could not be read\n");
}

TEST_F(CheckCommandTest, RefusesTextOfTwoBytesACharacter) {
  const struct {
    const char* name;
    std::string content;
  } kFiles[] = {
      {"marked little end first", std::string("\xFF\xFE"
                                              "4\0;\0"
                                              "5\0;\0\n\0"
                                              "4\0",
                                              14)},
      {"marked big end first", std::string("\xFE\xFF\0"
                                           "4\0;\0"
                                           "5",
                                           8)},
      {"unmarked", std::string("4\0;\0"
                               "5\0;\0\r\0\n\0",
                               12)},
  };
  for (const auto& [name, content] : kFiles) {
    LabBench fresh;
    fresh.files.content["a.txt"] = content;
    EXPECT_EQ(fresh.Run({"check", "--quiet", "--separator=59", "a.txt"}), 1) << name;
    EXPECT_EQ(fresh.out.str(),
              "a.txt:1: error: the file is UTF-16, two bytes a character; write plain ASCII. The rest is not "
              "read [utf-16]\n1 line, 1 error, 0 warnings\n")
        << name;
  }
}

TEST_F(CheckCommandTest, TakesBinaryFilesAsLinesToo) {
  std::string bytes;
  for (int i = 0; i < 100000; ++i) bytes += static_cast<char>((i * 7919) >> 3);
  lab.files.content["binary"] = bytes;
  lab.files.content["nul"] = std::string("24;a\0b;1;\n", 10);
  EXPECT_EQ(Check({"--quiet", "binary"}), 1);
  lab.out.str("");
  EXPECT_EQ(Check({"--quiet", "nul"}), 0);
  EXPECT_EQ(lab.out.str().substr(0, 49), "nul:1:1: warning: 'a b' is printed as 'a b': 1 by");
}

TEST_F(CheckCommandTest, DoesNotLookAtALineWithoutEnd) {
  // An open receipt is not reported, since that line may have closed it.
  const std::string endless = "24;" + std::string(FileCheck::kLongestLine, 'x') + ";1;\n";
  lab.files.content["a.txt"] = kItem + endless + "20;1;\n";
  EXPECT_EQ(Check({"--quiet", "a.txt"}), 1);
  EXPECT_EQ(lab.out.str(),
            "a.txt:2: error: the line is longer than 65536 bytes and is not checked [line-too-long]\n"
            "3 lines, 1 error, 0 warnings\n");
}

TEST_F(CheckCommandTest, ColoursWhatATerminalShows) {
  lab.console.colours = true;
  lab.files.content["a.txt"] = "4;x;\n4;25;";
  Check({"a.txt"});
  EXPECT_EQ(
      lab.out.str(),
      "\x1b[1ma.txt\x1b[0m\n"
      "a.txt:1:1: \x1b[31merror:\x1b[0m 'x' holds other characters than digits; accepted: digits, 0 to 20; "
      "others are sent as 20 [not-digits]\n"
      "    \x1b[2m2\x1b[0m  102820\n"
      "a.txt:2:1: \x1b[33mwarning:\x1b[0m '25' is sent as '20': outside 0 to 20 [clamped]\n"
      "\x1b[31m2 lines, 1 error, 1 warning\x1b[0m\n");
}

TEST_F(CheckCommandTest, ReadsAllFilesOfAMaskInTheOrderOfTheirNames) {
  const TempFolder folder;
  folder.Write("b.txt", "4;5;");
  folder.Write("a.txt", "4;6;");
  folder.Write("c.tmp", "4;x;");
  folder.Write("d.txt\\inside", "4;x;");
  SystemFiles files;
  LabSurroundings surroundings{files, lab.folders, lab.clock, lab.clock, lab.machine, lab.console, "home"};
  EXPECT_EQ(RunLab({"check", "--separator=59", folder.Path("*.txt")}, Commands(), surroundings), 0);
  EXPECT_EQ(lab.out.str(), folder.Path("a.txt") + "\n    1  102806\n" + folder.Path("b.txt") +
                               "\n    1  102805\n2 files, 2 lines, 0 errors, 0 warnings\n");
}

TEST_F(CheckCommandTest, NamesAMaskWithoutFiles) {
  const TempFolder folder;
  EXPECT_EQ(Check({folder.Path("*.txt"), folder.Path("none\\*.txt")}), 2);
  EXPECT_NE(lab.out.str().find("; 2 files could not be read"), std::string::npos);
  EXPECT_EQ(lab.out.str().substr(0, folder.Path("*.txt").size()), folder.Path("*.txt"));
}

TEST_F(CheckCommandTest, ReportsThatAReleaseAloneHasNoEffect) {
  lab.files.content["a.txt"] = "4;5;";
  EXPECT_EQ(Check({"--release", "2.02.00", "a.txt"}), 0);
  EXPECT_EQ(lab.err.str(), "orvenza-lab check: --release has no effect without --model\n");
  lab.err.str("");
  EXPECT_EQ(Check({"--release", "2.02.00", "--model", "QUARNIS A", "a.txt"}), 0);
  EXPECT_EQ(lab.err.str(), "");
}

TEST_F(CheckCommandTest, ReportsThatANameAloneHasNoEffect) {
  lab.files.content["a.txt"] = "4;5;";
  EXPECT_EQ(Check({"--name", "Cassa", "a.txt"}), 0);
  EXPECT_EQ(lab.err.str(), "orvenza-lab check: --name has no effect without --folder\n");
}

TEST_F(CheckCommandTest, ReportsSettingsThatTheConnectorRefuses) {
  lab.files.content["a.txt"] = "4;5;";
  lab.files.content["shop\\Orvenza.ini"] = "[Version]\r\nVersion=9.99\r\n";
  EXPECT_EQ(Check({"--folder", "shop", "a.txt"}), 0);
  EXPECT_EQ(lab.err.str(),
            "orvenza-lab check: Orvenza.ini in 'shop' is of version \"9.99\", which ends the connector's "
            "start\n");
  lab.err.str("");
  lab.files.content["shop\\Orvenza.ini"] = "[Version]\r\nVersion=1.05\r\n";
  EXPECT_EQ(Check({"--folder", "shop", "a.txt"}), 0);
  EXPECT_EQ(lab.err.str(), "") << "the start brings it up to date";
}

TEST_F(CheckCommandTest, ShowsNoControlCharacterOfAName) {
  const std::string name = "a\x1B[2J\nb\x7F\xE8.txt";
  const std::string shown = "a [2J b \xC3\xA8.txt";
  lab.files.content[name] = "4;25;";
  EXPECT_EQ(Check({name, name + "x"}), 2);
  EXPECT_EQ(lab.out.str(), shown + "\n    1  102820\n" + shown +
                               ":1:1: warning: '25' is sent as '20': outside 0 to 20 [clamped]\n" + shown +
                               "x\n" + shown + "x: error: File not found ( " + shown +
                               "x ) [unreadable]\n1 line, 0 errors, 1 warning; 1 file could not be read\n");
}

TEST_F(CheckCommandTest, DoubtsAModelThatItDoesNotKnow) {
  lab.files.content["a.txt"] = "4;5;";
  EXPECT_EQ(Check({"--model", "MELDANE", "a.txt"}), 0);
  EXPECT_EQ(lab.err.str().substr(0, 91),
            "orvenza-lab check: no model 'MELDANE' is known, so the rules for any other count; did you m");
  EXPECT_EQ(lab.out.str(), "a.txt\n    1  102805\n1 line, 0 errors, 0 warnings\n");
}

TEST_F(CheckCommandTest, RefusesACommandLineThatMakesNoSense) {
  EXPECT_EQ(lab.Run({"check"}), 2);
  EXPECT_EQ(lab.err.str(),
            "orvenza-lab check: which files? '-' is standard input\nSee 'orvenza-lab check --help'.\n");
  lab.err.str("");
  EXPECT_EQ(Check({"-", "a.txt", "-"}), 2);
  EXPECT_EQ(lab.err.str(),
            "orvenza-lab check: '-' is named twice, but the standard input can be read only once\n"
            "See 'orvenza-lab check --help'.\n");
  lab.err.str("");
  EXPECT_EQ(lab.Run({"check", "--separator", "300", "a.txt"}), 2);
  EXPECT_EQ(lab.err.str(),
            "orvenza-lab check: --separator '300': expected a code from 32 to 127 or one character\n"
            "See 'orvenza-lab check --help'.\n");
  lab.err.str("");
  EXPECT_EQ(lab.Run({"check", "--separator", "9", "a.txt"}), 2);
  EXPECT_EQ(lab.err.str().substr(0, 50), "orvenza-lab check: the separator '9' is never foun");
  EXPECT_EQ(lab.out.str(), "");
}

/// A long file; time passes while it is read.
class SlowFiles : public MemoryFiles {
 public:
  explicit SlowFiles(VirtualClock& clock) : clock_(clock) {}
  std::unique_ptr<ByteReader> OpenForReading(const std::string& path) const override {
    return std::make_unique<Slow>(MemoryFiles::OpenForReading(path), clock_);
  }

 private:
  class Slow : public ByteReader {
   public:
    Slow(std::unique_ptr<ByteReader> behind, VirtualClock& clock)
        : behind_(std::move(behind)), clock_(clock) {}
    std::size_t Read(char* buffer, std::size_t capacity) override {
      clock_.Advance(std::chrono::milliseconds(900));
      return behind_->Read(buffer, capacity);
    }

   private:
    std::unique_ptr<ByteReader> behind_;
    VirtualClock& clock_;
  };
  VirtualClock& clock_;
};

TEST_F(CheckCommandTest, ShowsItsProgressWhenItTakesLong) {
  SlowFiles files(lab.clock);
  for (int i = 0; i < 40000; ++i) files.content["a.txt"] += "4;5;\n";
  files.content["a.txt"] += "4;x;\n";
  LabSurroundings surroundings{files, lab.folders, lab.clock, lab.clock, lab.machine, lab.console, "home"};
  lab.console.progress = true;
  RunLab({"check", "--separator=59", "--quiet", "a.txt"}, Commands(), surroundings);
  EXPECT_EQ(lab.err.str(), "\r16,384 lines checked\r32,768 lines checked\r                    \r");
}

TEST_F(CheckCommandTest, ShowsNoProgressWhereTheResultsAppear) {
  SlowFiles files(lab.clock);
  for (int i = 0; i < 40000; ++i) files.content["a.txt"] += "4;5;\n";
  LabSurroundings surroundings{files, lab.folders, lab.clock, lab.clock, lab.machine, lab.console, "home"};
  RunLab({"check", "--separator=59", "--quiet", "a.txt"}, Commands(), surroundings);
  lab.console.progress = lab.console.terminal = true;
  RunLab({"check", "--separator=59", "a.txt"}, Commands(), surroundings);
  EXPECT_EQ(lab.err.str(), "");
}

}  // namespace
}  // namespace orvenza::test
