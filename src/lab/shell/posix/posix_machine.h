#pragma once

#include "lab/shell/machine.h"

namespace orvenza {

/// A POSIX system, which has neither controls nor numbered ports.
class PosixMachine : public Machine {
 public:
  std::string SystemName() const override;
  std::string FullFolder(const std::string& folder) const override;
  std::optional<std::uintmax_t> FreeSpace(const std::string& folder) const override;
  std::string VolumeOf(const std::string& folder) const override;
  bool MayWrite(const std::string& path) const override;
  bool IsServed(const std::string& programFolder) const override;
  ControlRegistration FindControl() const override { return {}; }
  std::optional<std::vector<int>> SerialPorts() const override { return {}; }
};

}  // namespace orvenza
