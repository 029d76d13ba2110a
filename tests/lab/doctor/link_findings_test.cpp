#include "lab/doctor/link_findings.h"

#include "lab/shell/shop_bench.h"

namespace orvenza::test {
namespace {

class LinkFindings : public ShopBench {};

TEST_F(LinkFindings, FollowTheRegistrationOfTheControl) {
  const std::string name = "EcrLinkXControl1.EcrLinkX";
  const struct {
    ControlState state;
    const char* server;
    std::string said;
  } kCases[] = {
      {ControlState::kNoControls, "",
       "note control.none: This system has no link control: only a simulated register works.\n"},
      {ControlState::kNoName, "",
       "error control.unregistered: The link control " + name + " is not registered.\n"},
      {ControlState::kNoClass, "",
       "error control.unregistered: The link control " + name + " is registered without a class.\n"},
      {ControlState::kNoServer, "",
       "error control.unregistered: The link control " + name + " is registered without a library.\n"},
      {ControlState::kNoFile, "C:\\a.ocx",
       "error control.library: The link control " + name +
           " is registered, but its library does not exist: C:\\a.ocx.\n"},
      {ControlState::kNoProgram, "C:\\a.ocx",
       "error control.library: The link control " + name +
           " is registered, but its library is none: C:\\a.ocx.\n"},
      {ControlState::kWrongBits, "C:\\a.ocx",
       "error control.bits: The link control " + name +
           " is registered, but not for programs of 32 bits: C:\\a.ocx.\n"},
      {ControlState::kUsable, "C:\\a.ocx", ""},
  };
  for (const auto& [state, server, said] : kCases) {
    machine.control = {state, name, server};
    EXPECT_EQ(Said(), said);
  }
}

TEST_F(LinkFindings, NameThePortsThatThereAre) {
  machine.ports = {{2, 12}};
  EXPECT_EQ(Said(), "error port.missing: There is no serial port COM1; there are COM2, COM12.\n");
  machine.ports = {{2}};
  EXPECT_EQ(Said(), "error port.missing: There is no serial port COM1; there is COM2.\n");
  machine.ports.emplace();
  EXPECT_EQ(Said(), "error port.missing: There is no serial port COM1; there is none at all.\n");
  machine.ports.reset();
  EXPECT_EQ(Said(), "");
}

}  // namespace
}  // namespace orvenza::test
