#include "standin/standin_line.h"

#include <fstream>
#include <iterator>

#include "standin/call_log.h"

namespace orvenza::test {
namespace {

/// An invalid script is logged, and the register is an ordinary one.
FaultScript ReadScript() {
  char path[MAX_PATH];
  const DWORD length = ::GetEnvironmentVariableA("ORVENZA_STANDIN_SCRIPT", path, sizeof path);
  if (length == 0 || length >= sizeof path) return {};
  std::ifstream in(path, std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(in), {}};
  try {
    return ParseFaultScript(path, text);
  } catch (const ScriptError& error) {
    Note(error.what());
    return {};
  }
}

void NoteLine(LineEvent event, const std::string& text) {
  switch (event) {
    case LineEvent::kSent: return Note("sent " + text);
    case LineEvent::kReceived: return Note("received " + text);
    case LineEvent::kLinkError: return Note("link error " + text);
    case LineEvent::kPort: return Note("port " + text);
    case LineEvent::kAbsent: return Note("absent");
  }
}

}  // namespace

StandInLine::StandInLine() {
  const FaultScript script = ReadScript();
  paper_.SetSink([](const std::string& line) { Note("printed " + line); });
  register_ = std::make_unique<SimulatedRegister>(clock_, paper_, script.profile);
  link_ = std::make_unique<SimulatedLink>(*register_, scheduler_, script);
  link_->SetObserver(NoteLine);
}

}  // namespace orvenza::test
