#include "app/simulation.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simulator/virtual_clock.h"
#include "support/faulty_files.h"
#include "support/memory_files.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;
using Lines = std::vector<std::string>;

/// A simulated register whose paper is shown and appended to a file.
struct SimulationTest : testing::Test {
  void Print(const std::string& text) {
    simulation.Control().SetMessage("105801" + text + std::string(27 - text.size(), ' '));
    simulation.Control().Send();
    clock.Advance(1s);
  }

  MemoryFiles memory;
  FaultyFiles files{memory};
  VirtualClock clock;
  Lines shown;
  Simulation simulation{files,       clock,
                        clock,       ParseFaultScript("prova.sim", "speed instant\npaper carta.txt\n"),
                        "C:\\cassa", [this](const std::string& line) { shown.push_back(line); }};
};

TEST_F(SimulationTest, AddsThePaperToTheFile) {
  simulation.Control().SetPortOpen(true);
  Print("UNO");
  Print("DUE");
  std::string paper;
  for (const std::string& line : shown) paper += line + "\n";
  EXPECT_NE(paper.find("UNO\nDUE\n"), std::string::npos) << paper;
  EXPECT_EQ(memory.content["C:\\cassa\\carta.txt"], paper);
}

TEST_F(SimulationTest, SaysOnceThatTheFileCannotBeWritten) {
  simulation.Control().SetPortOpen(true);
  Print("UNO");
  shown.clear();
  files.FailAlways("Append", "carta.txt", error_number::kDiskFull);
  Print("DUE");
  Print("TRE");
  EXPECT_EQ(shown, (Lines{"DUE", "(carta.txt: Disk full)", "TRE"}));
}

}  // namespace
}  // namespace orvenza::test
