#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "lab/rehearsal/scenario.h"

namespace orvenza {

/// Thrown when the PC loses its power. Deliberately not a std::exception: no trap may stop it.
struct PowerFailure {};

/// Cuts the power at the points of the connector's work that a scenario names: the functions then throw
/// PowerFailure.
class PowerWatch {
 public:
  /// `cuts` must outlive the watch. `tell` is called before each cut.
  PowerWatch(const std::vector<PowerCut>& cuts, std::function<void()> tell)
      : cuts_(cuts), seen_(cuts.size()), tell_(std::move(tell)) {}

  /// The command is sent next.
  void Sending(const std::string& command);
  /// A reply to the latest command has arrived.
  void Replied() { CutIf(afterReply_); }
  /// The connector has changed something on the disk.
  void Changed();

  /// The cuts whose point was not reached, as texts such as "before 1036 #2".
  [[nodiscard]] std::vector<std::string> Missed() const;

 private:
  void CutIf(bool reached);

  const std::vector<PowerCut>& cuts_;
  std::vector<std::size_t> seen_;  ///< Per cut: how often what it counts has occurred.
  std::function<void()> tell_;
  bool afterReply_ = false;
};

}  // namespace orvenza
