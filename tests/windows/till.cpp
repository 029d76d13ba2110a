#include "windows/till.h"

#include <windows.h>
// These require windows.h.
#include <gtest/gtest.h>
#include <shellapi.h>

#include <algorithm>
#include <sstream>
#include <stdexcept>

#include "platform/windows/wide.h"
#include "ui/windows/names.h"
#include "windows/person.h"
#include "windows/picture.h"

namespace orvenza::test {
namespace {

using Clock = std::chrono::steady_clock;

constexpr DWORD kGlance = 5;  ///< Milliseconds between two checks.

PROCESS_INFORMATION Start(const std::wstring& program, const std::wstring& options, HANDLE output) {
  std::wstring line = L"\"" + program + L"\" " + options;
  STARTUPINFOW start{};
  start.cb = sizeof start;
  // As by a shortcut that starts it minimised, which must make no difference.
  start.dwFlags = STARTF_USESTDHANDLES | STARTF_USESHOWWINDOW;
  start.wShowWindow = SW_SHOWMINNOACTIVE;
  start.hStdOutput = output;
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &process)) {
    throw std::runtime_error("the program does not start");
  }
  CloseHandle(process.hThread);
  return process;
}

NOTIFYICONDATAA IconOf(HWND owner) {
  NOTIFYICONDATAA record{};
  record.cbSize = NOTIFYICONDATAA_V1_SIZE;
  record.hWnd = owner;
  record.uID = 1;
  return record;
}

struct Search {
  DWORD process;
  const std::function<bool(HWND)>& fits;
  HWND found = nullptr;
};

BOOL CALLBACK LookAt(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process != search.process || !search.fits(window)) return TRUE;
  search.found = window;
  return FALSE;
}

BOOL CALLBACK LookForUnpainted(HWND window, LPARAM unpainted) {
  if (!GetUpdateRect(window, nullptr, FALSE)) return TRUE;
  *reinterpret_cast<bool*>(unpainted) = true;
  return FALSE;
}

/// Whether the window or a control in it has still to be painted.
bool IsUnpainted(HWND window) {
  bool unpainted = false;
  if (LookForUnpainted(window, reinterpret_cast<LPARAM>(&unpainted)))
    EnumChildWindows(window, LookForUnpainted, reinterpret_cast<LPARAM>(&unpainted));
  return unpainted;
}

void CALLBACK Kill(void* process, BOOLEAN) { TerminateProcess(process, 98); }

}  // namespace

