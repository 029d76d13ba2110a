#pragma once

#include <windows.h>

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/windows/unique_handle.h"
#include "support/temp_folder.h"

namespace orvenza::test {

using Lines = std::vector<std::string>;

/// The shop's folder: the program's settings, logs and tickets.
class Shop {
 public:
  /// `script` is what the simulated register does; no time passes on its line. A shop without settings is one
  /// before its first start.
  explicit Shop(const std::string& script = {}, bool withSettings = true);

  /// Puts a ticket where the program takes it, as a host does: whole at once.
  void Drop(const std::string& name, const std::string& content) const;
  /// Asks the program to end, as a host does.
  void Quit() const;
  /// The messages of a log without their stamps.
  Lines Journal(const std::string& name) const;

  TempFolder folder;
};

/// Kills a process that outlives its time, so that nothing hangs with it.
class Lifetime {
 public:
  /// `process` outlives the object.
  Lifetime(HANDLE process, std::chrono::seconds limit);
  ~Lifetime();
  Lifetime(const Lifetime&) = delete;
  Lifetime& operator=(const Lifetime&) = delete;

 private:
  HANDLE timer_ = nullptr;
};

constexpr const wchar_t* kProgram = L"Orvenza.exe";
constexpr const wchar_t* kLab = L"orvenza-lab.exe";

/// Of a program beside the tests.
std::wstring ProgramPath(const wchar_t* name = kProgram);

/// The running program, with its windows. What is waited for must come within kPatience; what does not come
/// fails the test by an exception. A program that outlives its lifetime is killed, so that nothing hangs with
/// it.
class Till {
 public:
  static constexpr std::chrono::seconds kPatience{30};
  static constexpr std::chrono::seconds kLifetime{120};

  enum class Link { kSimulated, kControl };

  /// `shop` outlives the till. The register is simulated by the program, or stands behind the registered
  /// control.
  explicit Till(const Shop& shop, Link link = Link::kSimulated, std::chrono::seconds lifetime = kLifetime);
  /// The program with `options` alone, and no place to write to.
  Till(const Shop& shop, const std::string& options);
  ~Till();
  Till(const Till&) = delete;
  Till& operator=(const Till&) = delete;

  /// The visible form of this class, waited for until it is in front and has the focus.
  HWND Form(const wchar_t* className) const;
  /// The same, with this title.
  HWND Form(const wchar_t* className, const std::string& title) const;
  /// The visible form of this class now; null when there is none.
  HWND FormNow(const wchar_t* className) const;
  /// Waits until the window is no more.
  void Gone(HWND window) const;

  /// Every visible top-level window of the program, by class.
  std::vector<std::wstring> Visible() const;

  HWND Main() const;
  HWND Picture1() const;
  HWND SessionWindow() const;
  bool HasIcon() const;
  /// Takes the icon away behind the program's back, as a shell that breaks down does.
  void LoseIcon() const;
  void AwaitIcon() const;
  /// Waits until tickets are taken: an undisturbed start has its two lines in the log.
  void AwaitStart() const;
  /// Waits until a ticket of this content lies in the historic folder as `name`.
  void AwaitArchived(const std::string& name, const std::string& content) const;

  /// The shell tells of the mouse on the icon, and does not wait for what comes of it.
  void TellIcon(LPARAM mouseMessage) const;
  /// Opens the menu and clicks on its item `number`, from 1.
  void Menu(int number) const;
  HWND MenuNow() const;
  HWND AwaitMenu() const;
  void AwaitNoMenu() const;

  /// Waits for the end of the program and returns its exit code.
  DWORD ExitCode() const;
  /// Waits for its end in order: exit code 0, "End" in the log, and the icon taken away.
  void ExpectEnd() const;
  bool Runs() const;
  HANDLE Process() const { return process_.Get(); }

  void Await(const char* what, const std::function<bool()>& condition) const;

 private:
  void Begin(const std::wstring& options, HANDLE output, std::chrono::seconds lifetime);
  std::string Situation() const;
  HWND Find(const std::function<bool(HWND)>& fits) const;

  const Shop& shop_;
  mutable HWND picture1_ = nullptr;
  ObjectHandle process_;
  DWORD id_ = 0;
  std::optional<Lifetime> lifetime_;
};

struct ProgramRun {
  DWORD exitCode = 0;
  std::string output;
};
/// Runs a program with `options` that it ends with by itself.
ProgramRun RunProgram(const std::string& options, const wchar_t* name = kProgram);

}  // namespace orvenza::test
