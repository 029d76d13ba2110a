// Drives the finished orvenza-lab like a person at a terminal.

#include <gtest/gtest.h>

#include <string>

#include "core/build_version.h"
#include "program/running_program.h"

namespace orvenza::test {
namespace {

TEST(LabProgram, ShowsItsVersion) {
  RunningProgram lab({ORVENZA_LAB, "--version"});
  EXPECT_EQ(lab.ExitStatus(), 0);
  EXPECT_EQ(lab.Shown(), "orvenza-lab " + BuildVersion() + "\n");
}

TEST(LabProgram, RefusesACommandItDoesNotHave) {
  RunningProgram lab({ORVENZA_LAB, "prnt"});
  EXPECT_EQ(lab.ExitStatus(), 2);
  EXPECT_EQ(lab.Shown(), "orvenza-lab: unknown command 'prnt'\nSee 'orvenza-lab --help'.\n");
}

TEST(LabProgram, RehearsesAScenarioFromTheStandardInput) {
  RunningProgram lab({ORVENZA_LAB, "rehearse", "-"});
  lab.Enter("second instance");
  lab.Enter("answer Ok");
  lab.CloseInput();
  EXPECT_EQ(lab.ExitStatus(), 0);
  EXPECT_EQ(lab.Shown(),
            "        0  start     16/11/2026 09:00:00\n"
            "        0  dialog    Orvenza (stop): Programma già in esecuzione ! [Ok]\n"
            "        0  answer    Ok\n"
            "        0  error     Programma già in esecuzione !\n"
            "        0  end       status 3\n");
}

}  // namespace
}  // namespace orvenza::test
