#pragma once

#include "core/settings.h"
#include "lab/rehearsal/transcript.h"
#include "simulator/virtual_disk.h"

namespace orvenza {

/// Adds the connector's disk operations to a transcript, in terms of tickets: taken, split, archived,
/// aborted, deleted; and the lines of the two logs.
class DiskWatch {
 public:
  /// `transcript` must outlive the watch.
  explicit DiskWatch(Transcript& transcript) : transcript_(transcript) {}

  /// Sets the connector's settings, which contain its folders once they have been read. They must outlive the
  /// last event.
  void SetSettings(const AppSettings& settings) { settings_ = &settings; }

  void OnDisk(const DiskEvent& event);

 private:
  void OnAppended(const DiskEvent& event);
  void OnMoved(const DiskEvent& event, bool copied);

  Transcript& transcript_;
  const AppSettings* settings_ = nullptr;
};

}  // namespace orvenza
