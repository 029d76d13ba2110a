#pragma once

#include <functional>
#include <string>

#include "app/trace/disk_watch.h"
#include "app/trace/failure_watch.h"
#include "app/trace/folder_watch.h"
#include "platform/clock.h"
#include "platform/event_pump.h"
#include "platform/files.h"
#include "platform/folders.h"

namespace orvenza {

/// What a trace's decorators tell; shared by all of them.
struct TraceWatches {
  Trace& trace;
  DiskWatch& disk;
  FolderWatch& folders;
  FailureWatch& failures;
  const ProgramPaths& paths;
  const AppSettings* const& settings;  ///< Null until the connector exists.
};

/// Files that tell a trace about every operation, in the terms of VirtualDisk's observer.
class TracedFiles : public Files {
 public:
  /// Both must outlive this object.
  TracedFiles(Files& files, const TraceWatches& watches) : files_(files), watches_(watches) {}

  bool Exists(const std::string& path) const override;
  std::uintmax_t Size(const std::string& path) const override;
  std::unique_ptr<ByteReader> OpenForReading(const std::string& path) const override;
  void Append(const std::string& path, std::string_view text) override;
  void Write(const std::string& path, std::string_view content) override;
  void Copy(const std::string& from, const std::string& to) override;
  void Move(const std::string& from, const std::string& to) override;
  void Remove(const std::string& path) override;
  void ClearAttributes(const std::string& path) override;
  void CopyModified(const std::string& from, const std::string& to) override;

 private:
  void Tell(const DiskEvent& event);

  Files& files_;
  const TraceWatches& watches_;
};

/// The same for folders.
class TracedFolders : public Folders {
 public:
  TracedFolders(Folders& folders, const TraceWatches& watches) : folders_(folders), watches_(watches) {}

  bool Exists(const std::string& path) const override;
  FolderListing ListFolder(const std::string& pattern) const override;
  void RemoveUnfinished(const std::string& folder) override { folders_.RemoveUnfinished(folder); }
  void Create(const std::string& path) override;
  void Rename(const std::string& from, const std::string& to) override;
  std::string DriveOf(const std::string& path) const override { return folders_.DriveOf(path); }
  bool DriveAvailable(const std::string& path) const override;

 private:
  Folders& folders_;
  const TraceWatches& watches_;
};

/// A clock that tells a trace when it is set.
class TracedClock : public Clock {
 public:
  TracedClock(Clock& clock, const TraceWatches& watches) : clock_(clock), watches_(watches) {}

  LocalTime Now() const override { return clock_.Now(); }
  double SecondsSinceMidnight() const override { return clock_.SecondsSinceMidnight(); }
  std::chrono::nanoseconds Uptime() const override { return clock_.Uptime(); }
  void SetTimeOfDay(int hour, int minute, int second) override;
  std::string Stamp(const LocalTime& time) const override { return clock_.Stamp(time); }

 private:
  Clock& clock_;
  const TraceWatches& watches_;
};

/// A pump that calls `after` whenever events may have been delivered.
class WatchedPump : public EventPump {
 public:
  WatchedPump(EventPump& pump, std::function<void()> after) : pump_(pump), after_(std::move(after)) {}

  void Dispatch() override;
  void WaitForEvent(std::chrono::nanoseconds limit) override;
  void SkipIdle(std::chrono::nanoseconds slice, std::chrono::nanoseconds until) override {
    pump_.SkipIdle(slice, until);
  }

 private:
  EventPump& pump_;
  std::function<void()> after_;
};

}  // namespace orvenza
