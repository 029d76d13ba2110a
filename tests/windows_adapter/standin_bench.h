#pragma once

#include <windows.h>
// These require <windows.h>.
#include <gtest/gtest.h>
#include <ole2.h>

#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "device/windows/ecr_link_adapter.h"
#include "platform/system_error.h"
#include "platform/windows/windows_event_pump.h"
#include "standin/registration.h"
#include "support/temp_folder.h"

namespace orvenza::test {

using Lines = std::vector<std::string>;

/// Records the events.
struct Listener : EcrLinkEvents {
  Lines heard;

  void ReplyReceived() override { heard.push_back("reply"); }
  void LinkError1() override { heard.push_back("error 1"); }
  void LinkError3() override { heard.push_back("error 3"); }
  void LinkError2() override { heard.push_back("error 2"); }
};

/// The adapter and the stand-in, which is registered as the link control during each test. Transmission takes
/// no time. At the end no object of the control may be left.
class StandInBench : public ::testing::Test {
 protected:
  StandInBench() {
    RegisterStandIn(StandInLibraryPath());
    Set("ORVENZA_STANDIN_LOG", folder.Native("standin.log").string());
    Script("");
    Behave("");
    // Keeps the library loaded, so that it can be queried at the end.
    EXPECT_HRESULT_SUCCEEDED(::OleInitialize(nullptr));
    adapter.emplace();
    adapter->SetEvents(&listener);
  }
  ~StandInBench() override {
    UnregisterStandIn();
    for (const char* name : {"LOG", "SCRIPT", "BEHAVIOUR"}) {
      ::SetEnvironmentVariableA((std::string("ORVENZA_STANDIN_") + name).c_str(), nullptr);
    }
    ::OleUninitialize();
  }

  void TearDown() override {
    adapter.reset();
    EXPECT_TRUE(NothingIsLeft());
  }

  /// The behaviour of controls created from now on.
  void Behave(const std::string& words) { Set("ORVENZA_STANDIN_BEHAVIOUR", words); }
  void Script(const std::string& lines) {
    folder.Write("standin.sim", "speed instant\n" + lines);
    Set("ORVENZA_STANDIN_SCRIPT", folder.Native("standin.sim").string());
  }

  /// The stand-in's calls since the last one of this function.
  Lines Done() {
    std::istringstream text(folder.Read("standin.log").substr(read_));
    Lines lines;
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    read_ = folder.Read("standin.log").size();
    return lines;
  }

  void Open() {
    adapter->SetReset(true);
    adapter->SetPortOpen(true);
    Done();
  }

  void Send(const std::string& command) {
    adapter->SetMessage(command);
    adapter->Send();
  }

  /// Sends a command and delivers its events.
  void Exchange(const std::string& command) {
    Send(command);
    pump.Dispatch();
  }

  /// Number and description of the failure of `action`; "" if it does not fail.
  template <typename Action>
  static std::string Failure(Action action) {
    try {
      action();
    } catch (const SystemError& error) {
      return std::to_string(error.Number()) + " " + error.Description();
    }
    return "";
  }

  TempFolder folder;
  Listener listener;
  WindowsEventPump pump;
  std::optional<EcrLinkAdapter> adapter;

 private:
  static void Set(const char* name, const std::string& value) {
    ::SetEnvironmentVariableA(name, value.c_str());
  }

  static bool NothingIsLeft() {
    const HMODULE library = ::GetModuleHandleW(L"orvenza_standin.dll");
    if (library == nullptr) return true;
    using CanUnload = HRESULT(STDMETHODCALLTYPE*)();
    const FARPROC entry = ::GetProcAddress(library, "DllCanUnloadNow");
    return reinterpret_cast<CanUnload>(reinterpret_cast<void*>(entry))() == S_OK;
  }

  std::size_t read_ = 0;
};

}  // namespace orvenza::test
