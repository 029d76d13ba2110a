#include "lab/replay/replay.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "lab/rehearsal/rehearsal.h"
#include "lab/rehearsal/scenario_reader.h"

namespace orvenza::test {
namespace {

using Lines = std::vector<std::string>;

constexpr const char* kTrace = "T:\\trace\\trace.txt";
constexpr const char* kTraceOn = "folder T:\\trace\nsetting [Host] Trace = T:\\trace\\trace.txt\n";

RehearsalOutcome Play(const std::string& scenario) { return Rehearse(ParseScenario("day", scenario)); }

/// The trace of a day on which nearly everything happens.
const std::string& TraceOfADay() {
  static const std::string trace = Play(std::string(kTraceOn) +
                                        "register on 1036 #2 lose-reply\n"
                                        "register on 1003 #3 absent 2\n"
                                        "at 2s ticket 1.txt\n"
                                        "| 1;PANE;1,000;150;1;;;1;;\n"
                                        "| 2;1;0;\n"
                                        "at 10min ticket 2.txt\n"
                                        "| 1;LATTE;1,000;250;1;;;1;;\n"
                                        "| 2;1;0;\n"
                                        "answer after 4s Scontrino stampato, continuare\n"
                                        "at 11min menu Configura\n"
                                        "answer after 2s close\n"
                                        "at 20min ticket 3.txt\n"
                                        "| 1;UOVA;1,000;350;1;;;1;;\n"
                                        "| 2;1;0;\n"
                                        "at 20min hold data\\3.txt\n"
                                        "at 21min release data\\3.txt\n"
                                        "answer Ok\nanswer Ok\n"
                                        "at 30min power fails\n"
                                        "at 40min start again\n"
                                        "at 50min quit\n")
                                       .files.at(kTrace);
  return trace;
}

std::string Replay(const std::string& trace, std::optional<TimeOfDay> around = {}) {
  return ReplayScenario(ReadTrace(trace), "trace.txt", around);
}

bool Holds(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

TEST(Replay, RepeatsAWholeDay) {
  const std::string scenario = Replay(TraceOfADay());
  const RehearsalOutcome again = Play(kTraceOn + scenario);
  EXPECT_EQ(again.problems, Lines{}) << scenario;
  EXPECT_EQ(again.files.at(kTrace), TraceOfADay()) << scenario;
}

TEST(Replay, TakesTheTicketOfAMinute) {
  EXPECT_EQ(Replay(TraceOfADay(), TimeOfDay{9, 10}),
            "# From trace.txt, 16/11/2026 09:10:00.085 to 16/11/2026 09:10:20.144.\n"
            "# Texts of tickets are masked.\n"
            "start 16/11/2026 09:09:59\n"
            "register on 1036 lose-reply\n"
            "folder storico\n"
            "file storico\\1.txt\n"
            "at 1022ms file data\\2.txt of 16/11/2026 09:10:00\n"
            "  | 1;XXXXX;1,000;250;1;;;1;;\n"
            "  | 2;1;0;\n"
            "at 22581ms quit\n"
            "answer after 4s Scontrino stampato, continuare\n");
}

TEST(Replay, GivesAShortScenarioThatRuns) {
  for (const TimeOfDay time : {TimeOfDay{9, 0}, TimeOfDay{9, 10}, TimeOfDay{9, 20}, TimeOfDay{9, 40}}) {
    const std::string scenario = Replay(TraceOfADay(), time);
    const RehearsalOutcome again = Play(scenario);
    EXPECT_EQ(again.problems, Lines{}) << scenario;
    EXPECT_TRUE(again.ended);
  }
}

TEST(Replay, IncludesAStartOfTheProgramDirectlyBefore) {
  const std::string ticket = " ticket 1.txt\n| 1;PANE;1,000;150;1;;;1;;\n| 2;1;0;\n";
  const auto around = [&](const std::string& start, const std::string& at) {
    const auto outcome =
        Play(kTraceOn + ("start 16/11/2026 " + start) + "\nat " + at + ticket + "at 30min quit\n");
    return Replay(outcome.files.at(kTrace), TimeOfDay{9, 0});
  };
  EXPECT_TRUE(Holds(around("08:59:58", "4s"), "start 16/11/2026 08:59:58\n"));
  EXPECT_TRUE(Holds(around("08:50:00", "604s"), "start 16/11/2026 09:00:03\n"));
}

TEST(Replay, TakesWhatIsNearestToAQuietMinute) {
  EXPECT_EQ(Replay(TraceOfADay(), TimeOfDay{9, 12}), Replay(TraceOfADay(), TimeOfDay{9, 10}));
  EXPECT_EQ(Replay(TraceOfADay(), TimeOfDay{23, 59}), Replay(TraceOfADay(), TimeOfDay{9, 50}));
}

TEST(Replay, SaysThatThereIsNothing) {
  EXPECT_EQ(Replay(""), "# There is nothing in trace.txt that could be replayed.\nat 1s quit\n");
  EXPECT_EQ(Replay("", TimeOfDay{9, 0}), Replay(""));
}

TEST(Replay, SaysWhichLinesAreMissing) {
  std::string trace = TraceOfADay();
  const std::size_t line = trace.find("16/11/2026 09:10:00.085  taken");
  ASSERT_NE(line, std::string::npos);
  trace.replace(line, 5, "?????");
  EXPECT_TRUE(Holds(Replay(trace), "# Lines of the trace are missing or cannot be understood: line "));
  trace.insert(line, "16/11/2026 09:10:00.085  lost      7 lines\r\n");
  EXPECT_TRUE(Holds(Replay(trace),
                    "# The trace could not be written at 16/11/2026 09:10:00.085: 7 lines are missing.\n"));
}

TEST(Replay, EndsARunThatTheTraceLeavesOpen) {
  const std::size_t middle = TraceOfADay().find("dialog");
  const std::string scenario = Replay(TraceOfADay().substr(0, TraceOfADay().find('\n', middle) + 1));
  EXPECT_TRUE(Holds(scenario, "# The trace ends while the connector runs.\n")) << scenario;
  EXPECT_TRUE(Holds(scenario, "answer nothing\n")) << scenario;
  EXPECT_TRUE(Play(scenario).ended) << scenario;
}

/// Whatever is left of a trace, the scenario can be read.
void ExpectScenario(const std::string& trace) {
  const std::string scenario = Replay(trace);
  EXPECT_NO_THROW(static_cast<void>(ParseScenario("cut", scenario))) << scenario;
}

TEST(Replay, TakesATraceThatIsCutAnywhere) {
  for (std::size_t cut = 0; cut < TraceOfADay().size(); cut += 97) {
    ExpectScenario(TraceOfADay().substr(0, cut));
    ExpectScenario(TraceOfADay().substr(cut));
  }
}

TEST(Replay, TakesATraceWithoutOneOfItsLines) {
  const std::string& trace = TraceOfADay();
  for (std::size_t begin = 0; begin < trace.size();) {
    const std::size_t end = trace.find('\n', begin) + 1;
    ExpectScenario(trace.substr(0, begin) + trace.substr(end));
    begin = trace.find('\n', end) + 1;
    if (begin == 0) break;
  }
}

TEST(Replay, TakesAnyBytes) {
  std::string garbage = TraceOfADay();
  unsigned random = 1;
  for (char& c : garbage) {
    random = random * 1664525 + 1013904223;
    if (random >> 26 == 0) c = static_cast<char>(random >> 8);
  }
  ExpectScenario(garbage);
  for (std::size_t begin = 0; begin < garbage.size(); begin += 1009)
    ExpectScenario(garbage.substr(begin, 2000));
  ExpectScenario(std::string(100'000, '\xFF'));
  ExpectScenario("16/11/2026 09:00:00.000  seen      data\\a<b>|?.txt of 16/11/2026 09:00:00\n");
}

TEST(Replay, QuotesANameThatHoldsAWordOfTheScenario) {
  std::string trace = TraceOfADay();
  for (std::size_t at = 0; (at = trace.find("2.txt", at)) != std::string::npos; at += 10)
    trace.replace(at, 5, "2 from b.txt");
  EXPECT_TRUE(Holds(Replay(trace), " file \"data\\2 from b.txt\" of 16/11/2026 09:10:00\n")) << Replay(trace);
}

/// A trace that cannot be written changes nothing but the error log.
TEST(TracedRun, GoesOnWithoutItsTrace) {
  const std::string day =
      "at 1s ticket 1.txt\n| 1;PANE;1,000;150;1;;;1;;\n| 2;1;0;\n"
      "at 90s ticket 2.txt\n| 1;PANE;1,000;150;1;;;1;;\n| 2;1;0;\nat 2min quit\n";
  const RehearsalOutcome plain = Play(day);
  for (const char* trouble :
       {"at 500ms drive T: away\n", "at 500ms disk T: full\n", "at 500ms lock T:\\trace\\trace.txt\n",
        "at 500ms hold T:\\trace\\trace.txt\n", "at 500ms remove T:\\trace\n"}) {
    const RehearsalOutcome traced = Play(kTraceOn + day + trouble);
    EXPECT_EQ(traced.sent, plain.sent) << trouble;
    EXPECT_EQ(traced.lastSent, plain.lastSent) << trouble;
    EXPECT_EQ(traced.paper, plain.paper) << trouble;
    std::size_t errors = 0;
    for (const auto& event : traced.events) errors += event.kind == "error" ? 1U : 0U;
    EXPECT_EQ(errors, 2u) << trouble;
  }
}

TEST(TracedRun, RefusesATraceAmongTheTickets) {
  const RehearsalOutcome outcome = Play("setting [Host] Trace = data\\trace.txt\nat 1s quit\n");
  EXPECT_TRUE(Holds(outcome.files.at("C:\\Orvenza\\Err.txt"),
                    " - Traccia disattivata, file non ammesso : data\\trace.txt\r\n"));
  EXPECT_FALSE(outcome.files.contains("C:\\Orvenza\\data\\trace.txt"));
}

TEST(TracedRun, ExplainsWhyThereIsNoTrace) {
  const RehearsalOutcome outcome =
      Play("setting [Host] Trace = trace.txt\nlock Orvenza.ini\nat 2s release Orvenza.ini\nat 5s quit\n");
  EXPECT_TRUE(Holds(outcome.files.at("C:\\Orvenza\\Err.txt"),
                    " - Traccia disattivata, file INI illeggibile all'avvio\r\n"));
  EXPECT_FALSE(outcome.files.contains("C:\\Orvenza\\trace.txt"));
}

TEST(TracedRun, HidesWhatTheBundleHides) {
  const RehearsalOutcome outcome = Play(
      "setting [Host] Trace = trace.txt\n"
      "ticket Nome.txt\n| 1;Segreto;1,000;150;1;;;1;;\n| 23;Segreto;1;\n| 99;Segreto;\n| 33;1;Segreto.bmp;\n"
      "| 1;Segreto;tanto;150;1;;;1;;\n"
      "answer Abortire la stampa dello scontrino\nat 20s quit\n");
  const std::string& trace = outcome.files.at("C:\\Orvenza\\trace.txt");
  EXPECT_TRUE(Holds(trace, "| 99;Xxxxxxx;"));
  EXPECT_TRUE(Holds(trace, "dialog    Orvenza (choice): Riga non valida : 99;Xxxxxxx;")) << trace;
  EXPECT_TRUE(Holds(trace, "error     Riga non valida : 99;Xxxxxxx;")) << trace;
  std::string others = trace;
  // The file name of a logo stays.
  others.erase(others.find("Segreto.bmp"), 11);
  EXPECT_FALSE(Holds(others, "egret")) << trace;
}

TEST(TracedRun, LeavesTheTraceOfAPowerCutComplete) {
  const RehearsalOutcome outcome = Play(
      "setting [Host] Trace = trace.txt\nticket 1.txt\n| 1;PANE;1,000;150;1;;;1;;\n| 2;1;0;\n"
      "at 600ms power fails\n");
  EXPECT_TRUE(outcome.files.at("C:\\Orvenza\\trace.txt").ends_with("archived  1.txt as storico\\1.txt\r\n"))
      << outcome.files.at("C:\\Orvenza\\trace.txt");
}

}  // namespace
}  // namespace orvenza::test
