#include "lab/doctor/link_findings.h"

#include <algorithm>

namespace orvenza {
namespace {

const char* FactOf(ControlState state) {
  switch (state) {
    case ControlState::kNoName: return "is not registered.";
    case ControlState::kNoClass: return "is registered without a class.";
    case ControlState::kNoServer: return "is registered without a library.";
    case ControlState::kNoFile: return "is registered, but its library does not exist: ";
    case ControlState::kNoProgram: return "is registered, but its library is none: ";
    case ControlState::kWrongBits: return "is registered, but not for programs of 32 bits: ";
    case ControlState::kNoControls:
    case ControlState::kUsable: break;
  }
  return "is registered: ";
}

const char* CodeOf(ControlState state) {
  switch (state) {
    case ControlState::kNoFile:
    case ControlState::kNoProgram: return "control.library";
    case ControlState::kWrongBits: return "control.bits";
    case ControlState::kUsable: return "control.ok";
    case ControlState::kNoControls:
    case ControlState::kNoName:
    case ControlState::kNoClass:
    case ControlState::kNoServer: break;
  }
  return "control.unregistered";
}

Finding OfControl(const ControlRegistration& control) {
  if (control.state == ControlState::kNoControls) {
    return {Severity::kNote, "control.none",
            "This system has no link control: only a simulated register works."};
  }
  Finding finding{Severity::kError, CodeOf(control.state),
                  "The link control " + control.name + " " + FactOf(control.state),
                  "Run the register maker's installation of the link control of 32 bits again."};
  if (!control.server.empty()) finding.fact += control.server + ".";
  if (control.state == ControlState::kUsable) {
    finding.severity = Severity::kOk;
    finding.remedy.clear();
  }
  return finding;
}

Finding OfPort(int wanted, const std::vector<int>& ports) {
  const std::string name = "COM" + std::to_string(wanted);
  if (std::find(ports.begin(), ports.end(), wanted) != ports.end()) {
    return {Severity::kOk, "port.ok", "The serial port " + name + " is there."};
  }
  std::string others;
  for (const int port : ports) others += (others.empty() ? "COM" : ", COM") + std::to_string(port);
  return {Severity::kError, "port.missing",
          "There is no serial port " + name + "; there " +
              (others.empty() ? "is none at all." : (ports.size() == 1 ? "is " : "are ") + others + "."),
          "Connect the adapter of the register, or choose its port in the menu \"Configura\"."};
}

}  // namespace

Findings FindInLink(const Installation& shop) {
  Findings findings = {OfControl(shop.machine.FindControl())};
  const auto ports = shop.machine.SerialPorts();
  if (ports && shop.review.state != SettingsReview::State::kUnreadable) {
    findings.push_back(OfPort(shop.Settings().ComPortNumber, *ports));
  }
  return findings;
}

}  // namespace orvenza
