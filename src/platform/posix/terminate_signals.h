#pragma once

#include <signal.h>

#include "platform/posix/descriptor.h"

namespace orvenza {

/// Catches SIGINT, SIGTERM and SIGHUP during its lifetime and counts them; SIGPIPE is ignored. One object per
/// process.
class TerminateSignals {
 public:
  TerminateSignals();
  ~TerminateSignals();
  TerminateSignals(const TerminateSignals&) = delete;
  TerminateSignals& operator=(const TerminateSignals&) = delete;

  /// Readable when a signal has come.
  int ReadEnd() const { return readEnd_.Get(); }

  /// Number of signals since the last call. Does not block.
  int Take();

 private:
  Descriptor readEnd_;
  Descriptor writeEnd_;
  struct sigaction oldInterrupt_ {};
  struct sigaction oldTerminate_ {};
  struct sigaction oldHangUp_ {};
  struct sigaction oldPipe_ {};
};

}  // namespace orvenza
