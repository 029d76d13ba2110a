#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "app/trace/event_recorder.h"
#include "device/ecr_link.h"
#include "simulator/simulated_link.h"
#include "ui/notification_icon.h"

namespace orvenza {

/// What a session's end is called in a transcript; its kind is "world".
inline constexpr const char* kSessionEnds = "the session ends";

/// Records an event of the line. `text` is the command or the reply as it is to be shown, in the register's
/// encoding; `property` returns the properties last set on the link control.
void RecordLine(EventRecorder& recorder, LineEvent event, const std::string& text,
                const std::function<int(LinkProperty)>& property);

/// Records that the PC's clock was set; `stamp` is what it shows now.
void RecordClock(EventRecorder& recorder, const std::string& stamp);

/// Records that the notification icon appears or disappears.
class RecordedIcon : public NotificationIcon {
 public:
  /// `behind` is the icon itself; null if there is none.
  explicit RecordedIcon(EventRecorder& recorder, NotificationIcon* behind = nullptr)
      : recorder_(recorder), behind_(behind) {}
  void CreateIcon(const std::string& tip) override;
  void DeleteIcon() override;

 private:
  EventRecorder& recorder_;
  NotificationIcon* behind_;
};

}  // namespace orvenza
