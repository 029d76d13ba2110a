#pragma once

#include <cstddef>
#include <string>

#include "platform/system_error.h"

namespace orvenza::test {

/// Thrown where the program is killed. Not a std::exception on purpose: no trap may hold it up.
struct Killed {};

/// What is done to one file call of a run.
enum class Blow {
  kNone,
  kKillBefore,  ///< The program is gone before the call does anything.
  kKillWithin,  ///< The program is gone with the call half done; it counts only the calls that can be.
  kFail,        ///< The call does nothing and fails with the number `error`.
};

struct Attack {
  Blow blow = Blow::kNone;
  std::size_t call = 0;  ///< Which call, from 1.
  int error = 0;
};

/// Counts a program's file calls and strikes one of them. Behind a kill it lets nothing through any more, so
/// that what runs while the stack is unwound leaves the disk as the kill left it.
class FileCalls {
 public:
  explicit FileCalls(const Attack& attack) : attack_(attack) {}

  /// To be called first by each file call. False: the program is gone, and the call must do nothing. Throws
  /// Killed or SystemError where this call is the one.
  bool Admit(const std::string& operation, const std::string& path, const std::string& to = {}) {
    if (gone_) return false;
    ++count_;
    if (attack_.blow == Blow::kKillWithin || attack_.blow == Blow::kNone || count_ != attack_.call)
      return true;
    struck_ = to.empty() ? operation + " " + path : operation + " " + path + " to " + to;
    if (attack_.blow == Blow::kFail) throw SystemError(attack_.error, path);
    Kill();
    return false;
  }

  /// To be called by each call that can be half done, before it is done whole: true where it is to be left
  /// half done and Kill to be called.
  bool IsCutOff(const std::string& operation, const std::string& path) {
    ++parts_;
    if (attack_.blow != Blow::kKillWithin || parts_ != attack_.call) return false;
    struck_ = operation + " " + path;
    return true;
  }

  [[noreturn]] void Kill() {
    gone_ = true;
    throw Killed{};
  }

  /// The next program on this disk.
  void Begin() { gone_ = false; }

  /// No blow falls from now on, and nothing is counted any more.
  void Cease() {
    attack_.blow = Blow::kNone;
    ceased_ = {count_, parts_};
  }

  bool Gone() const { return gone_; }

  struct Counts {
    std::size_t calls = 0;
    std::size_t parts = 0;  ///< Those that can be half done.
  };
  /// Up to Cease.
  const Counts& Counted() const { return ceased_; }

  /// The call that was struck; empty when none was.
  const std::string& Struck() const { return struck_; }

 private:
  Attack attack_;
  std::size_t count_ = 0;
  std::size_t parts_ = 0;
  Counts ceased_;
  bool gone_ = false;
  std::string struck_;
};

}  // namespace orvenza::test
