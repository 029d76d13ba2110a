#include "lab/shell/windows/console_mode.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cstdio>

namespace orvenza {
namespace {

// ENABLE_VIRTUAL_TERMINAL_PROCESSING, missing from headers older than Windows 10.
constexpr DWORD kVirtualTerminal = 0x0004;

}  // namespace

ConsoleMode::ConsoleMode() : codePage_(GetConsoleOutputCP()) {
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
  SetConsoleOutputCP(CP_UTF8);
  const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
  outputIsConsole_ = GetConsoleMode(output, &outputMode_) != 0;
  showsColours_ = outputIsConsole_ && SetConsoleMode(output, outputMode_ | kVirtualTerminal) != 0;
  DWORD errorMode = 0;
  errorIsConsole_ = GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &errorMode) != 0;
}

ConsoleMode::~ConsoleMode() {
  if (showsColours_) SetConsoleMode(GetStdHandle(STD_OUTPUT_HANDLE), outputMode_);
  if (codePage_ != 0) SetConsoleOutputCP(codePage_);
}

}  // namespace orvenza
