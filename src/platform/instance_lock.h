#pragma once

#include <memory>
#include <string>

namespace orvenza {

/// Marks a program folder as served by this process, for as long as the object lives.
class [[nodiscard]] InstanceLock {
 public:
  explicit InstanceLock(const std::string& programFolder);
  ~InstanceLock();
  InstanceLock(const InstanceLock&) = delete;
  InstanceLock& operator=(const InstanceLock&) = delete;

  /// False when another running process serves the same folder. A folder that cannot be marked counts as
  /// free.
  [[nodiscard]] bool Acquired() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

/// Whether a running process serves the folder. Only checks: sets no mark and leaves nothing behind.
[[nodiscard]] bool IsFolderServed(const std::string& programFolder);

}  // namespace orvenza
