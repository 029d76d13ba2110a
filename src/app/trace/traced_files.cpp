#include "app/trace/traced_files.h"

#include <type_traits>
#include <utility>

#include "app/trace/event_words.h"
#include "app/trace/trace_mask.h"
#include "app/trace/transcript_text.h"
#include "platform/system_error.h"

namespace orvenza {
namespace {

/// Runs an operation of the system. `attempt` returns its words, which are needed only if something fails.
/// The failure `quiet` is none.
template <typename Run, typename Words>
auto Watched(FailureWatch& failures, const Words& attempt, const Run& run, int quiet = 0) {
  try {
    if constexpr (std::is_void_v<decltype(run())>) {
      run();
      if (failures.AnyFails()) failures.Worked(attempt());
    } else {
      auto result = run();
      if (failures.AnyFails()) failures.Worked(attempt());
      return result;
    }
  } catch (const SystemError& failure) {
    if (failure.Number() != quiet) failures.Failed(attempt(), failure.Number());
    throw;
  }
}

/// The words of an attempt on one path, or on two.
auto Words(const TraceWatches& watches, const char* verb, const std::string& path) {
  return [&watches, verb, &path] { return std::string(verb) + " " + ShownPath(path, watches.paths.AppPath); };
}

auto Words(const TraceWatches& watches, const char* verb, const std::string& from, const std::string& to) {
  return [&watches, verb, &from, &to] {
    return std::string(verb) + " " + ShownPath(from, watches.paths.AppPath) + " to " +
           ShownPath(to, watches.paths.AppPath);
  };
}

/// The bytes of a file; tells the trace the beginning of a file that is read to its end.
class TracedBytes : public ByteReader {
 public:
  TracedBytes(std::unique_ptr<ByteReader> bytes, std::string path, FolderWatch& watch)
      : bytes_(std::move(bytes)), path_(std::move(path)), watch_(watch) {}

  std::size_t Read(char* buffer, std::size_t capacity) override {
    const std::size_t count = bytes_->Read(buffer, capacity);
    if (content_.size() <= FolderWatch::kLongestContent) content_.append(buffer, count);
    if (count == 0 && capacity > 0 && !std::exchange(told_, true)) watch_.OnRead(path_, content_);
    return count;
  }

 private:
  std::unique_ptr<ByteReader> bytes_;
  std::string path_;
  FolderWatch& watch_;
  std::string content_;
  bool told_ = false;
};

}  // namespace

void TracedFiles::Tell(const DiskEvent& event) {
  watches_.folders.OnDisk(event);
  watches_.disk.OnDisk(event);
}

bool TracedFiles::Exists(const std::string& path) const {
  const bool exists =
      Watched(watches_.failures, Words(watches_, "check", path), [&] { return files_.Exists(path); });
  if (!exists) watches_.folders.OnMissing(path);
  return exists;
}

std::uintmax_t TracedFiles::Size(const std::string& path) const { return files_.Size(path); }

std::unique_ptr<ByteReader> TracedFiles::OpenForReading(const std::string& path) const {
  // On most days Remembered.ini does not exist.
  const int quiet = watches_.folders.IsTicket(path) ? 0 : error_number::kFileNotFound;
  auto bytes = Watched(
      watches_.failures, Words(watches_, "read", path), [&] { return files_.OpenForReading(path); }, quiet);
  if (!watches_.folders.WantsContent(path)) return bytes;
  return std::make_unique<TracedBytes>(std::move(bytes), path, watches_.folders);
}

void TracedFiles::Append(const std::string& path, std::string_view text) {
  Watched(watches_.failures, Words(watches_, "append to", path), [&] { files_.Append(path, text); });
  const char separator = watches_.settings == nullptr ? '\0' : watches_.settings->SeparatorChar;
  Tell({DiskAct::kAppended, path, {}, MaskQuotes(text, separator)});
}

void TracedFiles::Write(const std::string& path, std::string_view content) {
  Watched(watches_.failures, Words(watches_, "write", path), [&] { files_.Write(path, content); });
  Tell({DiskAct::kWritten, path});
}

void TracedFiles::Copy(const std::string& from, const std::string& to) {
  Watched(watches_.failures, Words(watches_, "copy", from, to), [&] { files_.Copy(from, to); });
  Tell({DiskAct::kCopied, from, to});
}

void TracedFiles::Move(const std::string& from, const std::string& to) {
  Watched(watches_.failures, Words(watches_, "move", from, to), [&] { files_.Move(from, to); });
  Tell({DiskAct::kMoved, from, to});
}

void TracedFiles::Remove(const std::string& path) {
  Watched(watches_.failures, Words(watches_, "remove", path), [&] { files_.Remove(path); });
  Tell({DiskAct::kRemoved, path});
}

void TracedFiles::ClearAttributes(const std::string& path) {
  files_.ClearAttributes(path);
  if (watches_.folders.IsReadOnly(path)) Tell({DiskAct::kAttributesCleared, path});
}

void TracedFiles::CopyModified(const std::string& from, const std::string& to) {
  files_.CopyModified(from, to);
}

bool TracedFolders::Exists(const std::string& path) const {
  return Watched(watches_.failures, Words(watches_, "check", path), [&] { return folders_.Exists(path); });
}

FolderListing TracedFolders::ListFolder(const std::string& pattern) const {
  FolderListing listing = Watched(watches_.failures, Words(watches_, "list", pattern),
                                  [&] { return folders_.ListFolder(pattern); });
  watches_.folders.OnListing(pattern, listing);
  return listing;
}

void TracedFolders::Create(const std::string& path) {
  Watched(watches_.failures, Words(watches_, "make", path), [&] { folders_.Create(path); });
  watches_.disk.OnDisk({DiskAct::kFolderMade, path});
}

void TracedFolders::Rename(const std::string& from, const std::string& to) {
  Watched(watches_.failures, Words(watches_, "rename", from), [&] { folders_.Rename(from, to); });
  watches_.disk.OnDisk({DiskAct::kFolderRenamed, from, to});
}

bool TracedFolders::DriveAvailable(const std::string& path) const {
  const bool available = folders_.DriveAvailable(path);
  const std::string attempt = "reach drive " + folders_.DriveOf(path);
  if (!available) watches_.failures.Failed(attempt, error_number::kDeviceUnavailable);
  if (available) watches_.failures.Worked(attempt);
  return available;
}

void TracedClock::SetTimeOfDay(int hour, int minute, int second) {
  Watched(
      watches_.failures, [] { return std::string("set the clock"); },
      [&] { clock_.SetTimeOfDay(hour, minute, second); });
  watches_.trace.ClockSet();
  RecordClock(watches_.trace, FixedStamp(clock_.Now()));
}

void WatchedPump::Dispatch() {
  pump_.Dispatch();
  after_();
}

void WatchedPump::WaitForEvent(std::chrono::nanoseconds limit) {
  pump_.WaitForEvent(limit);
  after_();
}

}  // namespace orvenza
