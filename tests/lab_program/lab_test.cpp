// The finished orvenza-lab, driven as a person at a terminal drives it.

#include <gtest/gtest.h>

#include <string>

#include "core/version.h"
#include "program/running_program.h"

namespace orvenza::test {
namespace {

TEST(LabProgram, ShowsItsVersion) {
  RunningProgram lab({ORVENZA_LAB, "--version"});
  EXPECT_EQ(lab.ExitStatus(), 0);
  EXPECT_EQ(lab.Shown(), std::string("orvenza-lab ") + kVersionText + "\n");
}

TEST(LabProgram, RefusesACommandItDoesNotHave) {
  RunningProgram lab({ORVENZA_LAB, "prnt"});
  EXPECT_EQ(lab.ExitStatus(), 2);
  EXPECT_EQ(lab.Shown(), "orvenza-lab: unknown command 'prnt'\nSee 'orvenza-lab --help'.\n");
}

}  // namespace
}  // namespace orvenza::test
