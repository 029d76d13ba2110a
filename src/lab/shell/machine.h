#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace orvenza {

/// How complete the link control's registration is, in the order in which the system follows it.
enum class ControlState {
  kNoControls,  ///< The system does not support such controls.
  kNoName,      ///< The name is not registered.
  kNoClass,     ///< The name has no class.
  kNoServer,    ///< The class has no file.
  kNoFile,      ///< The file does not exist.
  kNoProgram,   ///< The file is not a library.
  kWrongBits,   ///< The library is not 32-bit, or is registered for 64-bit programs only.
  kUsable,
};

struct ControlRegistration {
  ControlState state = ControlState::kNoControls;
  std::string name;    ///< The name by which the connector creates it.
  std::string server;  ///< Path of its library; empty if unknown.
};

/// What the lab asks of the machine beyond the connector's seams. No call changes anything. Paths have "\" as
/// separator, as elsewhere.
class Machine {
 public:
  virtual ~Machine() = default;

  /// The operating system, its release and the processor, in one line.
  virtual std::string SystemName() const = 0;

  /// A folder's absolute path, without a trailing "\".
  virtual std::string FullFolder(const std::string& folder) const = 0;

  /// Free space for the user on the volume of an existing folder, in bytes; empty if unknown.
  virtual std::optional<std::uintmax_t> FreeSpace(const std::string& folder) const = 0;

  /// Identifies the volume of an existing folder: equal for folders on the same volume; "" if unknown.
  virtual std::string VolumeOf(const std::string& folder) const = 0;

  /// Whether the user may write to an existing file, or create files in an existing folder.
  virtual bool MayWrite(const std::string& path) const = 0;

  /// Whether a connector is running in this program folder.
  virtual bool IsServed(const std::string& programFolder) const = 0;

  virtual ControlRegistration FindControl() const = 0;

  /// The numbers of the serial ports ("COM3" is 3), ascending; empty if ports have no numbers.
  virtual std::optional<std::vector<int>> SerialPorts() const = 0;
};

}  // namespace orvenza
