#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <string>

namespace orvenza::test {

/// Runs `action` in a process without administrator rights and returns its text.
template <typename Action>
std::string AsNobody(Action action) {
  int ends[2] = {-1, -1};
  if (::pipe(ends) != 0) return "no pipe";
  const pid_t child = ::fork();
  if (child == 0) {
    constexpr uid_t kNobody = 65534;
    [[maybe_unused]] const int dropped =
        ::setresuid(kNobody, kNobody, kNobody);  // Without administrator rights there is nothing to drop.
    const std::string result = action();
    ::_exit(::write(ends[1], result.data(), result.size()) < 0 ? 1 : 0);
  }
  ::close(ends[1]);
  char text[1000];
  const ssize_t count = ::read(ends[0], text, sizeof text);
  ::close(ends[0]);
  ::waitpid(child, nullptr, 0);
  return count > 0 ? std::string(text, static_cast<std::size_t>(count)) : "";
}

}  // namespace orvenza::test
