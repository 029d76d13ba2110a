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
  /// `script` configures the simulated register; transmission takes no time. Without settings it is a shop
  /// before its first start.
  explicit Shop(const std::string& script = {}, bool withSettings = true);

  /// Drops a complete ticket into the ticket folder, like a host.
  void Drop(const std::string& name, const std::string& content) const;
  /// Asks the program to end, like a host.
  void Quit() const;
  /// The messages of a log without their stamps.
  Lines Journal(const std::string& name) const;

  TempFolder folder;
};

/// Kills a process that exceeds its lifetime, so that the tests do not hang.
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

/// Path of a program beside the tests.
std::wstring ProgramPath(const wchar_t* name = kProgram);

/// The running program with its windows. Everything waited for must come within kPatience; otherwise an
/// exception fails the test. A program that exceeds its lifetime is killed, so that the tests do not hang.
class Till {
 public:
  static constexpr std::chrono::seconds kPatience{30};
  static constexpr std::chrono::seconds kLifetime{120};

  enum class Link { kSimulated, kControl };

  /// `shop` outlives the till. The register is simulated by the program or is behind the registered control.
  explicit Till(const Shop& shop, Link link = Link::kSimulated, std::chrono::seconds lifetime = kLifetime);
  /// Starts the program with only `options`, and without an output.
  Till(const Shop& shop, const std::string& options);
  ~Till();
  Till(const Till&) = delete;
  Till& operator=(const Till&) = delete;

  /// Waits until the form of this class is visible, in front and focused.
  HWND Form(const wchar_t* className) const;
  /// The same for a form with this title.
  HWND Form(const wchar_t* className, const std::string& title) const;
  /// The form of this class if it is visible now; otherwise null.
  HWND FormNow(const wchar_t* className) const;
  /// Waits until the window is destroyed.
  void Gone(HWND window) const;

  /// Class names of the program's visible top-level windows.
  std::vector<std::wstring> Visible() const;

  HWND Main() const;
  HWND Picture1() const;
  HWND SessionWindow() const;
  bool HasIcon() const;
  /// Removes the icon behind the program's back, like a crashing shell.
  void LoseIcon() const;
  void AwaitIcon() const;
  /// Waits until the program polls: a normal start logs two lines.
  void AwaitStart() const;
  /// Waits until a ticket with this content is in the historic folder as `name`.
  void AwaitArchived(const std::string& name, const std::string& content) const;

  /// Sends the icon a mouse message from the shell, without waiting for the effect.
  void TellIcon(LPARAM mouseMessage) const;
  /// Opens the menu and clicks its item `number`, from 1.
  void Menu(int number) const;
  HWND MenuNow() const;
  HWND AwaitMenu() const;
  void AwaitNoMenu() const;

  /// Waits for the end of the program and returns its exit code.
  DWORD ExitCode() const;
  /// Waits for an orderly end: exit code 0, "End" in the log, and no icon.
  void ExpectEnd() const;
  bool Runs() const;
  HANDLE Process() const { return process_.Get(); }

  void Await(const char* what, const std::function<bool()>& condition) const;

 private:
  void Begin(const std::wstring& options, HANDLE output, std::chrono::seconds lifetime);
  std::string Situation() const;
  void AwaitPainted() const;
  HWND Find(const std::function<bool(HWND)>& fits) const;

  const Shop& shop_;
  bool simulated_ = false;
  mutable HWND picture1_ = nullptr;
  ObjectHandle process_;
  DWORD id_ = 0;
  std::optional<Lifetime> lifetime_;
};

struct ProgramRun {
  DWORD exitCode = 0;
  std::string output;
};
/// Runs a program with `options` that make it end by itself.
ProgramRun RunProgram(const std::string& options, const wchar_t* name = kProgram);

}  // namespace orvenza::test
