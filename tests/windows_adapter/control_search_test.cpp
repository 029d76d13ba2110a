#include "lab/shell/windows/control_search.h"

#include <windows.h>
// Requires <windows.h>.
#include <gtest/gtest.h>

#include "platform/windows/wide.h"
#include "standin/registration.h"
#include "support/temp_folder.h"

namespace orvenza::test {
namespace {

/// The registration found while `library` is registered as the link control.
ControlRegistration FoundWith(const std::wstring& library) {
  RegisterStandIn(library);
  const ControlRegistration found = SearchControl();
  UnregisterStandIn();
  return found;
}

TEST(ControlSearch, FindsTheRegisteredLibrary) {
  const ControlRegistration found = FoundWith(StandInLibraryPath());
  EXPECT_EQ(found.state, ControlState::kUsable);
  EXPECT_EQ(found.name, "EcrLinkXControl1.EcrLinkX");
  EXPECT_EQ(found.server, ToUtf8(StandInLibraryPath()));
  EXPECT_EQ(FoundWith(L"\"" + StandInLibraryPath() + L"\"").server, ToUtf8(StandInLibraryPath()));
}

TEST(ControlSearch, MissesTheName) { EXPECT_EQ(SearchControl().state, ControlState::kNoName); }

TEST(ControlSearch, MissesTheFile) {
  const ControlRegistration found = FoundWith(L"C:\\none\\link.ocx");
  EXPECT_EQ(found.state, ControlState::kNoFile);
  EXPECT_EQ(found.server, "C:\\none\\link.ocx");
  EXPECT_EQ(FoundWith(L"").state, ControlState::kNoServer);
}

TEST(ControlSearch, LooksIntoTheLibrary) {
  const TempFolder folder;
  std::string header = "MZ" + std::string(0x3A, '\0') + std::string("\x40\0\0\0PE\0\0", 8);
  const struct {
    std::string content;
    ControlState state;
  } kCases[] = {
      {"a text", ControlState::kNoProgram},
      {header, ControlState::kNoProgram},
      {header + "\x4C\x01", ControlState::kUsable},
      {header + "\x64\x86", ControlState::kWrongBits},
  };
  for (const auto& [content, state] : kCases) {
    folder.Write("link.ocx", content);
    EXPECT_EQ(FoundWith(folder.Native("link.ocx").wstring()).state, state) << content.size();
  }
}

}  // namespace
}  // namespace orvenza::test
