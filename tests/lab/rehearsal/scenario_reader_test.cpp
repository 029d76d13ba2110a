#include "lab/rehearsal/scenario_reader.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace orvenza::test {
namespace {

using std::chrono::milliseconds;

Scenario Parse(const std::string& text) { return ParseScenario("day", text); }

ScenarioEvent OnlyEvent(const std::string& text) {
  const Scenario scenario = Parse(text);
  EXPECT_EQ(scenario.events.size(), 1u) << text;
  return scenario.events.empty() ? ScenarioEvent() : scenario.events.front();
}

/// The error message for an invalid text.
std::string Refused(const std::string& text, const SourceReader& readSource = {}) {
  try {
    ParseScenario("day", text, readSource);
  } catch (const ScriptError& error) {
    return error.what();
  }
  return "accepted";
}

TEST(Scenario, IsAQuietDayWhenNothingIsSaid) {
  const Scenario scenario = Parse("\xEF\xBB\xBF# nothing\n\n  \n");
  EXPECT_EQ(scenario.start, (LocalTime{2026, 11, 16, 9, 0, 0}));
  EXPECT_TRUE(scenario.settingsFile);
  EXPECT_TRUE(scenario.events.empty());
  EXPECT_FALSE(scenario.secondInstance);
  EXPECT_EQ(scenario.limit, std::chrono::hours(1));
}

TEST(Scenario, TakesATicketWithItsLinesAndItsTime) {
  const ScenarioEvent event = OnlyEvent(
      "at 2s ticket a b.txt of 31/12/2025 23:59:58\n"
      "  | 1;Caff\xC3\xA8 \xE2\x82\xAC<7F>;\r\n"
      "  |\n"
      "  |  <x7> end\n");
  EXPECT_EQ(event.kind, EventKind::kPut);
  EXPECT_EQ(event.at, milliseconds(2000));
  EXPECT_EQ(event.path, "C:\\Orvenza\\data\\a b.txt");
  EXPECT_EQ(event.modified, (LocalTime{2025, 12, 31, 23, 59, 58}));
  EXPECT_EQ(event.content, "1;Caff\xE8 \x80\x7F;\r\n\r\n <x7> end\r\n");
}

TEST(Scenario, TakesPathsWithDotsQuotesAndAnOf) {
  EXPECT_EQ(OnlyEvent("file a..\\..b").path, "C:\\Orvenza\\a..\\..b");
  EXPECT_EQ(OnlyEvent("ticket \"end of day.txt\"").path, "C:\\Orvenza\\data\\end of day.txt");
  EXPECT_EQ(OnlyEvent("ticket \"end of day.txt\"").modified, std::nullopt);
  const ScenarioEvent dated = OnlyEvent("ticket \"end of day.txt\" of 31/12/2025 23:59:58");
  EXPECT_EQ(dated.path, "C:\\Orvenza\\data\\end of day.txt");
  EXPECT_EQ(dated.modified, (LocalTime{2025, 12, 31, 23, 59, 58}));
}

TEST(Scenario, TakesTheBytesOfATicketFromAFile) {
  const std::string bytes("1;PANE\x7F\0\r\n\n\xE8 <41>", 17);
  const auto parse = [&](const std::string& line, const std::string& source) {
    const Scenario scenario = ParseScenario("day", line, [&](const std::string& file) {
      EXPECT_EQ(file, source) << line;
      return bytes;
    });
    EXPECT_EQ(scenario.events.at(0).content, bytes);
    return scenario.events.at(0);
  };
  EXPECT_EQ(parse("ticket a.txt from b.txt", "b.txt").path, "C:\\Orvenza\\data\\a.txt");
  EXPECT_EQ(parse("at 2s file D:\\a.txt from ../b.txt", "../b.txt").at, milliseconds(2000));
  const ScenarioEvent dated = parse("ticket a.txt from in/b c.txt of 31/12/2025 23:59:58", "in/b c.txt");
  EXPECT_EQ(dated.modified, (LocalTime{2025, 12, 31, 23, 59, 58}));
  const ScenarioEvent quoted = parse("ticket \"a from b.txt\" from \"c of d.txt\"", "c of d.txt");
  EXPECT_EQ(quoted.path, "C:\\Orvenza\\data\\a from b.txt");
  EXPECT_EQ(quoted.modified, std::nullopt);
}

TEST(Scenario, TakesAnEmptyFile) {
  const SourceReader empty = [](const std::string&) { return std::string(); };
  EXPECT_EQ(ParseScenario("day", "ticket a.txt from b.txt", empty).events.at(0).content, "");
  EXPECT_EQ(Refused("ticket a.txt from b.txt\n| 2;1;0;", empty),
            "day:2: expected no lines behind \"from\", which names a whole file");
}

TEST(Scenario, ReportsEveryBadLineInOrder) {
  EXPECT_EQ(
      Refused("start soon\n"
              "register capacity 0\n"
              "ticket ../1.txt\n"
              "| 2;1;0;\n"
              "| <7\n"
              "# perch\xE8\n"
              "ticket 2.txt\n"
              "1;PANE;\n"
              "| 2;1;0;\n"
              "limit 1h\n"
              "| 2;1;0;\n"
              "register on 1036 silent"),
      "day:1: expected a date and time such as 16/11/2026 09:00:00\n"
      "day:2: expected a number of receipt entries, at least 1\n"
      "day:3: expected a path without \"..\"\n"
      "day:5: expected \">\" behind \"<\" and two hexadecimal digits; \"<\" itself is <3C>\n"
      "day:6: expected UTF-8 text\n"
      "day:8: expected \"|\" before each line of a file\n"
      "day:11: expected \"file\" or \"ticket\" before its lines\n"
      "day:12: expected \"reply\", \"silence\", \"link-error\", \"lose-reply\", \"late\", \"paper-out\", "
      "\"receipt-paper\", \"journal-paper\", \"power\", \"cable\", \"key\", \"absent\", \"port-fails\", "
      "\"receipt-open\" or \"receipt-paid\"");
}

TEST(Scenario, TakesAFileOfTheNameOfAWord) {
  EXPECT_EQ(Parse("file start\nstart 16/11/2026 10:00:00\nfile limit\nlimit 5s").events.size(), 2u);
}

TEST(Scenario, LetsAFileComeTwiceAtDifferentMoments) {
  EXPECT_EQ(Parse("ticket a.txt\nat 1s ticket a.txt\nat 1s ticket a.txt\n").events.size(), 3u);
}

TEST(Scenario, TakesATextInQuotesEverywhereWithoutThem) {
  const Scenario scenario = Parse("expect event log \"End \"\nexpect paper \"PANE \"\nexpect event broken\n");
  EXPECT_EQ(scenario.expectations[0].text, "End ");
  EXPECT_EQ(scenario.expectations[1].text, "PANE ");
  EXPECT_EQ(scenario.expectations[2].text, "");
}

TEST(Scenario, TakesAByteByItsTwoDigitsOnly) {
  const auto line = [](const std::string& text) { return "file a.txt\n| " + text; };
  EXPECT_EQ(OnlyEvent(line("<7f><0D> < a, <ZZ>, <")).content, "\x7F\r < a, <ZZ>, <\r\n");
  for (const char* text : {"<7F", "a <5 kg", "<7>", "<7FA>", "<7F1", "<a"}) {
    EXPECT_EQ(Refused(line(text)),
              "day:2: expected \">\" behind \"<\" and two hexadecimal digits; \"<\" itself is <3C>")
        << text;
  }
}

TEST(Scenario, MakesALogoOfTheShapeThatIsTaken) {
  const ScenarioEvent event = OnlyEvent("logo 3 logo.bmp");
  EXPECT_EQ(event.path, "C:\\Orvenza\\logo.bmp");
  EXPECT_EQ(event.content.size(), 62u + 3u * 56u);
  EXPECT_EQ(event.content.substr(0, 2), "BM");
  EXPECT_EQ(event.content.substr(22, 4), std::string("\x03\0\0\0", 4));
  EXPECT_EQ(event.content.substr(62 + 56, 1), "\x02");
}

TEST(Scenario, KnowsWhatMayHappen) {
  struct Row {
    const char* line;
    EventKind kind;
    const char* path;
  };
  const Row rows[] = {
      {"file D:\\in\\a.txt", EventKind::kPut, "D:\\in\\a.txt"},
      {"at 1ms file sub/a.txt", EventKind::kPut, "C:\\Orvenza\\sub\\a.txt"},
      {"folder storico", EventKind::kMakeFolder, "C:\\Orvenza\\storico"},
      {"at 1ms remove a.txt", EventKind::kDelete, "C:\\Orvenza\\a.txt"},
      {"read-only a.txt", EventKind::kReadOnly, "C:\\Orvenza\\a.txt"},
      {"drive D: away", EventKind::kDriveAway, "D:"},
      {"at 1ms drive D: back", EventKind::kDriveBack, "D:"},
      {"disk C: full", EventKind::kDiskFull, "C:"},
      {"at 1ms disk C: free", EventKind::kDiskFree, "C:"},
      {"clock refused", EventKind::kRefuseClock, ""},
      {"at 1ms menu Utilita'", EventKind::kMenu, ""},
      {"at 1ms quit", EventKind::kQuit, ""},
      {"at 1ms session ends", EventKind::kSessionEnds, ""},
      {"at 1ms power fails", EventKind::kPowerFails, ""},
  };
  for (const Row& row : rows) {
    const ScenarioEvent event = OnlyEvent(row.line);
    EXPECT_EQ(event.kind, row.kind) << row.line;
    EXPECT_EQ(event.path, row.path) << row.line;
    EXPECT_EQ(event.at, milliseconds(std::string(row.line).starts_with("at") ? 1 : 0)) << row.line;
  }
  EXPECT_EQ(OnlyEvent("at 1ms menu Utilita'").item, MenuItem::kUtilities);
}

TEST(Scenario, KnowsWhatAnotherProgramOpensAFileFor) {
  EXPECT_EQ(OnlyEvent("hold a.txt").hold, FileHold::kReading);
  EXPECT_EQ(OnlyEvent("lock a.txt").hold, FileHold::kWriting);
  EXPECT_EQ(OnlyEvent("release a.txt").hold, FileHold::kNone);
  EXPECT_EQ(OnlyEvent("release a.txt").kind, EventKind::kHold);
}

TEST(Scenario, ReadsTimesWithTheirUnits) {
  EXPECT_EQ(OnlyEvent("at 1500ms quit").at, milliseconds(1500));
  EXPECT_EQ(OnlyEvent("at 3s quit").at, milliseconds(3000));
  EXPECT_EQ(OnlyEvent("at 2min quit").at, milliseconds(120'000));
  EXPECT_FALSE(Parse("").untilPrinted);
  EXPECT_TRUE(Parse("until printed").untilPrinted);
  EXPECT_EQ(Parse("limit 2h").limit, milliseconds(7'200'000));
}

TEST(Scenario, TakesSettingsByTheirSections) {
  const Scenario scenario = Parse(
      "setting [General] Separator (ascii,max 127) = 127\n"
      "setting [Database] HistoricTickets =\n");
  ASSERT_EQ(scenario.settings.size(), 2u);
  EXPECT_EQ(scenario.settings[0].section, "General");
  EXPECT_EQ(scenario.settings[0].key, "Separator (ascii,max 127)");
  EXPECT_EQ(scenario.settings[0].value, "127");
  EXPECT_EQ(scenario.settings[1].value, "");
  EXPECT_FALSE(Parse("settings none").settingsFile);
}

TEST(Scenario, TakesAnswersInTheirOrder) {
  const Scenario scenario = Parse("answer after 2s Riprova\nanswer menu Esci\nanswer nothing\n");
  ASSERT_EQ(scenario.answers.size(), 3u);
  EXPECT_EQ(scenario.answers[0].text, "Riprova");
  EXPECT_EQ(scenario.answers[0].reaction, milliseconds(2000));
  EXPECT_EQ(scenario.answers[1].text, "menu Esci");
  EXPECT_EQ(scenario.answers[1].reaction, milliseconds(0));
  EXPECT_EQ(scenario.answers[2].reaction, ScenarioAnswer::kNever);
}

TEST(Scenario, HandsTheRegisterItsScript) {
  const Scenario scenario =
      Parse("register capacity 40\nstart 01/02/2027 08:09:10\nregister on 1036 #2 silence\n");
  EXPECT_EQ(scenario.device.profile.receiptCapacity, 40u);
  ASSERT_EQ(scenario.device.faults.size(), 1u);
  EXPECT_EQ(scenario.device.faults[0].prefix, "1036");
  EXPECT_EQ(scenario.start, (LocalTime{2027, 2, 1, 8, 9, 10}));
}

TEST(Scenario, TakesWhatIsExpected) {
  const Scenario scenario = Parse(
      "expect event log End\nexpect no paper ANNULLO\nexpect file storico\\1.txt\nexpect sent 1064 a b 2 "
      "times\n"
      "second instance\n");
  ASSERT_EQ(scenario.expectations.size(), 4u);
  EXPECT_EQ(scenario.expectations[0].kind, Expectation::Kind::kEvent);
  EXPECT_EQ(scenario.expectations[0].event, "log");
  EXPECT_EQ(scenario.expectations[0].text, "End");
  EXPECT_TRUE(scenario.expectations[1].none);
  EXPECT_EQ(scenario.expectations[2].text, "C:\\Orvenza\\storico\\1.txt");
  EXPECT_EQ(scenario.expectations[3].text, "1064 a b");
  EXPECT_EQ(scenario.expectations[3].times, 2u);
  EXPECT_TRUE(scenario.secondInstance);
}

TEST(Scenario, ReadsCutsOfThePower) {
  const Scenario scenario =
      Parse("power fails before 1036 #2\npower fails after 1003\npower fails at change 12\n");
  ASSERT_EQ(scenario.powerCuts.size(), 3u);
  EXPECT_EQ(scenario.powerCuts[0].when, PowerCut::When::kBeforeCommand);
  EXPECT_EQ(scenario.powerCuts[0].command, "1036");
  EXPECT_EQ(scenario.powerCuts[0].number, 2u);
  EXPECT_EQ(scenario.powerCuts[1].when, PowerCut::When::kAfterReply);
  EXPECT_EQ(scenario.powerCuts[1].number, 1u);
  EXPECT_EQ(scenario.powerCuts[2].when, PowerCut::When::kAfterChange);
  EXPECT_EQ(scenario.powerCuts[2].number, 12u);
}

TEST(Scenario, RefusesACutOfThePowerWithoutItsPoint) {
  const std::string expected =
      "day:1: expected \"fails\", then \"before\" or \"after\", a command and which one, such as before 1036 "
      "#2; "
      "or \"at change\" and a number";
  for (const char* text : {"power", "power comes", "power fails", "power fails before",
                           "power fails before x", "power fails after 1036 #0", "power fails at change",
                           "power fails at change 0", "power fails at noon"}) {
    EXPECT_EQ(Refused(text), expected) << text;
  }
}

TEST(Scenario, RefusesALineThatItCannotRead) {
  struct Row {
    const char* text;
    const char* message;
  };
  const char* const time = "day:1: expected a time with its unit, such as 500ms, 2s, 10min or 1h";
  const char* const date = "day:1: expected a date and time such as 16/11/2026 09:00:00";
  const Row rows[] = {
      {"at 2 quit", time},
      {"at soon quit", time},
      {"at 2m quit", time},
      {"at 1001h quit", time},
      {"limit 1000000000h", time},
      {"limit -1s", time},
      {"start 16-11-2026 09:00:00", date},
      {"start 30/02/2026 09:00:00", date},
      {"start 16/11/2026 24:00:00", date},
      {"ticket a.txt of yesterday", date},
      {"# one\nregister", "day:2: expected a line of the simulator's script, without \"paper\" and \"pace\""},
      {"register paper p.txt",
       "day:1: expected a line of the simulator's script, without \"paper\" and \"pace\""},
      {"register pace 20",
       "day:1: expected a line of the simulator's script, without \"paper\" and \"pace\""},
      {"# one\n\nregister capacity none", "day:3: expected a number of receipt entries, at least 1"},
      {"file", "day:1: expected a path, below the program folder or with its drive"},
      {"file \"\"", "day:1: expected a path, below the program folder or with its drive"},
      {"file C:", "day:1: expected a path, below the program folder or with its drive"},
      {"file D:\\. of 16/11/2026 09:00:00",
       "day:1: expected a path, below the program folder or with its drive"},
      {"logo 3 C:\\", "day:1: expected a path, below the program folder or with its drive"},
      {"file what?.txt", "day:1: expected a path, below the program folder or with its drive"},
      {"ticket ../../x.txt", "day:1: expected a path without \"..\""},
      {"expect file D:\\..", "day:1: expected a path without \"..\""},
      {"| text", "day:1: expected \"file\" or \"ticket\" before its lines"},
      {"ticket a.txt\nlimit 1s\n| text", "day:3: expected \"file\" or \"ticket\" before its lines"},
      {"ticket a.txt\n| \xE4\xB8\xAD",
       "day:2: expected characters of Windows-1252, the register knows no others"},
      {"logo 300 a.bmp", "day:1: expected the number of the logo's rows, 1 to 255, and its path"},
      {"drive backup away", "day:1: expected a drive, such as D:"},
      {"drive D: lost", "day:1: expected \"away\" or \"back\""},
      {"disk C: full now", "day:1: expected the end of the line"},
      {"at 1s menu Help", "day:1: expected an item of the menu: Esci, Utilita', Info or Configura"},
      {"setting General Time Shift 5", "day:1: expected [Section] Key = value"},
      {"setting [General] Time Shift", "day:1: expected [Section] Key = value"},
      {"setting [Database] = x", "day:1: expected [Section] Key = value"},
      {"setting [General] Foo = 1", "day:1: expected a key of [General], not \"Foo\""},
      {"setting [general] time shifts = 1",
       "day:1: expected a key of [general], not \"time shifts\"; did you mean 'Time Shift'?"},
      {"setting [General] ComPort = 1",
       "day:1: expected a key of [General], not \"ComPort\"; it belongs in [Com Settings]"},
      {"setting [Generale] Time Shift = 1",
       "day:1: expected a section of the settings file, not [Generale]; did you mean 'General'?"},
      {"limit 0s", "day:1: expected a time longer than 0"},
      {"limit 2s\nlimit 3s", "day:2: expected \"limit\" only once"},
      {"start 16/11/2026 09:00:00\nstart 16/11/2026 09:00:00", "day:2: expected \"start\" only once"},
      {"ticket a.txt\n1;PANE;", "day:2: expected \"|\" before each line of a file"},
      {"ticket a.txt\n\naswer Ok", "day:3: expected another word than 'aswer'; did you mean 'answer'?"},
      {"at 1s sesion ends", "day:1: expected another word than 'sesion'; did you mean 'session'?"},
      {"answer", "day:1: expected a button, an option, \"close\", \"nothing\", or \"menu\" and an item"},
      {"expect paper", "day:1: expected a text on the paper"},
      {"expect sent 1 time",
       "day:1: expected the beginning of a command and how often, such as 1036 2 times"},
      {"expect event logs End",
       "day:1: expected an event of the transcript and a part of its text, such as sent 1036"},
      {"expect sent 1036 often",
       "day:1: expected the beginning of a command and how often, such as 1036 2 times"},
      {"expect no sent 1036 1 time",
       "day:1: expected \"event\", \"paper\" or \"file\"; of commands, \"expect sent\" and \"0 times\""},
      {"expect fire", "day:1: expected \"event\", \"paper\", \"file\" or \"sent\""},
      {"expect event log \"End", "day:1: expected a closing double quote"},
      {"answer after 2s nothing", "day:1: expected \"answer nothing\" without a time"},
      {"ticket \"a.txt of 16/11/2026 09:00:00", "day:1: expected a closing double quote"},
      {"ticket \"a.txt\" soon",
       "day:1: expected \"from\" and a file, \"of\" and a date, or the end of the line"},
      {"ticket a.txt from", "day:1: expected a file behind \"from\""},
      {"ticket a.txt from \"\"", "day:1: expected a file behind \"from\""},
      {"ticket a.txt from \"b.txt", "day:1: expected a closing double quote"},
      {"ticket a.txt of 16/11/2026 09:00:00 from b.txt", date},
      {"ticket a.txt from b.txt", "day:1: expected a file with its lines; no other file can be read here"},
      {"ticket end of day.txt", date},
      {"file C:..\\a.txt", "day:1: expected a path without \"..\""},
      {"settings none\nsetting [General] Time Shift = 1",
       "day:2: expected either \"settings none\" or \"setting\" lines"},
      {"setting [General] Time Shift = 1\nsettings none",
       "day:2: expected either \"settings none\" or \"setting\" lines"},
      {"setting [General] Time Shift = 1\nsetting [general] time shift = 2",
       "day:2: expected \"[general] time shift\" only once"},
      {"ticket 1.txt\n| 2;1;0;\nfile DATA/1.txt", "day:3: expected \"DATA\\1.txt\" only once"},
      {"# one\n# perch\xE8", "day:2: expected UTF-8 text"},
      {"\xFF\xFE#", "day:1: expected UTF-8 text, not UTF-16"},
      {"\xFE\xFF#", "day:1: expected UTF-8 text, not UTF-16"},
      {"second program", "day:1: expected \"instance\""},
      {"settings lost", "day:1: expected \"none\""},
      {"at 1s session", "day:1: expected \"ends\""},
      {"at 1s power comes", "day:1: expected \"fails\""},
      {"until noon", "day:1: expected \"printed\""},
  };
  for (const Row& row : rows) EXPECT_EQ(Refused(row.text), row.message) << row.text;
  EXPECT_TRUE(Refused("menu Esci").starts_with("day:1: expected \"file\", \"ticket\","))
      << Refused("menu Esci");
  EXPECT_EQ(Refused("at 1s start"), "day:1: expected \"again\"");
  EXPECT_TRUE(Refused("at 1s wait").ends_with("\"session\" or \"power\"")) << Refused("at 1s wait");
}

}  // namespace
}  // namespace orvenza::test
