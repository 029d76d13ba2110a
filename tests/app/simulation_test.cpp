#include "app/simulation.h"

#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "simulator/virtual_clock.h"
#include "support/faulty_files.h"
#include "support/memory_files.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;
using Lines = std::vector<std::string>;

constexpr const char* kPaper = "C:\\cassa\\carta.txt";
constexpr const char* kState = "C:\\cassa\\carta.txt.state";
constexpr const char* kItem =
    "100301                                        PANE            0001000100000015001";
constexpr const char* kPayment = "103601000000000";
constexpr const char* kStatus = "321701";

/// A simulated register whose paper is shown and appended to a file.
struct SimulationTest : testing::Test {
  void SetUp() override { Start(); }

  /// The program is started, again perhaps.
  void Start(const std::string& paper = "paper carta.txt\n") {
    simulation.emplace(files, clock, clock, ParseFaultScript("prova.sim", "speed instant\n" + paper),
                       "C:\\cassa", [this](const std::string& line) { shown.push_back(line); });
    simulation->Control().SetPortOpen(true);
  }

  void Send(const std::string& command) {
    simulation->Control().SetMessage(command);
    simulation->Control().Send();
    clock.Advance(1s);
  }

  std::string Reply(const std::string& command) {
    Send(command);
    return simulation->Control().RxMessage();
  }

  void Print(const std::string& text) { Send("105801" + text + std::string(27 - text.size(), ' ')); }

  MemoryFiles memory;
  FaultyFiles files{memory};
  VirtualClock clock;
  Lines shown;
  std::optional<Simulation> simulation;
};

TEST_F(SimulationTest, AddsThePaperToTheFile) {
  Print("UNO");
  Print("DUE");
  std::string paper;
  for (const std::string& line : shown) paper += line + "\n";
  EXPECT_NE(paper.find("UNO\nDUE\n"), std::string::npos) << paper;
  EXPECT_EQ(memory.content[kPaper], paper);
}

TEST_F(SimulationTest, SaysOnceThatTheFileCannotBeWritten) {
  Print("UNO");
  shown.clear();
  files.FailAlways("Append", "carta.txt", error_number::kDiskFull);
  Print("DUE");
  Print("TRE");
  EXPECT_EQ(shown, (Lines{"DUE", "(carta.txt: Disk full)", "TRE"}));
}

TEST_F(SimulationTest, TouchesNoFileWithoutAPaper) {
  for (const char* operation : {"Exists", "OpenForReading", "Size", "Append", "Write"}) {
    files.FailAlways(operation, "", error_number::kDiskFull);
  }
  Start("");
  Print("UNO");
  EXPECT_EQ(shown, Lines{"UNO"});
  EXPECT_TRUE(memory.content.empty());
}

TEST_F(SimulationTest, TheRegisterGoesOnAfterANewStart) {
  Send(kItem);
  Send(kPayment);
  Send(kItem);
  Send("10670101GRAZIE");
  Start();
  EXPECT_EQ(Reply(kStatus), "ERR17");
  shown.clear();
  EXPECT_EQ(Reply(kPayment), "103600");
  EXPECT_EQ(
      shown,
      (Lines{"TOTALE COMPLESSIVO                  1,50", "CONTANTI                            1,50", "GRAZIE",
             "16/11/2026 09:00          SCONTRINO N. 2", "----------------------------------------"}));
}

TEST_F(SimulationTest, ALaterScriptSetsTheModelButNotTheState) {
  Send(kItem);
  Start("paper carta.txt\nmodel \"  TOVEST 8\"\n");
  EXPECT_EQ(Reply("199900"), "199900  TOVEST 8  01.00.00");
  EXPECT_EQ(Reply(kStatus), "ERR17");
}

TEST_F(SimulationTest, ARegisterOfAnotherPaperIsNew) {
  Send(kItem);
  Start("paper altra.txt\n");
  EXPECT_EQ(Reply(kStatus), "321700");
  EXPECT_TRUE(memory.content.contains("C:\\cassa\\altra.txt.state"));
}

TEST_F(SimulationTest, ACommandThatChangesNothingWritesNothing) {
  Send(kItem);
  files.FailAlways("Write", "", error_number::kDiskFull);
  shown.clear();
  Send(kStatus);
  Start();
  Send(kStatus);
  EXPECT_EQ(shown, Lines{});
}

TEST_F(SimulationTest, ADamagedStateIsReportedAndTheRegisterStartsNew) {
  Send(kItem);
  const std::string whole = memory.content[kState];
  for (std::size_t size = 0; size < whole.size(); ++size) {
    memory.content[kState] = whole.substr(0, size);
    shown.clear();
    Start();
    ASSERT_EQ(shown.size(), 1u) << "after " << size << " bytes";
    EXPECT_TRUE(shown[0].starts_with("(carta.txt.state:")) << shown[0];
    EXPECT_EQ(Reply(kStatus), "321700") << "after " << size << " bytes";
  }
  memory.content[kState] = "not a state\n";
  shown.clear();
  Start();
  EXPECT_EQ(shown,
            Lines{"(carta.txt.state:1: expected \"Orvenza simulated register 1\"; the register starts new)"});
  Send(kItem);
  Start();
  EXPECT_EQ(Reply(kStatus), "ERR17") << memory.content[kState];
}

