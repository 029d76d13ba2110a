#include "app/trace/tracing.h"

#include <deque>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/trace/event_words.h"
#include "app/trace/trace_setting.h"
#include "app/trace/traced_files.h"
#include "app/trace/traced_link.h"
#include "app/trace/traced_operator.h"
#include "app/trace/transcript_text.h"
#include "core/own_texts.h"
#include "core/version.h"
#include "platform/ini_profile_file.h"
#include "platform/ini_text.h"
#include "platform/program_end.h"
#include "platform/system_error.h"

namespace orvenza {
namespace {

/// The settings file as the connector will find it; empty if there is none. Throws SystemError.
std::string SettingsText(const Files& files, const ProgramPaths& paths) {
  return files.Exists(paths.Ini()) ? ReadWhole(files, paths.Ini(), IniProfileFile::kLargestFile)
                                   : std::string();
}

LogPaths LogsOf(const ProgramPaths& paths) {
  return {paths.AppPath + "\\Log.txt", paths.AppPath + "\\Err.txt"};
}

/// Writes a line to the error log.
void LogFor(Files& files, Clock& clock, const ProgramPaths& paths, std::string line) {
  LogPaths logPaths = LogsOf(paths);
  Logs(files, clock, logPaths, paths.AppPath).WrErr(line);
}

std::vector<TranscriptEvent> HeadOf(const ProfileContent& content, const ProgramPaths& paths) {
  std::vector<TranscriptEvent> head{
      {{}, "start", std::string("Orvenza ") + kVersionText + " in " + Printable(paths.AppPath)}};
  std::vector<ProfileValue> keys = DefaultSettings(paths.AppPath);
  for (ProfileValue& key : OptionalSettings()) keys.push_back(std::move(key));
  for (const ProfileValue& key : keys) {
    const auto value = content.Value(key.section, key.key);
    if (key.key.empty() || !value) continue;
    head.push_back({{}, "setting", "[" + key.section + "] " + key.key + " = " + Printable(*value)});
  }
  return head;
}

}  // namespace

/// Everything that a trace consists of.
struct Tracing::Parts {
  Parts(Files& files, Clock& clock, const std::string& path, const ProgramPaths& programPaths)
      : paths(programPaths),
        logPaths(LogsOf(paths)),
        logs(files, clock, logPaths, paths.AppPath),
        trace(files, clock, logs, path),
        disk(trace, paths.AppPath),
        folders(trace, paths),
        failures(trace) {}

  /// Records the end of the session once it has been asked for.
  void LookForEnd() {
    if (endTold || loop == nullptr || !loop->EndRequested()) return;
    endTold = true;
    trace.Add("world", kSessionEnds);
  }

  ProgramPaths paths;
  LogPaths logPaths;
  Logs logs;
  Trace trace;
  DiskWatch disk;
  FolderWatch folders;
  FailureWatch failures;
  const AppSettings* settings = nullptr;
  EventLoop* loop = nullptr;
  bool endTold = false;
  TraceWatches watches{trace, disk, folders, failures, paths, settings};

  std::deque<TracedFiles> tracedFiles;
  std::optional<TracedFolders> tracedFolders;
  std::optional<TracedClock> tracedClock;
  std::optional<WatchedPump> pump;
  std::optional<TracedOperator> person;
  std::optional<TracedLink> link;
  std::optional<RecordedIcon> icon;
};

/// Settings that could not be read before the start.
struct Tracing::Late {
  Files& files;
  const Files& settingsFiles;
  Clock& clock;
  ProgramPaths paths;

  /// If they ask for a trace, its absence is explained.
  void Explain() const {
    try {
      const IniText content(SettingsText(settingsFiles, paths));
      if (ReadTraceSetting(content, paths).path.empty()) return;
      LogFor(files, clock, paths, own_text::kTraceTooLate);
    } catch (const SystemError&) {
      // The connector has written a line about that.
    }
  }
};

Tracing::Tracing(Files& files, const Files& settingsFiles, Clock& clock, const ProgramPaths& paths,
                 bool wanted) {
  if (!wanted) return;
  std::string text;
  try {
    text = SettingsText(settingsFiles, paths);
  } catch (const SystemError&) {
    late_ = std::make_unique<Late>(Late{files, settingsFiles, clock, paths});
    return;
  }
  const IniText content(text);
  const TraceSetting setting = ReadTraceSetting(content, paths);
  if (!setting.refused.empty())
    LogFor(files, clock, paths, std::string(own_text::kTraceRefused) + " " + setting.refused);
  if (setting.path.empty()) return;
  parts_ = std::make_unique<Parts>(files, clock, setting.path, paths);
  parts_->trace.Start(HeadOf(content, paths));
}

Tracing::~Tracing() = default;

bool Tracing::Owns(std::string_view path) const {
  return parts_ && TraceFile::IsOne(path, parts_->trace.Path());
}

Files& Tracing::WrapFiles(Files& files) {
  return parts_ ? parts_->tracedFiles.emplace_back(files, parts_->watches) : files;
}

Folders& Tracing::WrapFolders(Folders& folders) {
  if (!parts_) return folders;
  return parts_->tracedFolders.emplace(folders, parts_->watches);
}

Clock& Tracing::WrapClock(Clock& clock) {
  if (!parts_) return clock;
  return parts_->tracedClock.emplace(clock, parts_->watches);
}

EventPump& Tracing::WrapEventPump(EventPump& pump) {
  if (!parts_) return pump;
  return parts_->pump.emplace(pump, [this] { parts_->LookForEnd(); });
}

Operator& Tracing::WrapOperator(Operator& person) {
  if (!parts_) return person;
  return parts_->person.emplace(person, parts_->watches);
}

EcrLink& Tracing::WrapEcrLink(EcrLink& link) {
  if (!parts_) return link;
  return parts_->link.emplace(link, parts_->watches);
}

NotificationIcon& Tracing::WrapNotificationIcon(NotificationIcon& icon) {
  if (!parts_) return icon;
  return parts_->icon.emplace(parts_->trace, &icon);
}

void Tracing::Watch(const AppSettings& settings, EventLoop& loop) {
  if (!parts_) return;
  parts_->settings = &settings;
  parts_->disk.SetSettings(settings);
  parts_->folders.SetSettings(settings);
  parts_->loop = &loop;
}

void Tracing::OnTick() {
  if (late_) late_->Explain();
  late_.reset();
  if (parts_) parts_->trace.Tick();
}

void Tracing::OnMenu(MenuItem item, const std::function<void()>& handle) {
  if (!parts_) return handle();
  parts_->trace.Add("menu", MenuCaptions()[static_cast<std::size_t>(item)]);
  const bool before = parts_->loop != nullptr && parts_->loop->EndRequested();
  handle();
  // The operator has ended the program, not the session.
  if (!before && parts_->loop != nullptr && parts_->loop->EndRequested()) parts_->endTold = true;
}

void Tracing::End(int status) {
  if (!parts_) return;
  parts_->trace.Close();
  parts_->trace.Add("end", status == exit_status::kInOrder ? "" : "status " + std::to_string(status));
}

}  // namespace orvenza
