// console_host EVENT COMMAND: runs the command in this program's console, presses Ctrl+C there once the named
// event is set, and ends with the command's exit code.

#include <windows.h>

int main(int, char** words) {
  STARTUPINFOA start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION process{};
  if (!CreateProcessA(nullptr, words[2], nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process))
    return 99;
  WaitForSingleObject(OpenEventA(SYNCHRONIZE, FALSE, words[1]), INFINITE);
  SetConsoleCtrlHandler(nullptr, TRUE);  // not earlier: the command would inherit it
  GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0);
  WaitForSingleObject(process.hProcess, INFINITE);
  DWORD exitCode = 0;
  GetExitCodeProcess(process.hProcess, &exitCode);
  return static_cast<int>(exitCode);
}