std::wstring ProgramPath(const wchar_t* name) {
  std::wstring path(MAX_PATH, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
  return path.substr(0, path.rfind(L'\\') + 1) + name;
}

Shop::Shop(const std::string& script, bool withSettings) {
  folder.Write("register.script", "speed instant\n" + script);
  if (!withSettings) return;
  folder.Write("Orvenza.ini", "[Version]\r\nVersion=1.06\r\n[Database]\r\nTicketFiles=" + folder.Path() +
                                  "\\data\\*.txt\r\nHistoricTickets=" + folder.Path() +
                                  "\\storico\\\r\n[Com Settings]\r\nComPort=1\r\nSettings=19200,O,7,1\r\n"
                                  "TimeWaitForEtx=10000\r\nTimeWaitForLONGEtx=50000\r\n"
                                  "[General]\r\nSeparator (ascii,max 127)=59\r\n");
}

void Shop::Drop(const std::string& name, const std::string& content) const {
  folder.Write(name + ".tmp", content);
  std::filesystem::create_directories(folder.Native("data"));
  std::filesystem::rename(folder.Native(name + ".tmp"), folder.Native("data\\" + name));
}

void Shop::Quit() const {
  folder.Write("command.tmp", "QUIT\r\n");
  std::filesystem::rename(folder.Native("command.tmp"), folder.Native("command.txt"));
}

Lines Shop::Journal(const std::string& name) const {
  Lines messages;
  std::istringstream in(folder.Read(name));
  for (std::string line; std::getline(in, line);) {
    std::erase(line, '\r');
    messages.push_back(line.substr(std::min(line.find(" - ") + 3, line.size())));
  }
  return messages;
}

Lifetime::Lifetime(HANDLE process, std::chrono::seconds limit) {
  const auto milliseconds = static_cast<DWORD>(std::chrono::milliseconds(limit).count());
  CreateTimerQueueTimer(&timer_, nullptr, Kill, process, milliseconds, 0, 0);
}

Lifetime::~Lifetime() { DeleteTimerQueueTimer(nullptr, timer_, INVALID_HANDLE_VALUE); }

Till::Till(const Shop& shop, Link link, std::chrono::seconds lifetime) : shop_(shop) {
  const std::wstring path = ToWide(shop.folder.Path());
  // The register's paper must not mix with the test report.
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  const FileHandle nowhere(CreateFileW(L"NUL", GENERIC_WRITE, 0, &inherited, OPEN_EXISTING, 0, nullptr));
  std::wstring options = L"--folder \"" + path + L"\"";
  simulated_ = link == Link::kSimulated;
  if (simulated_) options += L" --simulate \"" + path + L"\\register.script\"";
  Begin(options, nowhere.Get(), lifetime);
}

Till::Till(const Shop& shop, const std::string& options) : shop_(shop) {
  Begin(ToWide(options), nullptr, kLifetime);
}

void Till::Begin(const std::wstring& options, HANDLE output, std::chrono::seconds lifetime) {
  const PROCESS_INFORMATION process = Start(ProgramPath(), options, output);
  process_ = ObjectHandle(process.hProcess);
  id_ = process.dwProcessId;
  lifetime_.emplace(process_.Get(), lifetime);
}

Till::~Till() {
  lifetime_.reset();
  // A killed program leaves its icon behind, and a later program's window may get the same handle.
  if (Find([](HWND window) { return ClassOf(window) == window_class::kOrvMain; }) != nullptr) LoseIcon();
  TerminateProcess(process_.Get(), 99);
  WaitForSingleObject(process_.Get(), INFINITE);
}

void Till::Await(const char* what, const std::function<bool()>& condition) const {
  const auto end = Clock::now() + kPatience;
  while (!condition()) {
    if (Clock::now() > end) throw std::runtime_error(std::string("waited in vain for ") + what + Situation());
    WaitForSingleObject(process_.Get(), kGlance);
  }
}

std::string Till::Situation() const {
  std::string text = "; in front: " + ToUtf8(ClassOf(GetForegroundWindow())) + "; visible:";
  for (const std::wstring& form : Visible()) text += " " + ToUtf8(form);
  return text;
}

HWND Till::Find(const std::function<bool(HWND)>& fits) const {
  Search search{id_, fits};
  EnumWindows(LookAt, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

HWND Till::FormNow(const wchar_t* className) const {
  return Find([&](HWND window) { return IsWindowVisible(window) && ClassOf(window) == className; });
}

HWND Till::Form(const wchar_t* className) const {
  HWND form = nullptr;
  const std::string what = ToUtf8(className) + " with the focus";
  Await(what.c_str(), [&] {
    form = FormNow(className);
    return IsReady(form);
  });
  TakePicture(form);
  return form;
}

HWND Till::Form(const wchar_t* className, const std::string& title) const {
  Await(title.c_str(), [&] {
    const HWND form = FormNow(className);
    return form != nullptr && TextOf(form) == title;
  });
  return Form(className);
}

void Till::Gone(HWND window) const {
  const std::string what = ToUtf8(ClassOf(window)) + " to go";
  Await(what.c_str(), [&] { return !IsWindow(window); });
  AwaitPainted();
}

/// A person does not act before the screen shows what has changed; by then the program has left the dialog.
void Till::AwaitPainted() const {
  Await("the screen", [&] {
    const HWND below = FormNow(window_class::kOrvRegister);
    return below == nullptr || !IsUnpainted(below);
  });
}

std::vector<std::wstring> Till::Visible() const {
  std::vector<std::wstring> classes;
  Find([&](HWND window) {
    if (IsWindowVisible(window)) classes.push_back(ClassOf(window));
    return false;
  });
  return classes;
}

HWND Till::Main() const {
  HWND main = nullptr;
  Await("the main form", [&] {
    main = Find([](HWND window) { return ClassOf(window) == window_class::kOrvMain; });
    return main != nullptr;
  });
  return main;
}

HWND Till::SessionWindow() const {
  return Find([](HWND window) { return ClassOf(window) == window_class::kOrvSession; });
}

HWND Till::Picture1() const {
  if (picture1_ == nullptr) picture1_ = GetDlgItem(Main(), control_id::kPicture1);
  return picture1_;
}

/// Only an existing icon can be modified; without flags nothing changes.
bool Till::HasIcon() const {
  NOTIFYICONDATAA record = IconOf(Picture1());
  return Shell_NotifyIconA(NIM_MODIFY, &record) != FALSE;
}

void Till::LoseIcon() const {
  NOTIFYICONDATAA record = IconOf(Picture1());
  Shell_NotifyIconA(NIM_DELETE, &record);
}

void Till::AwaitIcon() const {
  Await("the icon", [&] { return HasIcon(); });
}

void Till::AwaitStart() const {
  AwaitIcon();
  Await("the identity of the register", [&] { return shop_.Journal("Log.txt").size() == 2; });
}

void Till::AwaitArchived(const std::string& name, const std::string& content) const {
  Await(name.c_str(), [&] { return shop_.folder.Read("storico\\" + name) == content; });
}

void Till::TellIcon(LPARAM mouseMessage) const { PostMessageW(Picture1(), kIconMessage, 1, mouseMessage); }

HWND Till::MenuNow() const {
  return Find([](HWND window) { return IsWindowVisible(window) && ClassOf(window) == L"#32768"; });
}

HWND Till::AwaitMenu() const {
  const HWND main = Main();
  Await("the menu", [&] { return MenuNow() != nullptr && (StateOf(main).flags & GUI_INMENUMODE) != 0; });
  TakePicture(MenuNow());
  return MenuNow();
}

void Till::AwaitNoMenu() const {
  Await("the menu to close", [&] { return MenuNow() == nullptr; });
}

void Till::Menu(int number) const {
  TellIcon(WM_RBUTTONDOWN);
  RECT place{};
  GetWindowRect(AwaitMenu(), &place);
  // Separators are low, so each item has about the same part.
  const int items = simulated_ ? 5 : 4;
  ClickAt((place.left + place.right) / 2,
          place.top + (place.bottom - place.top) * (2 * number - 1) / (2 * items));
  AwaitNoMenu();
}

DWORD Till::ExitCode() const {
  const auto patience = std::chrono::duration_cast<std::chrono::milliseconds>(kPatience);
  if (WaitForSingleObject(process_.Get(), static_cast<DWORD>(patience.count())) != WAIT_OBJECT_0) {
    throw std::runtime_error("the program does not end");
  }
  DWORD code = 0;
  GetExitCodeProcess(process_.Get(), &code);
  return code;
}

void Till::ExpectEnd() const {
  Picture1();  // still known after the program's end
  EXPECT_EQ(ExitCode(), 0U);
  EXPECT_EQ(shop_.Journal("Log.txt").back(), "End");
  EXPECT_FALSE(HasIcon());
}

bool Till::Runs() const { return WaitForSingleObject(process_.Get(), 0) == WAIT_TIMEOUT; }

ProgramRun RunProgram(const std::string& options, const wchar_t* name) {
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  HANDLE readEnd = nullptr;
  HANDLE writeEnd = nullptr;
  if (!CreatePipe(&readEnd, &writeEnd, &inherited, 0)) throw std::runtime_error("no pipe");
  const ObjectHandle input(readEnd);
  const PROCESS_INFORMATION started = Start(ProgramPath(name), ToWide(options), writeEnd);
  CloseHandle(writeEnd);
  const ObjectHandle process(started.hProcess);
  const Lifetime lifetime(process.Get(), Till::kPatience);
  ProgramRun run;
  char buffer[4096];
  for (DWORD count = 0; ReadFile(readEnd, buffer, sizeof buffer, &count, nullptr) && count > 0;) {
    run.output.append(buffer, count);
  }
  WaitForSingleObject(process.Get(), INFINITE);
  GetExitCodeProcess(process.Get(), &run.exitCode);
  return run;
}

}  // namespace orvenza::test
