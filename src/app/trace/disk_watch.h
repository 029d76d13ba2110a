#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "app/trace/event_recorder.h"
#include "core/settings.h"
#include "simulator/virtual_disk.h"

namespace orvenza {

/// Adds the connector's disk operations to a transcript or trace, in terms of tickets: taken, split,
/// archived, aborted, deleted; and the lines of the two logs.
class DiskWatch {
 public:
  /// `recorder` must outlive the watch. `programFolder`, without a trailing "\\", is left out of paths.
  DiskWatch(EventRecorder& recorder, std::string programFolder)
      : recorder_(recorder), programFolder_(std::move(programFolder)) {}

  /// Sets the connector's settings, which contain its folders once they have been read. They must outlive the
  /// last event.
  void SetSettings(const AppSettings& settings) { settings_ = &settings; }

  void OnDisk(const DiskEvent& event);

 private:
  void OnAppended(const DiskEvent& event);
  void OnMoved(const DiskEvent& event, bool copied);

  std::string Shown(std::string_view path) const;

  EventRecorder& recorder_;
  std::string programFolder_;
  const AppSettings* settings_ = nullptr;
};

}  // namespace orvenza
