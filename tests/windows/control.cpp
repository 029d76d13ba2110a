#include "windows/control.h"

#include <windows.h>

#include <string>

#include "standin/registration.h"

namespace orvenza::test {
namespace {

/// In the folder "tests" beside this program.
std::wstring LibraryPath() {
  std::wstring path = StandInLibraryPath();
  return path.insert(path.rfind(L'\\'), L"\\tests");
}

}  // namespace

Control::Control(const TempFolder& folder, const std::string& script) {
  RegisterStandIn(LibraryPath());
  folder.Write("standin.sim", "speed instant\n" + script);
  SetEnvironmentVariableA("ORVENZA_STANDIN_SCRIPT", folder.Path("standin.sim").c_str());
  SetEnvironmentVariableA("ORVENZA_STANDIN_LOG", folder.Path("standin.log").c_str());
}

Control::~Control() {
  UnregisterStandIn();
  SetEnvironmentVariableA("ORVENZA_STANDIN_SCRIPT", nullptr);
  SetEnvironmentVariableA("ORVENZA_STANDIN_LOG", nullptr);
}

}  // namespace orvenza::test
