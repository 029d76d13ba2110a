#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace orvenza {

/// How far the link control's registration leads, in the order in which the system follows it.
enum class ControlState {
  kNoControls,  ///< The system has no such controls at all.
  kNoName,      ///< Its name is not registered.
  kNoClass,     ///< The name leads to no class.
  kNoServer,    ///< The class names no file.
  kNoFile,      ///< The file does not exist.
  kNoProgram,   ///< The file is no library.
  kWrongBits,   ///< The library is not of 32 bits, or registered for programs of 64 bits only.
  kUsable,
};

struct ControlRegistration {
  ControlState state = ControlState::kNoControls;
  std::string name;    ///< The name that the connector creates it by.
  std::string server;  ///< Its file; empty until one is found.
};

/// What the lab asks of the machine beyond the connector's own seams. Every question only looks: nothing on
/// the machine changes by it. Paths are as elsewhere, with "\" between their levels.
class Machine {
 public:
  virtual ~Machine() = default;

  /// The operating system, its release and what it runs on, in one line.
  virtual std::string SystemName() const = 0;

  /// A folder from the root on, without a "\" at its end.
  virtual std::string FullFolder(const std::string& folder) const = 0;

  /// Bytes that the user may still write to the volume of an existing folder; nothing where that is unknown.
  virtual std::optional<std::uintmax_t> FreeSpace(const std::string& folder) const = 0;

  /// The same text for two existing folders on one volume, different ones on two; "" where that is unknown.
  virtual std::string VolumeOf(const std::string& folder) const = 0;

  /// Whether the user may write to an existing file, or make files in an existing folder.
  virtual bool MayWrite(const std::string& path) const = 0;

  /// Whether a connector runs on this program folder.
  virtual bool IsServed(const std::string& programFolder) const = 0;

  virtual ControlRegistration FindControl() const = 0;

  /// The numbers of the serial ports ("COM3" is 3), ascending; nothing where ports have no numbers.
  virtual std::optional<std::vector<int>> SerialPorts() const = 0;
};

}  // namespace orvenza
