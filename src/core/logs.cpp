#include "core/logs.h"

#include <new>

#include "core/text.h"
#include "platform/system_error.h"

namespace orvenza {
namespace {

std::string FailureLine(std::string_view label, int number, std::string_view description) {
  return std::string(label).append(std::to_string(number)).append(" - ").append(description);
}

}  // namespace

Logs::Logs(Files& files, Clock& clock, LogPaths& paths, const std::string& programFolder)
    : files_(files),
      clock_(clock),
      paths_(paths),
      logFallback_(programFolder + "\\" + kLogFallback),
      errFallback_(programFolder + "\\" + kErrFallback) {}

void Logs::WrLog(std::string& message) { Write(paths_.LogPath, message, "WrLog", logFallback_); }

void Logs::WrErr(std::string& message) {
  if (paths_.ErrPath.empty()) paths_.ErrPath = errFallback_;
  Write(paths_.ErrPath, message, "WrErr", errFallback_);
}

void Logs::WrFailure(std::string_view label, int number, std::string_view description) {
  WrErr(FailureLine(label, number, description));
}

std::optional<std::string> Logs::FailureOf(std::string_view label, const std::function<void()>& step) {
  try {
    step();
    return std::nullopt;
  } catch (const SystemError& failure) {
    return FailureLine(label, failure.Number(), failure.Description());
  } catch (const std::bad_alloc&) {
    return FailureLine(label, error_number::kOutOfMemory, StandardDescription(error_number::kOutOfMemory));
  } catch (const std::exception& failure) {
    return FailureLine(label, error_number::kInternalError, failure.what());
  }
}

bool Logs::Attempt(std::string_view label, const std::function<void()>& step) {
  auto failure = FailureOf(label, step);
  if (failure) WrErr(*failure);
  return !failure;
}

std::vector<std::string> Logs::Paths() const {
  std::vector<std::string> all;
  for (const std::string& path : {paths_.LogPath, paths_.ErrPath, logFallback_, errFallback_}) {
    if (!path.empty()) all.insert(all.end(), {path, BakOf(path)});
  }
  return all;
}

void Logs::Write(const std::string& path, std::string& message, std::string_view routine,
                 const std::string& fallback) {
  try {
    MoveAsideWhenLarge(path);
    message.insert(0, clock_.Stamp(clock_.Now()) + " - ");
    if (path.empty()) throw SystemError(error_number::kPathFileAccess);
    files_.Append(path, message + std::string(kLineBreak));
  } catch (const SystemError& failure) {
    std::string line(routine);
    line.append(" : ").append(failure.Description()).append(" ").append(std::to_string(failure.Number()));
    line.append(" ( ").append(message).append(" )").append(kLineBreak);
    try {
      files_.Append(fallback, line);
    } catch (const SystemError&) {
      // There is no other place to write to, and the caller must not fail because of that.
    }
  } catch (const std::exception&) {
    // Out of memory, which no caller could handle better.
  }
}

void Logs::MoveAsideWhenLarge(const std::string& path) {
  if (!files_.Exists(path) || files_.Size(path) <= kRotationSize) return;
  files_.Copy(path, BakOf(path));
  files_.Remove(path);
}

}  // namespace orvenza
