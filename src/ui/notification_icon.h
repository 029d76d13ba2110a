#pragma once

#include <string>

namespace orvenza {

/// Shows that the program runs, and gives the operator its menu. Neither call fails: the program goes on
/// without an icon.
class NotificationIcon {
 public:
  virtual ~NotificationIcon() = default;

  /// Shows the icon; `tip` is the main form's caption.
  virtual void CreateIcon(const std::string& tip) = 0;

  /// Removes the icon, if there is one.
  virtual void DeleteIcon() = 0;
};

}  // namespace orvenza
