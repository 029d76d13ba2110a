// Intercepts the connector's calls of the C library and attacks one of its file calls. The environment sets:
//   ORVENZA_ATTACK_FOLDER  counted are calls on this folder, its content, and descriptors opened there
//   ORVENZA_ATTACK_CALL    number of the attacked call, from 1; 0 or unset: calls are only counted
//   ORVENZA_ATTACK_ERROR   error of that call; 0 or unset: the process ends before the call, or halfway
//                          through a write
//   ORVENZA_ATTACK_REPORT  file that receives the number of calls, or the call that ended the process
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr int kKilled = 137;

const char* Setting(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

/// The C library's function of this name.
template <typename Function>
Function Real(const char* name) {
  return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

struct Attack {
  const char* folder = Setting("ORVENZA_ATTACK_FOLDER");
  long call = std::atol(Setting("ORVENZA_ATTACK_CALL"));
  int error = std::atoi(Setting("ORVENZA_ATTACK_ERROR"));
  long count = 0;
  std::array<bool, 4096> opened{};  ///< By descriptor: whether it was opened in the folder.

  ~Attack() { Report("calls", ""); }

  bool IsInside(const char* path) const {
    const std::size_t length = std::strlen(folder);
    return length > 0 && path != nullptr && std::strncmp(path, folder, length) == 0 &&
           (path[length] == '/' || path[length] == '\0');
  }
  bool IsOpened(int descriptor) const {
    return descriptor >= 0 && descriptor < static_cast<int>(opened.size()) &&
           opened[static_cast<std::size_t>(descriptor)];
  }
  void SetOpened(int descriptor, bool value) {
    if (descriptor >= 0 && descriptor < static_cast<int>(opened.size())) {
      opened[static_cast<std::size_t>(descriptor)] = value;
    }
  }

  void Report(const char* name, const char* path) const {
    std::array<char, 512> line{};
    const int length = std::snprintf(line.data(), line.size(), "%ld %s %s\n", count, name, path);
    const long file = ::syscall(SYS_openat, AT_FDCWD, Setting("ORVENZA_ATTACK_REPORT"),
                                O_WRONLY | O_CREAT | O_APPEND, 0666);
    if (file < 0) return;
    const std::size_t size = std::strlen(line.data());
    if (length > 0) static_cast<void>(::syscall(SYS_write, file, line.data(), size));
    ::syscall(SYS_close, file);
  }

  [[noreturn]] static void Kill() {
    ::syscall(SYS_exit_group, kKilled);
    __builtin_unreachable();
  }
};

Attack& TheAttack() {
  static Attack attack;
  return attack;
}

enum class Fate { kGoOn, kFail, kEnd };

/// Decides the result of this call; sets errno if it fails.
Fate Decide(bool concerned, const char* name, const char* path) {
  Attack& attack = TheAttack();
  if (!concerned || ++attack.count != attack.call) return Fate::kGoOn;
  attack.Report(name, path);
  if (attack.error == 0) return Fate::kEnd;
  errno = attack.error;
  return Fate::kFail;
}

bool Fails(bool concerned, const char* name, const char* path = "") {
  const Fate fate = Decide(concerned, name, path);
  if (fate == Fate::kEnd) Attack::Kill();
  return fate == Fate::kFail;
}
bool FailsAt(const char* path, const char* name) { return Fails(TheAttack().IsInside(path), name, path); }
bool FailsOn(int descriptor, const char* name) { return Fails(TheAttack().IsOpened(descriptor), name); }

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
  static const auto real = Real<int (*)(const char*, int, ...)>("open");
  mode_t mode = 0;
  if ((flags & (O_CREAT | O_TMPFILE)) != 0) {
    va_list rest;
    va_start(rest, flags);
    mode = va_arg(rest, mode_t);
    va_end(rest);
  }
  if (FailsAt(path, "open")) return -1;
  const int descriptor = real(path, flags, mode);
  TheAttack().SetOpened(descriptor, TheAttack().IsInside(path));
  return descriptor;
}

int close(int descriptor) {
  static const auto real = Real<int (*)(int)>("close");
  const bool fails = FailsOn(descriptor, "close");
  const int code = errno;
  TheAttack().SetOpened(descriptor, false);
  const int result = real(descriptor);
  if (!fails) return result;
  errno = code;
  return -1;
}

ssize_t read(int descriptor, void* buffer, size_t size) {
  static const auto real = Real<ssize_t (*)(int, void*, size_t)>("read");
  return FailsOn(descriptor, "read") ? -1 : real(descriptor, buffer, size);
}

ssize_t write(int descriptor, const void* buffer, size_t size) {
  static const auto real = Real<ssize_t (*)(int, const void*, size_t)>("write");
  const Fate fate = Decide(TheAttack().IsOpened(descriptor), "write", "");
  if (fate == Fate::kGoOn) return real(descriptor, buffer, size);
  if (fate == Fate::kFail) return -1;
  static_cast<void>(real(descriptor, buffer, size / 2));
  Attack::Kill();
}

int rename(const char* from, const char* to) noexcept {
  static const auto real = Real<int (*)(const char*, const char*)>("rename");
  return FailsAt(from, "rename") ? -1 : real(from, to);
}

int unlink(const char* path) noexcept {
  static const auto real = Real<int (*)(const char*)>("unlink");
  return FailsAt(path, "unlink") ? -1 : real(path);
}

int mkdir(const char* path, mode_t mode) noexcept {
  static const auto real = Real<int (*)(const char*, mode_t)>("mkdir");
  return FailsAt(path, "mkdir") ? -1 : real(path, mode);
}

int chmod(const char* path, mode_t mode) noexcept {
  static const auto real = Real<int (*)(const char*, mode_t)>("chmod");
  return FailsAt(path, "chmod") ? -1 : real(path, mode);
}

int fchmod(int descriptor, mode_t mode) noexcept {
  static const auto real = Real<int (*)(int, mode_t)>("fchmod");
  return FailsOn(descriptor, "fchmod") ? -1 : real(descriptor, mode);
}

int fsync(int descriptor) {
  static const auto real = Real<int (*)(int)>("fsync");
  return FailsOn(descriptor, "fsync") ? -1 : real(descriptor);
}

int stat(const char* path, struct stat* status) noexcept {
  static const auto real = Real<int (*)(const char*, struct stat*)>("stat");
  return FailsAt(path, "stat") ? -1 : real(path, status);
}

int lstat(const char* path, struct stat* status) noexcept {
  static const auto real = Real<int (*)(const char*, struct stat*)>("lstat");
  return FailsAt(path, "lstat") ? -1 : real(path, status);
}

int fstat(int descriptor, struct stat* status) noexcept {
  static const auto real = Real<int (*)(int, struct stat*)>("fstat");
  return FailsOn(descriptor, "fstat") ? -1 : real(descriptor, status);
}

int fstatat(int folder, const char* path, struct stat* status, int flags) noexcept {
  static const auto real = Real<int (*)(int, const char*, struct stat*, int)>("fstatat");
  return FailsOn(folder, "fstatat") ? -1 : real(folder, path, status, flags);
}

int futimens(int descriptor, const struct timespec* times) noexcept {
  static const auto real = Real<int (*)(int, const struct timespec*)>("futimens");
  return FailsOn(descriptor, "futimens") ? -1 : real(descriptor, times);
}

struct dirent* readdir(DIR* folder) {
  static const auto real = Real<struct dirent* (*)(DIR*)>("readdir");
  return FailsOn(::dirfd(folder), "readdir") ? nullptr : real(folder);
}

}  // extern "C"
