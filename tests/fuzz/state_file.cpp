// The state file of the simulated register. Properties: it is read, or the error names a line and what is
// expected there; writing and reading it again gives the same; a register with that state answers every
// command in the form of its replies.

#include "simulator/state_file.h"

#include <string>

#include "script_failure.h"
#include "simulator/simulated_register.h"
#include "simulator/virtual_clock.h"
#include "targets.h"

namespace orvenza::fuzz {
namespace {

const std::string kItem = "100501                                        MELE            0001255100000019901";

void UseRegister(const RegisterState& state) {
  const VirtualClock clock;
  PaperRoll paper;
  SimulatedRegister device(clock, paper, {.rollLines = 50}, state);
  for (const std::string& command :
       {std::string("321701"), std::string("420100"), std::string("114901"), kItem,
        std::string("102101000000001"), std::string("10220110"), std::string("1022011000"),
        std::string("105801RIGA                       "), std::string("1064011UNO"), std::string("106501"),
        std::string("103601000000001"), std::string("102801"), std::string("103601000000000"),
        std::string("300101"), std::string("405201001") + std::string(112, '0')}) {
    const std::string reply = device.Execute(command);
    Require(reply.starts_with("ERR") || reply.starts_with(command.substr(0, 4)),
            "a reply is known by its start");
  }
}

}  // namespace

void FuzzStateFile(std::string_view input) {
  StateFile file;
  try {
    file = ParseStateFile("state", input);
  } catch (const ScriptError& failure) {
    return RequireNamedLine(failure, "state", input);
  }
  Require(ParseStateFile("again", StateFileText(file)) == file, "what is written is read again");
  UseRegister(file.state);
}

}  // namespace orvenza::fuzz
