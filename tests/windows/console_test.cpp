// The program in the console that started it.

#include <gtest/gtest.h>

#include "core/version.h"
#include "platform/windows/wide.h"
#include "windows/till.h"

namespace orvenza::test {
namespace {

/// A path in the folder of the tests and programs.
std::wstring Beside(const std::wstring& name) {
  std::wstring path(MAX_PATH, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
  return path.substr(0, path.rfind(L'\\') + 1) + name;
}

/// The program with the simulated register, in a hidden console of its own.
class AtConsole {
 public:
  explicit AtConsole(const Shop& shop)
      : job_(CreateJobObjectW(nullptr, nullptr)), keys_(CreateEventW(nullptr, TRUE, FALSE, L"Orvenza keys")) {
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job_.Get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
    const std::wstring folder = ToWide(shop.folder.Path());
    std::wstring line = L"\"" + Beside(L"orvenza_console_host.exe") + L"\" \"Orvenza keys\" \"\\\"" +
                        Beside(L"Orvenza.exe") + L"\\\" --folder " + folder + L" --simulate " + folder +
                        L"\\register.script\"";
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESHOWWINDOW;
    start.wShowWindow = SW_HIDE;
    PROCESS_INFORMATION started{};
    constexpr DWORD kHow = CREATE_NEW_CONSOLE | CREATE_SUSPENDED;
    CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, kHow, nullptr, nullptr, &start, &started);
    host_ = ObjectHandle(started.hProcess);
    AssignProcessToJobObject(job_.Get(), host_.Get());
    ResumeThread(started.hThread);
    CloseHandle(started.hThread);
  }

  void PressCtrlC() const { SetEvent(keys_.Get()); }

  /// Waits up to `milliseconds` for the program's end.
  bool EndsWithin(DWORD milliseconds) const {
    return WaitForSingleObject(host_.Get(), milliseconds) == WAIT_OBJECT_0;
  }
  DWORD ExitCode() const {
    DWORD code = 0;
    GetExitCodeProcess(host_.Get(), &code);
    return code;
  }

 private:
  ObjectHandle job_;
  ObjectHandle keys_;
  ObjectHandle host_;
};

TEST(Console, CtrlCEndsTheProgramInOrder) {
  const Shop shop;
  const AtConsole program(shop);
  const auto end = std::chrono::steady_clock::now() + Till::kPatience;
  while (shop.Journal("Log.txt").size() < 2 && std::chrono::steady_clock::now() < end) {
    ASSERT_FALSE(program.EndsWithin(5)) << program.ExitCode();
  }
  program.PressCtrlC();
  ASSERT_TRUE(program.EndsWithin(30000));
  EXPECT_EQ(program.ExitCode(), 0U);
  EXPECT_EQ(shop.Journal("Log.txt").back(), "End");
}

}  // namespace
}  // namespace orvenza::test
