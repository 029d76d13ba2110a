#pragma once

#include <string>

namespace orvenza {

/// The sign that the program runs, and the operator's way to its menu. Neither call fails: without an icon
/// the program goes on.
class NotificationIcon {
 public:
  virtual ~NotificationIcon() = default;

  /// Shows the icon; `tip` is the main form's caption.
  virtual void CreateIcon(const std::string& tip) = 0;

  /// Takes the icon away; nothing happens when there is none.
  virtual void DeleteIcon() = 0;
};

}  // namespace orvenza
