#include "simulator/fault_script.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace orvenza {
namespace {

using namespace std::chrono_literals;

Fault OnlyFault(const std::string& line) {
  const FaultScript script = ParseFaultScript("prova.sim", line);
  EXPECT_EQ(script.faults.size(), 1u) << line;
  return script.faults.empty() ? Fault() : script.faults.front();
}

TEST(FaultScript, AnEmptyScriptIsAnOrdinaryRegister) {
  const FaultScript script = ParseFaultScript("prova.sim", "");
  EXPECT_TRUE(script.faults.empty());
  EXPECT_EQ(script.speed, std::nullopt);
  EXPECT_EQ(script.pace, 1);
  EXPECT_EQ(script.paperFile, "");
  EXPECT_EQ(script.profile.model, "ORVSIM  01");
  EXPECT_EQ(script.profile.receiptCapacity, 200u);
}

TEST(FaultScript, ReadsTheRegistersSettings) {
  const FaultScript script = ParseFaultScript("prova.sim",
                                              "# A register of the older kind\r\n"
                                              "\r\n"
                                              "model \"  TOVEST 8\"\r\n"
                                              "release \"02.04.00\"\r\n"
                                              "\tcapacity 40\n"
                                              "roll  300 \n"
                                              "clock -90\n"
                                              "speed 9600\n"
                                              "pace 20\n"
                                              "paper carta di prova.txt");
  EXPECT_EQ(script.profile.model, "  TOVEST 8");
  EXPECT_EQ(script.profile.release, "  02.04.00");
  EXPECT_EQ(script.profile.receiptCapacity, 40u);
  EXPECT_EQ(script.profile.rollLines, 300u);
  EXPECT_EQ(script.profile.clockAhead, -90s);
  EXPECT_EQ(script.speed, 9600);
  EXPECT_EQ(script.pace, 20);
  EXPECT_EQ(script.paperFile, "carta di prova.txt");
}

TEST(FaultScript, SpeedCanBeInstant) { EXPECT_EQ(ParseFaultScript("prova.sim", "speed instant").speed, 0); }

TEST(FaultScript, TakesTheSmallestAndLargestNumbers) {
  for (const char* line :
       {"capacity 1", "roll 50", "clock 86400", "clock -86400", "speed 1", "pace 1", "pace 100", "absent 1",
        "port-fails 1", "after 0 absent 1", "on 1 late 1", "on 1 #1 x1 silence", "on 1 link-error 1",
        "on 1 link-error 3", "capacity 2147483647"}) {
    EXPECT_NO_THROW(ParseFaultScript("prova.sim", line)) << line;
  }
}

TEST(FaultScript, ReadsEveryFaultOfACommand) {
  const struct {
    const char* line;
    FaultKind kind;
    const char* text;
    int number;
  } cases[] = {{"on 1003 reply ERR13", FaultKind::kReply, "ERR13", 0},
               {"on 1003 reply \" 1003 \"", FaultKind::kReply, " 1003 ", 0},
               {"on 1003 reply \"\"", FaultKind::kReply, "", 0},
               {"on 1003 reply due parole", FaultKind::kReply, "due parole", 0},
               {"on 1003 silence", FaultKind::kSilence, "", 0},
               {"on 1003 link-error 2", FaultKind::kLinkError, "", 2},
               {"on 1003 lose-reply", FaultKind::kLoseReply, "", 0},
               {"on 1003 late 16000", FaultKind::kLate, "", 16000},
               {"on 1003 paper-out journal", FaultKind::kPaperOut, "", 0},
               {"on 1003 absent 3", FaultKind::kAbsent, "", 3},
               {"on 1003 port-fails 2", FaultKind::kPortFails, "", 2},
               {"on 1003 receipt-open", FaultKind::kKeyedIn, "", 0},
               {"on 1003 receipt-paid", FaultKind::kPaidThere, "", 0}};
  for (const auto& [line, kind, text, number] : cases) {
    const Fault fault = OnlyFault(line);
    EXPECT_EQ(fault.prefix, "1003") << line;
    EXPECT_EQ(fault.kind, kind) << line;
    EXPECT_EQ(fault.text, text) << line;
    EXPECT_EQ(fault.number, number) << line;
  }
}

TEST(FaultScript, ReadsWhichOccurrencesAreStruck) {
  const struct {
    const char* line;
    std::size_t first, times;
  } cases[] = {{"on 3217 silence", 1, 1},
               {"on 3217 #5 silence", 5, 1},
               {"on 3217 x3 silence", 1, 3},
               {"on 3217 #2 x4 silence", 2, 4},
               {"on 3217 x* silence", 1, Fault::kAlways}};
  for (const auto& [line, first, times] : cases) {
    const Fault fault = OnlyFault(line);
    EXPECT_EQ(fault.first, first) << line;
    EXPECT_EQ(fault.times, times) << line;
  }
}

TEST(FaultScript, ReadsFaultsThatNeedNoCommand) {
  const Fault absent = OnlyFault("absent 3");
  EXPECT_EQ(absent.prefix, "");
  EXPECT_EQ(absent.kind, FaultKind::kAbsent);
  EXPECT_EQ(absent.after, 0ms);
  const Fault paper = OnlyFault("after 60000 paper-out receipt");
  EXPECT_EQ(paper.after, 60000ms);
  EXPECT_EQ(paper.kind, FaultKind::kPaperOut);
  EXPECT_EQ(paper.paper, Paper::kReceipt);
  EXPECT_EQ(OnlyFault("port-fails 2").number, 2);
}

TEST(FaultScript, ReadsFaultsThatAwaitACommand) {
  const Fault next = OnlyFault("next reply ERR08");
  EXPECT_EQ(next.prefix, "");
  EXPECT_EQ(next.after, 0ms);
  EXPECT_EQ(next.times, 1u);
  EXPECT_EQ(next.kind, FaultKind::kReply);
  EXPECT_EQ(next.text, "ERR08");
  const Fault every = OnlyFault("after 8000 every link-error 1");
  EXPECT_EQ(every.after, 8000ms);
  EXPECT_EQ(every.times, Fault::kAlways);
  EXPECT_EQ(every.kind, FaultKind::kLinkError);
  EXPECT_EQ(every.number, 1);
  EXPECT_EQ(OnlyFault("next silence").kind, FaultKind::kSilence);
  EXPECT_EQ(OnlyFault("next lose-reply").kind, FaultKind::kLoseReply);
  EXPECT_EQ(OnlyFault("every late 5000").number, 5000);
  EXPECT_EQ(OnlyFault("after 12000 no fault").kind, FaultKind::kNone);
}

TEST(FaultScript, ReadsEverySwitch) {
  const struct {
    const char* line;
    FaultKind kind;
    bool on;
    Paper paper = Paper::kJournal;
  } cases[] = {{"power off", FaultKind::kPower, false},
               {"after 10 power on", FaultKind::kPower, true},
               {"cable out", FaultKind::kCable, false},
               {"after 10 cable in", FaultKind::kCable, true},
               {"key off", FaultKind::kKey, false},
               {"on 1036 key on", FaultKind::kKey, true},
               {"receipt-paper out", FaultKind::kPaper, false, Paper::kReceipt},
               {"receipt-paper in", FaultKind::kPaper, true, Paper::kReceipt},
               {"journal-paper out", FaultKind::kPaper, false},
               {"after 10 journal-paper in", FaultKind::kPaper, true}};
  for (const auto& [line, kind, on, paper] : cases) {
    const Fault fault = OnlyFault(line);
    EXPECT_EQ(fault.kind, kind) << line;
    EXPECT_EQ(fault.on, on) << line;
    EXPECT_EQ(fault.paper, paper) << line;
  }
}

TEST(FaultScript, KeepsTheLinesOfTheRegister) {
  const FaultScript script =
      ParseFaultScript("prova.sim", "# guasti\r\n\n pace 2\n  on 1036  silence \r\npaper a.txt\nroll 50");
  EXPECT_EQ(script.lines, (std::vector<std::string>{"on 1036  silence", "roll 50"}));
}

TEST(FaultScript, KeepsFaultsInTheirOrder) {
  const FaultScript script = ParseFaultScript("prova.sim", "on 1 silence\non 2 silence\non 3 silence\n");
  ASSERT_EQ(script.faults.size(), 3u);
  EXPECT_EQ(script.faults[0].prefix, "1");
  EXPECT_EQ(script.faults[2].prefix, "3");
}

TEST(FaultScript, RefusesABadLineWithFileLineAndWhatWasExpected) {
  try {
    ParseFaultScript("guasti/prova.sim", "# guasti\n\non 1036 #0 silence\n");
    FAIL() << "the script was read";
  } catch (const ScriptError& error) {
    EXPECT_EQ(error.file, "guasti/prova.sim");
    ASSERT_EQ(error.mistakes.size(), 1u);
    EXPECT_EQ(error.mistakes[0].line, 3u);
    EXPECT_EQ(error.mistakes[0].expected, "\"#\" and which one, at least 1");
    EXPECT_STREQ(error.what(), "guasti/prova.sim:3: expected \"#\" and which one, at least 1");
  }
}

std::string Refusal(const std::string& line) {
  try {
    ParseFaultScript("p", line);
  } catch (const ScriptError& error) {
    return error.what();
  }
  return "";
}

TEST(FaultScript, ReportsEveryBadLine) {
  EXPECT_EQ(Refusal("on 1 silence\ncapacity 0\n# x\npace 2\nspeed fast\nafter x silence"),
            "p:2: expected a number of receipt entries, at least 1\n"
            "p:5: expected bits a second, or \"instant\"\n"
            "p:6: expected a number of milliseconds");
}

TEST(FaultScript, SaysWhatWasExpected) {
  const std::string first =
      "\"on\", \"after\", \"next\", \"every\", \"no fault\", \"absent\", \"port-fails\", \"paper-out\", "
      "\"receipt-paper\", \"journal-paper\", \"power\", \"cable\", \"key\", \"receipt-open\", "
      "\"receipt-paid\", \"model\", \"release\", \"capacity\", \"roll\", \"clock\", \"speed\", \"pace\" or "
      "\"paper\"";
  const std::string fault =
      "\"reply\", \"silence\", \"link-error\", \"lose-reply\", \"late\", \"paper-out\", \"receipt-paper\", "
      "\"journal-paper\", \"power\", \"cable\", \"key\", \"absent\", \"port-fails\", \"receipt-open\" or "
      "\"receipt-paid\"";
  const std::string state =
      "\"next\", \"every\", \"no fault\", \"absent\", \"port-fails\", \"paper-out\", \"receipt-paper\", "
      "\"journal-paper\", \"power\", \"cable\", \"key\", \"receipt-open\" or \"receipt-paid\"";
  const std::string exchange = "\"reply\", \"silence\", \"link-error\", \"lose-reply\" or \"late\"";
  const std::string which = "\"#\" and which one, at least 1";
  const std::string times = "\"x\" and how many, at least 1, or \"x*\"";
  const std::string label = "the model label, 10 characters in double quotes";
  const struct {
    std::string line, expected;
  } cases[] = {{"print", first},
               {"On 1003 silence", first},
               {"on", "the digits that the command begins with"},
               {"on 10x3 silence", "the digits that the command begins with"},
               {"on silence", "the digits that the command begins with"},
               {"on 1003", fault},
               {"on 1003 quiet", fault},
               {"on 1003 #x silence", which},
               {"on 1003 # silence", which},
               {"on 1003 #-1 silence", which},
               {"on 1003 x silence", times},
               {"on 1003 x0 silence", times},
               {"on 1003 x3 #2 silence", fault},
               {"on 1003 silence now", "the end of the line"},
               {"on 1003 reply", "the reply's text"},
               {"on 1003 reply \"ERR13", "a closing double quote"},
               {"on 1003 reply \"", "a closing double quote"},
               {"on 1003 link-error", "the link error's number, 1 to 3"},
               {"on 1003 link-error 4", "the link error's number, 1 to 3"},
               {"on 1003 late", "a number of milliseconds, at least 1"},
               {"on 1003 late 5s", "a number of milliseconds, at least 1"},
               {"on 1003 paper-out", "\"journal\" or \"receipt\""},
               {"paper-out both", "\"journal\" or \"receipt\""},
               {"absent 0", "a number of reads, at least 1"},
               {"absent 3 times", "the end of the line"},
               {"port-fails", "a number of openings, at least 1"},
               {"port-fails 99999999999", "a number of openings, at least 1"},
               {"after", "a number of milliseconds"},
               {"after -1 absent 1", "a number of milliseconds"},
               {"after 1 silence", state},
               {"after 1", state},
               {"after 1 paper-in receipt", state},
               {"next", exchange},
               {"next absent 1", exchange},
               {"after 1 every power off", exchange},
               {"every link-error 0", "the link error's number, 1 to 3"},
               {"every reply", "the reply's text"},
               {"next silence 2", "the end of the line"},
               {"no", "\"fault\""},
               {"no faults", "\"fault\""},
               {"after 1 no fault now", "the end of the line"},
               {"on 1003 no fault", fault},
               {"on 1003 next silence", fault},
               {"power", "\"off\" or \"on\""},
               {"after 1 power out", "\"off\" or \"on\""},
               {"power off on", "the end of the line"},
               {"cable off", "\"out\" or \"in\""},
               {"key in", "\"off\" or \"on\""},
               {"receipt-paper off", "\"out\" or \"in\""},
               {"journal-paper", "\"out\" or \"in\""},
               {"model", label},
               {"model \"TOVEST\"", label},
               {"release \"02.04.00.00\"", "the release, at most 10 characters in double quotes"},
               {"capacity 0", "a number of receipt entries, at least 1"},
               {"roll 49", "a number of paper lines, at least 50"},
               {"clock 86401", "seconds ahead, -86400 to 86400"},
               {"speed 0", "bits a second, or \"instant\""},
               {"speed immediate", "bits a second, or \"instant\""},
               {"speed fast", "bits a second, or \"instant\""},
               {"speed 9600 baud", "the end of the line"},
               {"pace 0", "how many times as fast, 1 to 100"},
               {"pace 101", "how many times as fast, 1 to 100"},
               {"pace 2,5", "how many times as fast, 1 to 100"},
               {"pace 20 times", "the end of the line"},
               {"paper", "a file name"}};
  for (const auto& [line, expected] : cases) EXPECT_EQ(Refusal(line), "p:1: expected " + expected) << line;
}

}  // namespace
}  // namespace orvenza
