#pragma once

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace orvenza::test {

/// A program that runs beside the test, which controls its input and output (error output included).
/// Everything waited for must come within kPatience.
class RunningProgram {
 public:
  static constexpr std::chrono::seconds kPatience{30};

  /// `words` are the program's path and arguments.
  explicit RunningProgram(std::vector<std::string> words) {
    ::signal(SIGPIPE, SIG_IGN);  // writing to a program that has ended must not end the test
    std::array<int, 2> in{};
    std::array<int, 2> out{};
    if (::pipe2(in.data(), O_CLOEXEC) != 0 || ::pipe2(out.data(), O_CLOEXEC) != 0) {
      throw std::runtime_error("no pipes");
    }
    std::vector<char*> arguments;
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    process_ = ::fork();
    if (process_ == 0) {
      ::dup2(in[0], STDIN_FILENO);
      ::dup2(out[1], STDOUT_FILENO);
      ::dup2(out[1], STDERR_FILENO);
      ::signal(SIGPIPE, SIG_DFL);
      ::execv(arguments.front(), arguments.data());
      ::_exit(127);
    }
    ::close(in[0]);
    ::close(out[1]);
    input_ = in[1];
    output_ = out[0];
  }

  ~RunningProgram() {
    if (process_ > 0) {
      ::kill(process_, SIGKILL);
      ::waitpid(process_, nullptr, 0);
    }
    CloseInput();
    ::close(output_);
  }
  RunningProgram(const RunningProgram&) = delete;
  RunningProgram& operator=(const RunningProgram&) = delete;

  /// The whole output so far.
  const std::string& Shown() const { return shown_; }

  /// Waits for `text` in the output after the last match. False when it does not come.
  bool Shows(const std::string& text) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    std::size_t found = 0;
    while ((found = shown_.find(text, seen_)) == std::string::npos) {
      if (!ReadMore(end)) return false;
    }
    seen_ = found + text.size();
    return true;
  }

  /// Waits for the next complete line after the last match. False when none comes.
  bool NextLine(std::string& line) {
    const std::size_t from = seen_;
    if (!Shows("\n")) return false;
    line = shown_.substr(from, seen_ - from - 1);
    return true;
  }

  void Enter(const std::string& line) {
    const std::string text = line + "\n";
    if (::write(input_, text.data(), text.size()) < 0) throw std::runtime_error("nobody reads the input");
  }

  void CloseInput() {
    if (input_ >= 0) ::close(std::exchange(input_, -1));
  }

  void Send(int signal) { ::kill(process_, signal); }

  /// Waits for the program's end and returns its exit code: 128 plus the signal's number if a signal ended
  /// it, -1 if it does not end.
  int ExitStatus() {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (ReadMore(end)) {
    }
    if (!outputEnded_) return -1;
    int status = 0;
    ::waitpid(std::exchange(process_, -1), &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  }

 private:
  /// False at the end of the output, or when nothing came before `end`.
  bool ReadMore(std::chrono::steady_clock::time_point end) {
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
    pollfd watched{output_, POLLIN, 0};
    if (left.count() <= 0 || ::poll(&watched, 1, static_cast<int>(left.count())) <= 0) return false;
    std::array<char, 4096> buffer;
    const ssize_t count = ::read(output_, buffer.data(), buffer.size());
    outputEnded_ = count <= 0;
    if (count > 0) shown_.append(buffer.data(), static_cast<std::size_t>(count));
    return count > 0;
  }

  pid_t process_ = -1;
  int input_ = -1;
  int output_ = -1;
  std::string shown_;
  std::size_t seen_ = 0;
  bool outputEnded_ = false;
};

}  // namespace orvenza::test
