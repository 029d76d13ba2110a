#include "platform/posix/terminate_signals.h"

#include <fcntl.h>

#include <array>
#include <atomic>

#include "platform/posix/posix_error.h"
#include "platform/system_error.h"

namespace orvenza {
namespace {

std::atomic<int> signalPipe{-1};
static_assert(std::atomic<int>::is_always_lock_free);

void NoteSignal(int) {
  const int saved = errno;
  const char mark = 0;
  // A full pipe already holds more signals than anything will read.
  [[maybe_unused]] const ssize_t written = ::write(signalPipe, &mark, 1);
  errno = saved;
}

void MakePrivateAndNonBlocking(int descriptor) {
  ::fcntl(descriptor, F_SETFD, FD_CLOEXEC);
  ::fcntl(descriptor, F_SETFL, O_NONBLOCK);
}

}  // namespace

TerminateSignals::TerminateSignals() {
  int ends[2] = {-1, -1};
  if (::pipe(ends) != 0) throw SystemError(NumberOf(errno));
  readEnd_ = Descriptor(ends[0]);
  writeEnd_ = Descriptor(ends[1]);
  MakePrivateAndNonBlocking(ends[0]);
  MakePrivateAndNonBlocking(ends[1]);
  signalPipe = ends[1];
  struct sigaction action {};
  action.sa_handler = NoteSignal;
  action.sa_flags = SA_RESTART;
  ::sigemptyset(&action.sa_mask);
  ::sigaction(SIGINT, &action, &oldInterrupt_);
  ::sigaction(SIGTERM, &action, &oldTerminate_);
  ::sigaction(SIGHUP, &action, &oldHangUp_);
  // The program goes on when the reader of its output ends.
  action.sa_handler = SIG_IGN;
  ::sigaction(SIGPIPE, &action, &oldPipe_);
}

TerminateSignals::~TerminateSignals() {
  ::sigaction(SIGINT, &oldInterrupt_, nullptr);
  ::sigaction(SIGTERM, &oldTerminate_, nullptr);
  ::sigaction(SIGHUP, &oldHangUp_, nullptr);
  ::sigaction(SIGPIPE, &oldPipe_, nullptr);
  signalPipe = -1;
}

int TerminateSignals::Take() {
  std::array<char, 64> marks;
  const ssize_t count = ::read(readEnd_.Get(), marks.data(), marks.size());
  return count > 0 ? static_cast<int>(count) : 0;
}

}  // namespace orvenza
