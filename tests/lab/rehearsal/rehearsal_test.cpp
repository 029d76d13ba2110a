#include "lab/rehearsal/rehearsal.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "lab/rehearsal/scenario_reader.h"

namespace orvenza::test {
namespace {

using Lines = std::vector<std::string>;

constexpr const char* kReceipt =
    "ticket 1.txt\n"
    "| 1;PANE;1,000;150;1;;;1;;\n"
    "| 2;1;0;\n";

RehearsalOutcome Play(const std::string& text) { return Rehearse(ParseScenario("day", text)); }

TEST(Rehearsal, RunsTheConnectorFromItsEntryToItsEnd) {
  const RehearsalOutcome outcome = Play(std::string(kReceipt) + "at 5s quit\n");
  EXPECT_TRUE(outcome.ended);
  EXPECT_EQ(outcome.problems, Lines{});
  EXPECT_EQ(outcome.sent.size(), 5u);
  EXPECT_EQ(outcome.sent.back(), "103601000000000");
  ASSERT_EQ(outcome.receipts.size(), 1u);
  EXPECT_EQ(outcome.receipts[0].total, 150);
  EXPECT_FALSE(outcome.receiptOpen);
  EXPECT_EQ(outcome.files.count("C:\\Orvenza\\storico\\1.txt"), 1u);
  EXPECT_EQ(outcome.events.back().kind, "end");
}

TEST(Rehearsal, GivesTheSameTranscriptEachTime) {
  const Scenario scenario = ParseScenario("day", std::string(kReceipt) + "at 5s quit\n");
  Lines first;
  Lines second;
  Rehearse(scenario, [&](const std::string& line) { first.push_back(line); });
  Rehearse(scenario, [&](const std::string& line) { second.push_back(line); });
  EXPECT_EQ(first, second);
  EXPECT_EQ(first.front(), "        0  start     16/11/2026 09:00:00");
  EXPECT_EQ(first.back(), "     5085  end");
}

TEST(Rehearsal, RunsTheSameWithoutATranscript) {
  Scenario scenario = ParseScenario("day", std::string(kReceipt) + "at 5s quit\n");
  const RehearsalOutcome told = Rehearse(scenario);
  scenario.transcript = false;
  const RehearsalOutcome quiet = Rehearse(scenario);
  EXPECT_TRUE(quiet.events.empty());
  EXPECT_TRUE(quiet.ended);
  EXPECT_EQ(quiet.sent, told.sent);
  EXPECT_EQ(quiet.lastSent, told.lastSent);
  EXPECT_EQ(quiet.paper, told.paper);
  EXPECT_EQ(quiet.files, told.files);
}

TEST(Rehearsal, BreaksOffAtADialogWithoutAnAnswer) {
  const RehearsalOutcome outcome = Play("register absent 1\nat 5s quit\n");
  EXPECT_FALSE(outcome.ended);
  EXPECT_EQ(outcome.problems,
            Lines{"no answer is left for the dialog Orvenza - Attenzione, Errori di Comunicazione ! (stop): "
                  "Dispositivo Spento o Non Collegato ! [Ok]"});
  EXPECT_EQ(outcome.events.back().kind, "broken");
  EXPECT_EQ(outcome.events.back().text, outcome.problems.front());
}

TEST(Rehearsal, BreaksOffAtAnAnswerThatDoesNotFit) {
  const RehearsalOutcome outcome = Play("register absent 1\nanswer Riprova\nat 5s quit\n");
  EXPECT_FALSE(outcome.ended);
  EXPECT_EQ(outcome.problems,
            Lines{"the answer \"Riprova\" does not fit the dialog Orvenza - Attenzione, Errori di "
                  "Comunicazione ! (stop): Dispositivo Spento o Non Collegato ! [Ok]"});
}

TEST(Rehearsal, NamesAnswersThatWereNeverAskedFor) {
  const RehearsalOutcome outcome =
      Play("register absent 1\nanswer Ok\nanswer Riprova\nanswer Ok\nat 5s quit\n");
  EXPECT_TRUE(outcome.ended);
  EXPECT_EQ(outcome.problems,
            (Lines{"the answer \"Riprova\" was never asked for", "the answer \"Ok\" was never asked for"}));
}

TEST(Rehearsal, BreaksOffARunThatNothingStops) {
  const RehearsalOutcome outcome = Play("limit 10s\n");
  EXPECT_FALSE(outcome.ended);
  EXPECT_EQ(outcome.problems,
            Lines{"the connector has not ended after 10000 ms: nothing stops it, or it waits for ever"});
}

TEST(Rehearsal, NamesAnEventThatCannotHappen) {
  const RehearsalOutcome outcome = Play("at 1s lock none.txt\nat 2s quit\n");
  EXPECT_TRUE(outcome.ended);
  EXPECT_EQ(outcome.problems, Lines{"cannot be done at 1000 ms: another program opens none.txt for writing: "
                                    "File not found ( C:\\Orvenza\\none.txt )"});
}

TEST(Rehearsal, CannotRemoveWhatIsNotThere) {
  EXPECT_EQ(Play("remove nofile\nat 2s quit\n").problems,
            Lines{"cannot be done at 0 ms: nofile goes: File not found ( C:\\Orvenza\\nofile )"});
  EXPECT_EQ(
      Play("at 1s remove none\\a.txt\nat 2s quit\n").problems,
      Lines{"cannot be done at 1000 ms: none\\a.txt goes: Path not found ( C:\\Orvenza\\none\\a.txt )"});
}

TEST(Rehearsal, NamesFaultsThatNeverStruck) {
  const std::string day = std::string(kReceipt) + "at 9s quit\n";
  EXPECT_EQ(Play(day + "register on 1003 late 10\n").problems, Lines{});
  EXPECT_EQ(Play(day + "register on 1062 silence\nregister on 1036 #2 silence\n").problems,
            (Lines{"the fault on 1062 #1 never struck: the command was sent 0 times",
                   "the fault on 1036 #2 never struck: the command was sent 1 times"}));
}

TEST(Rehearsal, LetsThingsComeAndGoInTheOrderOfTheirLines) {
  const RehearsalOutcome outcome = Play(
      "remove storico.txt\nfile storico.txt\nremove data\\abort\nfile data\\abort\nsetting [General] Time "
      "Shift = 5\n"
      "remove Orvenza.ini\nanswer Ok\nat 2s quit\n");
  EXPECT_EQ(outcome.problems, (Lines{"cannot be done at 0 ms: storico.txt goes: File not found ( "
                                     "C:\\Orvenza\\storico.txt )",
                                     "cannot be set, for Orvenza.ini was removed: [General] Time Shift"}));
  EXPECT_EQ(outcome.files.count("C:\\Orvenza\\storico.txt"), 1u);
  EXPECT_EQ(outcome.files.count("C:\\Orvenza\\data\\abort"), 1u);
  EXPECT_EQ(outcome.events[1].text.substr(0, 11), "Orvenza.ini");
}

TEST(Rehearsal, NamesWhatCannotComeToTheDisk) {
  const struct {
    const char* events;
    const char* problem;
  } kCases[] = {
      {"ticket 1.txt\nfolder data\\1.txt\n",
       "cannot be done at 0 ms: the folder data\\1.txt comes: Path/File access error ( "
       "C:\\Orvenza\\data\\1.txt )"},
      {"drive D: away\nat 1s file D:\\a.txt\n",
       "cannot be done at 1000 ms: D:\\a.txt comes: Path not found ( D: )"},
      {"file a.txt\nlock a.txt\nat 1s remove a.txt\n",
       "cannot be done at 1000 ms: a.txt goes: Permission denied ( C:\\Orvenza\\a.txt )"},
  };
  for (const auto& [events, problem] : kCases) {
    const std::string settings = "setting [General] Separator (ascii,max 127) = 59\n";
    EXPECT_EQ(Play(settings + events + "at 2s quit\n").problems, Lines{problem}) << events;
  }
}

TEST(Rehearsal, NamesEventsThatTheEndCameBefore) {
  const RehearsalOutcome outcome =
      Play("at 90s ticket b.txt\nat 2s quit\nat 3s session ends\nat 1s folder x\n");
  EXPECT_TRUE(outcome.ended);
  EXPECT_EQ(outcome.problems, (Lines{"the connector has ended before 90000 ms: data\\b.txt comes",
                                     "the connector has ended before 3000 ms: the session ends"}));
}

TEST(Rehearsal, NamesWhatDidNotComeTrue) {
  const RehearsalOutcome outcome = Play(std::string(kReceipt) +
                                        "at 5s quit\n"
                                        "expect paper PANE\n"
                                        "expect no paper PANE\n"
                                        "expect paper LATTE\n"
                                        "expect sent 1036 1 time\n"
                                        "expect sent 1028 1 time\n"
                                        "expect file STORICO\\1.txt\n"
                                        "expect no file storico\\1.txt\n"
                                        "expect file data\\1.txt\n"
                                        "expect file storico\\1.txt with PANE\n"
                                        "expect file storico\\1.txt with LATTE\n"
                                        "expect event archived 1.txt\n"
                                        "expect event error\n"
                                        "expect no event log End\n");
  EXPECT_EQ(outcome.problems,
            (Lines{"expected not to find \"PANE\" on the paper, but there was one",
                   "expected \"LATTE\" on the paper", "expected command 1028 1 times, it was sent 0 times",
                   "expected not to find a file C:\\Orvenza\\storico\\1.txt, but there was one",
                   "expected a file C:\\Orvenza\\data\\1.txt",
                   "expected a file C:\\Orvenza\\storico\\1.txt with \"LATTE\"",
                   "expected the event error with \"\"",
                   "expected not to find the event log with \"End\", but there was one"}));
}

TEST(Rehearsal, StartsWithTheSettingsOfAFirstStartButForTheSeparator) {
  const RehearsalOutcome given = Play("at 1s quit\n");
  const RehearsalOutcome made = Play("settings none\nanswer Ok\nat 1s quit\n");
  std::string settings = made.files.at("C:\\Orvenza\\Orvenza.ini");
  settings.replace(settings.find("max 127)=127") + 9, 3, "59");
  EXPECT_EQ(given.files.at("C:\\Orvenza\\Orvenza.ini"), settings);
}

TEST(Rehearsal, WritesTheSettingsOfTheScenarioIntoTheFile) {
  const RehearsalOutcome outcome =
      Play("setting [Com Settings] ComPort = 3\nat 1s quit\nexpect event port open: COM3,\n");
  EXPECT_EQ(outcome.problems, Lines{});
}

/// A scenario in which the connector is restarted until the ticket is printed.
Scenario UntilPrinted(const std::string& faults, EventKind kind) {
  Scenario scenario = ParseScenario("day", kReceipt + faults);
  scenario.untilPrinted = true;
  ScenarioEvent event;
  event.kind = kind;
  event.at = std::chrono::seconds(5);
  scenario.events.push_back(event);
  return scenario;
}

TEST(Rehearsal, EndsTheConnectorOnceEverythingIsPrinted) {
  const RehearsalOutcome outcome = Rehearse(UntilPrinted("", EventKind::kSessionEnds));
  EXPECT_TRUE(outcome.ended);
  EXPECT_EQ(outcome.problems, Lines{"the connector has ended before 5000 ms: the session ends"});
  EXPECT_EQ(outcome.receipts.size(), 1u);
  EXPECT_LT(outcome.events.back().at, std::chrono::seconds(5));
}

TEST(Rehearsal, StartsAgainInFrontOfTheRegisterThatWasLeft) {
  for (const EventKind kind : {EventKind::kPowerFails, EventKind::kSessionEnds}) {
    const RehearsalOutcome outcome = Rehearse(UntilPrinted("register on 1003 lose-reply\nanswer Ok\n", kind));
    EXPECT_TRUE(outcome.ended);
    EXPECT_EQ(outcome.problems, Lines{});
    ASSERT_EQ(outcome.receipts.size(), 2u);
    EXPECT_TRUE(outcome.receipts[0].voided);
    EXPECT_FALSE(outcome.receipts[1].voided);
    EXPECT_EQ(outcome.files.count("C:\\Orvenza\\storico\\1.txt"), 1u);
  }
}

TEST(Rehearsal, SaysOnceThatItHasAskedTheConnectorToEnd) {
  for (const char* held : {"", "file command.txt\n| later\nlock command.txt\nat 4s release command.txt\n"}) {
    Lines asked;
    for (const RehearsalEvent& event : Play(std::string(kReceipt) + "until printed\n" + held).events) {
      if (event.text.ends_with("QUIT")) asked.push_back(TranscriptLine(event));
    }
    const std::string at = *held == '\0' ? "     1085" : "     4085";
    EXPECT_EQ(asked, Lines{at + "  world     the host writes command.txt: QUIT"}) << held;
  }
}

TEST(Rehearsal, FindsNoTicketsWaitingWhereTheirFolderIsMissing) {
  for (const char* end : {"at 500ms power fails\n", "at 500ms session ends\n"}) {
    const RehearsalOutcome outcome =
        Play("settings none\nanswer nothing\nuntil printed\n" + std::string(end));
    EXPECT_TRUE(outcome.ended) << end;
    EXPECT_EQ(outcome.problems, Lines{}) << end;
  }
}

TEST(Rehearsal, FindsTicketsWaitingOnADriveThatIsAway) {
  const RehearsalOutcome lost = Play(
      std::string(kReceipt) + "until printed\nlimit 10s\nat 600ms drive C: away\nexpect paper ANNULLO\n");
  EXPECT_FALSE(lost.ended);
  EXPECT_EQ(lost.problems,
            (Lines{"the connector has not ended after 10000 ms: nothing stops it, or it waits for ever",
                   "expected \"ANNULLO\" on the paper"}));
  const RehearsalOutcome found =
      Play(std::string(kReceipt) + "until printed\nat 600ms drive C: away\nat 5s drive C: back\n");
  EXPECT_EQ(found.problems, Lines{});
}

TEST(Rehearsal, StartsAgainWhileTheDriveOfTheProgramIsAway) {
  const RehearsalOutcome outcome = Play("drive C: away\nanswer Ok\nuntil printed\n");
  EXPECT_FALSE(outcome.ended);
  ASSERT_EQ(outcome.problems.size(), 1u);
  EXPECT_TRUE(outcome.problems[0].starts_with("no answer is left for the dialog ")) << outcome.problems[0];
}

TEST(Rehearsal, BreaksOffWhereItCannotGoOn) {
  Lines lines;
  const RehearsalOutcome outcome =
      Rehearse(ParseScenario("day", "at 1s quit\nexpect paper PANE\n"), [&lines](const std::string& line) {
        lines.push_back(line);
        const std::string end = "log       End";
        if (line.ends_with(end) && lines.end()[-2] != line) throw std::runtime_error("no room");
      });
  EXPECT_FALSE(outcome.ended);
  EXPECT_EQ(outcome.problems,
            (Lines{"the rehearsal cannot go on: no room", "expected \"PANE\" on the paper"}));
  EXPECT_EQ(lines.back(), "     1022  broken    the rehearsal cannot go on: no room");
}

TEST(Rehearsal, LeavesNothingOfTheConnectorBehindWhenThePowerFails) {
  Scenario scenario = UntilPrinted("register on 1036 silence\n", EventKind::kPowerFails);
  scenario.untilPrinted = false;
  const RehearsalOutcome outcome = Rehearse(scenario);
  EXPECT_TRUE(outcome.ended);
  EXPECT_TRUE(outcome.receiptOpen);
  EXPECT_EQ(outcome.events.back().at, std::chrono::seconds(5));
  EXPECT_EQ(outcome.files.count("C:\\Orvenza\\data\\inproces\\1.txt"), 1u);
  const std::string log = outcome.files.at("C:\\Orvenza\\Log.txt");
  EXPECT_EQ(log.substr(log.rfind(" - ")), " - Start Scontrino\r\n");
}

const std::string kPrintedAfterACut = "ticket 1.txt\n| 1;PANE;1,000;150;1;;;1;;\n| 2;1;0;\nuntil printed\n";

TEST(Rehearsal, CutsThePowerBeforeACommand) {
  const RehearsalOutcome outcome = Play("power fails before 1036\nanswer Ok\n" + kPrintedAfterACut);
  EXPECT_EQ(outcome.problems, Lines{});
  ASSERT_EQ(outcome.receipts.size(), 2u);
  EXPECT_TRUE(outcome.receipts[0].voided);
  EXPECT_FALSE(outcome.receipts[1].voided);
}

TEST(Rehearsal, CutsThePowerAfterAReply) {
  const RehearsalOutcome outcome = Play("power fails after 1036 #1\n" + kPrintedAfterACut);
  EXPECT_EQ(outcome.problems, Lines{});
  ASSERT_EQ(outcome.receipts.size(), 2u);
  EXPECT_FALSE(outcome.receipts[0].voided);
  EXPECT_FALSE(outcome.receipts[1].voided);
}

TEST(Rehearsal, CutsThePowerAtAChangeToTheDisk) {
  // The start's line of the log is the first change.
  const RehearsalOutcome outcome = Play("power fails at change 2\n" + kPrintedAfterACut);
  EXPECT_EQ(outcome.problems, Lines{});
  EXPECT_EQ(outcome.receipts.size(), 1u);
  const std::string log = outcome.files.at("C:\\Orvenza\\Log.txt");
  EXPECT_NE(log.find("Start Rel.", log.find("Start Rel.") + 1), std::string::npos);
}

TEST(Rehearsal, MissesACutOfThePowerThatDidNotCome) {
  EXPECT_EQ(Play("power fails before 1036 #2\npower fails at change 999\n" + kPrintedAfterACut).problems,
            (Lines{"the power never failed before 1036 #2", "the power never failed at change 999"}));
}

TEST(Rehearsal, AsksTheScenariosJudgementAfterItsAnswers) {
  Scenario scenario = ParseScenario("day", "register absent 3\nanswer Ok\nat 5s quit\n");
  Lines asked;
  scenario.judgement = [&](const ShownDialog& dialog) {
    asked.push_back(dialog.text);
    return asked.size() < 2 ? dialog.buttons.front() : std::string();
  };
  const RehearsalOutcome outcome = Rehearse(scenario);
  EXPECT_EQ(asked, Lines(2, "\r\nDispositivo Spento o Non Collegato !"));
  EXPECT_FALSE(outcome.ended);
  EXPECT_TRUE(outcome.problems[0].starts_with("no answer is left for the dialog "));
}

TEST(Rehearsal, StartsTheConnectorAgainWhenAnEventSaysSo) {
  const RehearsalOutcome outcome = Play(
      "at 1s power fails\nat 5s ticket 1.txt\n| 1;PANE;1,000;150;1;;;1;;\n| 2;1;0;\n"
      "at 10s start again\nat 20s quit\n");
  EXPECT_EQ(outcome.problems, Lines{});
  EXPECT_EQ(outcome.receipts.size(), 1u);
  Lines starts;
  for (const auto& event : outcome.events) {
    if (event.kind == "start") starts.push_back(std::to_string(event.at.count()) + " " + event.text);
  }
  EXPECT_EQ(starts, (Lines{"0 16/11/2026 09:00:00", "10000 again"}));
}

TEST(Rehearsal, StartsTheConnectorAgainAsSoonAsItHasEnded) {
  const RehearsalOutcome outcome = Play("at 1s start again\nat 5s quit\nat 10s quit\n");
  EXPECT_EQ(outcome.problems, Lines{});
  std::size_t ends = 0;
  for (const auto& event : outcome.events) ends += event.text == "End" ? 1U : 0U;
  EXPECT_EQ(ends, 2u);
}

TEST(Rehearsal, ReportsAMenuWithoutAConnector) {
  EXPECT_EQ(Play("at 1s power fails\nat 2s menu Esci\nat 3s start again\nat 9s quit\n").problems,
            Lines{"no connector runs at 2000 ms: Esci"});
}

/// The dialog that the power cut took away needs no answer any more.
TEST(Rehearsal, ForgetsTheOperatorWhoWasNotThere) {
  const RehearsalOutcome outcome = Play(
      "register absent 1\nanswer nothing\nat 1s power fails\nat 2s start again\n"
      "register after 1500 absent 1\nanswer Ok\nat 9s quit\n");
  EXPECT_EQ(outcome.problems, Lines{});
}

}  // namespace
}  // namespace orvenza::test
