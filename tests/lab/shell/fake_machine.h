#pragma once

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "lab/shell/machine.h"

namespace orvenza::test {

/// A machine without problems, which a test can change.
class FakeMachine : public Machine {
 public:
  std::set<std::string> readOnly;              ///< Paths that are not writable.
  std::map<std::string, std::string> volumes;  ///< For folders that are not on the volume "1".
  std::map<std::string, std::uintmax_t> free;  ///< For folders on a volume with less than 80 GB.
  bool served = false;
  ControlRegistration control{ControlState::kUsable, "EcrLinkXControl1.EcrLinkX", "C:\\Link\\EcrLinkX.ocx"};
  std::optional<std::vector<int>> ports{{1, 3}};

  std::string SystemName() const override { return "A system 1.2"; }
  std::string FullFolder(const std::string& folder) const override { return folder; }
  std::optional<std::uintmax_t> FreeSpace(const std::string& folder) const override {
    const auto found = free.find(folder);
    return found == free.end() ? 80'000'000'000u : found->second;
  }
  std::string VolumeOf(const std::string& folder) const override {
    const auto found = volumes.find(folder);
    return found == volumes.end() ? "1" : found->second;
  }
  bool MayWrite(const std::string& path) const override { return readOnly.count(path) == 0; }
  bool IsServed(const std::string&) const override { return served; }
  ControlRegistration FindControl() const override { return control; }
  std::optional<std::vector<int>> SerialPorts() const override { return ports; }
};

}  // namespace orvenza::test
