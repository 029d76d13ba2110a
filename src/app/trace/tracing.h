#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "core/event_loop.h"
#include "core/settings.h"
#include "device/ecr_link.h"
#include "platform/clock.h"
#include "platform/event_pump.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "ui/menu.h"
#include "ui/notification_icon.h"
#include "ui/operator.h"

namespace orvenza {

/// The trace of one run, if the settings ask for it. Each `Wrap...` puts a decorator in front of a seam;
/// without a trace it returns the seam itself, and nothing else does anything.
///
/// The order: the pump before the event loop is made, every seam before the connector, then Watch.
class Tracing {
 public:
  /// `settingsFiles` reads the settings file; a value that is refused, or a file that cannot be read, is a
  /// line in the error log and no trace. `clock` is the PC's. Without `wanted` there is none: another
  /// connector serves the folder and writes its own. All must outlive this object.
  Tracing(Files& files, const Files& settingsFiles, Clock& clock, const ProgramPaths& paths, bool wanted);
  ~Tracing();
  Tracing(const Tracing&) = delete;
  Tracing& operator=(const Tracing&) = delete;

  /// Whether OnTick has anything to do.
  bool WantsTicks() const { return parts_ != nullptr || late_ != nullptr; }

  /// Whether `path` is one of the trace's files.
  bool Owns(std::string_view path) const;

  Files& WrapFiles(Files& files);
  Folders& WrapFolders(Folders& folders);
  Clock& WrapClock(Clock& clock);
  EventPump& WrapEventPump(EventPump& pump);
  Operator& WrapOperator(Operator& person);
  EcrLink& WrapEcrLink(EcrLink& link);
  NotificationIcon& WrapNotificationIcon(NotificationIcon& icon);

  /// The connector's settings and loop; both must outlive the run.
  void Watch(const AppSettings& settings, EventLoop& loop);

  /// To be called at the start of each tick.
  void OnTick();

  /// Runs `handle`, which carries out an item of the icon's menu.
  void OnMenu(MenuItem item, const std::function<void()>& handle);

  /// The connector has ended. Without this call the trace ends as in a power cut.
  void End(int status);

 private:
  struct Parts;
  struct Late;
  std::unique_ptr<Parts> parts_;  ///< Null: no trace.
  std::unique_ptr<Late> late_;    ///< For settings that could not be read; null otherwise.
};

}  // namespace orvenza