TEST_F(SimulationTest, AStateThatCannotBeReadIsReportedAndTheRegisterStartsNew) {
  Send(kItem);
  shown.clear();
  files.FailNext("OpenForReading", error_number::kPermissionDenied);
  Start();
  files.FailNext("Exists", error_number::kPathFileAccess);
  Start();
  EXPECT_EQ(shown, (Lines{"(carta.txt.state: Permission denied; the register starts new)",
                          "(carta.txt.state: Path/File access error; the register starts new)"}));
  EXPECT_EQ(Reply(kStatus), "321700");
}

TEST_F(SimulationTest, SaysOnceThatTheStateCannotBeWrittenAndTriesAgain) {
  files.FailAlways("Write", "", error_number::kDiskFull);
  Print("UNO");
  Print("DUE");
  EXPECT_EQ(shown, (Lines{"(carta.txt.state: Disk full)", "UNO", "DUE"}));
  EXPECT_EQ(memory.content[kPaper], "UNO\nDUE\n");
  files.Heal();
  Send(kStatus);
  EXPECT_TRUE(memory.content.contains(kState));
  files.FailNext("Write", error_number::kDiskFull);
  Send(kItem);
  Send(kStatus);
  Start();
  EXPECT_EQ(Reply(kStatus), "ERR17");
}

TEST_F(SimulationTest, NothingIsOnPaperBeforeTheStateIsKept) {
  Send(kItem);
  shown.clear();
  const std::string paper = memory.content[kPaper];
  bool kept = false;
  files.Before("Write", [&](const std::string&) {
    kept = true;
    EXPECT_EQ(shown, Lines{});
    EXPECT_EQ(memory.content[kPaper], paper);
  });
  Send(kPayment);
  EXPECT_TRUE(kept);
  EXPECT_EQ(shown.size(), 4u);
}

TEST_F(SimulationTest, ALineIsOnThePaperBeforeItIsShown) {
  bool appended = false;
  files.Before("Append", [&](const std::string&) {
    appended = true;
    EXPECT_EQ(shown, Lines{});
  });
  Print("UNO");
  EXPECT_TRUE(appended);
  EXPECT_EQ(shown, Lines{"UNO"});
}

/// A kill between the two files leaves the paper cut anywhere in what the last command printed.
TEST_F(SimulationTest, TheNextStartCompletesThePaperWithItsFirstCommand) {
  Send(kItem);
  const std::size_t before = memory.content[kPaper].size();
  Send(kPayment);
  const std::string whole = memory.content[kPaper];
  const std::string state = memory.content[kState];
  for (std::size_t size = before; size <= whole.size(); ++size) {
    memory.content[kPaper] = whole.substr(0, size);
    memory.content[kState] = state;
    Start();
    EXPECT_EQ(memory.content[kPaper].size(), size) << "a program without commands changed the paper";
    Send(kStatus);
    EXPECT_EQ(memory.content[kPaper], whole) << "cut after " << size << " bytes";
    Print("UNO");
    Print("DUE");
    EXPECT_EQ(memory.content[kPaper], whole + "UNO\nDUE\n") << "cut after " << size << " bytes";
  }
}

TEST_F(SimulationTest, CompletesWithWholeLinesOnTheScreen) {
  Print("UNO");
  Print("DUE");
  memory.content[kPaper] = "UNO\nD";
  shown.clear();
  Start();
  Send(kStatus);
  EXPECT_EQ(shown, Lines{"DUE"});
}

TEST_F(SimulationTest, APaperThatWasRemovedIsNotCompleted) {
  Print("UNO");
  Print("DUE");
  memory.content.erase(kPaper);
  Start();
  Print("TRE");
  EXPECT_EQ(memory.content[kPaper], "TRE\n");
}

TEST_F(SimulationTest, ItsPanelShowsThePaperAndSwitchesTheRegister) {
  Print("UNO");
  RegisterPanel& panel = simulation->Panel();
  ASSERT_EQ(panel.Roll().size(), 1u);
  EXPECT_EQ(panel.Roll()[0].text, "UNO");
  panel.Turn(4, false);
  EXPECT_EQ(Reply(kItem), "ERR17");
  panel.Turn(4, true);
  EXPECT_EQ(Reply(kItem), "100300");
}

TEST_F(SimulationTest, ItsPanelIsToldOfCommandsAndPaperWithAndWithoutAFile) {
  for (const char* paper : {"", "paper carta.txt\n"}) {
    Start(paper);
    int told = 0;
    simulation->Panel().SetObserver([&] { ++told; });
    Print("UNO");
    EXPECT_EQ(told, 2) << "once for the line, once for the command";
    Send("10670101GRAZIE");
    EXPECT_EQ(told, 3);
  }
}

TEST_F(SimulationTest, ItsPanelSavesTheRollInTheProgramFolder) {
  Print("UNO");
  EXPECT_EQ(simulation->Panel().SaveRoll(), "Rotolo salvato : rotolo-20261116-090001.txt");
  EXPECT_EQ(memory.content["C:\\cassa\\rotolo-20261116-090001.txt"], "UNO\r\n");
}

TEST_F(SimulationTest, WhatItsPanelHasSwitchedEndsWithTheProgram) {
  simulation->Panel().Turn(0, false);
  Send(kItem);
  Start();
  EXPECT_TRUE(simulation->Panel().Switches()[0].on);
  EXPECT_EQ(Reply("114900"), "114900");
  EXPECT_EQ(simulation->Panel().Roll().size(), 4u) << "what was held back";
  Send("102800");
  ASSERT_EQ(simulation->Panel().Roll().size(), 7u);
  for (const RollLine& line : simulation->Panel().Roll()) EXPECT_TRUE(line.voided) << line.text;
}

}  // namespace
}  // namespace orvenza::test
