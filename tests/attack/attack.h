#pragma once

#include <cstddef>
#include <string>

#include "platform/system_error.h"

namespace orvenza::test {

/// Thrown to kill the program. Deliberately not a std::exception: no trap may stop it.
struct Killed {};

/// What happens at one file call of a run.
enum class Blow {
  kNone,
  kKillBefore,  ///< The program is killed before the call has any effect.
  kKillWithin,  ///< The program is killed halfway through the call. Only divisible calls are counted.
  kKillOnLine,  ///< The program is killed as a command goes out, or as its reply comes in. Only these are
                ///< counted.
  kFail,        ///< The call has no effect and fails with the number `error`.
};

struct Attack {
  Blow blow = Blow::kNone;
  std::size_t call = 0;  ///< Number of the call, or of the command or reply, from 1.
  int error = 0;
};

/// Counts a program's file calls, commands and replies, and attacks one of them. After a kill every further
/// call is ignored, so that stack unwinding leaves the disk as it was at the kill.
class FileCalls {
 public:
  explicit FileCalls(const Attack& attack) : attack_(attack) {}

  /// Every file call calls this first. False: the program is dead and the call must have no effect. Throws
  /// Killed or SystemError if this call is under attack.
  bool Admit(const std::string& operation, const std::string& path, const std::string& to = {}) {
    if (gone_) return false;
    ++count_;
    const bool attacked = attack_.blow == Blow::kKillBefore || attack_.blow == Blow::kFail;
    if (!attacked || count_ != attack_.call) return true;
    struck_ = to.empty() ? operation + " " + path : operation + " " + path + " to " + to;
    if (attack_.blow == Blow::kFail) throw SystemError(attack_.error, path);
    Kill();
    return false;
  }

  /// Every divisible call calls this before its full effect. True: do half of it, then call Kill.
  bool IsCutOff(const std::string& operation, const std::string& path) {
    ++parts_;
    if (attack_.blow != Blow::kKillWithin || parts_ != attack_.call) return false;
    struck_ = operation + " " + path;
    return true;
  }

  /// Every command that goes out and every reply that comes in calls this first.
  void OnLine(const std::string& text) {
    if (gone_) return;
    ++onLine_;
    if (attack_.blow != Blow::kKillOnLine || onLine_ != attack_.call) return;
    struck_ = "on the line " + text;
    Kill();
  }

  [[noreturn]] void Kill() {
    gone_ = true;
    throw Killed{};
  }

  /// Starts the next program on this disk.
  void Begin() { gone_ = false; }

  /// Ends the attack and the counting.
  void Cease() {
    attack_.blow = Blow::kNone;
    ceased_ = {count_, parts_, onLine_};
  }

  bool Gone() const { return gone_; }

  struct Counts {
    std::size_t calls = 0;
    std::size_t parts = 0;   ///< The divisible ones.
    std::size_t onLine = 0;  ///< Commands and replies.
  };
  /// The counts at Cease.
  const Counts& Counted() const { return ceased_; }

  /// The attacked call; empty if there was none.
  const std::string& Struck() const { return struck_; }

 private:
  Attack attack_;
  std::size_t count_ = 0;
  std::size_t parts_ = 0;
  std::size_t onLine_ = 0;
  Counts ceased_;
  bool gone_ = false;
  std::string struck_;
};

}  // namespace orvenza::test
